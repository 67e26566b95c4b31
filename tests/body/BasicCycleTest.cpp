#include "tests/body/BodyTest.h"

namespace {

/// The goalkeeper: its head is still, so every message is the cycle's own.
class BasicCycle : public BodyTest {
 protected:
  BasicCycle() : BodyTest(1) { world.playMode = "PlayOn"; }
};

constexpr const char* kInit = "(init (unum 1)(teamname Kolu-Otters))";
constexpr const char* kBeam = "(beam -8.6 0 -0)";

TEST_F(BasicCycle, InitGoesOutInCycleTenOnlyAheadOfThePlayback) {
  for (int cycle = 1; cycle <= 40; ++cycle) {
    EXPECT_EQ(Cycle(cycle), cycle == 10 ? (Commands{kInit, ""}) : Commands{""}) << cycle;
  }
}

TEST_F(BasicCycle, SecondMessageInCycleTenSaysInitAgain) {
  EXPECT_EQ(Cycle(10), (Commands{kInit, ""}));
  EXPECT_EQ(Cycle(10), (Commands{kInit, ""}));
}

TEST_F(BasicCycle, InitGoesOutBeforeTheKickOffToo) {
  world.playMode = "BeforeKickOff";
  EXPECT_EQ(Cycle(10), (Commands{kInit, ""}));
}

TEST_F(BasicCycle, CycleTenSetsThePlayerOnItsFeetAndLeavesTheStagesAlone) {
  body.bodyState = 1;
  body.getUpStepPending = {false, true, false, true, false, true, false, true, false, false};
  const auto stages = body.getUpStepPending;
  EXPECT_EQ(Cycle(10), (Commands{kInit, ""}));
  EXPECT_EQ(body.bodyState, 0);
  EXPECT_EQ(body.getUpStepPending, stages);
}

TEST_F(BasicCycle, WaitingForTheKickOffEachCycleFromTwentyOnIsOneBeam) {
  for (const char* mode : {"BeforeKickOff", "beforekickoff"}) {
    world.playMode = mode;
    EXPECT_EQ(Cycle(19), Commands{""}) << mode;
    for (const int cycle : {20, 21, 30, 50, 51, 500}) {
      EXPECT_EQ(Cycle(cycle), Commands{kBeam}) << mode << " " << cycle;
    }
  }
}

TEST_F(BasicCycle, OtherSpellingsOfTheWaitDontBeam) {
  for (const char* mode :
       {"", "beforeKickOff", "BEFOREKICKOFF", "BeforeKickOff ", "KickOff_Left"}) {
    world.playMode = mode;
    EXPECT_EQ(Cycle(20), Commands{""}) << mode;
  }
}

TEST_F(BasicCycle, BeamCycleDoesNothingElse) {
  body.uNum = 2;
  world.playMode = "BeforeKickOff";
  directory.write("script.txt", "LHipRollCommand 0.5 move 0");
  body.myACtionFile.open("script.txt");
  body.actionFileOpen = true;
  body.accel = VecPosition(0, 9.81, 0);
  EXPECT_EQ(Cycle(60).size(), 1U) << "no head, no playback";
  EXPECT_EQ(Cycle(61).size(), 1U);
  EXPECT_EQ(ActiveJoints(), Commands{}) << "no script";
  EXPECT_EQ(body.bodyState, 0) << "no fall";
}

TEST_F(BasicCycle, RunningStepFreezesDuringTheWaitAndResumesAtTheKickOff) {
  world.cycle = 40;
  body.LHipRollCommand(0.1);
  body.initMove(0.2);  // 10 cycles
  EXPECT_EQ(Cycle(40), Commands{"(lle2 0.5)"});
  world.playMode = "BeforeKickOff";
  for (int cycle = 41; cycle < 60; ++cycle) EXPECT_EQ(Cycle(cycle), Commands{kBeam});
  EXPECT_EQ(body.moveCyclesLeft, 9);
  EXPECT_EQ(body.lastMoveCycle, 40);
  world.playMode = "KickOff_Left";
  // Nine cycles left for 0.1 rad.
  EXPECT_EQ(Cycle(60), Commands{"(lle2 0.555556)"});
  EXPECT_EQ(body.moveCyclesLeft, 8);
}

TEST_F(BasicCycle, StartPositionIsSetInCycleThirty) {
  EXPECT_EQ(Cycle(29), Commands{""});
  EXPECT_EQ(body.beamX, 0);
  EXPECT_EQ(Cycle(30), Commands{""});
  EXPECT_EQ(body.beamX, -8.7);
  EXPECT_EQ(body.beamY, 0);
}

TEST_F(BasicCycle, WaitHidesTheStartPositionOfCycleThirty) {
  world.playMode = "BeforeKickOff";
  EXPECT_EQ(Cycle(30), Commands{kBeam});
  EXPECT_EQ(body.beamX, -8.6) << "the beam's own";
}

TEST_F(BasicCycle, HeadOfAFieldPlayerScansFromCycleFiftyAheadOfThePlayback) {
  body.uNum = 2;
  EXPECT_EQ(Cycle(48), Commands{""});
  EXPECT_EQ(Cycle(49), Commands{""});
  const Commands sent = Cycle(50);
  ASSERT_EQ(sent.size(), 2U);
  EXPECT_EQ(sent[0].substr(0, 5), "(he1 ");
  EXPECT_EQ(sent[1], "");
  EXPECT_EQ(Cycle(51), Commands{""});
}

TEST_F(BasicCycle, HeadOfAFallenPlayerIsLeftAlone) {
  body.uNum = 2;
  for (const int state : {1, 2, 3, 4}) {
    body.bodyState = state;
    body.jumpTime = 60;
    EXPECT_EQ(Cycle(60), Commands{""}) << state;
  }
}

TEST_F(BasicCycle, ScriptIsReadInOddCyclesOnlyAndPlayedWithoutAGap) {
  directory.write("script.txt", "LHipRollCommand 0.1 move 0 RHipRollCommand 0.1 move 0 move 0");
  body.myACtionFile.open("script.txt");
  body.actionFileOpen = true;
  EXPECT_EQ(Cycle(60), Commands{""}) << "an even cycle reads nothing";
  // Half of 0.1 rad, the share that the action gains ask for; then all of it, the joint unmoved.
  EXPECT_EQ(Cycle(61), Commands{"(lle2 0.375)"});
  EXPECT_EQ(Cycle(62), Commands{"(lle2 0.775)"});
  EXPECT_EQ(Cycle(63), Commands{"(rle2 0.375)"}) << "a joint that isn't named stands still";
  EXPECT_EQ(Cycle(64), Commands{"(rle2 0.775)"});
  EXPECT_EQ(Cycle(65), Commands{""});
}

TEST_F(BasicCycle, ScriptWithoutItsFlagIsLeftAlone) {
  directory.write("script.txt", "LHipRollCommand 0.1 move 0");
  body.myACtionFile.open("script.txt");
  EXPECT_EQ(Cycle(61), Commands{""});
  EXPECT_TRUE(body.myACtionFile.is_open());
}

TEST_F(BasicCycle, EachFallenStateCallsItsRoutineOnce) {
  directory.write("JumpR2.txt", "RSR 0.1 MOVE 0.1");
  directory.write("JumpL2.txt", "LSR 0.1 MOVE 0.1");
  body.bodyState = 1;
  EXPECT_EQ(Cycle(200), Commands{""});
  EXPECT_EQ(body.getUpStartTime, 200);
  EXPECT_FALSE(body.getUpStepPending[9]);

  body.getUpStepPending.fill(true);
  body.bodyState = 2;
  EXPECT_EQ(Cycle(201), Commands{""});
  EXPECT_EQ(body.getUpStartTime, 201);

  body.getUpStepPending.fill(true);
  body.bodyState = 3;
  EXPECT_EQ(Cycle(202), Commands{"(rae2 1)"});
  EXPECT_EQ(body.bodyState, 1);
  EXPECT_TRUE(body.getUpStepPending[9]) << "the roll's new state has to wait for the next cycle";

  body.moveCyclesLeft = 0;
  for (jointsFlag& row : body.jointFlags) row.active = false;
  body.bodyState = 4;
  EXPECT_EQ(Cycle(203), Commands{"(lae2 1)"});
  EXPECT_EQ(body.bodyState, 1);
  EXPECT_TRUE(body.getUpStepPending[9]);
}

TEST_F(BasicCycle, FallIsSeenInTheCycleAndTreatedInTheNext) {
  body.accel = VecPosition(0, 9.81, 0);
  OutputCapture output;
  EXPECT_EQ(Cycle(300), Commands{""});
  EXPECT_EQ(output.text(), "bodystate: 1\n");
  EXPECT_EQ(body.bodyState, 1);
  EXPECT_TRUE(body.getUpStepPending[9]);
  EXPECT_EQ(Cycle(301), Commands{""});
  EXPECT_EQ(body.getUpStartTime, 301);
}

TEST_F(BasicCycle, LyingPlayerIsNotClassifiedAnew) {
  body.bodyState = 1;
  body.accel = VecPosition(0, -9.81, 0);
  EXPECT_EQ(Cycle(300), Commands{""});
  EXPECT_EQ(body.bodyState, 1);
}

TEST_F(BasicCycle, StepInPlaybackOutlivesTheFall) {
  world.cycle = 300;
  body.LHipRollCommand(0.1);
  body.initMove(0.2);
  body.accel = VecPosition(0, 9.81, 0);
  EXPECT_EQ(Cycle(300).size(), 1U);
  EXPECT_EQ(Cycle(301), Commands{"(lle2 0.555556)"});
}

}  // namespace
