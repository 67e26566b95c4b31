#pragma once

/// The real player in one session of the recorded match, and what it answered.

#include <string>
#include <vector>

/// One message and all that the player did before it waited for the next.
struct Turn {
  std::string message;
  std::vector<std::string> frames;
  std::string output;  ///< the lines on standard output

  bool operator==(const Turn&) const = default;
};

/// Plays the session of NUMBER in the team on the LEFT or on the right, with CLOCK as the player's
/// calendar time, ends the player by SIGINT and one more message, and hands back all turns; the
/// first is the start, with an empty message. Throws std::runtime_error when the player doesn't end
/// with status 0 or writes to standard error.
[[nodiscard]] std::vector<Turn> PlaySession(int number, bool left, long long clock);
