#include <map>

#include "tests/process/PlayerTest.h"

namespace {

// Seen in this cycle; the sequence's clock starts in the next.
constexpr int kFall = 29;
constexpr int kStart = kFall + 1;

// A pose of one cycle: 0.2 rad with the firm gains from a standstill, that is
// 0.2 * (1.53 + 0.02 * 0.002 + 0.0098 / 0.02) / 0.02.
constexpr const char* kPoseSpeed = " 20.2004)";

class GetUpProcess : public PlayerTest {
 protected:
  void WriteScripts(const std::string& way) const {
    directory.write(way + "2.txt", "LSR 0.2 MOVE 0.02\n");
    directory.write(way + "3.txt", "RSR 0.2 MOVE 0.02\n");
    directory.write(way + "4.txt", "LAR 0.2 MOVE 0.02\n");
  }

  /// Plays cycle 1 to LAST, lying as ACC says from the fall until before UPRIGHT; hands back what
  /// was commanded, by cycle, without idle messages, reports and the init.
  static std::map<int, std::string> Play(PlayerSession& session, const std::string& acc,
                                         int upright, int last) {
    std::map<int, std::string> commanded;
    for (int cycle = 1; cycle <= last; ++cycle) {
      const bool lying = cycle >= kFall && cycle < upright;
      const std::string elements =
          "(GS (pm PlayOn))(ACC (n torso) (a " + (lying ? acc : "0.00 0.00 9.81") + "))";
      for (const std::string& text : Commands(session.Turn(MessageOfCycle(cycle, elements)))) {
        if (text.empty() || text.starts_with("(say ") || text.starts_with("(init ")) continue;
        commanded[cycle] += text;
      }
    }
    return commanded;
  }
};

struct Timetable {
  const char* name;
  const char* acc;
  const char* announcement;
  int arms;       // first cycle of stage 1 after the start
  int armCycles;  // its length
  const char* armSpeeds;
  int second, third, fourth, end;
};

// What a back that stands again prints in its first four cycles, with the ball never seen: its
// place is then (-10000, -10000), behind the player and to its right. It is to go there; it goes;
// that takes a turn by -135 degrees first; the turn has no script here, so that it is tried again.
constexpr const char* kPlaysOn =
    "!isbehindball\n0\ndest to ball: 14142.1 accuracy+0.2: 0.6\ngoBehindBall calling goToPos\n"
    "!isbehindball\npushed nothing 0\n5\ndoAction -> goToPos_state\n"
    "!isbehindball\npushed nothing 0\n23\n"
    "!isbehindball\npushed nothing 0\n23\n";

class Sequence : public GetUpProcess, public ::testing::WithParamInterface<Timetable> {};

TEST_P(Sequence, RunsItsStagesByTheClockAndThenLooksAgain) {
  const Timetable& table = GetParam();
  WriteScripts(table.name);
  PlayerSession session = Start({"--unum=2"});
  const int end = kStart + table.end;
  std::map<int, std::string> sent = Play(session, table.acc, end, end + 3);
  EXPECT_EQ(session.player.Output().substr(session.player.Output().find("bodystate")),
            std::string(table.announcement) + kPlaysOn);

  const int first = kStart + table.arms;
  for (int cycle = first; cycle < first + table.armCycles; ++cycle) {
    EXPECT_TRUE(sent[cycle].starts_with(cycle == first ? table.armSpeeds : "(rae1 ")) << cycle;
    sent.erase(cycle);
  }
  // The head of a standing field player moves in even cycles again; the sequence ends behind the
  // head's turn of its last cycle.
  const int head = (end / 2 + 1) * 2;
  EXPECT_EQ(sent,
            (std::map<int, std::string>{{kStart + table.second, std::string("(lae2") + kPoseSpeed},
                                        {kStart + table.third, std::string("(rae2") + kPoseSpeed},
                                        {kStart + table.fourth, std::string("(lle6") + kPoseSpeed},
                                        {head, "(he1 1.28026)"}}));
}

INSTANTIATE_TEST_SUITE_P(GetUpProcess, Sequence,
                         ::testing::Values(
                             // -1.57 / 45 * (1.53 + 0.02 * 0.002 + 0.0098 / 0.02) / 0.02
                             Timetable{"back", "0.00 9.81 0.00", "bodystate: 1\n", 50, 45,
                                       "(rae1 -3.52385)(rae3 0)", 110, 170, 270, 500},
                             Timetable{"front", "0.00 -9.81 0.00", "bodystate: 2\n", 10, 20,
                                       "(rae1 0)(rae3 0)", 110, 160, 240, 350}),
                         [](const auto& test) { return test.param.name; });

TEST_F(GetUpProcess, PlayerThatStillLiesBeginsAgain) {
  WriteScripts("front");
  PlayerSession session = Start({"--unum=1"});
  const int again = kStart + 350 + 1;
  std::map<int, std::string> sent = Play(session, "0.00 -9.81 0.00", 100000, again + 110);
  EXPECT_EQ(session.player.Output().substr(session.player.Output().find("bodystate")),
            "bodystate: 2\nbodystate: 2\n");
  EXPECT_EQ(sent.count(again + 9), 0U);
  EXPECT_EQ(sent.count(again + 10), 1U);
  EXPECT_EQ(sent[again + 110], std::string("(lae2") + kPoseSpeed);
}

TEST_F(GetUpProcess, WithoutScriptsTheClockRunsAllTheSame) {
  PlayerSession session = Start({"--unum=1"});
  const int end = kStart + 350;
  std::map<int, std::string> sent = Play(session, "0.00 -9.81 0.00", end, end);
  EXPECT_EQ(sent.size(), 20U) << "the first stage needs no script";
  EXPECT_EQ(sent.begin()->first, kStart + 10);
}

TEST_F(GetUpProcess, SideIsRolledOntoTheBackFirst) {
  directory.write("JumpR2.txt", "RSR 0.2 MOVE 0.02\n");
  WriteScripts("back");
  PlayerSession session = Start({"--unum=1"});
  // No dive ever was, which counts as one in cycle 0: the roll waits for cycle 100.
  std::map<int, std::string> sent = Play(session, "-9.81 0.00 0.00", 120, 101 + 110);
  EXPECT_EQ(session.player.Output().substr(session.player.Output().find("bodystate")),
            "bodystate: 3\n");
  EXPECT_EQ(sent.begin()->first, 100);
  EXPECT_EQ(sent[100], "(rae2 10)");
  EXPECT_EQ(sent.count(101 + 49), 0U);
  EXPECT_EQ(sent.count(101 + 50), 1U);
  EXPECT_EQ(sent[101 + 110], std::string("(lae2") + kPoseSpeed);
}

}  // namespace
