/// BasicAgent: the heartbeat of the body, and the controller that turns targets into speeds.

#include <utility>

#include "body/BasicAgent.h"
#include "math/Geometry.h"
#include "math/NumberText.h"
#include "perception/WorldModel.h"

namespace {

constexpr double kCycleSeconds = 0.02;
constexpr int kGoalkeeper = 1;

constexpr int kIntroductionCycle = 10;
constexpr int kLastCycleBeforeBeam = 19;
constexpr int kStartPositionCycle = 30;
constexpr int kLastCycleBeforeScan = 49;

bool isBeforeKickOff(const std::string& playMode) {
  return playMode == "BeforeKickOff" || playMode == "beforekickoff";
}

}  // namespace

void BasicAgent::basicAgentLoop() {
  LocalizeAgentWith3FlagsCircle();
  findOrientation();
  WorldModel::getSingleton()->setBallPos();
  const int cycle = WorldModel::getSingleton()->cycle;
  if (cycle == kIntroductionCycle) {
    sendPlayerInfo();
    bodyState = 0;
  }
  if (cycle > kLastCycleBeforeBeam && isBeforeKickOff(WorldModel::getSingleton()->playMode)) {
    sendBeamInfo();
    return;
  }
  if (cycle == kStartPositionCycle) {
    setStartPos();
  }
  if (cycle > kLastCycleBeforeScan && bodyState == 0 && uNum != kGoalkeeper) {
    headYawDasti();
  }
  if (actionFileOpen && cycle % 2 != 0) {
    loadMoveFromFile();
  }
  switch (bodyState) {
    case 1:
      Back();
      break;
    case 2:
      Front();
      break;
    case 3:
      Right2Back();
      break;
    case 4:
      Left2Back();
      break;
    default:
      break;
  }
  // Read anew: a get-up that has just ended is looked at again in the same cycle.
  if (bodyState == 0) {
    checkBodyState();
  }
  move();
}

void BasicAgent::move() {
  const int now = WorldModel::getSingleton()->cycle;
  if (now - lastMoveCycle < 1) {
    return;
  }
  if (moveCyclesLeft < 1) {
    sendCommand("");
    return;
  }
  std::string speeds;
  for (jointsFlag& flag : jointFlags) {
    if (!flag.active) {
      continue;
    }
    const double current = Deg2Rad(findJoint(flag.perceptorName)->angle);
    const double slice = (flag.targetAngle - current) / moveCyclesLeft;
    flag.nextAngle = slice + current;
    const double error = flag.nextAngle - current;
    flag.errorSum = error * kCycleSeconds + flag.errorSum;
    const double out =
        error * Kp + flag.errorSum * Ki + ((error - flag.lastError) / kCycleSeconds) * Kd;
    flag.lastError = error;
    flag.speed = out / kCycleSeconds;
    speeds += '(';
    speeds += flag.effectorName;
    speeds += ' ';
    appendShort(speeds, flag.speed);
    speeds += ')';
  }
  sendCommand(std::move(speeds));
  --moveCyclesLeft;
  lastMoveCycle = now;
  // The count alone ends a step: the joints stop at the next message, wherever they are.
  if (moveCyclesLeft == 0) {
    for (jointsFlag& flag : jointFlags) {
      flag.active = false;
    }
  }
}
