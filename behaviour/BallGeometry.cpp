#include "behaviour/BallGeometry.h"

#include <cmath>

#include "math/Geometry.h"

namespace {

double slope(const VecPosition& ball) {
  return (0 - ball.y) / (9 - ball.x);
}

double angleToGoal(const VecPosition& ball) {
  const double angle = Rad2Deg(std::atan2(0 - ball.y, 9 - ball.x));
  return angle < 0 ? angle + 360.0 : angle;
}

}  // namespace

Line makeBallGoalLine(const VecPosition& ball) {
  const double m = slope(ball);
  return {1.0, -m, 9 * m};
}

BallGeometry::BallGeometry(const VecPosition& ball, const VecPosition& me, double accuracy)
    : ballGoalAngle(angleToGoal(ball)),
      ballGoalLine(makeBallGoalLine(ball)),
      kickPoint(ball.x - cosDeg(ballGoalAngle) * accuracy,
                ball.y - sinDeg(ballGoalAngle) * accuracy, 0.0) {
  const double p = -1 / slope(ball);
  const Line kickLine(1.0, -p, p * kickPoint.x - kickPoint.y);
  distToKickLine = kickLine.getDistanceWithPoint(VecPosition(me.x, me.y, 0.0));
  closestOnLine = ballGoalLine.getPointOnLineClosestTo(me);
  offLineDist = me.getDistanceTo(closestOnLine);
}
