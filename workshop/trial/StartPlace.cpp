#include "workshop/trial/StartPlace.h"

#include <cmath>
#include <numbers>

namespace workshop {
namespace {

constexpr double kRadPerDeg = std::numbers::pi / 180.0;
constexpr double kTippedDeg = 50;    ///< [deg] beyond any balance
constexpr double kClearance = 0.01;  ///< [m] above the ground, since joints may stand askew
// From the torso's origin, level, to the edges of the soles. [m]
constexpr double kToToes = 0.105;
constexpr double kToHeels = 0.055;
constexpr double kToOuterEdge = 0.095;

}  // namespace

double headingOf(const arena::Frame& torso) {
  return std::atan2(torso.axes[4], torso.axes[1]);
}

bool isLying(Start start) {
  return start != Start::kUpright && start != Start::kReady;
}

arena::Frame tippingOver(Start start, double furtherDeg) {
  const double tilt = (kTippedDeg + furtherDeg) * kRadPerDeg;
  const double c = std::cos(tilt);
  const double s = std::sin(tilt);
  arena::Frame torso;
  // Where the torso's origin gets to when (-edge, height) turns about the edge by the tilt.
  const auto tip = [&](double edge) {
    return std::array{-edge * c + arena::kStandingHeight * s,
                      edge * s + arena::kStandingHeight * c + kClearance};
  };
  // The start looks along x: forward is +x, right is -y. Columns: right, forward, up.
  switch (start) {
    case Start::kOnFront:
    case Start::kOnBack: {
      const double way = start == Start::kOnFront ? 1 : -1;
      const double edge = start == Start::kOnFront ? kToToes : kToHeels;
      const auto [along, height] = tip(edge);
      torso.position = {kStartPose.x + way * (edge + along), kStartPose.y, height};
      torso.axes = {0, c, way * s, -1, 0, 0, 0, -way * s, c};
      break;
    }
    case Start::kOnRight:
    case Start::kOnLeft:
    default: {
      const double way = start == Start::kOnRight ? -1 : 1;  // along y
      const auto [along, height] = tip(kToOuterEdge);
      torso.position = {kStartPose.x, kStartPose.y + way * (kToOuterEdge + along), height};
      torso.axes = {0, 1, 0, -c, 0, way * s, way * s, 0, c};
      break;
    }
  }
  return torso;
}

std::array<double, arena::kJointCount> jointsOfPose(Agent& agent, const char* file) {
  const int loadTime = agent.lastLoadTime;
  const int moveCycle = agent.lastMoveCycle;
  agent.loadMoveFromFile(file);
  std::array<double, arena::kJointCount> angles{};
  for (jointsFlag& flag : agent.jointFlags) {
    const std::size_t row = arena::rowOfPerceptor(flag.perceptorName);
    if (flag.active && row < angles.size()) angles[row] = flag.targetAngle / kRadPerDeg;
    flag.active = false;
  }
  agent.moveCyclesLeft = 0;
  agent.lastLoadTime = loadTime;
  agent.lastMoveCycle = moveCycle;
  return angles;
}

}  // namespace workshop
