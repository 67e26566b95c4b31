#include <array>
#include <cmath>

#include "tests/behaviour/BehaviourTest.h"

namespace {

// ---- The goalkeeper

class Goalkeeper : public BehaviourTest {
 protected:
  Goalkeeper() : BehaviourTest(1) { agent.ballOwner = freeBall; }

  /// The keeper's decision in (X, Y) with the ball DISTANCE ahead, over a plan that stands; what
  /// it pushed above it.
  States Decide(double x, double y, double distance, double heading = 0) {
    Stand(x, y, heading);
    PutBall(x + distance, y);
    SetStack({goBehindBall_state});
    printed = OutputOf([&] { agent.goalkeeper(); });
    States states = Stack();
    EXPECT_EQ(states.at(0), 0);
    states.erase(states.begin());
    return states;
  }

  std::string printed;
};

constexpr const char* kApproachUnpushed = "!isbehindball\npushed nothing 0\n";

TEST_F(Goalkeeper, ContestedOwnBallIsLeftAlone) {
  agent.ballOwner = contestedMyBall;
  EXPECT_EQ(Decide(-8.6, 0, 2, 90), States{});
  EXPECT_EQ(printed, "");
  SetStack({});
  EXPECT_EQ(OutputOf([&] { agent.goalkeeper(); }), "");
  EXPECT_EQ(Stack(), States{});
}

TEST_F(Goalkeeper, OwnBallIsOnlyApproached) {
  agent.ballOwner = myBall;
  EXPECT_EQ(Decide(-8.0, 0.7, 2, 90), States{});
  EXPECT_EQ(printed, kApproachUnpushed);
}

TEST_F(Goalkeeper, EveryOtherOwnerKeepsTheGoal) {
  for (const BallOwner owner : {mateBall, opponentBall, freeBall, contestedMateBall}) {
    agent.ballOwner = owner;
    EXPECT_EQ(Decide(-8.6, 0, 5, 90), States{23}) << owner;
    EXPECT_EQ(printed, kApproachUnpushed);
  }
}

TEST_F(Goalkeeper, FacesForwardFirst) {
  for (const double heading : {21.0, 90.0, 180.0, 339.0}) {
    agent.turnDest = 99;
    EXPECT_EQ(Decide(-8.0, 0.7, 2, heading), States{23}) << heading;
    EXPECT_EQ(agent.turnDest, 0);
  }
}

TEST_F(Goalkeeper, TwentyDegreesToEitherSideCountAsForward) {
  for (const double heading : {0.0, 20.0, 340.0, 345.0}) {
    EXPECT_EQ(Decide(-8.6, 0, 3.5, heading), States{}) << heading;
  }
}

TEST_F(Goalkeeper, DivesToTheBallsSideBelowThreeMetres) {
  world.vision.ball.angle = -5;
  EXPECT_EQ(Decide(0, 0, std::nextafter(3.0, 0)), States{20});
  world.vision.ball.angle = 5;
  EXPECT_EQ(Decide(0, 0, 0.5), States{21});
}

TEST_F(Goalkeeper, HoldsItsPlaceFromThreeToFourMetres) {
  for (const double distance : {3.0, 3.5, 4.0}) {
    EXPECT_EQ(Decide(0, 0, distance), States{}) << distance;
    EXPECT_EQ(printed, kApproachUnpushed);
  }
  EXPECT_EQ(Decide(0, 0, std::nextafter(4.0, 5)), States{19});
}

struct Station {
  double x, y;
  bool walks;
  States pushed;  // above the standing plan
};

TEST_F(Goalkeeper, KeepsStationByBackingUpAndSteppingAside) {
  const std::array<Station, 12> stations{{{-8.5, 0, false, {4}},
                                          {-8.7, 0, false, {4}},
                                          {-8.75, 0, true, {4}},
                                          {-8.2, 0, false, {4}},
                                          {-8.15, 0, false, {19}},
                                          {-8.5, 0.6, false, {4}},
                                          {-8.5, 0.61, false, {17}},
                                          {-8.5, -0.6, false, {4}},
                                          {-8.5, -0.61, false, {18}},
                                          {-8.0, 0.7, false, {19, 17}},
                                          {-8.0, -0.7, false, {19, 18}},
                                          {-9.0, 0.7, true, {17}}}};
  for (const Station& station : stations) {
    agent.shallWalk = !station.walks;
    agent.sideStepDest = 99;
    EXPECT_EQ(Decide(station.x, station.y, 8), station.pushed) << station.x << " " << station.y;
    EXPECT_EQ(agent.shallWalk, station.walks) << station.x;
    EXPECT_EQ(agent.sideStepDest, std::fabs(station.y) > 0.6 ? 0.1 : 99);
    EXPECT_EQ(printed, kApproachUnpushed);
  }
}

TEST_F(Goalkeeper, WithoutAStandingPlanTheApproachTakesThePlaceOfTheWalk) {
  Stand(-8.75, 0);
  PutBall(0, 0);
  agent.goalkeeper();
  EXPECT_EQ(Stack(), States{0});
  EXPECT_TRUE(agent.shallWalk);
}

TEST_F(Goalkeeper, ContestedBallOfAMateIsNoReasonToStandBack) {
  agent.ballOwner = contestedMateBall;
  EXPECT_EQ(Decide(-8.0, 0, 8), States{19});
}

TEST_F(Goalkeeper, SideOfTheBallIsItsAngleLessTheHeads) {
  PolarInfo ball;
  for (const double pan : {-30.0, 0.0, 30.0}) {
    agent.findJoint("hj1")->angle = pan;
    ball.angle = pan;
    EXPECT_FALSE(agent.isRightSideGK(ball)) << "straight ahead of the head it dives left";
    ball.angle = pan - 0.1;
    EXPECT_TRUE(agent.isRightSideGK(ball)) << pan;
    ball.angle = pan + 0.1;
    EXPECT_FALSE(agent.isRightSideGK(ball)) << pan;
  }
}

TEST_F(Goalkeeper, DiveRunsInTheSameCycleAndIsPlayedInTheNext) {
  directory.write("JumpL1.txt", "LSR 0.2 MOVE 0.02");
  Stand(-8.6, 0);
  PutBall(-6.6, 0);
  world.vision.players[6].polar.position = VecPosition(-6.6, 1, 0);
  world.vision.players[6].polar.lastSeenCycle = 201;
  world.teamBall[0].distance = 3.5;  // an opponent's ball
  SetStack({});
  agent.ballOwner = opponentBall;
  agent.pushActionToStack(goBehindBall_state);
  EXPECT_EQ(Turn(201), Commands{""});
  EXPECT_EQ(agent.ballOwner, opponentBall);
  EXPECT_EQ(agent.jumpTime, 201);
  EXPECT_EQ(Stack(), States{0});
  EXPECT_EQ(Turn(202), Commands{"(lae2 10)"});
}

// ---- The forwards

/// Number 5, which sees the ball and has another destination so far.
class Forward : public BehaviourTest {
 protected:
  Forward() : BehaviourTest(5) {
    world.vision.ball.seen = true;
    agent.setwalkDest(elsewhere);
  }

