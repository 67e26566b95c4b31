#include <array>
#include <cmath>

#include "tests/behaviour/BehaviourTest.h"

namespace {

/// Every script of the player is there, and both poses.
class Walking : public BehaviourTest {
 protected:
  Walking() {
    WriteScripts({"back.txt",      "shoot.txt",     "turnL40.txt",   "turnR40.txt",
                  "turnL180.txt",  "turnR180.txt",  "turnR60.txt",   "turnL60.txt",
                  "turnL15.txt",   "turnR15.txt",   "turnL9.txt",    "turnR9.txt",
                  "sideR.txt",     "sideL.txt",     "sideRm.txt",    "sideLm.txt",
                  "walkstart.txt", "walkloop1.txt", "walkloop2.txt", "walkloop3.txt",
                  "walkloop4.txt", "walkend.txt"});
    directory.write("initialstate.txt", "LSR 0.2 MOVE 0.5");
    directory.write("initialstateforwalk.txt", "RSR 0.2 MOVE 0.5");
  }

  /// One step of a walk that is wanted; the script that it opened, which counts as played.
  std::string WalkOn() {
    agent.shallWalk = true;
    agent.walk();
    const std::string script = OpenScript();
    agent.myACtionFile.close();
    return script;
  }
};

struct Script {
  const char* action;
  const char* file;
  const char* joint;  // of the pose
};

constexpr std::array<Script, 22> kScripts{
    {{"backward", "back.txt", "laj2"},       {"shoot", "shoot.txt", "laj2"},
     {"turnL40", "turnL40.txt", "laj2"},     {"turnR40", "turnR40.txt", "laj2"},
     {"turnL180", "turnL180.txt", "laj2"},   {"turnR180", "turnR180.txt", "laj2"},
     {"turnR60", "turnR60.txt", "laj2"},     {"turnL60", "turnL60.txt", "laj2"},
     {"turnL15", "turnL15.txt", "laj2"},     {"turnR15", "turnR15.txt", "laj2"},
     {"turnL9", "turnL9.txt", "laj2"},       {"turnR9", "turnR9.txt", "laj2"},
     {"sideR", "sideR.txt", "laj2"},         {"sideL", "sideL.txt", "laj2"},
     {"sideRm", "sideRm.txt", "laj2"},       {"sideLm", "sideLm.txt", "laj2"},
     {"walkstart", "walkstart.txt", "raj2"}, {"walkloop1", "walkloop1.txt", ""},
     {"walkloop2", "walkloop2.txt", ""},     {"walkloop3", "walkloop3.txt", ""},
     {"walkloop4", "walkloop4.txt", ""},     {"walkend", "walkend.txt", ""}}};

TEST_F(Walking, EachActionHasItsScriptAndItsPose) {
  for (const Script& script : kScripts) {
    agent.actionFileOpen = false;
    agent.actionFileStartTime = 0;
    agent.lastLoadTime = 0;
    for (jointsFlag& row : agent.jointFlags) row.active = false;
    // The standing pose comes behind the opening, the pose for the walk before it.
    const std::string trace =
        std::string(script.joint) == "laj2"
            ? "loadmovefromFile1 says: myACtionFile is open: " + std::string(script.action) + "\n"
            : "";
    EXPECT_EQ(OutputOf([&] { agent.doActionFile4(script.action); }), trace) << script.action;
    EXPECT_EQ(agent.actionName, script.action);
    EXPECT_TRUE(agent.actionFileOpen);
    EXPECT_EQ(agent.actionFileStartTime, 200);
    const std::string joint = script.joint;
    EXPECT_EQ(ActiveJoints(), joint.empty() ? Commands{} : Commands{joint}) << script.action;
    EXPECT_EQ(agent.lastLoadTime, joint.empty() ? 0 : 200) << script.action;
    EXPECT_EQ(OpenScript(), script.file);
    agent.myACtionFile.close();
  }
}

TEST_F(Walking, UnknownActionOpensNothingAndHasNoPose) {
  for (const char* name : {"", "turnL20", "Walkstart", "walkstart.txt"}) {
    agent.actionFileOpen = false;
    EXPECT_EQ(OutputOf([&] { agent.doActionFile4(name); }), "");
    EXPECT_EQ(agent.actionName, name);
    EXPECT_TRUE(agent.actionFileOpen);
    EXPECT_FALSE(agent.myACtionFile.is_open());
    EXPECT_TRUE(agent.myACtionFile.fail());
    EXPECT_EQ(agent.lastLoadTime, 0);
  }
}

TEST_F(Walking, MissingScriptIsSilentAndItsPoseIsLoadedAllTheSame) {
  std::filesystem::remove("turnL15.txt");
  EXPECT_EQ(OutputOf([&] { agent.doActionFile4("turnL15"); }), "");
  EXPECT_FALSE(agent.myACtionFile.is_open());
  EXPECT_TRUE(agent.myACtionFile.fail());
  EXPECT_TRUE(agent.actionFileOpen);
  EXPECT_EQ(ActiveJoints(), Commands{"laj2"});
}

TEST_F(Walking, RequestWhileAScriptRunsIsDropped) {
  agent.doActionFile4("sideL");
  world.cycle = 210;
  agent.shallWalk = true;
  for (const char* name : {"walkloop1", "turnL15"}) {
    EXPECT_EQ(OutputOf([&] { agent.doActionFile4(name); }), "");
    EXPECT_EQ(agent.actionName, "sideL");
    EXPECT_EQ(agent.actionFileStartTime, 200);
    EXPECT_TRUE(agent.shallWalk);
  }
  EXPECT_EQ(OpenScript(), "sideL.txt");
}

TEST_F(Walking, AnotherActionInAWalkOpensTheWalksEndInstead) {
  ASSERT_EQ(WalkOn(), "walkstart.txt");
  for (jointsFlag& row : agent.jointFlags) row.active = false;
  agent.shallWalk = true;
  EXPECT_EQ(OutputOf([&] { agent.doActionFile4("turnL15"); }),
            "!shalwalk is walking\nloadmovefromFile1 says: myACtionFile is open: walkend\n");
  EXPECT_FALSE(agent.shallWalk);
  EXPECT_FALSE(agent.isWalking);
  EXPECT_EQ(ActiveJoints(), Commands{"laj2"});
  EXPECT_EQ(agent.actionName, "walkend");
  EXPECT_TRUE(agent.myACtionFile.fail()) << "the lost opening";
  EXPECT_EQ(OpenScript(), "walkend.txt");
}

TEST_F(Walking, AnotherActionBeforeTheWalkHasBegunCancelsItAndRuns) {
  agent.shallWalk = true;
  EXPECT_EQ(OutputOf([&] { agent.doActionFile4("turnL15"); }),
            "!shallwalk start cancelled\n"
            "loadmovefromFile1 says: myACtionFile is open: turnL15\n");
  EXPECT_FALSE(agent.shallWalk);
  EXPECT_EQ(OpenScript(), "turnL15.txt");
}

TEST_F(Walking, ScriptsOfTheWalkDontEndIt) {
  for (const char* name : {"walkstart", "walkloop1", "walkend"}) {
    agent.shallWalk = true;
    EXPECT_EQ(OutputOf([&] { agent.doActionFile4(name); }), "");
    EXPECT_TRUE(agent.shallWalk);
    EXPECT_EQ(OpenScript(), std::string(name) + ".txt");
    agent.myACtionFile.close();
  }
}

TEST_F(Walking, WalkPlaysItsStartOnceAndThenTheFourLoopsAgainAndAgain) {
  Commands played;
  EXPECT_EQ(OutputOf([&] {
              for (int i = 0; i < 10; ++i) {
                played.push_back(WalkOn());
                EXPECT_TRUE(agent.isWalking);
                EXPECT_TRUE(agent.shallWalk);
              }
            }),
            "");
  EXPECT_EQ(played, (Commands{"walkstart.txt", "walkloop1.txt", "walkloop2.txt", "walkloop3.txt",
                              "walkloop4.txt", "walkloop1.txt", "walkloop2.txt", "walkloop3.txt",
                              "walkloop4.txt", "walkloop1.txt"}));
  EXPECT_EQ(Stack(), States{}) << "it doesn't ask for itself once a script is open";
}

TEST_F(Walking, WalkWaitsForARunningScriptAndOverridesAStop) {
  agent.doActionFile4("sideL");
  agent.shallWalk = false;
  EXPECT_EQ(OutputOf([&] { agent.walk(); }), "");
  EXPECT_EQ(Stack(), States{4});
  EXPECT_TRUE(agent.shallWalk);
  EXPECT_FALSE(agent.isWalking);
  EXPECT_EQ(OpenScript(), "sideL.txt");
}

TEST_F(Walking, StopOfAWalkThatHasNotBegunPlaysNothing) {
  agent.isWalking = true;
  EXPECT_EQ(OutputOf([&] { agent.walk(); }), "!shallwalk start cancelled\n");
  EXPECT_FALSE(agent.isWalking);
  EXPECT_FALSE(agent.actionFileOpen);
  EXPECT_EQ(Stack(), States{});
  EXPECT_EQ(WalkOn(), "walkstart.txt");
}

TEST_F(Walking, StopAtAnyPlaceOfTheLoopsPlaysTheEndAndTheNextWalkStartsAnew) {
  for (int scripts = 1; scripts <= 6; ++scripts) {
    for (int i = 0; i < scripts; ++i) WalkOn();
    agent.shallWalk = false;
    EXPECT_EQ(OutputOf([&] { agent.walk(); }), "!shalwalk is walking\n") << scripts;
    EXPECT_EQ(OpenScript(), "walkend.txt") << scripts;
    EXPECT_FALSE(agent.isWalking);
    EXPECT_FALSE(agent.shallWalk);
    agent.myACtionFile.close();
  }
  EXPECT_EQ(WalkOn(), "walkstart.txt");
}

TEST_F(Walking, WalkCutOffByARestoreGoesOnWhereItStopped) {
  WalkOn();
  WalkOn();
  agent.restoreState();
  EXPECT_FALSE(agent.isWalking);
  EXPECT_EQ(WalkOn(), "walkloop2.txt");
}

TEST_F(Walking, ScriptWithAPosePlaysFromThirtyCyclesBehindIt) {
  agent.uNum = 1;
  directory.write("turnL15.txt", "LHipRollCommand 0.5 move 0");
  directory.write("initialstate.txt", "");
  PutBall(-10, 0);
  agent.ballOwner = myBall;
  world.cycle = 10;
  agent.doActionFile4("turnL15");
  for (int cycle = 11; cycle < 41; ++cycle) {
    EXPECT_EQ(Turn(cycle).front(), "") << cycle;
  }
  // 0.25 rad to go in this cycle: (0.25 * 0.14 + 0.25 * 0.02 * 0.5) / 0.02
  EXPECT_EQ(Turn(41), Commands{"(lle2 1.875)"});
}

TEST_F(Walking, ScriptWithoutAPosePlaysFromTheNextOddCycle) {
  agent.uNum = 1;
  directory.write("walkloop1.txt", "LHipRollCommand 0.5 move 0");
  agent.lastLoadTime = 3;
  world.cycle = 43;
  agent.doActionFile4("walkloop1");
  EXPECT_EQ(Turn(44), Commands{""});
  EXPECT_EQ(Turn(45), Commands{"(lle2 1.875)"});
}

TEST_F(Walking, DestinationIsTheBallAtTheStart) {
  EXPECT_EQ(agent.walkDest, &world.ballPos);
}

TEST_F(Walking, DestinationOfItsOwnIsACopy) {
  PutBall(1, 1);
  VecPosition dest(2, 3, 4);
  agent.setwalkDest(dest);
  dest.x = 7;
  world.ballPos.x = 8;
  EXPECT_THAT(*agent.walkDest, IsPlace(2, 3, 4));
  VecPosition next(5, 6, 0);
  agent.setwalkDest(next);
  EXPECT_THAT(*agent.walkDest, IsPlace(5, 6, 0));
}

TEST_F(Walking, DestinationAtTheBallFollowsTheBall) {
  PutBall(1, 1);
  VecPosition other(2, 3, 0);
  VecPosition same(1, 1, 0);
  for (VecPosition* dest : {&world.ballPos, &same}) {
    agent.setwalkDest(other);
    agent.setwalkDest(*dest);
    EXPECT_EQ(agent.walkDest, &world.ballPos);
  }
}

constexpr const char* kStarts = "gotoPos function!!!\ngotopos starting walk\n";

TEST_F(Walking, WayBeginsWithATurnWhenTheHeadingIsOff) {
  Stand(0, 0, 300);
  EXPECT_EQ(OutputOf([&] { agent.goToPos(VecPosition(3, 0, 0)); }), "");
  EXPECT_EQ(Stack(), States{23});
  EXPECT_EQ(agent.turnDest, 0);
  EXPECT_FALSE(agent.shallWalk);
}

TEST_F(Walking, DistanceOfExactlyTheAccuracyStillWalks) {
  for (const double accuracy : {0.4, 0.12}) {
    SetStack({goToPos_state});
    agent.shallWalk = false;
    agent.walkdestAccuracy = accuracy;
    EXPECT_EQ(OutputOf([&] { agent.goToPos(VecPosition(accuracy, 0, 0)); }), kStarts);
    EXPECT_EQ(Stack(), (States{5, 4}));
    EXPECT_TRUE(agent.shallWalk);
  }
}

TEST_F(Walking, ArrivalTakesTheActionOffAndStopsTheWalk) {
  SetStack({goBehindBall_state, goToPos_state});
  agent.shallWalk = true;
  const double near = std::nextafter(0.4, 0);
  EXPECT_EQ(OutputOf([&] { agent.goToPos(VecPosition(near, 0, 0)); }), "gotoPos function!!!\n");
  EXPECT_EQ(Stack(), (States{0, 4}));
  EXPECT_FALSE(agent.shallWalk);
}

TEST_F(Walking, ArrivalWithoutAWalkOnlyTakesTheActionOff) {
  SetStack({goBehindBall_state, goToPos_state});
  agent.goToPos(VecPosition(0.1, 0, 0));
  EXPECT_EQ(Stack(), States{0});
}

TEST_F(Walking, ArrivalUnderAForeignActionComplainsAndStopsTheWalkToo) {
  const std::string complaint =
      "gotoPos function!!!\neror action not compatible in goToPos function\n";
  SetStack({goToPos_state, goBehindBall_state});
  EXPECT_EQ(OutputOf([&] { agent.goToPos(VecPosition(0.1, 0, 0)); }), complaint);
  EXPECT_EQ(Stack(), (States{5, 0}));
  SetStack({});
  agent.shallWalk = true;
  EXPECT_EQ(OutputOf([&] { agent.goToPos(VecPosition(0.1, 0, 0)); }), complaint);
  EXPECT_EQ(Stack(), States{4});
  EXPECT_FALSE(agent.shallWalk);
}

}  // namespace
