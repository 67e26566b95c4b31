#include <array>

#include "tests/body/BodyTest.h"

namespace {

class MotionPlayback : public BodyTest {
 protected:
  /// One call in CYCLE; what it sent, without the zero speeds.
  Commands Move(int cycle) {
    world.cycle = cycle;
    body.move();
    return player.link.commands();
  }

  void SetGains(double kp, double ki, double kd) const {
    body.Kp = kp;
    body.Ki = ki;
    body.Kd = kd;
  }
};

TEST_F(MotionPlayback, DistanceIsCoveredInEqualSlices) {
  body.LHipRollCommand(0.1);
  body.moveCyclesLeft = 10;
  EXPECT_EQ(Move(5), Commands{"(lle2 0.5)"});
  EXPECT_EQ(body.moveCyclesLeft, 9);
  // The joint has followed: 0.01 rad.
  body.findJoint("llj2")->angle = 0.572957795130823;
  EXPECT_EQ(Move(6), Commands{"(lle2 0.5)"});
  EXPECT_EQ(body.moveCyclesLeft, 8);
}

TEST_F(MotionPlayback, ActionGainsAskForAShareOnly) {
  SetGains(0.14, 0.5, 0);
  body.LHipRollCommand(0.1);
  body.moveCyclesLeft = 2;
  EXPECT_EQ(Move(5), Commands{"(lle2 0.375)"});
  EXPECT_DOUBLE_EQ(Row("llj2").nextAngle, 0.05);
  EXPECT_DOUBLE_EQ(Row("llj2").lastError, 0.05);
  EXPECT_DOUBLE_EQ(Row("llj2").errorSum, 0.001);
  EXPECT_DOUBLE_EQ(Row("llj2").speed, 0.375);
  // Not moved: e 0.1, sum 0.003, out 0.014 + 0.0015.
  EXPECT_EQ(Move(6), Commands{"(lle2 0.775)"});
}

TEST_F(MotionPlayback, DifferentialTermWorksOnTheChangeOfTheError) {
  SetGains(0, 0, 0.5);
  body.LHipRollCommand(0.1);
  Row("llj2").lastError = 0.03;
  body.moveCyclesLeft = 2;
  // e 0.05: (0.05 - 0.03) / 0.02 * 0.5 = 0.5 rad in 0.02 s.
  EXPECT_EQ(Move(5), Commands{"(lle2 25)"});
}

TEST_F(MotionPlayback, StepOfOneCycleAsksForAllOfItWithoutALimit) {
  body.LHipRollCommand(3);
  body.findJoint("llj2")->angle = 57.29577951308232;  // 1 rad
  body.initMove(0.02);
  EXPECT_EQ(Move(0), Commands{"(lle2 100)"});
}

TEST_F(MotionPlayback, AnglesCountInDegreesAndTargetsInRadians) {
  body.RHipRollCommand(0);
  body.findJoint("rlj2")->angle = -90;
  body.initMove(0.02);
  // A quarter turn in one cycle: pi / 2 / 0.02.
  EXPECT_EQ(Move(0), Commands{"(rle2 78.5398)"});
}

struct Digits {
  double target;  // [rad], to be reached in one cycle from 0
  const char* speed;
};

constexpr std::array<Digits, 10> kDigits{{{0.02, "1"},
                                          {-0.01, "-0.5"},
                                          {0, "0"},
                                          {0.02 / 3, "0.333333"},
                                          {2.469135, "123.457"},
                                          {19999.98, "999999"},
                                          {20000, "1e+06"},
                                          {24691.34, "1.23457e+06"},
                                          {2e-6, "0.0001"},
                                          {2.5e-7, "1.25e-05"}}};

TEST_F(MotionPlayback, SpeedsHaveSixSignificantDigits) {
  for (const Digits& digits : kDigits) {
    body.LHipRollCommand(digits.target);
    body.initMove(0.02);
    EXPECT_EQ(Move(0), Commands{"(lle2 " + std::string(digits.speed) + ")"});
  }
}

TEST_F(MotionPlayback, CommandsStandInMessageOrder) {
  // Set from the last to the first; -1 rad/s to all pitch joints, 1 to the others.
  body.LAnkleRollCommand(0.02);
  body.LHipYawPitchCommand(0.02);
  body.RKneePitchCommand(0.02);
  body.LElbowYawCommand(0.02);
  body.RShoulderRollCommand(0.02);
  body.HeadPitchCommand(0.02);
  body.HeadYawCommand(0.02);
  body.initMove(0.02);
  EXPECT_EQ(Move(0), Commands{"(he1 1)(he2 -1)(rae2 1)(lae3 1)(rle4 -1)(lle1 1)(lle6 1)"});
}

TEST_F(MotionPlayback, IdleMessageIsTheZerosAlone) {
  EXPECT_EQ(Move(7), Commands{""});
  EXPECT_EQ(body.lastMoveCycle, 0) << "only real steps count";
  EXPECT_EQ(body.moveCyclesLeft, 0);
}

TEST_F(MotionPlayback, NothingLeavesInCycleZero) {
  EXPECT_EQ(Move(0), Commands{});
}

TEST_F(MotionPlayback, SecondMessageInACycleOfAStepSendsNothing) {
  body.LHipRollCommand(0.1);
  body.initMove(0.1);
  EXPECT_EQ(Move(0).size(), 1U);
  EXPECT_EQ(Move(0), Commands{});
  EXPECT_EQ(body.moveCyclesLeft, 4);
  EXPECT_EQ(Move(1).size(), 1U);
}

TEST_F(MotionPlayback, SecondMessageInAnIdleCycleSendsASecondIdleMessage) {
  EXPECT_EQ(Move(7), Commands{""});
  EXPECT_EQ(Move(7), Commands{""});
}

TEST_F(MotionPlayback, StepWithoutActiveJointsIsIdleTalkButCountsDown) {
  world.cycle = 5;
  body.initMove(0.04);
  EXPECT_EQ(Move(5), Commands{""});
  EXPECT_EQ(body.moveCyclesLeft, 1);
  EXPECT_EQ(body.lastMoveCycle, 5);
}

TEST_F(MotionPlayback, EndOfAStepForgetsAllTargets) {
  body.LHipRollCommand(0.1);
  body.RElbowRollCommand(0.1);
  world.cycle = 5;
  body.initMove(0.04);
  EXPECT_EQ(Move(5).size(), 1U);
  EXPECT_EQ(ActiveJoints(), (Commands{"raj4", "llj2"}));
  EXPECT_EQ(Move(6).size(), 1U);
  EXPECT_EQ(ActiveJoints(), Commands{});
  EXPECT_EQ(body.moveCyclesLeft, 0);
  EXPECT_EQ(Move(7), Commands{""}) << "wherever the joints are by now";
}

TEST_F(MotionPlayback, StepEndsByTheCountAloneEvenFarFromItsTargets) {
  body.LHipRollCommand(1);
  world.cycle = 5;
  body.initMove(0.1);
  int commanded = 0;
  for (int cycle = 5; cycle < 20; ++cycle) {
    if (Move(cycle) != Commands{""}) ++commanded;
  }
  EXPECT_EQ(commanded, 5);
}

TEST_F(MotionPlayback, JointThatFollowsArrivesInTheLastCycle) {
  body.LKneePitchCommand(0.7);  // -0.7 rad
  HingJoint& knee = *body.findJoint("llj4");
  knee.angle = 10;
  world.cycle = 5;
  body.initMove(0.3);  // 14 cycles
  for (int cycle = 5; cycle < 5 + 14; ++cycle) {
    EXPECT_EQ(Move(cycle).size(), 1U);
    knee.angle += Row("llj4").speed * 0.02 * 180 / 3.14159265358979323846;
  }
  EXPECT_NEAR(knee.angle, -0.7 * 180 / 3.14159265358979323846, 1e-9);
  EXPECT_EQ(body.moveCyclesLeft, 0);
}

TEST_F(MotionPlayback, MissedCyclesDontShortenAStep) {
  body.LHipRollCommand(1);
  world.cycle = 5;
  body.initMove(0.04);
  EXPECT_EQ(Move(9).size(), 1U);
  EXPECT_EQ(body.moveCyclesLeft, 1);
}

}  // namespace
