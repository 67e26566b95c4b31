#include <algorithm>

#include "tests/process/PlayerTest.h"
#include "tests/support/OwnNetwork.h"

namespace {

constexpr const char* kWait = "(GS (unum 3) (team left) (t 0.00) (pm BeforeKickOff))";

std::size_t CountOf(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string_view::npos;
       at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

using Joining = PlayerTest;

TEST_F(Joining, PlayerSaysWhereItConnects) {
  if (!EnterOwnNetwork().isolated) GTEST_SKIP() << EnterOwnNetwork().reason;
  PlayerSession session = Start({});
  ASSERT_TRUE(session.player.WaitForOutput("connected successfully!\n"));
  const std::string& output = session.player.Output();
  EXPECT_TRUE(output.starts_with("Kolu_Otters "));
  EXPECT_EQ(output.substr(output.find('\n') + 1),
            "connecting to TCP 127.0.0.1:3100\nconnected successfully!\n");
  EXPECT_EQ(session.player.Errors(), "");
}

TEST_F(Joining, TellsItsNumberInCycleTenOnly) {
  PlayerSession session = Start({"--unum=3"});
  for (int cycle = 1; cycle < 50; ++cycle) {
    Texts expected{""};
    if (cycle == 10) expected.insert(expected.begin(), "(init (unum 3)(teamname Kolu-Otters))");
    if (cycle % 20 == 0) expected.emplace_back("(say P,3,0,0)");
    EXPECT_EQ(Commands(session.Turn(MessageOfCycle(cycle, "(GS (pm PlayOn))"))), expected) << cycle;
  }
}

TEST_F(Joining, TellsItAgainInASecondMessageOfCycleTen) {
  PlayerSession session = Start({"--unum=3"});
  session.Turns(1, 9);
  const Texts expected{"(init (unum 3)(teamname Kolu-Otters))", ""};
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(10))), expected);
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(10))), expected) << "the same time";
  EXPECT_EQ(Commands(session.Turn("(time (now 0.1))")), expected) << "an earlier time";
  EXPECT_EQ(Commands(session.Turn("(GYR (n torso) (rt 0 0 0))")), expected) << "no time";
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(11))), Texts{""});
}

TEST_F(Joining, ClockCountsMessagesAndNotSeconds) {
  PlayerSession session = Start({"--unum=3"});
  for (int message = 1; message <= 9; ++message) {
    EXPECT_EQ(Commands(session.Turn("(time (now " + std::to_string(message * 100) + "))")),
              Texts{""});
  }
  EXPECT_EQ(Commands(session.Turn("(time (now 900.001))")).size(), 2U) << "the tenth";
}

TEST_F(Joining, ServersNumberReplacesTheOneOfTheCommandLine) {
  PlayerSession session = Start({"--unum=5"});
  session.Turn(MessageOfCycle(1, "(GS (unum 2))"));
  session.Turns(2, 9);
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(10))),
            (Texts{"(init (unum 2)(teamname Kolu-Otters))", ""}));
}

struct Shirt {
  const char* number;
  const char* beam;
};

class ShirtNumber : public PlayerTest, public ::testing::WithParamInterface<Shirt> {};

TEST_P(ShirtNumber, BeamsToItsPlaceInEachCycleOfTheWait) {
  const Shirt& shirt = GetParam();
  PlayerSession session = Start({std::string("--unum=") + shirt.number});
  const std::string wait = "(GS (t 0.00) (pm BeforeKickOff))";
  EXPECT_EQ(Commands(session.Turns(1, 19, wait)).size(), 20U);
  for (int cycle = 20; cycle <= 60; ++cycle) {
    Texts expected{shirt.beam};
    if (cycle % 20 == 0) {
      expected.push_back(std::string("(say P,") + shirt.number + ",0,0)");
    }
    EXPECT_EQ(Commands(session.Turn(MessageOfCycle(cycle, wait))), expected) << cycle;
  }
  const std::string trace =
      "number of distribution particles is: 400\nBEAAM " + std::string(shirt.beam) + "\n";
  EXPECT_EQ(CountOf(session.player.Output(), trace), 41U);
  EXPECT_EQ(CountOf(session.player.Output(), "BEAAM"), 41U);
}

