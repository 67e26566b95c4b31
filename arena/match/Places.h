#pragma once

/// Where robots are put: before their first beam, and by a beam. Called by the match.

#include "arena/link/Commands.h"
#include "arena/referee/Side.h"
#include "arena/world/State.h"

namespace arena {

/// A place in a team's own frame: it attacks towards +x, and y is to the left of its attack.
struct TeamPlace {
  double x = 0;           ///< [m]
  double y = 0;           ///< [m]
  double headingDeg = 0;  ///< [deg] from the direction of attack, positive to the left; -180 to 180
};

/// A place of its own for each slot of the world (0 to 11) behind the touchline at +y, facing the
/// field, 1.5 m from the next.
Pose touchlinePose(int slot);

/// A beam in the field frame.
Pose beamPose(Side side, const BeamRequest& beam);

/// Whether a beam ends on the field or at most a metre outside of its lines.
bool isNearField(const Pose& pose);

/// The inverse of beamPose.
TeamPlace placeInTeamFrame(Side side, const Pose& pose);

/// Where a robot is and where its torso's forward axis points, seen from above.
Pose poseOf(const RobotState& robot);

}  // namespace arena
