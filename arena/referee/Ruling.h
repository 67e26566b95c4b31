#pragma once

/// What the referee looks at in a cycle and what it makes of it: plain values. The match fills a
/// FieldView, acts on the Ruling and tells people of its incidents.

#include <optional>
#include <vector>

#include "arena/model/BodyTable.h"
#include "arena/referee/FreeSpace.h"
#include "arena/referee/PlayMode.h"
#include "arena/referee/Side.h"

namespace arena {

/// One player as the rules see it.
struct PlayerView {
  Shirt shirt{};
  Vec3 position{};           ///< [m] field frame
  bool touchedBall = false;  ///< during the cycle that has just ended
};

/// What the referee looks at in a cycle. Players without a shirt aren't in it.
struct FieldView {
  Vec3 ball{};  ///< [m] field frame
  std::vector<PlayerView> players{};
};

/// What a person wants to be told.
struct Incident {
  enum class Kind {
    kGoal,
    kKickIn,
    kCornerKick,
    kGoalKick,
    kNotTaken,  ///< a restart that nobody took: play goes on without it
    kDroppedBall,
    kHalfTime,
    kFullTime,
  };
  Kind kind = Kind::kGoal;
  Side side = Side::kLeft;    ///< that scored, or whose restart it is; else of no account
  std::optional<Shirt> by{};  ///< of a goal: who touched the ball last, if anybody
  Vec3 place{};               ///< [m] of the ball
};

/// What the referee decided in a cycle.
struct Ruling {
  std::optional<PlayMode> newMode{};     ///< set in the cycle in which the mode changed
  std::optional<Vec3> placeBallAt{};     ///< [m] field frame; the ball lies there at rest
  std::optional<FreeSpace> freeSpace{};  ///< players in it are to be moved out
  std::optional<Incident> incident{};
};

}  // namespace arena
