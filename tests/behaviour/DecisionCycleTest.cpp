#include <cmath>

#include "tests/behaviour/BehaviourTest.h"

namespace {

constexpr const char* kKickLine = "kickR slow\n";

/// Number 3 with the ball 1 m ahead, outside its zone: it decides nothing of its own.
class DecisionCycle : public BehaviourTest {
 protected:
  DecisionCycle() {
    agent.actionStack = {};
    PutBall(1, 0);
  }

  /// One turn; whether it abandoned what was going on. The walk is the witness: in these tests
  /// nothing but a restore ends it.
  bool Restores(int cycle) {
    agent.isWalking = true;
    static_cast<void>(Turn(cycle));
    return !agent.isWalking;
  }
};

// ---- The jump test

TEST_F(DecisionCycle, JumpOfMoreThanAMetreAbandonsThePlanAndAMetreDoesNot) {
  EXPECT_FALSE(Restores(21));
  Stand(1, 0);
  EXPECT_FALSE(Restores(22));
  Stand(std::nextafter(2.0, 3), 0);
  EXPECT_TRUE(Restores(23));
  EXPECT_FALSE(Restores(24)) << "only in the cycle of the jump";
}

TEST_F(DecisionCycle, JumpIsMeasuredFromTheCycleBefore) {
  for (int i = 0; i < 6; ++i) {
    Stand(0.9 * i, 0);
    EXPECT_FALSE(Restores(21 + i)) << i;
  }
  Stand(0, 0);
  EXPECT_TRUE(Restores(28));
}

TEST_F(DecisionCycle, FirstPassIsNoJumpWhereverThePlayerStands) {
  Stand(-8, 5);
  EXPECT_FALSE(Restores(21));
}

TEST_F(DecisionCycle, PassThatEndsInTheBeamDoesNotCountAsTheFirst) {
  agent.lastPlayMode = "BeforeKickOff";
  world.playMode = "KickOff_Left";
  static_cast<void>(Turn(21));
  Stand(5, 0);
  EXPECT_FALSE(Restores(22));
}

// ---- The stuck test

TEST_F(DecisionCycle, StuckAtTheStartItIsRestoredEachCycleUntilPlaybackMoves) {
  static_cast<void>(Turn(21));
  EXPECT_FALSE(Restores(500));
  EXPECT_TRUE(Restores(501));
  EXPECT_TRUE(Restores(502));
  EXPECT_TRUE(Restores(503));
  agent.initMove(0.2);
  EXPECT_FALSE(Restores(504));
}

TEST_F(DecisionCycle, IdleMessagesDontCountAsMotion) {
  bool restored = false;
  for (int cycle = 21; cycle <= 500; ++cycle) restored = Restores(cycle) || restored;
  EXPECT_FALSE(restored);
  EXPECT_TRUE(Restores(501));
}

TEST_F(DecisionCycle, StuckMeansLessThanFiveCentimetresFromTheStart) {
  static_cast<void>(Turn(21));
  Stand(0.05, 0);
  EXPECT_FALSE(Restores(501));
  Stand(0.0499, 0);
  EXPECT_TRUE(Restores(502));
}

TEST_F(DecisionCycle, IdlePlayerElsewhereIsLeftAlone) {
  static_cast<void>(Turn(21));
  Stand(0.5, 0);
  for (const int cycle : {501, 502, 1100, 2000}) EXPECT_FALSE(Restores(cycle)) << cycle;
  Stand(0, 0);
  EXPECT_TRUE(Restores(2001)) << "back where it started from";
}

// ---- Who decides when

/// Number 3 with the ball in its zone, 2 m ahead.
class Decision : public DecisionCycle {
 protected:
  Decision() {
    Stand(-8, 0);
    PutBall(-6, 0);
  }

