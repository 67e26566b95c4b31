#include <array>
#include <map>

#include "tests/behaviour/BehaviourTest.h"

namespace {

constexpr int kStart = 201;

/// The keeper, whose head sends nothing in between.
class Kick : public BehaviourTest {
 protected:
  explicit Kick() : BehaviourTest(1) {
    Stand(-0.1, 0);
    PutBall(0, 0);
    world.cycle = kStart;
  }
};

struct FootRow {
  const char* name;
  char letter;
  int slowFunction;
  MyState state;
  void (Agent::*kick)();
  const char* slowLine;
  const char* complaint;
  friend void PrintTo(const FootRow& row, std::ostream* out) { *out << row.name; }
};

constexpr FootRow kLeft{"Left",
                        'L',
                        2,
                        kickL_state,
                        &Agent::kickL,
                        "kickL slow\n",
                        "eror action not compatible in kickL function\n"};
constexpr FootRow kRight{"Right",
                         'R',
                         1,
                         kickR_state,
                         &Agent::kickR,
                         "kickR slow\n",
                         "eror action not compatible in kickR function\n"};

class EachFoot : public Kick, public ::testing::WithParamInterface<FootRow> {
 protected:
  /// Eight poses of one cycle for this foot, each with a joint of its own. None begins with the
  /// letter of the firm gains.
  void WritePoses() const {
    constexpr std::array<const char*, 8> kWords{"RSR", "REY", "RER", "LSR",
                                                "LEY", "LER", "RHY", "RHR"};
    for (std::size_t i = 0; i < kWords.size(); ++i) {
      directory.write(std::string("kick") + foot.letter + std::to_string(i + 1) + ".txt",
                      std::string(kWords[i]) + " 0.2 MOVE 0.02");
    }
  }

  void Begin() const { (agent.*foot.kick)(); }

