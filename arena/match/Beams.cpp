#include "arena/match/Beams.h"

#include <cmath>

namespace arena {
namespace {

bool tooClose(const Pose& a, const Pose& b) {
  return std::hypot(a.x - b.x, a.y - b.y) < kRobotClearance;
}

/// Is robot I's wish in the way of, or taken by, another robot, if OBEYED are beamed?
bool isBlocked(const std::vector<BeamWish>& robots, const std::vector<bool>& obeyed,
               std::size_t i) {
  for (std::size_t j = 0; j < robots.size(); ++j) {
    if (j == i || (obeyed[j] && j > i)) continue;
    if (tooClose(*robots[i].wish, obeyed[j] ? *robots[j].wish : robots[j].now)) return true;
  }
  return false;
}

}  // namespace

std::vector<bool> obeyedBeams(const std::vector<BeamWish>& robots) {
  std::vector<bool> obeyed;
  obeyed.reserve(robots.size());
  for (const BeamWish& robot : robots) obeyed.push_back(robot.wish.has_value());
  // A robot whose beam is refused stays, and may be in another's way then.
  for (bool changed = true; changed;) {
    changed = false;
    for (std::size_t i = 0; i < robots.size(); ++i) {
      if (!obeyed[i] || !isBlocked(robots, obeyed, i)) continue;
      obeyed[i] = false;
      changed = true;
    }
  }
  return obeyed;
}

}  // namespace arena
