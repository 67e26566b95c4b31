/// Agent: turns, side steps, and the head to the ball.

#include "behaviour/Agent.h"

#include <array>
#include <cmath>
#include <iostream>

#include "math/Geometry.h"
#include "perception/WorldModel.h"

namespace {

constexpr double kHeadingTolerance = 14.0;  ///< [deg]
constexpr double kShortestSideStep = 0.08;  ///< [m]

/// From this difference of headings [deg] on, down from the row above: left turns are positive.
struct TurnRow {
  double from;
  const char* script;
};
// The bounds belong to the rows as they stand: 14 still turns, -14 counts as reached.
constexpr std::array<TurnRow, 6> kTurns{{{50.0, "turnL60"},
                                         {27.0, "turnL40"},
                                         {14.0, "turnL15"},
                                         {-14.0, nullptr},
                                         {-27.0, "turnR15"},
                                         {-50.0, "turnR40"}}};
constexpr double kHardRight = -50.0;

/// The shorter way round, for headings of one turn.
double shorterWay(double difference) {
  if (difference > 180.0) {
    return difference - 360.0;
  }
  if (difference < -180.0) {
    return difference + 360.0;
  }
  return difference;
}

}  // namespace

bool Agent::turnToPos(VecPosition dest) {
  double theta = Rad2Deg(std::atan2(dest.y - myPos.y, dest.x - myPos.x));
  if (theta < 0.0) {
    theta += 360.0;
  }
  if (theta > 360.0) {
    theta -= 360.0;
  }
  turnDest = theta;
  const double d = shorterWay(theta - myDegree);
  if (std::fabs(d) > kHeadingTolerance) {
    headState = turnToDeg_state;
    pushActionToStack(turnToDeg_state);
    return true;
  }
  return false;
}

void Agent::turnToDeg(double deg) {
  if (myACtionFile.is_open()) {
    std::cout << "turnToDeg returned fileOpen\n";
    return;
  }
  const double diff = shorterWay(deg - myDegree);
  if (diff < kHardRight) {
    doActionFile4("turnR60");
    return;
  }
  for (const TurnRow& row : kTurns) {
    if (!(diff >= row.from)) {
      continue;
    }
    if (row.script != nullptr) {
      doActionFile4(row.script);
    } else if (!actionStack.empty() && actionStack.top().state == turnToDeg_state) {
      std::cout << "turnToDeg popeed itself\n";
      actionStack.pop();
    } else {
      std::cout << "eror action not compatible in turn Dest function\n";
    }
    return;
  }
}

void Agent::sideStepLToPos(double dist) {
  if (dist > kShortestSideStep) {
    doActionFile4("sideL");
  }
}

void Agent::sideStepRToPos(double dist) {
  if (dist > kShortestSideStep) {
    doActionFile4("sideR");
  }
}

void Agent::faceBall() {
  const double a = WorldModel::getSingleton()->vision.ball.angle + findJoint("hj1")->angle;
  HeadYawCommand(Deg2Rad(a));
  initMove(0.5);
}

void Agent::backward() {}