  const FootRow& foot = GetParam();
};

TEST_P(EachFoot, KickSendsItsPosesByTheTimetableAndNothingElse) {
  WritePoses();
  EXPECT_EQ(OutputOf([&] { Begin(); }), "");
  std::map<int, std::string> sent;
  for (int cycle = kStart + 1; cycle < kStart + 122; ++cycle) {
    EXPECT_EQ(OutputOf([&] {
                for (const std::string& text : Turn(cycle)) {
                  if (!text.empty()) sent[cycle] += text;
                }
              }),
              foot.slowLine)
        << cycle;
    EXPECT_EQ(agent.slowFunction, foot.slowFunction);
  }
  // 0.2 rad in one cycle, sent in the cycle behind the load; no report in between.
  EXPECT_EQ(sent, (std::map<int, std::string>{{kStart + 11, "(rae2 10)"},
                                              {kStart + 61, "(rae3 10)"},
                                              {kStart + 86, "(rae4 10)"},
                                              {kStart + 101, "(lae2 10)"},
                                              {kStart + 103, "(lae3 10)(lae4 10)"},
                                              {kStart + 104, "(rle1 10)"},
                                              {kStart + 108, "(rle2 10)"}}));
  const std::string end = OutputOf([&] { static_cast<void>(Turn(kStart + 122)); });
  EXPECT_THAT(end, ::testing::StartsWith(std::string(foot.complaint) + foot.slowLine));
}

TEST_P(EachFoot, StepsAreLoadedInTheirCycles) {
  std::map<int, States> fired;  // cycle -> steps
  for (int cycle = kStart; cycle <= kStart + 122; ++cycle) {
    const auto before = agent.getUpStepPending;
    world.cycle = cycle;
    Begin();
    for (int i = 0; i < 8; ++i) {
      const auto flag = static_cast<std::size_t>(i);
      if (cycle > kStart && before[flag] && !agent.getUpStepPending[flag]) {
        fired[cycle].push_back(i + 1);
        EXPECT_EQ(agent.lastLoadTime, cycle);
      }
    }
    EXPECT_EQ(agent.slowFunction, cycle < kStart + 122 ? foot.slowFunction : 0) << cycle;
    EXPECT_EQ(agent.getUpStartTime, cycle < kStart + 103 ? kStart : kStart + 1) << cycle;
  }
  EXPECT_EQ(fired, (std::map<int, States>{{kStart + 10, {1}},
                                          {kStart + 60, {2}},
                                          {kStart + 85, {3}},
                                          {kStart + 100, {4}},
                                          {kStart + 102, {5, 6}},
                                          {kStart + 103, {7}},
                                          {kStart + 107, {8}}}));
  EXPECT_FALSE(agent.getUpStepPending[8]);
  EXPECT_TRUE(agent.getUpStepPending[9]) << "the next call begins a new kick";
}

TEST_P(EachFoot, StartFiresNothingYet) {
  agent.getUpStepPending = {};
  agent.getUpStepPending[9] = true;
  Begin();
  EXPECT_EQ(agent.slowFunction, foot.slowFunction);
  EXPECT_EQ(agent.getUpStartTime, kStart);
  for (std::size_t i = 0; i < 9; ++i) EXPECT_TRUE(agent.getUpStepPending[i]) << i;
  EXPECT_FALSE(agent.getUpStepPending[9]);
  EXPECT_EQ(agent.lastLoadTime, 0);
  EXPECT_EQ(Stack(), States{}) << "no state of its own";
}

TEST_P(EachFoot, NextCallGoesOnWithTheRunningKick) {
  Begin();
  world.cycle = kStart + 9;
  Begin();
  EXPECT_TRUE(agent.getUpStepPending[0]);
  world.cycle = kStart + 10;
  Begin();
  EXPECT_FALSE(agent.getUpStepPending[0]);
  EXPECT_EQ(agent.getUpStartTime, kStart);
}

TEST_P(EachFoot, SlowFunctionsStepTellsWhichFootItMoved) {
  EXPECT_EQ(OutputOf([&] { agent.continueSlowFunction(); }), "");
  Begin();
  EXPECT_EQ(OutputOf([&] { agent.continueSlowFunction(); }), foot.slowLine);
}

TEST_P(EachFoot, KickOfTheStackTakesItselfOffAtItsEnd) {
  SetStack({goBehindBall_state, foot.state});
  agent.doAction();
  EXPECT_EQ(agent.slowFunction, foot.slowFunction);
  EXPECT_EQ(Stack(), (States{0, foot.state}));
  for (int cycle = kStart + 1; cycle < kStart + 122; ++cycle) static_cast<void>(Turn(cycle));
  EXPECT_EQ(Stack(), (States{0, foot.state})) << "the stack waits";
  world.cycle = kStart + 122;
  EXPECT_EQ(OutputOf([&] { agent.continueSlowFunction(); }), foot.slowLine);
  EXPECT_EQ(Stack(), States{0});
  EXPECT_EQ(agent.slowFunction, 0);
}

TEST_P(EachFoot, KickUnderAForeignActionComplainsAtItsEnd) {
  SetStack({foot.state, goBehindBall_state});
  Begin();
  world.cycle = kStart + 122;
  EXPECT_EQ(OutputOf([&] { Begin(); }), foot.complaint);
  EXPECT_EQ(Stack(), (States{foot.state, 0}));
}

TEST_P(EachFoot, RestoreForgetsTheKickAndTheNextOneStartsOver) {
  Begin();
  world.cycle = kStart + 61;
  Begin();
  ASSERT_FALSE(agent.getUpStepPending[1]);
  agent.restoreState();
  EXPECT_EQ(agent.slowFunction, 0);
  EXPECT_TRUE(agent.getUpStepPending[9]);
  world.cycle = kStart + 62;
  Begin();
  EXPECT_EQ(agent.getUpStartTime, kStart + 62);
  for (std::size_t i = 0; i < 9; ++i) EXPECT_TRUE(agent.getUpStepPending[i]) << i;
}

INSTANTIATE_TEST_SUITE_P(Kick, EachFoot, ::testing::Values(kLeft, kRight),
                         [](const auto& test) { return test.param.name; });

/// The foot that kickFull takes from (X, Y): the value of slowFunction.
int FootFrom(Agent& agent, double x, double y) {
  agent.restoreState();
  agent.myPos = VecPosition(x, y, 0);
  agent.kickFull();
  return agent.slowFunction;
}

TEST_F(Kick, FootNearerToTheLineKicksAndOnTheLineItIsTheRight) {
  EXPECT_EQ(FootFrom(agent, -0.1, 0), 1);
  EXPECT_EQ(FootFrom(agent, -0.1, 0.05), 1);
  EXPECT_EQ(FootFrom(agent, -0.1, -0.05), 2);
  PutBall(0, 0.9);  // the line falls by a tenth: y = 0.91 at x = -0.1
  EXPECT_EQ(FootFrom(agent, -0.1, 0.92), 1);
  EXPECT_EQ(FootFrom(agent, -0.1, 0.90), 2);
  PutBall(9, 1);  // no line, no foot nearer
  EXPECT_EQ(FootFrom(agent, 8.9, 1), 2);
}

TEST_F(Kick, WithinReachTheDecisionShoots) {
  agent.walkdestAccuracy = 0.12;
  EXPECT_EQ(OutputOf([&] { agent.kickHandler(); }),
            "isbehindball\nshoot?\ngotta shoot    BallDistance= 0.1\n");
  EXPECT_EQ(agent.slowFunction, 1);
  EXPECT_EQ(Stack(), States{});
}

TEST_F(Kick, ShotInAWalkStopsTheWalkAndKicksAllTheSame) {
  agent.walkdestAccuracy = 0.12;
  agent.isWalking = agent.shallWalk = true;
  EXPECT_EQ(OutputOf([&] { agent.kickHandler(); }), "isbehindball\nshoot?\nwalk stop\n");
  EXPECT_FALSE(agent.shallWalk);
  EXPECT_TRUE(agent.isWalking);
  EXPECT_EQ(agent.slowFunction, 1);
}

TEST_F(Kick, DistanceOfExactlyTwelveCentimetresIsNotYetAShot) {
  PutBall(0.12, 0);
  Stand(0, 0);
  VecPosition elsewhere(3, 3, 0);
  agent.setwalkDest(elsewhere);
  EXPECT_EQ(OutputOf([&] { agent.kickHandler(); }), "isbehindball\nwalkdestAccuracy set to near\n");
  EXPECT_EQ(agent.walkdestAccuracy, 0.12);
  EXPECT_EQ(agent.walkDest, &world.ballPos);
  EXPECT_EQ(Stack(), States{0});
  EXPECT_EQ(agent.slowFunction, 0);
  EXPECT_EQ(OutputOf([&] { agent.kickHandler(); }),
            "isbehindball\nwalkdestAccuracy set to near\npushed nothing 0\n");
}

TEST_F(Kick, NearTheBallInNearModeTheTestIsLeftOut) {
  PutBall(0.4, 0);
  Stand(0, 0, 180);  // turned away: the test would fail
  agent.walkdestAccuracy = 0.12;
  EXPECT_EQ(OutputOf([&] { agent.kickHandler(); }), "isbehindball\nwalkdestAccuracy set to near\n");
  agent.walkdestAccuracy = 0.4;
  EXPECT_EQ(OutputOf([&] { agent.kickHandler(); }), "!isbehindball\npushed nothing 0\n");
  EXPECT_EQ(agent.walkdestAccuracy, 0.4);
}

TEST_F(Kick, BeyondFortyCentimetresTheModeFallsBackToFarAndIsTested) {
  PutBall(0.401, 0);
  Stand(0, 0, 180);
  agent.walkdestAccuracy = 0.12;
  EXPECT_EQ(OutputOf([&] { agent.kickHandler(); }), "!isbehindball\n");
  EXPECT_EQ(agent.walkdestAccuracy, 0.4);
  EXPECT_EQ(Stack(), States{0});
  Stand(0, 0);  // behind the ball in far mode, though not in near mode
  EXPECT_EQ(OutputOf([&] { agent.kickHandler(); }),
            "isbehindball\nwalkdestAccuracy set to near\npushed nothing 0\n");
  EXPECT_EQ(agent.walkdestAccuracy, 0.12);
}

}  // namespace
