#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "workshop/check/ScriptCheck.h"
#include "workshop/main/Commands.h"

namespace workshop {

void addCheck(CLI::App& program, int& status) {
  CLI::App* const command = program.add_subcommand(
      "check", "Says what the player would silently skip, cut or lose of a script.");
  const auto files = std::make_shared<std::vector<std::string>>();
  command->add_option("FILE", *files, "scripts")->required()->check(CLI::ExistingFile);
  command->callback([files, &status] {
    const auto findings = checkScripts({files->begin(), files->end()});
    for (const Finding& finding : findings) std::cout << textOf(finding) << '\n';
    status = anyFault(findings) ? 1 : 0;
  });
}

}  // namespace workshop
