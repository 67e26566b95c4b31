#include <array>
#include <cmath>

#include "tests/behaviour/BehaviourTest.h"

namespace {

// The ball lies in (0, 0.9), so that its line to the goal falls by a tenth: y = 0.9 - x / 10. The
// unit along it, towards the goal, and the unit across, to greater y:
constexpr double kAlong = 0.99503719020998915;   // 10 / sqrt(101)
constexpr double kAcross = 0.09950371902099892;  // 1 / sqrt(101)
constexpr double kToGoal = 354.28940686250036;   // [deg] 360 - atan(0.1)

constexpr const char* kInPlace =
    "gobehindBall poped itself  \n"
    "goBehindBall says I'm OK!\n";

class BallApproach : public BehaviourTest {
 protected:
  BallApproach() { PutBall(0, 0.9); }

  /// Stands S ahead of the ball on its line and N across it [m].
  void StandBy(double s, double n, double heading = kToGoal) const {
    Stand(s * kAlong + n * kAcross, 0.9 - s * kAcross + n * kAlong, heading);
  }

  /// One step of the approach as the executor runs it; what it printed behind its first line.
  std::string Step() {
    SetStack({goBehindBall_state});
    agent.sideStepDest = -1;
    agent.turnDest = -1;
    agent.followBall();
    const std::string printed = OutputOf([&] { agent.goBehindBall(); });
    return printed.substr(printed.find('\n') + 1);
  }
};

TEST_F(BallApproach, EachStepTellsItsDistanceAndItsMargin) {
  StandBy(-0.4, 0);
  EXPECT_EQ(OutputOf([&] { agent.goBehindBall(); }).substr(0, 42),
            "dest to ball: 0.4 accuracy+0.2: 0.6\neror a");
  agent.walkdestAccuracy = 0.12;
  StandBy(-0.125, 0);
  EXPECT_EQ(OutputOf([&] { agent.goBehindBall(); }).substr(0, 42),
            "dest to ball: 0.125 accuracy+0.2: 0.32\ngoB");
}

TEST_F(BallApproach, FarFromTheBallItWalksThere) {
  VecPosition elsewhere(1, 2, 0);
  for (const double distance : {0.61, 3.0}) {
    StandBy(-distance, 0);
    agent.setwalkDest(elsewhere);
    SetStack({goBehindBall_state});
    agent.goBehindBall();
    EXPECT_EQ(Stack(), (States{0, 5})) << distance;
    EXPECT_EQ(agent.walkDest, &world.ballPos) << "and follows it";
  }
  EXPECT_EQ(Step(), "goBehindBall calling goToPos\n");
}

TEST_F(BallApproach, MarginToTheBallIsThereOnlyInFarMode) {
  StandBy(-0.59, 0);
  Step();
  EXPECT_NE(Stack(), (States{0, 5}));
  agent.walkdestAccuracy = 0.12;
  StandBy(-0.13, 0);
  Step();
  EXPECT_EQ(Stack(), (States{0, 5}));
  StandBy(-0.11, 0);
  EXPECT_EQ(Step(), kInPlace);
}

struct Facing {
  double heading;
  bool turns;
};

TEST_F(BallApproach, HeadingIsHeldAgainstTheGoalAcrossNorthToo) {
  PutBall(0.4, 0);
  for (const Facing& row : {Facing{0, false}, Facing{14, false}, Facing{14.001, true},
                            Facing{180, true}, Facing{346, true}, Facing{346.5, false}}) {
    Stand(0, 0, row.heading);
    Step();
    EXPECT_EQ(Stack() == (States{0, 23}), row.turns) << row.heading;
    EXPECT_EQ(agent.isBehindBall(), !row.turns) << row.heading;
  }
}

TEST_F(BallApproach, TurnGoesToTheBallsDirectionToTheGoalNotThePlayers) {
  // From (-0.4, 1.1) the goal lies at 360 - atan(1.1 / 9.4) = 353.325 degrees.
  Stand(-0.4, 1.1, 180);
  EXPECT_EQ(Step(), "");
  EXPECT_EQ(Stack(), (States{0, 23}));
  EXPECT_NEAR(agent.turnDest, kToGoal, 1e-9);
}

TEST_F(BallApproach, TestOfTheHeadingLooksFromThePlayer) {
  // 353.325 - 14 = 339.325; the ball's own direction less 14 would be 340.289.
  Stand(-0.4, 1.1, 339.8);
  Step();
  EXPECT_NE(Stack(), (States{0, 23}));
  Stand(-0.4, 1.1, 339.2);
  Step();
  EXPECT_EQ(Stack(), (States{0, 23}));
}

TEST_F(BallApproach, TooFarForwardItBacksUp) {
  StandBy(-0.29, 0);  // 0.11 m before the place behind the ball
  EXPECT_EQ(Step(), "");
  EXPECT_EQ(Stack(), (States{0, 19}));
  EXPECT_THAT(*agent.walkDest, IsPlaceNear(-0.1, 0.91, 0));
  EXPECT_NE(agent.walkDest, &world.ballPos);
}

TEST_F(BallApproach, TenCentimetresTooFarForwardDontMatter) {
  StandBy(-0.31, 0);
  EXPECT_EQ(Step(), kInPlace);
  EXPECT_EQ(Stack(), States{});
}

TEST_F(BallApproach, TooFarBackIsNotTooFarForward) {
  StandBy(-0.52, 0);
  EXPECT_EQ(Step(), kInPlace);
}

TEST_F(BallApproach, InFrontOfTheBallOnTheLineItStepsAsideAlwaysToTheLeft) {
  for (const double across : {-0.10, 0.0, 0.10}) {
    StandBy(0.3, across);
    EXPECT_EQ(Step(), "");
    EXPECT_EQ(Stack(), (States{0, 18})) << across;
    EXPECT_EQ(agent.sideStepDest, 0.092);
  }
}

TEST_F(BallApproach, InFrontOfTheBallBesideTheLineItBacksUp) {
  for (const double across : {-0.11, 0.11}) {
    StandBy(0.3, across);
    Step();
    EXPECT_EQ(Stack(), (States{0, 19})) << across;
    EXPECT_THAT(*agent.walkDest, IsPlaceNear(-0.1, 0.91, 0));
  }
}

TEST_F(BallApproach, OffTheLineItStepsTowardsIt) {
  StandBy(-0.4, 0.09);
  EXPECT_EQ(Step(), "");
  EXPECT_EQ(Stack(), (States{0, 17}));
  EXPECT_NEAR(agent.sideStepDest, 0.09, 1e-9);
  StandBy(-0.4, -0.09);
  EXPECT_EQ(Step(), "");
  EXPECT_EQ(Stack(), (States{0, 18}));
  EXPECT_NEAR(agent.sideStepDest, 0.09, 1e-9);
}

TEST_F(BallApproach, OffTheLineIsMeasuredAlongYAndNotAcrossTheLine) {
  for (const double side : {1.0, -1.0}) {
    StandBy(-0.4, side * 0.0803);  // 0.0799 along y
    EXPECT_EQ(Step(), kInPlace) << side;
    StandBy(-0.4, side * 0.0805);  // 0.0801
    EXPECT_EQ(Step(), "") << side;
  }
}

TEST_F(BallApproach, InPlaceItTakesItselfOffAndTellsWhatIsNowOnTop) {
  StandBy(-0.4, 0);
  SetStack({turnToDeg_state, goBehindBall_state});
  EXPECT_THAT(OutputOf([&] { agent.goBehindBall(); }),
              ::testing::EndsWith("\ngobehindBall poped itself  23\ngoBehindBall says I'm OK!\n"));
  EXPECT_EQ(Stack(), States{23});
  SetStack({goBehindBall_state});
  EXPECT_THAT(OutputOf([&] { agent.goBehindBall(); }),
              ::testing::EndsWith(std::string("\n") + kInPlace));
  EXPECT_EQ(Stack(), States{});
}

TEST_F(BallApproach, InPlaceUnderAForeignActionItComplains) {
  StandBy(-0.4, 0);
  for (const std::vector<MyState>& stack :
       {std::vector<MyState>{goBehindBall_state, turnToDeg_state}, std::vector<MyState>{}}) {
    SetStack(stack);
    EXPECT_THAT(
        OutputOf([&] { agent.goBehindBall(); }),
        ::testing::EndsWith("\neror action not compatible in goBehindBall function\ngoBehindBall "
                            "says I'm OK!\n"));
    EXPECT_EQ(Entries().size(), stack.size());
  }
}

struct Spot {
  double s, n;  // [m] ahead of the ball on its line, and across
  bool far;     // behind the ball in the sense of far mode
  bool near;
};

// In near mode the place behind the ball is 0.12 m from it and the margin still counts: 0.32 m.
constexpr std::array<Spot, 13> kSpots{{{-0.59, 0, true, false},
                                       {-0.61, 0, false, false},
                                       {-0.4, 0, true, false},
                                       {-0.33, 0, true, false},
                                       {-0.31, 0, true, true},
                                       {-0.29, 0, false, true},
                                       {-0.12, 0, false, true},
                                       {-0.03, 0, false, true},
                                       {-0.01, 0, false, false},
                                       {0.3, 0, false, false},
                                       {-0.31, 0.0805, false, false},
                                       {-0.12, 0.0803, false, true},
                                       {-0.12, -0.0805, false, false}}};

TEST_F(BallApproach, BehindTheBallIsAPureTestInBothModes) {
  for (const Spot& spot : kSpots) {
    StandBy(spot.s, spot.n);
    agent.walkdestAccuracy = 0.4;
    EXPECT_EQ(OutputOf([&] { EXPECT_EQ(agent.isBehindBall(), spot.far) << spot.s << spot.n; }), "");
    agent.walkdestAccuracy = 0.12;
    EXPECT_EQ(agent.isBehindBall(), spot.near) << spot.s << " " << spot.n;
  }
  EXPECT_EQ(Stack(), States{});
}

TEST_F(BallApproach, BallOnTheGoalsHeightHasNoTooFarForward) {
  // The perpendicular then has no finite slope and the distance to it is no number.
  PutBall(0, 0);
  Stand(-0.2, 0);
  EXPECT_EQ(Step(), kInPlace);
  EXPECT_TRUE(agent.isBehindBall());
  PutBall(0, 0.001);
  Step();
  EXPECT_EQ(Stack(), (States{0, 19})) << "a millimetre aside it counts";
  EXPECT_FALSE(agent.isBehindBall());
}

TEST_F(BallApproach, BallOnTheGoalsHeightStillHasALineToBeOffOf) {
  PutBall(0, 0);
  Stand(-0.4, 0.08);
  Step();
  EXPECT_EQ(Stack(), (States{0, 17}));
  Stand(-0.4, -0.08);
  Step();
  EXPECT_EQ(Stack(), (States{0, 18}));
  EXPECT_EQ(agent.sideStepDest, 0.08);
}

TEST_F(BallApproach, BallOnTheGoalLineLeavesOnlyDistanceAndHeading) {
  PutBall(9, 1);
  for (const double x : {8.8, 9.0, 9.2}) {
    Stand(x, 1.3, 270);
    EXPECT_EQ(Step(), kInPlace) << x;
    EXPECT_TRUE(agent.isBehindBall());
  }
  Stand(9, 1.3, 250);
  Step();
  EXPECT_EQ(Stack(), (States{0, 23}));
  EXPECT_EQ(agent.turnDest, 270);
}

}  // namespace
