#include "tests/behaviour/BehaviourTest.h"

namespace {

using ActionStack = BehaviourTest;
using ::testing::ElementsAre;

MATCHER_P2(IsEntry, state, owner, "") {
  return arg.state == state && arg.owner == owner;
}

constexpr const char* kCleared = "stack cleared by doACtion\n";

TEST_F(ActionStack, IsEmptyAtTheStart) {
  EXPECT_TRUE(agent.actionStack.empty());
}

TEST_F(ActionStack, EmptyStackDoesNothingAndPrintsNothing) {
  EXPECT_EQ(OutputOf([&] { agent.doAction(); }), "");
  EXPECT_EQ(Stack(), States{});
  EXPECT_EQ(player.link.bytes(), "");
}

TEST_F(ActionStack, PushIsSilentAndKeepsTheOwnerOfItsMoment) {
  agent.ballOwner = opponentBall;
  EXPECT_EQ(OutputOf([&] { agent.pushActionToStack(goBehindBall_state); }), "");
  agent.ballOwner = freeBall;
  agent.pushActionToStack(goToPos_state);
  EXPECT_THAT(Entries(), ElementsAre(IsEntry(goBehindBall_state, opponentBall),
                                     IsEntry(goToPos_state, freeBall)));
}

TEST_F(ActionStack, PushOfAPresentActionOnlyPrintsItsNumber) {
  agent.ballOwner = myBall;
  SetStack({turnToDeg_state, goBehindBall_state, goToPos_state});
  agent.ballOwner = freeBall;
  const auto push = [&](MyState state) {
    return OutputOf([&] { agent.pushActionToStack(state); });
  };
  EXPECT_EQ(push(turnToDeg_state), "pushed nothing 23\n");
  EXPECT_EQ(push(goBehindBall_state), "pushed nothing 0\n");
  EXPECT_EQ(push(goToPos_state), "pushed nothing 5\n") << "on top is present too";
  EXPECT_THAT(Entries(),
              ElementsAre(IsEntry(turnToDeg_state, myBall), IsEntry(goBehindBall_state, myBall),
                          IsEntry(goToPos_state, myBall)));
}

TEST_F(ActionStack, PresentActionAlsoLeavesAWalkOnTopAlone) {
  SetStack({goBehindBall_state, walk_state});
  agent.pushActionToStack(goBehindBall_state);
  EXPECT_EQ(Stack(), (States{0, 4}));
}

TEST_F(ActionStack, EntryOfAnOldOwnerClearsTheStackWhenItReachesTheTop) {
  agent.ballOwner = myBall;
  agent.pushActionToStack(reserved6_state);
  agent.pushActionToStack(goBehindBall_state);
  agent.ballOwner = freeBall;
  agent.pushActionToStack(goBehindBall_state);  // keeps its first owner
  agent.pushActionToStack(reserved3_state);
  EXPECT_EQ(OutputOf([&] { agent.doAction(); }), "3\n");
  EXPECT_EQ(Stack(), (States{6, 0}));
  EXPECT_EQ(OutputOf([&] { agent.doAction(); }), kCleared);
  EXPECT_EQ(Stack(), States{});
}

TEST_F(ActionStack, WalkOnTopGivesWayToAnyOtherNewAction) {
  for (const MyState state : {goToPos_state, sideStepR_state, jumpL_state}) {
    SetStack({goBehindBall_state, walk_state});
    EXPECT_EQ(OutputOf([&] { agent.pushActionToStack(state); }), "");
    EXPECT_EQ(Stack(), (States{0, state}));
  }
}

TEST_F(ActionStack, WalkBeneathTheTopStaysUnderANewAction) {
  SetStack({walk_state, goBehindBall_state});
  agent.pushActionToStack(goToPos_state);
  EXPECT_EQ(Stack(), (States{4, 0, 5}));
}

TEST_F(ActionStack, WalkIsBroughtToTheTopWithAFreshOwner) {
  agent.ballOwner = myBall;
  SetStack({goBehindBall_state, walk_state, goToPos_state, turnToDeg_state});
  agent.ballOwner = freeBall;
  EXPECT_EQ(OutputOf([&] { agent.pushActionToStack(walk_state); }), "");
  EXPECT_THAT(Entries(),
              ElementsAre(IsEntry(goBehindBall_state, myBall), IsEntry(goToPos_state, myBall),
                          IsEntry(turnToDeg_state, myBall), IsEntry(walk_state, freeBall)));
}

TEST_F(ActionStack, WalkOnTopGetsAFreshOwnerToo) {
  agent.ballOwner = myBall;
  SetStack({walk_state});
  agent.ballOwner = freeBall;
  agent.pushActionToStack(walk_state);
  EXPECT_THAT(Entries(), ElementsAre(IsEntry(walk_state, freeBall)));
}

TEST_F(ActionStack, ActionOfAnotherOwnerDoesNotRunAndTakesAllWithIt) {
  directory.write("JumpR1.txt", "LSR 0.2 MOVE 0.5");
  agent.ballOwner = opponentBall;
  SetStack({goBehindBall_state, jumpR_state});
  agent.ballOwner = myBall;
  EXPECT_EQ(OutputOf([&] { agent.doAction(); }), kCleared);
  EXPECT_EQ(Stack(), States{});
  EXPECT_EQ(agent.jumpTime, 0);
  EXPECT_EQ(ActiveJoints(), Commands{});
}

TEST_F(ActionStack, OnlyTheTopEntrysOwnerIsLookedAt) {
  agent.actionStack.push({goBehindBall_state, mateBall});
  agent.ballOwner = myBall;
  agent.pushActionToStack(reserved3_state);
  agent.doAction();
  EXPECT_EQ(Stack(), States{0});
}

TEST_F(ActionStack, WalkOfAnotherOwnerDoesNotRunEither) {
  WriteScripts({"walkstart.txt"});
  agent.ballOwner = opponentBall;
  SetStack({walk_state});
  agent.ballOwner = myBall;
  agent.shallWalk = true;
  EXPECT_EQ(OutputOf([&] { agent.doAction(); }), kCleared);
  EXPECT_EQ(OpenScript(), "");
}

TEST_F(ActionStack, RestoreBetweenTwoPushesLeavesOnlyTheSecondWithTheFreshOwner) {
  PutBall(5, 0);
  world.teamBall[2].distance = 5;
  agent.ballOwner = opponentBall;
  agent.pushActionToStack(reserved6_state);
  agent.restoreState();
  agent.pushActionToStack(reserved3_state);
  EXPECT_THAT(Entries(), ElementsAre(IsEntry(reserved3_state, freeBall)));
  EXPECT_EQ(OutputOf([&] { agent.doAction(); }), "3\n");
}

TEST_F(ActionStack, RestoreEmptiesTheStackAndStopsTheWalkButKeepsTheDestination) {
  VecPosition dest(1, 2, 0);
  agent.setwalkDest(dest);
  agent.walkdestAccuracy = 0.12;
  agent.shallWalk = agent.isWalking = true;
  SetStack({goBehindBall_state, goToPos_state, walk_state});
  EXPECT_EQ(OutputOf([&] { agent.restoreState(); }), "");
  EXPECT_EQ(Stack(), States{});
  EXPECT_FALSE(agent.shallWalk);
  EXPECT_FALSE(agent.isWalking);
  EXPECT_THAT(*agent.walkDest, IsPlace(1, 2, 0));
  EXPECT_EQ(agent.walkdestAccuracy, 0.12);
}

// What each action does. A second action lies beneath, and the scripts tell which was opened.

constexpr const char* kWhileOpen = "loadmovefromFile1 says: myACtionFile is open: ";

struct Row {
  int state;
  std::string trace;   // behind the state's number
  States above;        // what then stands above the action beneath
  std::string script;  // the action script that is then open
  Commands joints;     // those that the pose moves
  friend void PrintTo(const Row& row, std::ostream* out) { *out << row.state; }
};

Row turnRow(int state, const std::string& name, States above = {}) {
  return {state, kWhileOpen + name + "\n", std::move(above), name + ".txt", {"laj2"}};
}

class EachAction : public BehaviourTest, public ::testing::WithParamInterface<Row> {};

TEST_P(EachAction, RunsAsItsRowSays) {
  const Row& row = GetParam();
  WriteScripts({"turnR15.txt", "turnL15.txt", "turnR9.txt", "turnL9.txt", "turnR40.txt",
                "turnL40.txt", "turnL180.txt", "turnR180.txt", "turnL60.txt", "turnR60.txt",
                "sideR.txt", "sideL.txt", "back.txt", "walkstart.txt"});
  directory.write("initialstate.txt", "LSR 0.2 MOVE 0.5");
  directory.write("initialstateforwalk.txt", "RSR 0.2 MOVE 0.5");
  directory.write("JumpR1.txt", "LAR 0.2 MOVE 0.5");
  directory.write("JumpL1.txt", "RAR 0.2 MOVE 0.5");
  PutBall(3, 0);
  world.vision.ball.angle = 10;
  agent.findJoint("hj1")->angle = 20;
  agent.turnDest = 60;
  agent.sideStepDest = 0.1;
  agent.shallWalk = row.state == walk_state;
  agent.ballOwner = contestedMyBall;
  const MyState beneath = row.state == reserved6_state ? reserved3_state : reserved6_state;
  SetStack({beneath, static_cast<MyState>(row.state)});

  EXPECT_EQ(OutputOf([&] { agent.doAction(); }), std::to_string(row.state) + "\n" + row.trace);

  States expected{beneath};
  expected.insert(expected.end(), row.above.begin(), row.above.end());
  EXPECT_EQ(Stack(), expected);
  for (const actionStruct& entry : Entries()) EXPECT_EQ(entry.owner, contestedMyBall);
  EXPECT_EQ(OpenScript(), row.script);
  EXPECT_EQ(agent.actionFileOpen, !row.script.empty());
  EXPECT_EQ(ActiveJoints(), row.joints);
  EXPECT_EQ(agent.moveCyclesLeft, row.joints.empty() ? 0 : 24);
  EXPECT_EQ(agent.slowFunction, row.state == kickR_state ? 1 : row.state == kickL_state ? 2 : 0);
  const bool dives = row.state == jumpR_state || row.state == jumpL_state;
  EXPECT_EQ(agent.jumpTime, dives ? 200 : 0);
  if (row.state == faceBall_state) {
    EXPECT_NEAR(agent.jointFlags[kHeadYaw].targetAngle, 0.5235987755982988, 1e-12) << "30 degrees";
  }
  EXPECT_EQ(player.link.bytes(), "") << "what an action starts is sent by the next cycles";
}

INSTANTIATE_TEST_SUITE_P(
    ActionStack, EachAction,
    ::testing::Values(
        Row{0, "dest to ball: 3 accuracy+0.2: 0.6\ngoBehindBall calling goToPos\n", {0, 5}, "", {}},
        Row{1, "", {1}, "", {}}, Row{2, "", {2}, "", {}}, Row{3, "", {}, "", {}},
        Row{4, "", {}, "walkstart.txt", {"raj2"}},
        Row{5,
            "doAction -> goToPos_state\ngotoPos function!!!\ngotopos starting walk\n",
            {5, 4},
            "",
            {}},
        Row{6, "", {}, "", {}}, turnRow(7, "turnR15"), turnRow(8, "turnL15"), turnRow(9, "turnR9"),
        turnRow(10, "turnL9"), turnRow(11, "turnR40"), turnRow(12, "turnL40"),
        turnRow(13, "turnL180"), turnRow(14, "turnR180"), turnRow(15, "turnL60"),
        turnRow(16, "turnR60"), turnRow(17, "sideR"), turnRow(18, "sideL"),
        Row{19, kWhileOpen + std::string("backward\n"), {}, "back.txt", {"laj2"}},
        Row{20, "", {}, "", {"llj6"}}, Row{21, "", {}, "", {"rlj6"}}, Row{22, "", {}, "", {"hj1"}},
        turnRow(23, "turnL60", {23}), Row{24, "", {}, "", {}}, Row{99, "", {}, "", {}}),
    [](const auto& test) { return "Number" + std::to_string(test.param.state); });

TEST_F(ActionStack, RepeatedPushStampsAnewAndLeavesWhatIsBeneath) {
  PutBall(3, 0);
  agent.actionStack.push({reserved6_state, mateBall});
  agent.ballOwner = freeBall;
  agent.pushActionToStack(goBehindBall_state);
  agent.doAction();
  EXPECT_THAT(Entries(),
              ElementsAre(IsEntry(reserved6_state, mateBall), IsEntry(goBehindBall_state, freeBall),
                          IsEntry(goToPos_state, freeBall)));
}

// The way to a ball 3 m off, the decision coming each cycle; the player turns and moves by hand.
TEST_F(ActionStack, ApproachStacksItsSubGoals) {
  WriteScripts({"turnL60.txt", "walkstart.txt", "walkend.txt"});
  agent.ballOwner = myBall;
  PutBall(0, 0);
  Stand(-3, 0, 300);
  const auto cycle = [&] {
    agent.kickHandler();
    agent.doAction();
    return Stack();
  };
  EXPECT_EQ(cycle(), (States{0, 5}));
  EXPECT_EQ(cycle(), (States{0, 5, 23}));
  EXPECT_EQ(cycle(), (States{0, 5, 23}));
  EXPECT_EQ(agent.actionName, "turnL60");
  EXPECT_EQ(cycle(), (States{0, 5, 23})) << "waits while it plays";
  agent.myACtionFile.close();
  Stand(-3, 0, 355);
  EXPECT_EQ(cycle(), (States{0, 5}));
  EXPECT_EQ(cycle(), (States{0, 5, 4}));
  EXPECT_EQ(cycle(), (States{0, 5}));
  EXPECT_EQ(OpenScript(), "walkstart.txt");
  EXPECT_EQ(cycle(), (States{0, 5, 4}));
  EXPECT_EQ(cycle(), (States{0, 5, 4})) << "waits while it plays";
  EXPECT_EQ(cycle(), (States{0, 5, 4}));
  agent.myACtionFile.close();
  agent.doAction();  // the walk's next script; it has none here
  EXPECT_EQ(Stack(), (States{0, 5}));
  Stand(-0.35, 0.1, 355);  // within the accuracy of the ball, but beside its line to the goal
  EXPECT_EQ(cycle(), (States{0, 4})) << "there: the walk is told to stop";
  EXPECT_EQ(cycle(), States{0});
  EXPECT_EQ(OpenScript(), "walkend.txt");
}

}  // namespace
