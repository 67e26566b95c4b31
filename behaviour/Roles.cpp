/// Agent: what the goalkeeper and the forwards do.

#include "behaviour/Agent.h"

#include "behaviour/Accuracy.h"
#include "perception/WorldModel.h"

namespace {

// The keeper. Headings in degrees, places and distances in metres.
constexpr double kFacesForwardBelow = 20.0;
constexpr double kFacesForwardFrom = 340.0;
constexpr double kDiveDistance = 3.0;
constexpr double kHoldDistance = 4.0;
constexpr double kTooFarBackX = -8.7;
constexpr double kTooFarOutX = -8.2;
constexpr double kTooFarAsideY = 0.6;
constexpr double kKeeperSideStep = 0.1;

// The forwards.
constexpr double kLostCloseBy = 2.0;
constexpr double kNearBall = 0.5;

/// Back to the middle of the goal, when the ball is far.
void keepStation(Agent& agent) {
  agent.shallWalk = agent.myPos.x < kTooFarBackX;
  agent.pushActionToStack(walk_state);
  if (agent.myPos.x > kTooFarOutX) {
    agent.pushActionToStack(backward_state);
  }
  if (agent.myPos.y > kTooFarAsideY) {
    agent.sideStepDest = kKeeperSideStep;
    agent.pushActionToStack(sideStepR_state);
  } else if (agent.myPos.y < -kTooFarAsideY) {
    agent.sideStepDest = kKeeperSideStep;
    agent.pushActionToStack(sideStepL_state);
  }
}

}  // namespace

void Agent::goalkeeper() {
  if (ballOwner == contestedMyBall) {
    return;
  }
  if (ballOwner != myBall) {
    const WorldModel& world = *WorldModel::getSingleton();
    const double dBall = myPos.getDistanceTo(world.ballPos);
    if (myDegree > kFacesForwardBelow && myDegree < kFacesForwardFrom) {
      turnDest = 0.0;
      pushActionToStack(turnToDeg_state);
    } else if (dBall < kDiveDistance) {
      pushActionToStack(isRightSideGK(world.vision.ball) ? jumpR_state : jumpL_state);
    } else if (!(dBall <= kHoldDistance)) {
      keepStation(*this);
    }
  }
  kickHandler();
}

void Agent::goalHandler() {
  const WorldModel& world = *WorldModel::getSingleton();
  const double d = myPos.getDistanceTo(world.ballPos);
  if (walkdestAccuracy == kFarAccuracy && !isBehindBall()) {
    walkdestAccuracy = kFarAccuracy;
  } else if (!world.vision.ball.seen) {
    if (d > kLostCloseBy) {
      walkdestAccuracy = kFarAccuracy;
      return;
    }
    // Lost close by, the ball lies at the feet: on to the goal.
    walkdestAccuracy = kNearAccuracy;
    VecPosition goal(9.0, 0.0, 0.0);
    setwalkDest(goal);
    pushActionToStack(goToPos_state);
    return;
  } else {
    walkdestAccuracy = d > kNearBall ? kFarAccuracy : kNearAccuracy;
  }
  followBall();
  pushActionToStack(goBehindBall_state);
}
