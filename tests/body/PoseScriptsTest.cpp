#include <array>

#include "tests/body/BodyTest.h"

namespace {

class PoseScripts : public BodyTest {
 protected:
  std::string OutputOf(const char* file) {
    OutputCapture output;
    EXPECT_TRUE(body.loadMoveFromFile(file)) << "the result is always true";
    return output.text();
  }

  void Play(std::string_view content, const std::string& file = "pose.txt") {
    directory.write(file, content);
    EXPECT_EQ(OutputOf(file.c_str()), "");
  }
};

struct PoseKeyword {
  const char* word;
  const char* perceptor;
  double sign;
};

constexpr std::array<PoseKeyword, 20> kPoseKeywords{
    {{"LSP", "laj1", -1}, {"RSP", "raj1", -1}, {"LSR", "laj2", 1},  {"RSR", "raj2", 1},
     {"RHP", "rlj3", -1}, {"LHP", "llj3", -1}, {"RKP", "rlj4", -1}, {"LKP", "llj4", -1},
     {"LHR", "llj2", 1},  {"RHR", "rlj2", 1},  {"LHY", "llj1", 1},  {"RHY", "rlj1", 1},
     {"RAP", "rlj5", -1}, {"LAP", "llj5", -1}, {"RAR", "rlj6", 1},  {"LAR", "llj6", 1},
     {"RER", "raj4", 1},  {"REY", "raj3", 1},  {"LER", "laj4", 1},  {"LEY", "laj3", 1}}};

TEST_F(PoseScripts, EachKeywordMovesItsJointWithItsSign) {
  for (const PoseKeyword& keyword : kPoseKeywords) {
    for (jointsFlag& row : body.jointFlags) row.active = false;
    Play(std::string(keyword.word) + " 0.75 MOVE 0.2");
    EXPECT_EQ(ActiveJoints(), Commands{keyword.perceptor}) << keyword.word;
    EXPECT_EQ(Row(keyword.perceptor).targetAngle, keyword.sign * 0.75) << keyword.word;
  }
}

TEST_F(PoseScripts, WordsOfActionsAndOfNoJointAreSkippedWithTheirNumbers) {
  Play("LShoulderPitchCommand 1 HY 2 lsp 3 move 0.1 HeadYawCommand 4 LSR 0.5 MOVE 0.5");
  EXPECT_EQ(ActiveJoints(), Commands{"laj2"});
  EXPECT_EQ(body.moveCyclesLeft, 24);
}

TEST_F(PoseScripts, HalfASecondIsAStepOfTwentyFourCycles) {
  world.cycle = 60;
  Play("LHP 0.5\nMOVE 0.5\n");
  EXPECT_EQ(body.moveCyclesLeft, 24);
  EXPECT_EQ(body.lastMoveCycle, 59);
  EXPECT_EQ(ActiveJoints(), Commands{"llj3"});
  EXPECT_EQ(Row("llj3").targetAngle, -0.5);
}

TEST_F(PoseScripts, NothingBehindTheFirstBlockIsRead) {
  Play("LHR 0.5 MOVE 0.1 LHR 0.9 RHR 0.9 MOVE 1.0");
  EXPECT_EQ(ActiveJoints(), Commands{"llj2"});
  EXPECT_EQ(Row("llj2").targetAngle, 0.5);
  EXPECT_EQ(body.moveCyclesLeft, 5);
}

TEST_F(PoseScripts, LoadingIsNotedByItsCycle) {
  world.cycle = 321;
  Play("MOVE 0.1");
  EXPECT_EQ(body.lastLoadTime, 321);
}

TEST_F(PoseScripts, FirstLetterOfTheNameChoosesTheGains) {
  for (const char* file : {"front2.txt", "back4.txt", "bogus.txt", "f"}) {
    Play("MOVE 0.1", file);
    EXPECT_EQ(body.Kp, 1.53) << file;
    EXPECT_EQ(body.Ki, 0.002) << file;
    EXPECT_EQ(body.Kd, 0.0098) << file;
  }
  for (const char* file : {"kickL1.txt", "JumpR1.txt", "initialstate.txt", "Back2.txt", "Front2"}) {
    Play("MOVE 0.1", file);
    EXPECT_EQ(body.Kp, 1) << file;
    EXPECT_EQ(body.Ki, 0) << file;
    EXPECT_EQ(body.Kd, 0) << file;
  }
}

TEST_F(PoseScripts, MissingFileChangesGainsAndLoadTimeOnly) {
  world.cycle = 200;
  body.moveCyclesLeft = 3;
  body.LHipRollCommand(0.5);
  EXPECT_EQ(OutputOf("back2.txt"), "");
  EXPECT_EQ(body.Kp, 1.53);
  EXPECT_EQ(body.lastLoadTime, 200);
  EXPECT_EQ(body.moveCyclesLeft, 3);
  EXPECT_EQ(ActiveJoints(), Commands{"llj2"});
  EXPECT_EQ(player.link.bytes(), "");
}

TEST_F(PoseScripts, FileAfterAMissingOneIsRead) {
  OutputOf("nosuch.txt");
  Play("LHR 0.5 MOVE 0.1");
  EXPECT_EQ(ActiveJoints(), Commands{"llj2"});
  EXPECT_FALSE(body.moveFile.is_open());
}

TEST_F(PoseScripts, WithoutABlockEndTheTargetsJoinTheRunningStep) {
  body.moveCyclesLeft = 7;
  body.lastMoveCycle = 3;
  Play("LHR 0.5 RHR 0.5\n");
  EXPECT_EQ(ActiveJoints(), (Commands{"rlj2", "llj2"}));
  EXPECT_EQ(body.moveCyclesLeft, 7);
  EXPECT_EQ(body.lastMoveCycle, 3);
  EXPECT_FALSE(body.moveFile.is_open());
}

TEST_F(PoseScripts, MalformedNumberCountsAsZeroAndEndsTheReading) {
  Row("rlj2").targetAngle = 7;
  Play("LHR 0.5 RHR x LAR 0.5 MOVE 0.1");
  EXPECT_EQ(ActiveJoints(), (Commands{"rlj2", "llj2"}));
  EXPECT_EQ(Row("rlj2").targetAngle, 0);
  EXPECT_EQ(body.moveCyclesLeft, 0);
}

TEST_F(PoseScripts, NumberTooLargeToReadCountsAsZero) {
  Row("rlj2").targetAngle = 7;
  Play("RHR 1e999 MOVE 0.1");
  EXPECT_EQ(Row("rlj2").targetAngle, 0);
  EXPECT_EQ(body.moveCyclesLeft, 0) << "the reading ended before the block's end";
}

TEST_F(PoseScripts, DurationThatIsNoNumberEndsTheRunningStep) {
  body.moveCyclesLeft = 7;
  Play("LHR 0.5 MOVE x");
  EXPECT_EQ(body.moveCyclesLeft, 0);
  EXPECT_EQ(ActiveJoints(), Commands{"llj2"}) << "pending for the next step";
}

TEST_F(PoseScripts, NewStepReplacesTheRunningOneAndKeepsItsTargets) {
  Play("LHR 0.5 MOVE 1.0");
  Play("RHR 0.25 MOVE 0.1");
  EXPECT_EQ(body.moveCyclesLeft, 5);
  EXPECT_EQ(ActiveJoints(), (Commands{"rlj2", "llj2"}));
}

TEST_F(PoseScripts, LoadingOverAnOpenActionScriptIsTraced) {
  directory.write("walk.txt", "LHipRollCommand 0.5 move 0");
  directory.write("pose.txt", "LHR 0.1 MOVE 0.1");
  body.myACtionFile.open("walk.txt");
  body.actionFileOpen = true;
  body.actionName = "walkloop1";
  world.cycle = 100;
  EXPECT_EQ(OutputOf("pose.txt"), "loadmovefromFile1 says: myACtionFile is open: walkloop1\n");
  EXPECT_EQ(Row("llj2").targetAngle, 0.1) << "it is only a trace";
  EXPECT_EQ(body.moveCyclesLeft, 5);
  EXPECT_TRUE(body.myACtionFile.is_open());
  world.cycle = 129;
  body.loadMoveFromFile();
  EXPECT_EQ(Row("llj2").targetAngle, 0.1);
  world.cycle = 130;
  body.loadMoveFromFile();
  EXPECT_EQ(Row("llj2").targetAngle, 0.5);
}

}  // namespace
