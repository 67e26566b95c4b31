#pragma once

/// A joint's motor: a velocity servo that holds the last speed it was given, up to a torque limit.
/// A World asks each servo, once per physics step, what speed the joint should have now.
///
/// The torque itself is the engine's to find: the joint has a dry-friction constraint whose limit
/// is the motor's torque, and driveJoints() moves that constraint's reference from "at rest" to "at
/// the wanted speed". The solver then settles motors and contacts together, which stays stable at
/// steps where a stiff velocity actuator shakes the robot off its feet.

#include <array>
#include <span>

#include "arena/model/BodyTable.h"
#include "arena/world/Scene.h"

namespace arena {

/// One motor's memory. Angles in radians.
struct Servo {
  double speed = 0;  ///< [rad/s] commanded, already cut
  double held = 0;   ///< [rad] where the commanded motion has got to
};

using Servos = std::array<Servo, kJointCount>;

/// SPEED cut to what a motor can do. [rad/s]
double cutSpeed(double radPerSec);

/// The speed that ROW's joint at ANGLE (rad) should have during the next STEP (s); moves SERVO's
/// memory on. Never points out of the joint's range once the joint is at its end.
double wantedSpeed(Servo& servo, const JointRow& row, double angle, double step);

/// To be called between the two halves of a physics step, when the constraints are known and not
/// yet solved. SERVOS in the order of the scene's robots.
void driveJoints(const Scene& scene, mjData& data, std::span<Servos* const> servos);

}  // namespace arena
