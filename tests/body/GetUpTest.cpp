#include <array>
#include <functional>

#include "tests/body/BodyTest.h"

namespace {

constexpr int kStart = 1000;

/// Each pose of a sequence moves a joint of its own, so that the joints tell which have been
/// loaded.
class GetUp : public BodyTest {
 protected:
  GetUp() : BodyTest(1) {
    world.playMode = "PlayOn";
    for (const char* name : {"back", "front"}) {
      directory.write(std::string(name) + "2.txt", "LSR 0.2 MOVE 0.02");
      directory.write(std::string(name) + "3.txt", "RSR 0.2 MOVE 0.02");
      directory.write(std::string(name) + "4.txt", "LAR 0.2 MOVE 0.02");
    }
  }

  void Call(void (BasicAgent::*sequence)(), int cycle) const {
    world.cycle = cycle;
    std::invoke(sequence, body);
  }

  void ExpectFirmGains() const {
    EXPECT_EQ(body.Kp, 1.53);
    EXPECT_EQ(body.Ki, 0.002);
    EXPECT_EQ(body.Kd, 0.0098);
  }
};

const Commands kCentred{"raj1", "raj3", "raj4", "laj1", "laj3", "laj4", "rlj1", "rlj2", "rlj3",
                        "rlj4", "rlj5", "rlj6", "llj1", "llj2", "llj3", "llj4", "llj5", "llj6"};

TEST_F(GetUp, FirstCallStartsTheClock) {
  for (auto sequence : {&BasicAgent::Back, &BasicAgent::Front}) {
    body.getUpStepPending = {false, false, false, false, false, false, true, false, true, true};
    Call(sequence, kStart);
    EXPECT_EQ(body.getUpStartTime, kStart);
    EXPECT_EQ(body.getUpStepPending, (std::array<bool, 10>{true, true, true, true, true, false,
                                                           true, false, true, false}));
    Call(sequence, kStart + 5);
    EXPECT_EQ(body.getUpStartTime, kStart);
  }
}

TEST_F(GetUp, BackDoesNothingForFortyNineCycles) {
  for (int cycle = kStart; cycle <= kStart + 49; ++cycle) Call(&BasicAgent::Back, cycle);
  EXPECT_EQ(ActiveJoints(), Commands{});
  EXPECT_EQ(body.Kp, 1);
  EXPECT_TRUE(body.getUpStepPending[0]);
}

TEST_F(GetUp, BackStretchesItsArmsInCycleFifty) {
  Call(&BasicAgent::Back, kStart);
  for (jointsFlag& row : body.jointFlags) row.lastError = row.errorSum = 3;
  Call(&BasicAgent::Back, kStart + 50);
  EXPECT_EQ(ActiveJoints(), kCentred);
  for (const std::string& name : kCentred) {
    EXPECT_EQ(Row(name).targetAngle, name == "laj1" || name == "raj1" ? -1.57 : 0) << name;
    EXPECT_EQ(Row(name).lastError, 0) << name;
    EXPECT_EQ(Row(name).errorSum, 0) << name;
  }
  EXPECT_EQ(Row("hj1").lastError, 3) << "not active";
  ExpectFirmGains();
  EXPECT_EQ(body.moveCyclesLeft, 45);
  EXPECT_EQ(body.lastMoveCycle, kStart + 49);
  EXPECT_FALSE(body.getUpStepPending[0]);
}

TEST_F(GetUp, FrontCentresItsJointsInCycleTen) {
  Call(&BasicAgent::Front, kStart);
  Call(&BasicAgent::Front, kStart + 9);
  EXPECT_EQ(ActiveJoints(), Commands{});
  for (jointsFlag& row : body.jointFlags) row.lastError = row.errorSum = row.targetAngle = 3;
  Call(&BasicAgent::Front, kStart + 10);
  EXPECT_EQ(ActiveJoints(), kCentred);
  for (const std::string& name : kCentred) {
    EXPECT_EQ(Row(name).targetAngle, 0) << name;
    EXPECT_EQ(Row(name).lastError, 0) << name;
    EXPECT_EQ(Row(name).errorSum, 0) << name;
  }
  ExpectFirmGains();
  EXPECT_EQ(body.moveCyclesLeft, 20);
  EXPECT_EQ(body.lastMoveCycle, kStart + 9);
  EXPECT_FALSE(body.getUpStepPending[0]);
}

TEST_F(GetUp, PendingHeadAndShoulderRollTargetsTakePartInTheFirstStage) {
  body.HeadYawCommand(0.5);
  Call(&BasicAgent::Back, kStart);
  Row("hj1").lastError = 3;
  Call(&BasicAgent::Back, kStart + 50);
  EXPECT_EQ(ActiveJoints().size(), 19U);
  EXPECT_EQ(Row("hj1").targetAngle, 0.5);
  EXPECT_EQ(Row("hj1").lastError, 0);
}

struct Stage {
  int after;  // cycles after the start
  std::size_t flag;
  const char* joint;  // that its pose moves
};

void ExpectPoses(BasicAgent& body, WorldModel& world, void (BasicAgent::*sequence)(),
                 const std::array<Stage, 3>& stages) {
  for (const Stage& stage : stages) {
    world.cycle = kStart + stage.after - 1;
    std::invoke(sequence, body);
    EXPECT_TRUE(body.getUpStepPending[stage.flag]) << stage.after;
    for (jointsFlag& row : body.jointFlags) row.active = false;
    body.Kp = 0;
    world.cycle = kStart + stage.after;
    std::invoke(sequence, body);
    EXPECT_FALSE(body.getUpStepPending[stage.flag]) << stage.after;
    for (const jointsFlag& row : body.jointFlags) {
      EXPECT_EQ(row.active, row.perceptorName == stage.joint) << stage.after;
    }
    EXPECT_EQ(body.lastLoadTime, world.cycle);
    EXPECT_EQ(body.moveCyclesLeft, 1);
    EXPECT_EQ(body.Kp, 1.53);
    for (jointsFlag& row : body.jointFlags) row.active = false;
    world.cycle += 1;
    std::invoke(sequence, body);
    EXPECT_EQ(body.lastLoadTime, world.cycle - 1) << "each stage runs once";
  }
}

TEST_F(GetUp, BackLoadsItsPosesByTheClock) {
  Call(&BasicAgent::Back, kStart);
  ExpectPoses(body, world, &BasicAgent::Back,
              {{{110, 1, "laj2"}, {170, 2, "raj2"}, {270, 3, "llj6"}}});
}

TEST_F(GetUp, FrontLoadsItsPosesByTheClock) {
  Call(&BasicAgent::Front, kStart);
  ExpectPoses(body, world, &BasicAgent::Front,
              {{{110, 1, "laj2"}, {160, 2, "raj2"}, {240, 3, "llj6"}}});
}

TEST_F(GetUp, BackEndsAfterFiveHundredCycles) {
  body.bodyState = 1;
  Call(&BasicAgent::Back, kStart);
  Call(&BasicAgent::Back, kStart + 499);
  EXPECT_EQ(body.bodyState, 1);
  EXPECT_FALSE(body.getUpStepPending[9]);
  Call(&BasicAgent::Back, kStart + 500);
  EXPECT_EQ(body.bodyState, 0);
  EXPECT_TRUE(body.getUpStepPending[9]);
  EXPECT_FALSE(body.getUpStepPending[4]);
}

TEST_F(GetUp, FrontEndsAfterThreeHundredAndFiftyCyclesAndKeepsItsLastFlag) {
  body.bodyState = 2;
  Call(&BasicAgent::Front, kStart);
  Call(&BasicAgent::Front, kStart + 349);
  EXPECT_EQ(body.bodyState, 2);
  EXPECT_FALSE(body.getUpStepPending[9]);
  Call(&BasicAgent::Front, kStart + 350);
  EXPECT_EQ(body.bodyState, 0);
  EXPECT_TRUE(body.getUpStepPending[9]);
  EXPECT_TRUE(body.getUpStepPending[4]);
}

TEST_F(GetUp, StagesOfMissedCyclesRunTogetherInOrder) {
  body.bodyState = 1;
  Call(&BasicAgent::Back, kStart);
  Call(&BasicAgent::Back, kStart + 600);
  EXPECT_EQ(body.bodyState, 0);
  EXPECT_EQ(ActiveJoints().size(), 20U) << "eighteen centred ones; llj6 among the poses' three";
  EXPECT_EQ(Row("llj6").targetAngle, 0.2);
  EXPECT_EQ(body.moveCyclesLeft, 1) << "the last pose's step";
}

TEST_F(GetUp, MissingPosesCostTheirStageOnly) {
  for (const char* pose : {"back2.txt", "back3.txt", "back4.txt"}) {
    std::filesystem::remove(directory.path() / pose);
  }
  body.bodyState = 1;
  Call(&BasicAgent::Back, kStart);
  Call(&BasicAgent::Back, kStart + 50);
  Call(&BasicAgent::Back, kStart + 110);
  EXPECT_FALSE(body.getUpStepPending[1]);
  EXPECT_EQ(body.moveCyclesLeft, 45);
  Call(&BasicAgent::Back, kStart + 500);
  EXPECT_EQ(body.bodyState, 0);
}

TEST_F(GetUp, FallDuringAKickRunsOnTheKicksClockWithWhatItsFlagsLeave) {
  body.getUpStartTime = kStart;
  body.getUpStepPending = {false, false, true, true, true, true, true, true, true, false};
  body.bodyState = 1;
  Call(&BasicAgent::Back, kStart + 110);
  EXPECT_EQ(body.getUpStartTime, kStart);
  EXPECT_EQ(ActiveJoints(), Commands{}) << "stages 1 and 2 count as run";
  Call(&BasicAgent::Back, kStart + 170);
  EXPECT_EQ(ActiveJoints(), Commands{"raj2"});
}

TEST_F(GetUp, PlayerThatStillLiesStartsAnewInTheNextCycle) {
  body.accel = VecPosition(0, -7, 0);
  EXPECT_EQ(Cycle(kStart - 1), Commands{""});
  for (int cycle = kStart; cycle < kStart + 350; ++cycle) {
    world.cycle = cycle;
    body.basicAgentLoop();
    EXPECT_EQ(player.link.commands().size(), 1U);
    EXPECT_EQ(body.bodyState, 2) << cycle;
  }
  {
    OutputCapture output;
    EXPECT_EQ(Cycle(kStart + 350).size(), 1U);
    EXPECT_EQ(output.text(), "bodystate: 2\n");
  }
  EXPECT_EQ(body.bodyState, 2);
  EXPECT_EQ(body.getUpStartTime, kStart);
  EXPECT_EQ(Cycle(kStart + 351).size(), 1U);
  EXPECT_EQ(body.getUpStartTime, kStart + 351);
}

TEST_F(GetUp, StandingUpEarlyDoesNotCutTheSequenceShort) {
  body.accel = VecPosition(0, 7, 0);
  EXPECT_EQ(Cycle(kStart - 1), Commands{""});
  body.accel = VecPosition(0, 0, 9.81);
  for (int cycle = kStart; cycle < kStart + 500; ++cycle) {
    EXPECT_EQ(Cycle(cycle).size(), 1U);
    EXPECT_EQ(body.bodyState, 1) << cycle;
  }
  EXPECT_EQ(Cycle(kStart + 500), Commands{""});
  EXPECT_EQ(body.bodyState, 0);
}

// Stage 1 of the back: 45 slices of the way with the firm gains, worked out for a joint that stays
// at 0. First cycle: e = -1.57 / 45, times 1.53 + 0.02 * 0.002 + 0.0098 / 0.02, in 0.02 s.
TEST_F(GetUp, ArmsAreDrivenInTheVeryCycleOfTheStage) {
  body.bodyState = 1;
  EXPECT_EQ(Cycle(kStart), Commands{""});
  const Commands sent = Cycle(kStart + 50);
  ASSERT_EQ(sent.size(), 1U);
  EXPECT_EQ(sent[0],
            "(rae1 -3.52385)(rae3 0)(rae4 0)(lae1 -3.52385)(lae3 0)(lae4 0)(rle1 0)(rle2 0)"
            "(rle3 0)(rle4 0)(rle5 0)(rle6 0)(lle1 0)(lle2 0)(lle3 0)(lle4 0)(lle5 0)(lle6 0)");
  EXPECT_EQ(body.moveCyclesLeft, 44);
}

}  // namespace