  VecPosition elsewhere{-3, -3, 0};
};

TEST_F(Forward, NotBehindTheBallItApproachesInFarModeSeenOrNot) {
  PutBall(5, 0);
  for (const bool seen : {true, false}) {
    world.vision.ball.seen = seen;
    SetStack({});
    agent.setwalkDest(elsewhere);
    EXPECT_EQ(OutputOf([&] { agent.goalHandler(); }), "");
    EXPECT_EQ(agent.walkdestAccuracy, 0.4);
    EXPECT_EQ(agent.walkDest, &world.ballPos);
    EXPECT_EQ(Stack(), States{0});
  }
}

TEST_F(Forward, BehindTheBallTheModeFollowsTheDistance) {
  for (const double d : {0.501, 0.55}) {
    PutBall(d, 0);
    agent.walkdestAccuracy = 0.4;
    agent.goalHandler();
    EXPECT_EQ(agent.walkdestAccuracy, 0.4) << d;
  }
  for (const double d : {0.5, 0.3, 0.0}) {
    PutBall(d, 0);
    agent.walkdestAccuracy = 0.4;
    agent.goalHandler();
    EXPECT_EQ(agent.walkdestAccuracy, 0.12) << d;
  }
  EXPECT_EQ(agent.walkDest, &world.ballPos);
  EXPECT_EQ(Stack(), States{0});
}

TEST_F(Forward, NearModeGoesBackToFarByTheDistanceAloneWithoutTheTest) {
  Stand(0, 0, 180);  // the test would fail
  agent.walkdestAccuracy = 0.12;
  PutBall(0.3, 0);
  agent.goalHandler();
  EXPECT_EQ(agent.walkdestAccuracy, 0.12);
  PutBall(0.501, 0);
  agent.goalHandler();
  EXPECT_EQ(agent.walkdestAccuracy, 0.4);
  EXPECT_EQ(Stack(), States{0});
}

TEST_F(Forward, BallLostFarAwayPushesNothing) {
  world.vision.ball.seen = false;
  agent.walkdestAccuracy = 0.12;
  PutBall(std::nextafter(2.0, 3), 0);
  EXPECT_EQ(OutputOf([&] { agent.goalHandler(); }), "");
  EXPECT_EQ(agent.walkdestAccuracy, 0.4);
  EXPECT_EQ(Stack(), States{});
  EXPECT_THAT(*agent.walkDest, IsPlace(-3, -3, 0));
}

TEST_F(Forward, BallLostAtTwoMetresOrLessLeavesTheGoalAsDestination) {
  world.vision.ball.seen = false;
  for (const double d : {2.0, 0.3}) {
    agent.walkdestAccuracy = 0.12;
    PutBall(d, 0);
    SetStack({});
    agent.setwalkDest(elsewhere);
    EXPECT_EQ(OutputOf([&] { agent.goalHandler(); }), "");
    EXPECT_EQ(agent.walkdestAccuracy, 0.12);
    EXPECT_THAT(*agent.walkDest, IsPlace(9, 0, 0));
    EXPECT_NE(agent.walkDest, &world.ballPos);
    EXPECT_EQ(Stack(), States{5});
  }
}

TEST_F(Forward, BallLostAtTheFeetInFarModeAlsoLeavesTheGoalAsDestination) {
  world.vision.ball.seen = false;
  PutBall(0.5, 0);  // behind it, so that the loss is looked at
  agent.goalHandler();
  EXPECT_EQ(agent.walkdestAccuracy, 0.12);
  EXPECT_THAT(*agent.walkDest, IsPlace(9, 0, 0));
  EXPECT_EQ(Stack(), States{5});
}

TEST_F(Forward, NeverShoots) {
  PutBall(0.05, 0);
  for (const double accuracy : {0.4, 0.12}) {
    agent.walkdestAccuracy = accuracy;
    agent.goalHandler();
    EXPECT_EQ(agent.slowFunction, 0);
  }
}

}  // namespace
