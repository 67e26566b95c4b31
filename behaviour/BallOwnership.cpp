/// Agent: whose ball it is, who gives way, where the ball lies for the keeper.

#include "behaviour/Agent.h"

#include <cstddef>
#include <sstream>

#include "perception/WorldModel.h"

namespace {

constexpr std::size_t kTeamSize = 6;
constexpr std::size_t kPlayers = 12;
constexpr double kNobodyThere = 1e7;
constexpr double kFree = 3.0;       ///< [m]
constexpr double kOurLead = 1.0;    ///< [m] the team must lead by more
constexpr double kTheirLead = 0.5;  ///< [m]
constexpr int kRecent = 4;          ///< [cycles]
constexpr double kInTheWay = 0.5;   ///< [m]

bool wasSeenRecently(const WorldModel& world, const PolarInfo& polar) {
  return !(world.cycle - kRecent > polar.lastSeenCycle);
}

}  // namespace

void Agent::whoseBall() {
  const WorldModel& world = *WorldModel::getSingleton();
  closestMateDist = kNobodyThere;
  closestOpponentDist = kNobodyThere;
  closestMateIndex = -1;
  closestOpponentIndex = -1;
  for (std::size_t i = 0; i < kTeamSize; ++i) {
    if (closestMateDist > world.teamBall[i].distance) {
      closestMateDist = world.teamBall[i].distance;
      closestMateIndex = static_cast<int>(i);
    }
  }
  for (std::size_t i = kTeamSize; i < kPlayers; ++i) {
    const PolarInfo& polar = world.vision.players[i].polar;
    const double d = polar.position.getDistanceTo(world.ballPos);
    if (closestOpponentDist > d && wasSeenRecently(world, polar)) {
      closestOpponentDist = d;
      closestOpponentIndex = static_cast<int>(i);
    }
  }
  const bool iAmNearest = uNum == closestMateIndex + 1;
  if (closestMateDist > kFree && closestOpponentDist > kFree) {
    ballOwner = freeBall;
  } else if (closestOpponentDist - kOurLead > closestMateDist) {
    ballOwner = iAmNearest ? myBall : mateBall;
  } else if (closestMateDist - kTheirLead > closestOpponentDist) {
    ballOwner = opponentBall;
  } else {
    ballOwner = iAmNearest ? contestedMyBall : contestedMateBall;
  }
}

bool Agent::collisionHandler() {
  const WorldModel& world = *WorldModel::getSingleton();
  for (std::size_t i = 0; i < kTeamSize; ++i) {
    if (static_cast<int>(i) == uNum - 1) {
      continue;
    }
    const PolarInfo& mate = world.vision.players[i].polar;
    if (wasSeenRecently(world, mate) && mate.distance < kInTheWay) {
      // Only the first such mate is judged. At equal distances both give way.
      return mate.position.getDistanceTo(world.ballPos) > myPos.getDistanceTo(world.ballPos);
    }
  }
  return true;
}

bool Agent::isRightSideGK(PolarInfo ball) {
  return ball.angle - findJoint("hj1")->angle < 0;
}

void Agent::sendMyInfo() {
  const WorldModel& world = *WorldModel::getSingleton();
  if (world.vision.ball.lastSeenCycle >= world.cycle - 1) {
    std::ostringstream text;
    text << "(o " << world.ballPos.x << ":" << world.ballPos.y << ":" << world.ballPos.z << ")";
    sendSay(text.str());
  }
}
