#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include "data/DataFolder.h"
#include "workshop/generate/Shelf.h"
#include "workshop/main/Commands.h"

namespace workshop {
namespace {

struct GenerateOptions {
  std::string name{};
  std::string parameters = data::nearest("workshop/parameters", data::folder());
  std::string scripts = "scripts";
};

void generate(const GenerateOptions& options) {
  const Descriptions descriptions = readDescriptions(options.parameters);
  const Scripts scripts =
      options.name.empty() ? allScripts(descriptions) : scriptsOf(descriptions, options.name);
  std::filesystem::create_directories(options.scripts);
  for (const auto& [file, text] : scripts) {
    const std::filesystem::path path = std::filesystem::path(options.scripts) / file;
    std::ofstream out(path);
    out << text;
    if (!out.flush()) throw std::runtime_error(path.string() + ": can't be written");
    std::cout << path.string() << '\n';
  }
}

}  // namespace

void addGenerate(CLI::App& program, int& /*status*/) {
  CLI::App* const command =
      program.add_subcommand("generate", "Writes scripts from the parameters in the repository.");
  const auto options = std::make_shared<GenerateOptions>();
  command->add_option("NAME", options->name, "parameters to use (walk, turn15, ...); default: all");
  command->add_option("--parameters", options->parameters, "folder to read")->capture_default_str();
  command->add_option("--scripts", options->scripts, "folder to write")->capture_default_str();
  command->callback([options] { generate(*options); });
}

}  // namespace workshop
