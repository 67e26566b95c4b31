/// Agent: the way to a point right behind the ball, on the line from the goal through the ball.

#include "behaviour/Agent.h"

#include <cmath>
#include <iostream>

#include "behaviour/Accuracy.h"
#include "behaviour/BallGeometry.h"
#include "math/Geometry.h"
#include "perception/WorldModel.h"

namespace {

constexpr double kMargin = 0.2;             ///< [m]
constexpr double kHeadingTolerance = 14.0;  ///< [deg]
constexpr double kAcrossWrap = 346.0;       ///< [deg] the same tolerance across the wrap of 360
constexpr double kTooFar = 0.1;             ///< [m]
constexpr double kOffLine = 0.08;           ///< [m]
constexpr double kOnLine = 0.104;           ///< [m]
constexpr double kSideStep = 0.092;         ///< [m]

/// The player's direction to the goal against its heading.
bool facesAway(const Agent& agent) {
  double a = Rad2Deg(std::atan2(0 - agent.myPos.y, 9 - agent.myPos.x));
  if (a < 0) {
    a += 360.0;
  }
  const double h = std::fabs(agent.myDegree - a);
  return h > kHeadingTolerance && !(h > kAcrossWrap);
}

bool isTooFarForward(const BallGeometry& g, const VecPosition& me) {
  return g.distToKickLine > kTooFar && me.x > g.kickPoint.x - kTooFar;
}

bool isLeftOfLine(const BallGeometry& g, const VecPosition& me) {
  return me.y - g.closestOnLine.y >= kOffLine;
}

bool isRightOfLine(const BallGeometry& g, const VecPosition& me) {
  return g.closestOnLine.y - me.y >= kOffLine;
}

}  // namespace

void Agent::goBehindBall() {
  const VecPosition& ball = WorldModel::getSingleton()->ballPos;
  const BallGeometry g(ball, myPos, walkdestAccuracy);
  const double dBall = myPos.getDistanceTo(ball);
  std::cout << "dest to ball: " << dBall << " accuracy+0.2: " << kMargin + walkdestAccuracy
            << std::endl;
  const double approachMargin = walkdestAccuracy == kFarAccuracy ? kMargin : 0.0;
  if (dBall > approachMargin + walkdestAccuracy) {
    std::cout << "goBehindBall calling goToPos\n";
    followBall();
    pushActionToStack(goToPos_state);
    return;
  }
  if (facesAway(*this)) {
    // The test looks at the player's direction to the goal, the turn goes to the ball's.
    turnDest = g.ballGoalAngle;
    pushActionToStack(turnToDeg_state);
    return;
  }
  if (isTooFarForward(g, myPos)) {
    if (myPos.x > ball.x &&
        g.ballGoalLine.getDistanceWithPoint(VecPosition(myPos.x, myPos.y, 0.0)) < kOnLine) {
      // In front of the ball on the line: backing up would run into it. Always to the left.
      sideStepDest = kSideStep;
      pushActionToStack(sideStepL_state);
      return;
    }
    const double x = ball.x - kTooFar;
    VecPosition behind(x, g.ballGoalLine.getYGivenX(x), 0.0);
    setwalkDest(behind);
    pushActionToStack(backward_state);
    return;
  }
  if (isLeftOfLine(g, myPos)) {
    sideStepDest = std::fabs(g.offLineDist);
    pushActionToStack(sideStepR_state);
    return;
  }
  if (isRightOfLine(g, myPos)) {
    sideStepDest = std::fabs(g.offLineDist);
    pushActionToStack(sideStepL_state);
    return;
  }
  if (popIfOnTop(goBehindBall_state)) {
    std::cout << "gobehindBall poped itself  ";
    if (!actionStack.empty()) {
      std::cout << actionStack.top().state;
    }
    std::cout << std::endl;
  } else {
    std::cout << "eror action not compatible in goBehindBall function\n";
  }
  std::cout << "goBehindBall says I'm OK!\n";
}

bool Agent::isBehindBall() const {
  const VecPosition& ball = WorldModel::getSingleton()->ballPos;
  const BallGeometry g(ball, myPos, walkdestAccuracy);
  // Here the margin counts near the ball too.
  return !(myPos.getDistanceTo(ball) > kMargin + walkdestAccuracy) && !facesAway(*this) &&
         !isTooFarForward(g, myPos) && !isLeftOfLine(g, myPos) && !isRightOfLine(g, myPos);
}
