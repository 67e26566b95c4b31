#pragma once

/// How a robot is put into a trial's world before anything moves.

#include <array>

#include "arena/world/State.h"
#include "behaviour/Agent.h"
#include "workshop/trial/Job.h"

namespace workshop {

/// Far from the goals and the centre, with 16 m to walk ahead; looking along x.
inline constexpr arena::Pose kStartPose{-7, 2.5, 0};

/// [rad] of a torso's forward axis, from +x towards +y.
double headingOf(const arena::Frame& torso);

bool isLying(Start start);

/// The torso of a robot that tips over to START's side about the edge of its soles and can't be
/// held: falls end as in play, and not as the arms of a robot laid down flat would have it.
/// FURTHERDEG [deg] is added to the tilt.
arena::Frame tippingOver(Start start, double furtherDeg);

/// [deg] the joints that the pose script FILE asks for, read by the player; rows as in kJoints,
/// zero where it asks for nothing. AGENT is left as if it had never read it.
std::array<double, arena::kJointCount> jointsOfPose(Agent& agent, const char* file);

}  // namespace workshop
