#pragma once

/// The referee's incidents in words, for the event lines.

#include <array>
#include <string>

#include "arena/referee/Ruling.h"

namespace arena {

/// What the referee doesn't know or doesn't say again.
struct Scoreboard {
  std::array<std::string, 2> teamNames{};  ///< order of Side; empty while a side has no team
  std::array<int, 2> score{};              ///< order of Side, after the incident
};

/// "goal for left (Foo), 1:0, by left 6"
std::string words(const Incident& incident, const Scoreboard& board);

}  // namespace arena
