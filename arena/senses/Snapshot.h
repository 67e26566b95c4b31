#pragma once

/// Everything that there is to perceive in one cycle. The match fills one per cycle, after the
/// world's step and the referee's ruling; Perception reads it once for each player.

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "arena/referee/PlayMode.h"
#include "arena/referee/Side.h"
#include "arena/world/State.h"

namespace arena {

/// One robot on the field.
struct Actor {
  RobotState body{};
  std::optional<Shirt> shirt{};  ///< empty until its player has said `init`
  int slot = 0;                  ///< place in the world; keys the noise before there is a shirt
};

/// What one player said in this cycle.
struct Utterance {
  std::size_t speaker = 0;  ///< index into Snapshot::actors
  std::string text{};       ///< one word, no parentheses
};

struct Snapshot {
  long cycle = 0;    ///< since the start of the match; every third one is for looking
  double now = 0;    ///< [s] simulated since the start of the match
  double clock = 0;  ///< [s] the game's own clock
  PlayMode mode = PlayMode::kBeforeKickOff;
  std::array<std::string, 2> teamNames{};  ///< order of Side; empty while a side has no team
  BallState ball{};
  std::vector<Actor> actors{};
  std::vector<Utterance> said{};  ///< at most one per actor
};

}  // namespace arena
