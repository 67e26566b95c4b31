#pragma once

/// What a world shows of itself after a cycle: plain values, no physics engine in sight.
/// The senses, the referee, the match and the tests read these; only World writes them.
///
/// Field frame: origin at the centre, x towards the right team's goal, y to the left of the left
/// team's attack, z up; metres. Torso frame: x to the right, y forward, z up.

#include <array>
#include <cstddef>

#include "arena/model/BodyTable.h"

namespace arena {

/// Row-major rotation: its columns are the frame's axes, seen from the field.
using Mat3 = std::array<double, 9>;

/// A place in the field frame and the axes of the frame that stands there.
struct Frame {
  Vec3 position{};                       ///< [m]
  Mat3 axes{1, 0, 0, 0, 1, 0, 0, 0, 1};  ///< columns: the frame's own x, y, z
};

/// Where a robot is put: its torso upright, joints at zero, soles on the ground.
struct Pose {
  double x = 0;           ///< [m] field frame
  double y = 0;           ///< [m] field frame
  double headingDeg = 0;  ///< [deg] direction of the robot's forward axis, from +x towards +y

  friend bool operator==(const Pose&, const Pose&) = default;
};

/// A robot that comes onto the field.
struct Arrival {
  int slot = 0;  ///< 0 to 11
  Pose pose{};
};

/// One foot's force sensor.
struct FootForce {
  bool touching = false;  ///< the foot touched something during the last step of the cycle
  Vec3 centre{};          ///< [m] centre of pressure, in the foot's frame
  Vec3 force{};           ///< [N] on the foot, in the foot's frame
};

/// One robot after a cycle.
struct RobotState {
  Frame torso{};
  Frame camera{};        ///< in the head, turning with it: x right, y along the view, z up
  Vec3 torsoVelocity{};  ///< [m/s] field frame
  std::array<double, kJointCount> jointAngleDeg{};  ///< rows as in kJoints
  Vec3 gyroDegPerSec{};                             ///< torso frame
  Vec3 accelerometer{};  ///< [m/s^2] torso frame, low-passed; standing still: (0, 0, 9.81)
  FootForce leftFoot{};
  FootForce rightFoot{};
  /// What others can see of it, field frame.
  Vec3 head{}, leftLowerArm{}, rightLowerArm{}, leftFootPosition{}, rightFootPosition{};
};

struct BallState {
  Vec3 position{};         ///< [m] field frame, of its centre
  Vec3 velocity{};         ///< [m/s]
  Vec3 angularVelocity{};  ///< [rad/s]
};

}  // namespace arena
