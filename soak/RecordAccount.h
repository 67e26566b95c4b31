#pragma once

/// What a match's own record says about cycles and players: the soak's witness that nothing was
/// lost. soak_report asks for one per match.

#include <istream>
#include <optional>
#include <string>
#include <vector>

namespace soak {

struct RecordAccount {
  long cycles = 0;        ///< in the record
  long lastCycle = 0;     ///< number of the last one
  long missing = 0;       ///< numbers up to the last one that are not in it
  long lateAnswers = 0;   ///< a player's cycles that began with its last message unanswered
  long answers = 0;       ///< cycles of all players together
  std::size_t atEnd = 0;  ///< shirts, each counted once, in the last cycle
  std::size_t joined = 0;
  std::size_t left = 0;
  std::size_t falls = 0;
  int goals = 0;
  bool finished = false;               ///< the match came to its end
  std::vector<long> absences{};        ///< [cycles] from a shirt's going to its coming back
  std::optional<std::string> fault{};  ///< why the record isn't whole
  std::vector<std::string> events{};   ///< as lines
};

/// Reads FILE to its end. Throws arena::RecordError when it is no record at all.
RecordAccount accountOf(std::istream& file);

}  // namespace soak
