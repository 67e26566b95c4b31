#pragma once

/// The command line of pitcharena. main() reads it once, at the start.

#include <optional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "arena/main/MatchServer.h"

namespace arena {

struct Options {
  ServerSettings server{};
  std::string logFile{};      ///< event lines are written here too; empty: not
  std::string summaryFile{};  ///< the summary as JSON; empty: none
};

/// A command line that can't be followed; what() is one line that names the culprit.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The text that --help asks for.
struct HelpText {
  std::string text;
};

/// ARGUMENTS are those behind the program's name. Throws UsageError.
std::variant<Options, HelpText> readOptions(const std::vector<std::string>& arguments);

}  // namespace arena
