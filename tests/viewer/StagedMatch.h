#pragma once

/// A match of six against six for a viewer to watch: real world, referee and records, players that
/// follow a script. Everyone is beamed to a place, sways, looks about and reports where it believes
/// itself and the ball to be, off by kBelievedOff. The ball can be put on its way by hand.

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "arena/match/Match.h"

namespace arena::test {

inline constexpr int kStagedPlayers = 12;
/// [m] between a player's true place and the one that it reports, in its team's frame.
inline constexpr double kBelievedOffX = 0.30;
inline constexpr double kBelievedOffY = -0.20;
/// Cycle after which the staged match is in play: nobody has to take the kick-off.
inline constexpr long kInPlay = 60;

class StagedMatch {
 public:
  StagedMatch();

  /// Plays one cycle.
  CycleRecord advance();
  /// Plays up to CYCLE.
  void playTo(long cycle);
  /// The ball rolls from 2.5 m before the right goal into it: a goal for left within a second.
  void shootAtRightGoal();
  /// The ball rolls from the right half to the middle, in view of left 6.
  void rollBall();
  [[nodiscard]] const CycleRecord& last() const { return last_; }

 private:
  [[nodiscard]] Commands commandsOf(int player) const;

  Match match_;
  CycleRecord last_{};
};

/// A record of FILE's own kind with a goal for left; the cycle of the goal.
long writeRecordWithGoal(const std::string& file, long cyclesAfterGoal = 150);

}  // namespace arena::test
