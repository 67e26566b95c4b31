#include "arena/world/Sensors.h"

#include <algorithm>
#include <array>
#include <numbers>

#include "arena/model/FieldTable.h"

namespace arena {
namespace {

constexpr double kDegPerRad = 180.0 / std::numbers::pi;
/// Weight of a cycle's new value in the accelerometer's low-pass: above 0.4 every footstep of a
/// walk reads like a fall, at 0.15 none does.
constexpr double kAccelerometerWeight = 0.15;

Vec3 vec3(const mjtNum* p) {
  return {p[0], p[1], p[2]};
}

Vec3 plus(const Vec3& a, const Vec3& b) {
  return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}
Vec3 minus(const Vec3& a, const Vec3& b) {
  return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
Vec3 times(const Vec3& a, double s) {
  return {a[0] * s, a[1] * s, a[2] * s};
}

}  // namespace

void Accelerometer::reset(const Mat3& torsoAxes) {
  velocity_ = {};
  reading_ = inFrame(torsoAxes, {0, 0, kGravity});
}

void Accelerometer::update(const Mat3& torsoAxes, const Vec3& velocity, double seconds) {
  const Vec3 change = times(minus(velocity, velocity_), 1.0 / seconds);
  const Vec3 felt = inFrame(torsoAxes, plus(change, {0, 0, kGravity}));
  reading_ = plus(reading_, times(minus(felt, reading_), kAccelerometerWeight));
  velocity_ = velocity;
}

Vec3 inFrame(const Mat3& axes, const Vec3& v) {
  return {axes[0] * v[0] + axes[3] * v[1] + axes[6] * v[2],
          axes[1] * v[0] + axes[4] * v[1] + axes[7] * v[2],
          axes[2] * v[0] + axes[5] * v[1] + axes[8] * v[2]};
}

Vec3 bodyPosition(const mjData& data, int body) {
  return vec3(data.xpos + 3 * body);
}

Frame bodyFrame(const mjData& data, int body) {
  Frame frame;
  frame.position = bodyPosition(data, body);
  std::copy_n(data.xmat + 9 * body, 9, frame.axes.begin());
  return frame;
}

FootForce footForce(const mjModel& model, const mjData& data, int footGeom) {
  Vec3 force{};
  Vec3 weighted{};
  double pressure = 0;
  for (int i = 0; i < data.ncon; ++i) {
    const mjContact& contact = data.contact[i];
    if (contact.geom1 != footGeom && contact.geom2 != footGeom) continue;
    std::array<mjtNum, 6> wrench{};
    mj_contactForce(&model, &data, i, wrench.data());
    if (wrench[0] <= 0) continue;
    // The contact frame's rows are its axes in the field; its force acts on the second shape.
    const double sign = contact.geom2 == footGeom ? 1.0 : -1.0;
    for (std::size_t axis = 0; axis < 3; ++axis) {
      force = plus(force, times(vec3(contact.frame + 3 * axis), sign * wrench[axis]));
    }
    weighted = plus(weighted, times(vec3(contact.pos), wrench[0]));
    pressure += wrench[0];
  }
  FootForce foot;
  if (pressure <= 0) return foot;
  const Frame frame = bodyFrame(data, model.geom_bodyid[footGeom]);
  foot.touching = true;
  foot.centre = inFrame(frame.axes, minus(times(weighted, 1.0 / pressure), frame.position));
  foot.force = inFrame(frame.axes, force);
  return foot;
}

RobotState observe(const mjData& data, const RobotIndex& robot) {
  RobotState state;
  state.torso = bodyFrame(data, robot.torso);
  state.camera = bodyFrame(data, robot.head);
  state.torsoVelocity = vec3(data.qvel + robot.velocity);
  for (std::size_t j = 0; j < kJointCount; ++j) {
    state.jointAngleDeg[j] = data.qpos[robot.jointPosition[j]] * kDegPerRad;
  }
  // The engine keeps a free body's angular velocity in that body's own frame already.
  state.gyroDegPerSec = times(vec3(data.qvel + robot.velocity + 3), kDegPerRad);
  state.head = bodyPosition(data, robot.head);
  state.leftLowerArm = bodyPosition(data, robot.leftLowerArm);
  state.rightLowerArm = bodyPosition(data, robot.rightLowerArm);
  state.leftFootPosition = bodyPosition(data, robot.leftFoot);
  state.rightFootPosition = bodyPosition(data, robot.rightFoot);
  return state;
}

BallState observeBall(const mjData& data, const BallIndex& ball) {
  BallState state;
  state.position = vec3(data.qpos + ball.position);
  state.velocity = vec3(data.qvel + ball.velocity);
  // Kept in the ball's own frame by the engine; seen from the field it needs the ball's attitude.
  std::array<mjtNum, 3> spin{};
  mju_rotVecQuat(spin.data(), data.qvel + ball.velocity + 3, data.qpos + ball.position + 3);
  state.angularVelocity = vec3(spin.data());
  return state;
}

}  // namespace arena
