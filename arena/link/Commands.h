#pragma once

/// What one player has asked for since the match last looked: plain values, filled by the
/// effector reader frame by frame, taken and acted upon by the match as one at the next cycle.

#include <array>
#include <optional>
#include <string>

#include "arena/model/BodyTable.h"

namespace arena {

/// `(init (unum 3)(teamname Foo))`. The number may be any: the roster judges it.
struct InitRequest {
  int number = 0;
  std::string team{};
};

/// `(beam x y angle)` in the player's own frame: it attacks towards +x, whichever side it is on.
struct BeamRequest {
  double x = 0;         ///< [m]
  double y = 0;         ///< [m]
  double angleDeg = 0;  ///< [deg] from the direction of attack, positive to the left
};

/// Where an effector came several times, the last value stands.
struct Commands {
  int frames = 0;     ///< whole frames read
  int malformed = 0;  ///< effectors that were skipped
  int scenes = 0;     ///< requests for a body; a player sends one in its life
  std::optional<InitRequest> init{};
  std::optional<BeamRequest> beam{};
  std::optional<std::string> say{};
  /// [rad/s] rows of kJoints; the joints without a value keep their speed.
  std::array<std::optional<double>, kJointCount> jointSpeeds{};
};

}  // namespace arena
