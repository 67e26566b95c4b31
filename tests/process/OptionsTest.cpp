#include <sys/wait.h>

#include "tests/process/PlayerTest.h"
#include "tests/support/OwnNetwork.h"

namespace {

constexpr std::string_view kHelp =
    "\nusage: pitchagent [options]\n"
    "\noptions:\n"
    " --help      prints this message.\n"
    " --host=IP   IP of the server.\n"
    " --unum=ID   ID of the player from 1 to 5.\n"
    "\n";

/// A command line, and the shirt number that it makes; a name for the test.
struct Line {
  const char* name;
  Texts arguments;
  const char* number = "";
};

std::string NameOf(const ::testing::TestParamInfo<Line>& test) {
  return test.param.name;
}

class AcceptedLine : public PlayerTest, public ::testing::WithParamInterface<Line> {};

TEST_P(AcceptedLine, SetsTheNumberThatThePlayerJoinsWith) {
  PlayerSession session = Start(GetParam().arguments);
  session.Turns(1, 9);
  EXPECT_EQ(
      Commands(session.Turn(MessageOfCycle(10))),
      (Texts{std::string("(init (unum ") + GetParam().number + ")(teamname Kolu-Otters))", ""}));
}

INSTANTIATE_TEST_SUITE_P(
    Options, AcceptedLine,
    ::testing::Values(Line{"NoArguments", {}, "1"}, Line{"First", {"--unum=1"}, "1"},
                      Line{"Third", {"--unum=3"}, "3"},
                      Line{"SixThoughTheHelpOffersFive", {"--unum=6"}, "6"},
                      Line{"TextBehindTheNumber", {"--unum=3abc"}, "3"},
                      Line{"OtherSeparator", {"--unum:4"}, "4"},
                      Line{"LeadingBlankAndPlus", {"--unum= +4"}, "4"},
                      Line{"LetterSkippedAsSeparator", {"--unumb5"}, "5"},
                      Line{"LaterNumberWins", {"--unum=3", "--unum=5"}, "5"},
                      Line{"ExtraBehindResets", {"--unum=3", "extra"}, "1"},
                      Line{"ExtraInFrontDoesNot", {"extra", "--unum=3"}, "3"},
                      Line{"LongerHelpIsAnExtra", {"--unum=3", "--helpme"}, "1"},
                      Line{"ShorterHelpIsAnExtra", {"--unum=3", "--hel"}, "1"},
                      Line{"EmptyArgumentIsAnExtra", {"--unum=3", ""}, "1"},
                      Line{"ShorterOptionIsAnExtra", {"--unum=3", "--unu"}, "1"}),
    NameOf);

class RefusedLine : public PlayerTest, public ::testing::WithParamInterface<Line> {};

TEST_P(RefusedLine, PrintsTheHelpAndEndsWithStatusZero) {
  PlayerProcess player(kPlayer, GetParam().arguments, directory.path());
  const std::optional<int> status = player.WaitForEnd();
  ASSERT_TRUE(status);
  ASSERT_TRUE(WIFEXITED(*status)) << player.Errors();
  EXPECT_EQ(WEXITSTATUS(*status), 0);
  EXPECT_EQ(player.Errors(), "");
  const std::string& output = player.Output();
  EXPECT_TRUE(output.starts_with("Kolu_Otters "));
  EXPECT_EQ(output.substr(output.find('\n') + 1), kHelp) << "behind the greeting's one line";
}

INSTANTIATE_TEST_SUITE_P(
    Options, RefusedLine,
    ::testing::Values(Line{"Help", {"--help"}}, Line{"HelpAndMore", {"--help", "--unum=3"}},
                      Line{"HelpBehind", {"--unum=3", "--help"}}, Line{"Seven", {"--unum=7"}},
                      Line{"Zero", {"--unum=0"}}, Line{"Negative", {"--unum=-1"}},
                      Line{"Letter", {"--unum=x"}}, Line{"Huge", {"--unum=99999999999999999999"}},
                      Line{"Wrapping", {"--unum=4294967299"}}, Line{"EmptyNumber", {"--unum="}},
                      Line{"NoNumber", {"--unum"}}, Line{"EmptyHost", {"--host="}},
                      Line{"NoHost", {"--host"}},
                      Line{"GoodNumberThenBadOne", {"--unum=3", "--unum=7"}}),
    NameOf);

class HostLine : public PlayerTest, public ::testing::WithParamInterface<Line> {};

TEST_P(HostLine, IsWhereThePlayerCalls) {
  const NetworkPlace& place = EnterOwnNetwork();
  const std::string address = place.isolated ? "127.0.0.2" : place.address;
  const Listener listener(address);
  Texts arguments;
  for (const std::string& option : GetParam().arguments) arguments.push_back(option);
  arguments.back() += address;
  PlayerProcess player(kPlayer, arguments, directory.path());
  ServerLink link = listener.Accept();
  EXPECT_EQ(link.ReadFrame(), kSceneRequest);
  EXPECT_TRUE(
      player.WaitForOutput("connecting to TCP " + address + ":3100\nconnected successfully!\n"));
}

INSTANTIATE_TEST_SUITE_P(Options, HostLine,
                         ::testing::Values(Line{"Usual", {"--host="}},
                                           Line{"OtherSeparator", {"--host:"}},
                                           Line{"LetterSkipped", {"--hostX"}},
                                           Line{"LaterOneWins", {"--host=127.0.0.77", "--host="}}),
                         NameOf);

}  // namespace
