/// Agent: the decision of one cycle, by play mode and shirt number.

#include "behaviour/Agent.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <iostream>
#include <string>
#include <string_view>

#include "perception/WorldModel.h"

namespace {

constexpr double kKickOffSeconds = 2.5;  ///< of the match clock, for the shot straight at kick-off
constexpr int kKickOffShirt = 6;
constexpr int kTeamSize = 6;
constexpr int kNobody = 7;
constexpr double kDeepInOwnHalf = -5.0;  ///< [m]
// Up to where the ball is the business of the backs, and of number 4. [m]
constexpr double kBackZone = -4.0;
constexpr double kMiddleZone = 0.0;

/// The restarts that a side takes, spelled in lower case.
constexpr std::array<std::string_view, 5> kLeftRestarts{
    "free_kick_left", "offside_left", "goal_kick_left", "corner_kick_left", "kickoff_left"};
constexpr std::array<std::string_view, 5> kRightRestarts{
    "free_kick_right", "offside_right", "goal_kick_right", "corner_kick_right", "kickoff_right"};

std::string lowered(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  });
  return text;
}

/// Shirt number of the team mate nearest to the ball.
int nearestMate(const WorldModel& world) {
  double best = 1e7;
  int nearest = -1;
  for (int i = 0; i < kTeamSize; ++i) {
    const VecPosition& p = world.vision.players[static_cast<std::size_t>(i)].polar.position;
    if (p.x == 0.0 && p.y == 0.0) {
      continue;  // never seen
    }
    const double d = p.getDistanceTo(world.ballPos);
    if (best > d) {
      best = d;
      nearest = i;
    }
  }
  if (nearest == -1) {
    return world.ballPos.x < kDeepInOwnHalf ? 2 : kNobody;
  }
  return nearest + 1;
}

}  // namespace

void Agent::updateState() {
  WorldModel* const world = WorldModel::getSingleton();
  if (world->gameTime < kKickOffSeconds && uNum == kKickOffShirt) {
    const bool ours = (world->teamSide == "left" && world->playMode == "KickOff_Left") ||
                      (world->teamSide == "right" && world->playMode == "KickOff_Right");
    if (ours) {
      kickR();
      return;
    }
  }
  if (!checkPlayModeEvent()) {
    return;
  }
  if (!collisionHandler()) {
    restoreState();
    return;
  }
  switch (uNum) {
    case 1:
      goalkeeper();
      break;
    case 2:
    case 3:
      if (world->ballPos.x < kBackZone) {
        kickHandler();
      }
      break;
    case 4:
      if (world->ballPos.x < kMiddleZone) {
        kickHandler();
      }
      break;
    case 5:
    case 6:
      goalHandler();
      break;
    default:
      break;
  }
}

bool Agent::checkPlayModeEvent() {
  WorldModel* const world = WorldModel::getSingleton();
  const std::string mode = lowered(world->playMode);
  if (mode == "playon") {
    return true;
  }
  if (mode == "beforekickoff") {
    return false;
  }
  if (nearestMate(*world) != uNum) {
    std::cout << "playmode says resore\n";
    restoreState();
    return true;
  }
  const auto& restarts = world->teamSide == "left" ? kLeftRestarts : kRightRestarts;
  if (std::find(restarts.begin(), restarts.end(), mode) != restarts.end()) {
    kickHandler();
  }
  return false;
}