  std::string PrintedBy(int cycle) {
    return OutputOf([&] { static_cast<void>(Turn(cycle)); });
  }
};

constexpr const char* kDecision =
    "!isbehindball\n0\ndest to ball: 2 accuracy+0.2: 0.6\ngoBehindBall calling goToPos\n";

TEST_F(Decision, FirstOneIsMadeInCycleHundred) {
  agent.ballOwner = contestedMateBall;
  EXPECT_EQ(PrintedBy(99), "");
  EXPECT_EQ(Stack(), States{});
  EXPECT_EQ(agent.ballOwner, contestedMateBall);
  EXPECT_EQ(PrintedBy(100), kDecision);
  EXPECT_EQ(Stack(), (States{0, 5}));
  EXPECT_EQ(agent.ballOwner, myBall);
}

TEST_F(Decision, StackRunsBeforeCycleHundredToo) {
  SetStack({reserved3_state});
  EXPECT_EQ(PrintedBy(21), "3\n");
  EXPECT_EQ(Stack(), States{});
}

TEST_F(Decision, OwnerOfTheBallIsFreshBeforeTheStackIsLookedAt) {
  agent.actionStack.push({reserved3_state, opponentBall});
  EXPECT_EQ(PrintedBy(100), kDecision) << "the new decision lies on top of the old entry";
  agent.actionStack = {};
  agent.actionStack.push({goBehindBall_state, opponentBall});
  EXPECT_EQ(PrintedBy(101), "!isbehindball\npushed nothing 0\nstack cleared by doACtion\n");
}

TEST_F(Decision, LyingPlayerNeitherDecidesNorRunsItsStack) {
  SetStack({reserved3_state});
  agent.ballOwner = contestedMateBall;
  agent.accel = VecPosition(0, 7, 0);
  EXPECT_EQ(PrintedBy(101), "bodystate: 1\n") << "the fall is noticed before the decision";
  EXPECT_EQ(PrintedBy(102), "");
  EXPECT_EQ(Stack(), States{3});
  EXPECT_EQ(agent.ballOwner, contestedMateBall);
}

TEST_F(Decision, RunningKickIsAllThatHappensAndNoReportGoesOut) {
  agent.uNum = 1;  // no head commands
  SetStack({reserved3_state});
  agent.ballOwner = contestedMateBall;
  world.cycle = 110;
  agent.kickR();
  for (const int cycle : {111, 119, 120, 140}) {
    Commands sent;
    EXPECT_EQ(OutputOf([&] { sent = Turn(cycle); }), kKickLine);
    EXPECT_EQ(sent, Commands{""}) << cycle;
  }
  EXPECT_EQ(Stack(), States{3});
  EXPECT_EQ(agent.ballOwner, contestedMateBall);
}

TEST_F(Decision, KickThatBeginsInADecisionStillLetsTheReportOut) {
  agent.uNum = 1;
  agent.walkdestAccuracy = 0.12;
  Stand(-6.1, 0);
  PutBall(-6, 0);
  EXPECT_EQ(Turn(120), (Commands{"", "(say P,1,-6.1,0)"}));
  EXPECT_EQ(agent.slowFunction, 1);
  EXPECT_EQ(Turn(140), Commands{""});
}

TEST_F(Decision, CycleInWhichTheKickEndsIsAWholeCycle) {
  agent.uNum = 2;
  PutBall(-6, 0);
  world.cycle = 138;
  agent.kickR();
  EXPECT_EQ(PrintedBy(259), kKickLine);
  Commands sent;
  EXPECT_EQ(OutputOf([&] { sent = Turn(260); }),
            "eror action not compatible in kickR function\n" + std::string(kKickLine) + kDecision);
  EXPECT_EQ(agent.slowFunction, 0);
  EXPECT_EQ(sent.back(), "(say P,2,-8,0)");
}

TEST_F(Decision, LeftKickIsAdvancedToo) {
  world.cycle = 110;
  agent.kickL();
  EXPECT_EQ(PrintedBy(111), "kickL slow\n");
}

TEST_F(Decision, BeamCycleIsWithoutKickDecisionAndReport) {
  PrintedBy(118);
  world.cycle = 118;
  agent.kickR();
  world.playMode = "KickOff_Left";
  OutputCapture output;
  EXPECT_EQ(Turn(120), Commands{"(beam -6.15 0.50 -0)"});
  EXPECT_EQ(output.text().find(kKickLine), std::string::npos);
  EXPECT_EQ(Stack(), (States{0, 5})) << "as the cycle before left it";
}

TEST_F(Decision, DecisionBecomesPoseAndThenScriptOnTheJoints) {
  agent.uNum = 2;
  directory.write("turnL60.txt", "LHipRollCommand 0.5 move 0");
  directory.write("initialstate.txt", "LSR 0.2 MOVE 0.02");
  Stand(-8, 0, 270);
  PutBall(-6, 0);
  EXPECT_EQ(Turn(101), Commands{""});  // over to the walk
  EXPECT_EQ(Turn(103), Commands{""});  // over to the turn
  EXPECT_EQ(Turn(105), Commands{""});  // opens the script and loads its pose
  EXPECT_EQ(Stack(), (States{0, 5, 23}));
  EXPECT_EQ(Turn(107), Commands{"(lae2 10)"});
  EXPECT_EQ(Turn(133), Commands{""});
  EXPECT_EQ(Turn(135), Commands{"(lle2 1.875)"});
}

}  // namespace
