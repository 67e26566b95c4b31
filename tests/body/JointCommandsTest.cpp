#include <array>
#include <cmath>
#include <functional>

#include "tests/body/BodyTest.h"

namespace {

using JointCommands = BodyTest;
using B = BasicAgent;

struct Setter {
  void (BasicAgent::*set)(long double);
  const char* perceptor;
  const char* effector;
  double sign;
};

// clang-format off
constexpr std::array<Setter, 22> kSetters{{
    {&B::HeadYawCommand,        "hj1",  "he1",   1},
    {&B::HeadPitchCommand,      "hj2",  "he2",  -1},
    {&B::RShoulderPitchCommand, "raj1", "rae1", -1},
    {&B::RShoulderRollCommand,  "raj2", "rae2",  1},
    {&B::RElbowYawCommand,      "raj3", "rae3",  1},
    {&B::RElbowRollCommand,     "raj4", "rae4",  1},
    {&B::LShoulderPitchCommand, "laj1", "lae1", -1},
    {&B::LShoulderRollCommand,  "laj2", "lae2",  1},
    {&B::LElbowYawCommand,      "laj3", "lae3",  1},
    {&B::LElbowRollCommand,     "laj4", "lae4",  1},
    {&B::RHipYawPitchCommand,   "rlj1", "rle1",  1},
    {&B::RHipRollCommand,       "rlj2", "rle2",  1},
    {&B::RHipPitchCommand,      "rlj3", "rle3", -1},
    {&B::RKneePitchCommand,     "rlj4", "rle4", -1},
    {&B::RAnklePitchCommand,    "rlj5", "rle5", -1},
    {&B::RAnkleRollCommand,     "rlj6", "rle6",  1},
    {&B::LHipYawPitchCommand,   "llj1", "lle1",  1},
    {&B::LHipRollCommand,       "llj2", "lle2",  1},
    {&B::LHipPitchCommand,      "llj3", "lle3", -1},
    {&B::LKneePitchCommand,     "llj4", "lle4", -1},
    {&B::LAnklePitchCommand,    "llj5", "lle5", -1},
    {&B::LAnkleRollCommand,     "llj6", "lle6",  1},
}};
// clang-format on

TEST_F(JointCommands, EachSetterWritesItsOwnRowWithItsOwnSign) {
  for (const Setter& setter : kSetters) {
    SCOPED_TRACE(setter.perceptor);
    for (jointsFlag& row : body.jointFlags) row.active = false;
    std::invoke(setter.set, body, 0.25L);
    EXPECT_EQ(ActiveJoints(), Commands{setter.perceptor});
    EXPECT_EQ(Row(setter.perceptor).targetAngle, setter.sign * 0.25);
    std::invoke(setter.set, body, -1.5L);
    EXPECT_EQ(Row(setter.perceptor).targetAngle, setter.sign * -1.5);
  }
}

TEST_F(JointCommands, SettersWriteBothNamesOfTheirRow) {
  for (std::size_t i = 0; i < kSetters.size(); ++i) {
    body.jointFlags[i].perceptorName = "?";
    body.jointFlags[i].effectorName = "?";
    std::invoke(kSetters[i].set, body, 0);
    EXPECT_EQ(body.jointFlags[i].perceptorName, kSetters[i].perceptor);
    EXPECT_EQ(body.jointFlags[i].effectorName, kSetters[i].effector);
  }
}

TEST_F(JointCommands, PitchIsStoredNegatedAndRollAsGiven) {
  body.LHipPitchCommand(0.5);
  body.LHipRollCommand(0.5);
  EXPECT_EQ(Row("llj3").targetAngle, -0.5);
  EXPECT_EQ(Row("llj2").targetAngle, 0.5);
}

TEST_F(JointCommands, SettersNarrowToDouble) {
  body.HeadYawCommand(0.1L);
  EXPECT_EQ(Row("hj1").targetAngle, 0.1);
}

TEST_F(JointCommands, SettersNeitherSendNorStartAStep) {
  for (const Setter& setter : kSetters) std::invoke(setter.set, body, 0.3L);
  EXPECT_EQ(player.link.bytes(), "");
  EXPECT_EQ(body.moveCyclesLeft, 0);
  EXPECT_EQ(body.getCommands(), "");
}

TEST_F(JointCommands, ZeroJointsCentresAllButHeadAndShoulderRolls) {
  for (jointsFlag& row : body.jointFlags) row.targetAngle = 9;
  body.zeroJoints();
  EXPECT_EQ(ActiveJoints(),
            (Commands{"raj1", "raj3", "raj4", "laj1", "laj3", "laj4", "rlj1", "rlj2", "rlj3",
                      "rlj4", "rlj5", "rlj6", "llj1", "llj2", "llj3", "llj4", "llj5", "llj6"}));
  for (const jointsFlag& row : body.jointFlags) {
    EXPECT_EQ(row.targetAngle, row.active ? 0 : 9) << row.perceptorName;
  }
  EXPECT_EQ(body.Kp, 1.53);
  EXPECT_EQ(body.Ki, 0.002);
  EXPECT_EQ(body.Kd, 0.0098);
  EXPECT_EQ(body.moveCyclesLeft, 0) << "it starts no step";
  EXPECT_EQ(player.link.bytes(), "");
}

TEST_F(JointCommands, PendingHeadAndShoulderRollTargetsOutliveZeroJoints) {
  body.HeadYawCommand(0.1);
  body.HeadPitchCommand(0.2);
  body.RShoulderRollCommand(0.3);
  body.LShoulderRollCommand(0.4);
  body.zeroJoints();
  EXPECT_EQ(ActiveJoints().size(), 22U);
  EXPECT_EQ(Row("hj1").targetAngle, 0.1);
  EXPECT_EQ(Row("hj2").targetAngle, -0.2);
  EXPECT_EQ(Row("raj2").targetAngle, 0.3);
  EXPECT_EQ(Row("laj2").targetAngle, 0.4);
  body.Kp = 1;
  body.Ki = 0;
  body.Kd = 0;
  body.initMove(0.02);
  world.cycle = 5;
  body.move();
  const Commands sent = player.link.commands();
  ASSERT_EQ(sent.size(), 1U);
  // 0.3 rad in one cycle of 0.02 s.
  EXPECT_NE(sent[0].find("(rae2 15)"), std::string::npos) << "that joint moves in the step too";
}

struct Duration {
  double seconds;
  int cycles;
};

// The double nearest to 0.02 lies a little above it, so most quotients end just below the whole
// number that paper arithmetic gives.
constexpr std::array<Duration, 10> kDurations{{{0.01, 0},
                                               {0.02, 1},
                                               {0.04, 2},
                                               {0.06, 2},
                                               {0.1, 5},
                                               {0.2, 10},
                                               {0.3, 14},
                                               {0.5, 24},
                                               {1.0, 49},
                                               {0, 0}}};

TEST_F(JointCommands, DurationsAreCutToCyclesInExtendedPrecision) {
  for (const Duration& duration : kDurations) {
    body.initMove(duration.seconds);
    EXPECT_EQ(body.moveCyclesLeft, duration.cycles) << duration.seconds << " s";
  }
}

// Another way to the same count: whole numbers only. Both doubles are m * 2^e exactly, so the
// quotient is a ratio of integers; the extended format keeps 64 bits of it.
TEST_F(JointCommands, DurationsAgreeWithIntegerDivisionOfTheSameDoubles) {
  for (int hundredths = 1; hundredths <= 300; ++hundredths) {
    const double seconds = hundredths / 100.0;
    int exponent = 0;
    const double mantissa = std::frexp(seconds, &exponent);
    int stepExponent = 0;
    const double stepMantissa = std::frexp(0.02, &stepExponent);
    __extension__ using Wide = unsigned __int128;
    const Wide numerator = static_cast<Wide>(std::ldexp(mantissa, 53));
    const Wide denominator = static_cast<Wide>(std::ldexp(stepMantissa, 53));
    const int shift = exponent - stepExponent;
    const Wide top = shift > 0 ? numerator << static_cast<unsigned>(shift) : numerator;
    const Wide bottom = shift < 0 ? denominator << static_cast<unsigned>(-shift) : denominator;
    const Wide whole = top / bottom;
    // The quotient rounds up to whole + 1 when it is nearer to it than half a unit of the 64th bit.
    const Wide missing = (whole + 1) * bottom - top;
    int bits = 0;
    for (Wide w = whole; w > 0; w >>= 1U) ++bits;
    const bool roundsUp = missing * (Wide{1} << static_cast<unsigned>(65 - bits)) < bottom;
    body.initMove(seconds);
    EXPECT_EQ(body.moveCyclesLeft, static_cast<int>(whole) + (roundsUp ? 1 : 0)) << seconds;
  }
}

TEST_F(JointCommands, StepTooShortForACycleLeavesTheTargetsPending) {
  world.cycle = 5;
  body.LHipRollCommand(0.5);
  body.initMove(0.01);
  body.move();
  EXPECT_EQ(player.link.commands(), Commands{""});
  EXPECT_EQ(ActiveJoints(), Commands{"llj2"});
}

TEST_F(JointCommands, InitMoveLetsPlaybackActInTheSameCycle) {
  world.cycle = 77;
  body.initMove(0.1);
  EXPECT_EQ(body.lastMoveCycle, 76);
}

TEST_F(JointCommands, InitMoveForgetsTheErrorsOfActiveJointsOnly) {
  for (jointsFlag& row : body.jointFlags) row.lastError = row.errorSum = 3;
  body.LKneePitchCommand(0.1);
  body.initMove(0.1);
  EXPECT_EQ(Row("llj4").lastError, 0);
  EXPECT_EQ(Row("llj4").errorSum, 0);
  EXPECT_EQ(Row("rlj4").lastError, 3);
  EXPECT_EQ(Row("rlj4").errorSum, 3);
}

TEST_F(JointCommands, EmptyCommandStillSendsTheTwentyOneZeros) {
  body.sendCommand("");
  EXPECT_EQ(player.link.frames(),
            Commands{"(he2 0)(rae1 0)(rae2 0)(rae3 0)(rae4 0)(lae1 0)(lae2 0)(lae3 0)(lae4 0)"
                     "(rle1 0)(rle2 0)(rle3 0)(rle4 0)(rle5 0)(rle6 0)(lle1 0)(lle2 0)(lle3 0)"
                     "(lle4 0)(lle5 0)(lle6 0)"});
}

TEST_F(JointCommands, EveryMessageIsTheZerosAndThenTheText) {
  body.sendCommand("(he1 2)(lle1 -0.5)");
  const Commands frames = player.link.frames();
  ASSERT_EQ(frames.size(), 1U);
  EXPECT_EQ(frames[0].size(), 167U + 18U);
  EXPECT_EQ(frames[0].substr(0, 7), "(he2 0)");
  EXPECT_EQ(frames[0].substr(167), "(he1 2)(lle1 -0.5)");
}

TEST_F(JointCommands, WaitingCommandsGoOutFirstAndOnce) {
  body.commands = "(he1 1)";
  EXPECT_EQ(body.getCommands(), "(he1 1)");
  body.sendCommand("(lle1 2)");
  EXPECT_EQ(body.getCommands(), "");
  body.sendCommand("(lle2 3)");
  EXPECT_EQ(player.link.commands(), (Commands{"(he1 1)(lle1 2)", "(lle2 3)"}));
}

TEST_F(JointCommands, SayIsAMessageOfItsOwn) {
  body.sendSay("|,2,1.50,-0.25,3.00");
  EXPECT_EQ(player.link.commands(), Commands{"(say |,2,1.50,-0.25,3.00)"});
}

}  // namespace
