/// pitcharena: reads its options, plays one match, shows what came of it.

#include <cerrno>
#include <cstring>
#include <exception>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <variant>
#include <vector>

#include "arena/main/Options.h"
#include "arena/main/StopSignals.h"

namespace {

constexpr int kUsageStatus = 2;

/// Opens NAME for writing, at once: a file that can't be written is better known before a match.
std::ofstream opened(const std::string& option, const std::string& name) {
  std::ofstream file;
  if (name.empty()) return file;
  file.open(name);
  if (!file) throw arena::UsageError(option + " " + name + ": " + std::strerror(errno));
  return file;
}

int play(const arena::Options& options) {
  arena::StopSignals signals;
  std::ofstream log = opened("--log", options.logFile);
  std::ofstream json = opened("--summary", options.summaryFile);
  arena::MatchServer server(options.server);

  // Every line at once: whoever reads them through a pipe acts on them.
  const auto say = [&log](const std::string& line) {
    std::cout << line << std::endl;
    if (log.is_open()) log << line << std::endl;
  };
  say("listening on " + options.server.link.listen + ":" + std::to_string(server.port()));
  const arena::Summary summary = server.run([&signals] { return signals.requested(); }, say);

  std::cout << '\n' << textOf(summary) << std::flush;
  if (json.is_open()) json << jsonOf(summary).dump(2) << '\n' << std::flush;
  if (json.is_open() && !json) throw std::runtime_error("the summary file can't be written");
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const auto request = arena::readOptions({argv + 1, argv + argc});
    if (const auto* help = std::get_if<arena::HelpText>(&request)) {
      std::cout << help->text;
      return 0;
    }
    return play(std::get<arena::Options>(request));
  } catch (const arena::UsageError& error) {
    std::cerr << "pitcharena: " << error.what() << '\n';
    return kUsageStatus;
  } catch (const arena::LinkError& error) {
    std::cerr << "pitcharena: " << error.what() << '\n';
    return kUsageStatus;
  } catch (const std::exception& error) {
    std::cerr << "pitcharena: " << error.what() << '\n';
    return 1;
  }
}
