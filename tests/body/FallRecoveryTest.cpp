#include <array>
#include <functional>

#include "tests/body/BodyTest.h"

namespace {

/// The goalkeeper, which dives and doesn't scan; in play.
class FallRecovery : public BodyTest {
 protected:
  FallRecovery() : BodyTest(1) { world.playMode = "PlayOn"; }

  std::string OutputOfCheck(VecPosition accel) {
    body.accel = accel;
    OutputCapture output;
    body.checkBodyState();
    return output.text();
  }
};

struct Reading {
  double x, y, z;  // [m/s^2]
  int state;
};

// Strict thresholds at 6; y goes before x and its positive side first; z counts for nothing.
constexpr std::array<Reading, 17> kReadings{{{0, 0, 0, 0},
                                             {0, 0, 9.81, 0},
                                             {0, 6, 0, 0},
                                             {0, 6.01, 0, 1},
                                             {0, -6, 0, 0},
                                             {0, -6.01, 0, 2},
                                             {-6, 0, 0, 0},
                                             {-6.01, 0, 0, 3},
                                             {6, 0, 0, 0},
                                             {6.01, 0, 0, 4},
                                             {-7, 7, 0, 1},
                                             {7, 7, 0, 1},
                                             {7, -7, 0, 2},
                                             {-7, -7, 0, 2},
                                             {0, 0, -9.81, 0},
                                             {0, 0, 100, 0},
                                             {6, 6, 6, 0}}};

TEST_F(FallRecovery, OneReadingDecides) {
  for (const Reading& reading : kReadings) {
    const std::string output = OutputOfCheck(VecPosition(reading.x, reading.y, reading.z));
    EXPECT_EQ(body.bodyState, reading.state) << reading.x << " " << reading.y;
    EXPECT_EQ(output,
              reading.state == 0 ? "" : "bodystate: " + std::to_string(reading.state) + "\n");
  }
}

TEST_F(FallRecovery, StandingReadingClearsAnOlderState) {
  body.bodyState = 3;
  EXPECT_EQ(OutputOfCheck(VecPosition(0, 0, 9.81)), "");
  EXPECT_EQ(body.bodyState, 0);
}

TEST_F(FallRecovery, DiveLoadsItsPoseAndNotesTheCycle) {
  directory.write("JumpR1.txt", "RSR 0.5 MOVE 0.1");
  directory.write("JumpL1.txt", "LSR 0.5 MOVE 0.2");
  world.cycle = 1000;
  body.JumpR();
  EXPECT_EQ(body.jumpTime, 1000);
  EXPECT_EQ(ActiveJoints(), Commands{"raj2"});
  EXPECT_EQ(body.moveCyclesLeft, 5);
  world.cycle = 2000;
  body.JumpL();
  EXPECT_EQ(body.jumpTime, 2000);
  EXPECT_EQ(ActiveJoints(), (Commands{"raj2", "laj2"}));
  EXPECT_EQ(body.moveCyclesLeft, 10);
  EXPECT_EQ(body.bodyState, 0);
}

struct Side {
  int state;
  double accelX;
  void (BasicAgent::*dive)();
  void (BasicAgent::*roll)();
  const char* pose;
};

constexpr std::array<Side, 2> kSides{
    {{3, -7, &BasicAgent::JumpR, &BasicAgent::Right2Back, "JumpR2.txt"},
     {4, 7, &BasicAgent::JumpL, &BasicAgent::Left2Back, "JumpL2.txt"}}};

TEST_F(FallRecovery, RollOntoTheBackWaitsForAHundredCyclesAfterADive) {
  for (const Side& side : kSides) {
    directory.write(side.pose, "LHR 0.5 MOVE 0.1");
    Row("llj2").active = false;
    world.cycle = 1000;
    std::invoke(side.dive, body);
    body.bodyState = side.state;
    for (const int cycle : {1000, 1001, 1098, 1099}) {
      world.cycle = cycle;
      std::invoke(side.roll, body);
      EXPECT_EQ(body.bodyState, side.state) << cycle;
      EXPECT_FALSE(Row("llj2").active);
    }
    world.cycle = 1100;
    std::invoke(side.roll, body);
    EXPECT_EQ(body.bodyState, 1);
    EXPECT_TRUE(Row("llj2").active) << side.pose;
    EXPECT_EQ(body.lastLoadTime, 1100);
  }
}

TEST_F(FallRecovery, DiveEndsInABackSequenceOfItsOwn) {
  world.cycle = 1000;
  body.JumpR();
  EXPECT_EQ(Cycle(1009), Commands{""});
  body.accel = VecPosition(-7, 0, 0);
  EXPECT_EQ(Cycle(1010), Commands{""});
  EXPECT_EQ(body.bodyState, 3);
  for (int cycle = 1011; cycle < 1100; ++cycle) {
    EXPECT_EQ(Cycle(cycle), Commands{""});
    EXPECT_EQ(body.bodyState, 3);
  }
  EXPECT_EQ(Cycle(1100), Commands{""});
  EXPECT_EQ(body.bodyState, 1);
  EXPECT_EQ(Cycle(1101), Commands{""});
  EXPECT_EQ(body.getUpStartTime, 1101);
}

TEST_F(FallRecovery, FallOntoTheSideWithoutADiveIsRolledOverAtOnce) {
  for (const Side& side : kSides) {
    body.bodyState = side.state;
    world.cycle = 99;
    std::invoke(side.roll, body);
    EXPECT_EQ(body.bodyState, side.state) << "the dive that never was counts as cycle 0";
    world.cycle = 100;
    std::invoke(side.roll, body);
    EXPECT_EQ(body.bodyState, 1);
  }
}

TEST_F(FallRecovery, StandAloneDispatchRunsEachStatesRoutine) {
  world.cycle = 200;
  body.bodyState = 1;
  body.GetUP();
  EXPECT_EQ(body.getUpStartTime, 200);

  world.cycle = 210;
  body.getUpStepPending.fill(true);
  body.bodyState = 2;
  body.GetUP();
  EXPECT_EQ(body.getUpStartTime, 210);

  for (const Side& side : kSides) {
    directory.write(side.pose, "LHR 0.5 MOVE 0.1");
    Row("llj2").active = false;
    body.getUpStepPending.fill(true);
    body.bodyState = side.state;
    body.GetUP();
    EXPECT_EQ(body.bodyState, 1);
    EXPECT_TRUE(Row("llj2").active) << side.pose;
    EXPECT_TRUE(body.getUpStepPending[9]) << "the back's sequence is the next call's";
  }
}

TEST_F(FallRecovery, StandAloneDispatchHoldsASideAfterADive) {
  for (const Side& side : kSides) {
    body.jumpTime = 1000;
    world.cycle = 1099;
    body.bodyState = side.state;
    body.GetUP();
    EXPECT_EQ(body.bodyState, side.state);
  }
}

TEST_F(FallRecovery, StandAloneDispatchLooksForAFallWhenUpright) {
  body.accel = VecPosition(0, -7, 0);
  body.GetUP();
  EXPECT_EQ(body.bodyState, 2);
}

TEST_F(FallRecovery, StandAloneDispatchLooksAgainWhenASequenceHasEnded) {
  world.cycle = 700;
  body.bodyState = 1;
  body.getUpStartTime = 200;
  body.getUpStepPending = {};
  body.getUpStepPending[4] = true;
  body.accel = VecPosition(0, -7, 0);
  body.GetUP();
  EXPECT_EQ(body.bodyState, 2);
}

TEST_F(FallRecovery, StandAloneDispatchLeavesOtherStatesAlone) {
  for (const int state : {-1, 5, 6}) {
    body.bodyState = state;
    body.accel = VecPosition(0, 7, 0);
    body.GetUP();
    EXPECT_EQ(body.bodyState, state);
    EXPECT_TRUE(body.getUpStepPending[9]);
  }
}

}  // namespace
