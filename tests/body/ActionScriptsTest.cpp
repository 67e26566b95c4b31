#include <array>

#include "tests/body/BodyTest.h"

namespace {

// The reader leaves the first 29 cycles alone, as if a pose had been loaded in cycle 0.
constexpr int kFirstCycle = 101;

class ActionScripts : public BodyTest {
 protected:
  void Open(std::string_view content, const std::string& action = "walkstart") {
    directory.write("script.txt", content);
    body.myACtionFile.open("script.txt");
    body.actionFileOpen = true;
    body.actionName = action;
    world.cycle = kFirstCycle;
  }

  std::string OutputOfOneBlock() {
    OutputCapture output;
    body.loadMoveFromFile();
    return output.text();
  }
};

constexpr const char* kClosing = "  Clooooooooooooooooooooooooooooooosed\n";

struct Keyword {
  const char* word;
  const char* perceptor;
  double sign;
};

constexpr std::array<Keyword, 14> kKeywords{{{"LShoulderPitchCommand", "laj1", -1},
                                             {"RShoulderPitchCommand", "raj1", -1},
                                             {"RHipPitchCommand", "rlj3", -1},
                                             {"LHipPitchCommand", "llj3", -1},
                                             {"RKneePitchCommand", "rlj4", -1},
                                             {"LKneePitchCommand", "llj4", -1},
                                             {"RAnklePitchCommand", "rlj5", -1},
                                             {"LAnklePitchCommand", "llj5", -1},
                                             {"LHipRollCommand", "llj2", 1},
                                             {"RHipRollCommand", "rlj2", 1},
                                             {"LHipYawPitchCommand", "llj1", 1},
                                             {"RHipYawPitchCommand", "rlj1", 1},
                                             {"RAnkleRollCommand", "rlj6", 1},
                                             {"LAnkleRollCommand", "llj6", 1}}};

TEST_F(ActionScripts, EachKeywordMovesItsJointWithItsSign) {
  std::string script;
  for (const Keyword& keyword : kKeywords) {
    script += std::string(keyword.word) + " 0.75\nmove 0\n";
  }
  Open(script);
  for (const Keyword& keyword : kKeywords) {
    for (jointsFlag& row : body.jointFlags) row.active = false;
    body.loadMoveFromFile();
    EXPECT_EQ(ActiveJoints(), Commands{keyword.perceptor}) << keyword.word;
    EXPECT_EQ(Row(keyword.perceptor).targetAngle, keyword.sign * 0.75) << keyword.word;
  }
}

TEST_F(ActionScripts, WordsOfOtherJointsAndOfPosesAreSkippedWithTheirNumbers) {
  Open(
      "LSP 1 RSR 2 MOVE 3 LElbowYawCommand 4 RShoulderRollCommand 5 HeadYawCommand 6 "
      "HeadPitchCommand 7 lhiprollcommand 8 # 9 LHipRollCommand 0.5 move 0");
  body.loadMoveFromFile();
  EXPECT_EQ(ActiveJoints(), Commands{"llj2"});
  EXPECT_EQ(Row("llj2").targetAngle, 0.5);
  EXPECT_EQ(body.moveCyclesLeft, 2);
}

TEST_F(ActionScripts, BlockLastsTwoCyclesWhateverItsNumber) {
  Open("LHipRollCommand 0.1 move 0 LHipRollCommand 0.1 move 99 LHipRollCommand 0.1 move -3");
  for (int block = 0; block < 3; ++block) {
    world.cycle = kFirstCycle + 2 * block;
    body.moveCyclesLeft = 0;
    body.loadMoveFromFile();
    EXPECT_EQ(body.moveCyclesLeft, 2);
    EXPECT_EQ(body.lastMoveCycle, world.cycle - 1);
  }
}

TEST_F(ActionScripts, NumberOfTheBlocksEndHasNoEffectOnWhatIsPlayed) {
  const auto play = [this](const char* script) {
    Open(script);
    Row("llj2").active = false;
    Commands sent = Cycle(kFirstCycle);
    for (const std::string& text : Cycle(kFirstCycle + 1)) sent.push_back(text);
    body.myACtionFile.close();
    return sent;
  };
  world.playMode = "PlayOn";
  body.uNum = 1;  // no head commands in between
  const Commands zero = play("LHipRollCommand 0.5 move 0");
  const Commands ninetyNine = play("LHipRollCommand 0.5 move 99");
  EXPECT_EQ(zero.size(), 2U);
  EXPECT_EQ(zero, ninetyNine);
}

TEST_F(ActionScripts, EachBlockSetsTheGainsOfActions) {
  Open("move 0");
  body.loadMoveFromFile();
  EXPECT_EQ(body.Kp, 0.14);
  EXPECT_EQ(body.Ki, 0.5);
  EXPECT_EQ(body.Kd, 0);
}

TEST_F(ActionScripts, OneCallReadsExactlyOneBlock) {
  Open("LHipRollCommand 0.1 move 0 LHipRollCommand 0.2 move 0");
  body.loadMoveFromFile();
  EXPECT_EQ(Row("llj2").targetAngle, 0.1);
  EXPECT_TRUE(body.actionFileOpen);
  body.loadMoveFromFile();
  EXPECT_EQ(Row("llj2").targetAngle, 0.2);
}

TEST_F(ActionScripts, LaterPairForAJointOverwritesTheEarlierOne) {
  Open("RHipRollCommand 0.1 RHipRollCommand -0.4 move 0");
  body.loadMoveFromFile();
  EXPECT_EQ(Row("rlj2").targetAngle, -0.4);
}

TEST_F(ActionScripts, AnyWhiteSpaceSeparates) {
  Open("\n\n LHipRollCommand\t0.5\r\n\nRHipRollCommand\n\v-0.5 \t move\f0\n");
  body.loadMoveFromFile();
  EXPECT_EQ(ActiveJoints(), (Commands{"rlj2", "llj2"}));
  EXPECT_EQ(Row("llj2").targetAngle, 0.5);
  EXPECT_EQ(Row("rlj2").targetAngle, -0.5);
  EXPECT_EQ(body.moveCyclesLeft, 2);
}

TEST_F(ActionScripts, CallAfterTheLastBlockClosesWithItsLine) {
  Open("LHipRollCommand 0.5 move 0\n", "turnL40");
  EXPECT_EQ(OutputOfOneBlock(), "");
  EXPECT_TRUE(body.actionFileOpen);
  EXPECT_TRUE(body.myACtionFile.is_open());
  body.moveCyclesLeft = 0;
  EXPECT_EQ(OutputOfOneBlock(), std::string("turnL40") + kClosing);
  EXPECT_FALSE(body.actionFileOpen);
  EXPECT_FALSE(body.myACtionFile.is_open());
  EXPECT_EQ(body.moveCyclesLeft, 0) << "the end starts no step";
}

TEST_F(ActionScripts, LastBlockNeedsNoLineEndBehindIt) {
  Open("LHipRollCommand 0.5 move 0");
  EXPECT_EQ(OutputOfOneBlock(), "");
  EXPECT_EQ(body.moveCyclesLeft, 2);
  EXPECT_EQ(OutputOfOneBlock(), std::string("walkstart") + kClosing);
}

TEST_F(ActionScripts, FileWithoutABlockEndIsReadInOneCallAndItsTargetsWait) {
  Open("LHipRollCommand 0.5 RHipRollCommand 0.25\n");
  EXPECT_EQ(OutputOfOneBlock(), std::string("walkstart") + kClosing);
  EXPECT_EQ(ActiveJoints(), (Commands{"rlj2", "llj2"}));
  EXPECT_EQ(body.moveCyclesLeft, 0);
  EXPECT_FALSE(body.actionFileOpen);
}

TEST_F(ActionScripts, MissingFileClosesAtTheNextCall) {
  body.myACtionFile.open("nosuch.txt");
  body.actionFileOpen = true;
  body.actionName = "back";
  world.cycle = kFirstCycle;
  EXPECT_EQ(OutputOfOneBlock(), std::string("back") + kClosing);
  EXPECT_FALSE(body.actionFileOpen);
  EXPECT_EQ(ActiveJoints(), Commands{});
}

TEST_F(ActionScripts, MalformedNumberCountsAsZeroAndEndsTheFileAtTheNextWord) {
  Open("LHipRollCommand 0.5 RHipRollCommand x1 LAnkleRollCommand 0.5 move 0");
  Row("rlj2").targetAngle = 7;
  EXPECT_EQ(OutputOfOneBlock(), std::string("walkstart") + kClosing);
  EXPECT_EQ(ActiveJoints(), (Commands{"rlj2", "llj2"}));
  EXPECT_EQ(Row("rlj2").targetAngle, 0);
  EXPECT_EQ(body.moveCyclesLeft, 0);
}

TEST_F(ActionScripts, NumberTooLargeToReadCountsAsZero) {
  Open("RHipRollCommand 1e999 move 0");
  Row("rlj2").targetAngle = 7;
  EXPECT_EQ(OutputOfOneBlock(), std::string("walkstart") + kClosing);
  EXPECT_EQ(ActiveJoints(), Commands{"rlj2"});
  EXPECT_EQ(Row("rlj2").targetAngle, 0);
}

TEST_F(ActionScripts, BlockEndWithAMalformedNumberStillStartsItsStep) {
  Open("LHipRollCommand 0.5 move x");
  EXPECT_EQ(OutputOfOneBlock(), "");
  EXPECT_EQ(body.moveCyclesLeft, 2);
  EXPECT_EQ(OutputOfOneBlock(), std::string("walkstart") + kClosing);
}

TEST_F(ActionScripts, FailedOpeningOverAnOpenScriptEndsThatScript) {
  Open("LHipRollCommand 0.5 move 0");
  body.myACtionFile.open("script.txt");  // already open: fails
  EXPECT_EQ(OutputOfOneBlock(), std::string("walkstart") + kClosing);
  EXPECT_FALSE(body.actionFileOpen);
  EXPECT_FALSE(body.myACtionFile.is_open());
  EXPECT_EQ(ActiveJoints(), Commands{});
}

TEST_F(ActionScripts, ScriptCanBeOpenedAgainAfterItsEnd) {
  Open("");
  OutputOfOneBlock();
  Open("LHipRollCommand 0.5 move 0");
  body.loadMoveFromFile();
  EXPECT_EQ(Row("llj2").targetAngle, 0.5);
}

TEST_F(ActionScripts, ScriptWaitsDuringAKick) {
  for (const int kick : {1, 2}) {
    Open("LHipRollCommand 0.5 move 0");
    body.slowFunction = kick;
    EXPECT_EQ(OutputOfOneBlock(), "");
    EXPECT_EQ(ActiveJoints(), Commands{});
    EXPECT_EQ(body.Kp, 1) << "not even the gains change";
    body.myACtionFile.close();
  }
}

TEST_F(ActionScripts, ScriptWaitsWhileThePlayerIsDownAndGoesOnWhereItStopped) {
  Open("LHipRollCommand 0.1 move 0 LHipRollCommand 0.2 move 0");
  body.loadMoveFromFile();
  for (const int state : {1, 2, 3, 4}) {
    body.bodyState = state;
    body.loadMoveFromFile();
    EXPECT_EQ(Row("llj2").targetAngle, 0.1);
  }
  body.bodyState = 0;
  body.loadMoveFromFile();
  EXPECT_EQ(Row("llj2").targetAngle, 0.2);
}

TEST_F(ActionScripts, BlocksPauseForTwentyNineCyclesAfterAPose) {
  Open("LHipRollCommand 0.5 move 0");
  body.lastLoadTime = 200;
  for (const int cycle : {200, 201, 228, 229}) {
    world.cycle = cycle;
    body.loadMoveFromFile();
    EXPECT_EQ(ActiveJoints(), Commands{}) << cycle;
  }
  world.cycle = 230;
  body.loadMoveFromFile();
  EXPECT_EQ(ActiveJoints(), Commands{"llj2"});
}

TEST_F(ActionScripts, FirstTwentyNineCyclesOfALifeReadNothing) {
  Open("LHipRollCommand 0.5 move 0");
  world.cycle = 29;
  body.loadMoveFromFile();
  EXPECT_EQ(ActiveJoints(), Commands{});
  world.cycle = 30;
  body.loadMoveFromFile();
  EXPECT_EQ(ActiveJoints(), Commands{"llj2"});
}

TEST_F(ActionScripts, RestoreStateClosesTheFileAndTheNextCallClearsTheFlag) {
  Open("LHipRollCommand 0.5 move 0");
  body.restoreState();
  EXPECT_FALSE(body.myACtionFile.is_open());
  EXPECT_TRUE(body.actionFileOpen);
  EXPECT_EQ(OutputOfOneBlock(), std::string("walkstart") + kClosing);
  EXPECT_FALSE(body.actionFileOpen);
}

}  // namespace
