#pragma once

/// Which of the beams that come in one cycle can be obeyed. They act together: two players may
/// change places, and nobody is put into a robot that stays. Called by the match.

#include <optional>
#include <vector>

#include "arena/world/State.h"

namespace arena {

/// [m] between two robots' torsos. Closer, a beam would put one into the other and the contact
/// would throw both; the start places of two teams that play themselves are 0.32 m apart.
inline constexpr double kRobotClearance = 0.25;

/// One robot on the field; WISH is empty for those that aren't beamed.
struct BeamWish {
  Pose now{};
  std::optional<Pose> wish{};
};

/// In the order of ROBOTS: true for each wish that is obeyed. Of two for the same place the earlier
/// one is.
std::vector<bool> obeyedBeams(const std::vector<BeamWish>& robots);

}  // namespace arena
