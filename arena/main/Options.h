#pragma once

/// The command line of pitcharena. main() reads it once, at the start.

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "arena/main/MatchServer.h"

namespace arena {

/// Where a match can be watched in a browser.
struct ViewOptions {
  bool on = true;
  std::optional<std::uint16_t> port{};  ///< 0: any; empty: the usual one, or any if that is taken
};

/// A match is to be played.
struct PlayOptions {
  ServerSettings server{};
  std::string logFile{};      ///< event lines are written here too; empty: not
  std::string summaryFile{};  ///< the summary as JSON; empty: none
  std::string recordFile{};   ///< the match record; empty: none
  ViewOptions view{};
  std::string playerLogs{};  ///< folder with the players' own output; empty: none
};

/// A recorded match is to be told once more.
struct ReplayOptions {
  std::string recordFile{};
  std::string summaryFile{};  ///< the summary as JSON; empty: none
  ViewOptions view{false, {}};
};

/// A recorded match is to be drawn from above.
struct PictureOptions {
  std::string recordFile{};
  std::string pictureFile{};
};

/// A command line that can't be followed; what() is one line that names the culprit.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The text that --help asks for.
struct HelpText {
  std::string text;
};

/// What the command line asks for.
using Request = std::variant<PlayOptions, ReplayOptions, PictureOptions, HelpText>;

/// ARGUMENTS are those behind the program's name. Throws UsageError.
Request readOptions(const std::vector<std::string>& arguments);

}  // namespace arena
