#include "arena/match/Places.h"

#include <cmath>
#include <numbers>

#include "arena/model/FieldTable.h"

namespace arena {
namespace {

constexpr double kPlaceSpacing = 1.5;     // [m] twelve places fill the touchline's 18 m
constexpr double kBehindTouchline = 0.6;  // [m] arms reach 0.2 m forward: clear of the line
constexpr double kBeamMargin = 1.0;       // [m]

/// -180 to 180; the sum turns -0, which players send, into 0.
double normalised(double degrees) {
  return std::remainder(degrees, 360.0) + 0.0;
}

/// Half a turn of the field: what is the left team's is the right team's and back.
Pose turned(const Pose& pose) {
  return {-pose.x, -pose.y, normalised(pose.headingDeg + 180)};
}

}  // namespace

Pose touchlinePose(int slot) {
  return {-kFieldLength / 2 + kPlaceSpacing * (slot + 0.5), kFieldWidth / 2 + kBehindTouchline,
          -90};
}

Pose beamPose(Side side, const BeamRequest& beam) {
  const Pose pose{beam.x, beam.y, normalised(beam.angleDeg)};
  return side == Side::kLeft ? pose : turned(pose);
}

bool isNearField(const Pose& pose) {
  return std::abs(pose.x) <= kFieldLength / 2 + kBeamMargin &&
         std::abs(pose.y) <= kFieldWidth / 2 + kBeamMargin;
}

TeamPlace placeInTeamFrame(Side side, const Pose& pose) {
  const Pose own = side == Side::kLeft ? pose : turned(pose);
  return {own.x, own.y, normalised(own.headingDeg)};
}

Pose poseOf(const RobotState& robot) {
  const Mat3& axes = robot.torso.axes;
  return {robot.torso.position[0], robot.torso.position[1],
          std::atan2(axes[4], axes[1]) * 180 / std::numbers::pi};
}

}  // namespace arena