INSTANTIATE_TEST_SUITE_P(
    Joining, ShirtNumber,
    ::testing::Values(Shirt{"1", "(beam -8.6 0 -0)"}, Shirt{"2", "(beam -6.15 -0.50 -0)"},
                      Shirt{"3", "(beam -6.15 0.50 -0)"}, Shirt{"4", "(beam -3 3 -0)"},
                      Shirt{"5", "(beam -.28 2.0 -0)"}, Shirt{"6", "(beam -.15 0.05 -0)"}),
    [](const auto& test) { return test.param.number; });

TEST_F(Joining, WaitEndsWithTheKickOffAndANewKickOffBeamsOnce) {
  PlayerSession session = Start({"--unum=3"});
  session.Turns(1, 24, kWait);
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(25, kWait))), Texts{"(beam -6.15 0.50 -0)"});
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(26, "(GS (pm KickOff_Right))"))),
            Texts{"(beam -6.15 0.50 -0)"})
      << "the change of the mode";
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(27))), Texts{""});
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(28, "(GS (pm PlayOn))"))), Texts{""});
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(29, "(GS (pm KickOff_Right))"))),
            Texts{"(beam -6.15 0.50 -0)"});
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(30))), Texts{""});
}

TEST_F(Joining, PlayerThatComesInDuringAKickOffDoesNotBeam) {
  PlayerSession session = Start({"--unum=3"});
  EXPECT_EQ(Commands(session.Turns(1, 9, "(GS (pm KickOff_Left))")), Texts(9, ""));
}

TEST_F(Joining, NumberBeyondTheTeamGetsTextsWithoutANumber) {
  PlayerSession session = Start({"--unum=3"});
  session.Turns(1, 9, "(GS (unum 7) (pm BeforeKickOff))");
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(10))),
            (Texts{"(init (unum )(teamname Kolu-Otters))", ""}));
  session.Turns(11, 20);
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(21))), Texts{"(beam   -0)"});
  EXPECT_EQ(Commands(session.Turn(MessageOfCycle(22, "(GS (unum 0))"))), Texts{"(beam   -0)"});
}

TEST_F(Joining, HeadGoesRoundInTwoHundredAndEighteenCycles) {
  PlayerSession session = Start({"--unum=2"});
  Texts heads;
  for (int cycle = 1; cycle <= 50 + 218 + 10; ++cycle) {
    const Texts sent = Commands(session.Turn(MessageOfCycle(cycle, "(GS (pm PlayOn))")));
    const auto isHead = [](const std::string& text) { return text.starts_with("(he1 "); };
    const auto count = std::count_if(sent.begin(), sent.end(), isHead);
    ASSERT_EQ(count, cycle >= 50 && cycle % 2 == 0 ? 1 : 0) << cycle;
    if (count == 1) {
      EXPECT_TRUE(isHead(sent.front())) << "ahead of the playback";
      heads.push_back(sent.front());
    }
  }
  ASSERT_EQ(heads.size(), 115U);
  EXPECT_EQ(heads[0], "(he1 1.28026)");
  EXPECT_EQ(heads[18], "(he1 10)");
  EXPECT_EQ(heads[19], "(he1 -1.30407)");
  EXPECT_EQ(heads[69], "(he1 -10)");
  EXPECT_EQ(heads[70], "(he1 1.29058)");
  EXPECT_EQ(heads[108], "(he1 2.56029)");
  for (std::size_t entry = 0; entry + 109 < heads.size(); ++entry) {
    EXPECT_EQ(heads[entry + 109], heads[entry]);
  }
  EXPECT_EQ(std::count(heads.begin(), heads.begin() + 109, "(he1 10)"), 1);
  EXPECT_EQ(std::count(heads.begin(), heads.begin() + 109, "(he1 -10)"), 1);
}

TEST_F(Joining, GoalkeepersHeadIsStill) {
  PlayerSession session = Start({"--unum=1"});
  for (const std::string& text : Commands(session.Turns(1, 90, "(GS (pm PlayOn))"))) {
    EXPECT_EQ(text.find("(he1"), std::string::npos);
  }
}

}  // namespace
