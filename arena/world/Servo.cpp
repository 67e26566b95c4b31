#include "arena/world/Servo.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "arena/model/PhysicsTable.h"

namespace arena {
namespace {

constexpr double kRadPerDeg = std::numbers::pi / 180.0;

}  // namespace

double cutSpeed(double radPerSec) {
  return std::clamp(radPerSec, -kMaxJointSpeed, kMaxJointSpeed);
}

double wantedSpeed(Servo& servo, const JointRow& row, double angle, double step) {
  const double low = row.lowDeg * kRadPerDeg;
  const double high = row.highDeg * kRadPerDeg;
  const double near = std::clamp(servo.held, angle - kServoMaxLag, angle + kServoMaxLag);
  const double now = std::clamp(near, low, high);
  servo.held = std::clamp(now + servo.speed * step, low, high);
  return (servo.held - now) / step + kServoHoldRate * (now - angle);
}

void driveJoints(const Scene& scene, mjData& data, std::span<Servos* const> servos) {
  const double step = scene.model->opt.timestep;
  // The share of the way to the wanted speed that an exponential approach covers in one step, so
  // that the motion doesn't hang on the step.
  const double rate = (1.0 - std::exp(-step / kServoTimeConstant)) / step;
  for (int row = data.ne; row < data.ne + data.nf; ++row) {
    if (data.efc_type[row] != mjCNSTR_FRICTION_DOF) continue;
    const int dof = data.efc_id[row];
    const DofOwner owner = scene.dofOwner[static_cast<std::size_t>(dof)];
    if (owner.robot < 0) continue;
    const auto robot = static_cast<std::size_t>(owner.robot);
    const auto joint = static_cast<std::size_t>(owner.joint);
    const double angle = data.qpos[scene.robots[robot].jointPosition[joint]];
    const double wanted = wantedSpeed((*servos[robot])[joint], kJoints[joint], angle, step);
    data.efc_aref[row] = rate * (wanted - data.qvel[dof]);
  }
}

}  // namespace arena
