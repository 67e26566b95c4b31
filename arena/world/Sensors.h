#pragma once

/// From the engine's arrays to what a robot and its watchers can know. A World calls these once per
/// cycle: the foot forces after the last step while its contacts still stand, the rest when asked.

#include <mujoco/mujoco.h>

#include "arena/world/Scene.h"
#include "arena/world/State.h"

namespace arena {

/// The accelerometer at the torso's origin. As smooth as a real one: it sees the velocity's change
/// over a whole cycle, low-passed. A robot's fall test acts on a single reading, and unfiltered
/// footsteps would look like falls.
class Accelerometer {
 public:
  /// Starts over for a torso at rest.
  void reset(const Mat3& torsoAxes);
  /// A cycle of SECONDS later the torso's origin moves at VELOCITY (m/s, field frame).
  void update(const Mat3& torsoAxes, const Vec3& velocity, double seconds);
  /// [m/s^2] specific force in the torso frame.
  [[nodiscard]] const Vec3& reading() const { return reading_; }

 private:
  Vec3 velocity_{};
  Vec3 reading_{};
};

/// V, given in the field frame, in the frame with AXES.
Vec3 inFrame(const Mat3& axes, const Vec3& v);

Frame bodyFrame(const mjData& data, int body);
Vec3 bodyPosition(const mjData& data, int body);

/// What the sensor under FOOTGEOM feels, from the contacts that the last step solved.
FootForce footForce(const mjModel& model, const mjData& data, int footGeom);

/// Everything about a robot but what needs memory: feet and accelerometer are left as they are in
/// a fresh RobotState. Needs up-to-date kinematics.
RobotState observe(const mjData& data, const RobotIndex& robot);
BallState observeBall(const mjData& data, const BallIndex& ball);

}  // namespace arena
