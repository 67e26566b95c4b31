#include <sys/wait.h>

#include <csignal>

#include "tests/process/PlayerTest.h"
#include "tests/support/OwnNetwork.h"

namespace {

using std::chrono::milliseconds;

class Ending : public PlayerTest {
 protected:
  static void ExpectDeathBy(PlayerProcess& player, int signal) {
    const std::optional<int> status = player.WaitForEnd();
    ASSERT_TRUE(status) << "still alive";
    ASSERT_TRUE(WIFSIGNALED(*status)) << player.Errors();
    EXPECT_EQ(WTERMSIG(*status), signal) << player.Errors();
  }

  /// Whether the player is still alive once it has used MORE processor time than now.
  static bool SpinsFor(PlayerProcess& player, milliseconds more) {
    const milliseconds goal = player.CpuTime() + more;
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    while (player.CpuTime() < goal) {
      if (player.WaitForEnd(milliseconds(10))) return false;
      if (std::chrono::steady_clock::now() > deadline) return false;
    }
    return !player.WaitForEnd(milliseconds(0));
  }

  static void WaitUntilHandled(const PlayerProcess& player, int signal) {
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    while (player.HasPending(signal)) {
      ASSERT_LT(std::chrono::steady_clock::now(), deadline) << "the signal stays pending";
    }
  }
};

TEST_F(Ending, InterruptedPlayerPlaysOneMoreMessageInFullAndLeavesInOrder) {
  PlayerSession session = Start({"--unum=3"});
  session.Turns(1, 19);
  session.player.Signal(SIGINT);
  WaitUntilHandled(session.player, SIGINT);
  EXPECT_EQ(session.Frames(), Texts{}) << "a silent server keeps it waiting";
  EXPECT_FALSE(session.player.WaitForEnd(milliseconds(0)));

  session.link.SendFrame(MessageOfCycle(20));
  const std::optional<int> status = session.player.WaitForEnd();
  ASSERT_TRUE(status);
  EXPECT_TRUE(WIFEXITED(*status)) << session.player.Errors();
  EXPECT_EQ(WEXITSTATUS(*status), 0) << session.player.Errors();
  EXPECT_EQ(Commands(session.link.FramesSoFar()), (Texts{"", "(say P,3,0,0)"}));
  EXPECT_TRUE(session.link.AtEnd());
}

TEST_F(Ending, MessageBehindTheLastOneIsNotPlayed) {
  PlayerSession session = Start({"--unum=3"});
  session.Turns(1, 5);
  session.player.Signal(SIGINT);
  WaitUntilHandled(session.player, SIGINT);
  session.AwaitWaiting();
  // In one piece, so that both are there when the player looks.
  const std::string first = MessageOfCycle(6);
  const std::string second = MessageOfCycle(7);
  session.link.SendBytes(LengthField(static_cast<std::uint32_t>(first.size())) + first +
                         LengthField(static_cast<std::uint32_t>(second.size())) + second);
  const std::optional<int> status = session.player.WaitForEnd();
  ASSERT_TRUE(status);
  EXPECT_TRUE(WIFEXITED(*status));
  EXPECT_EQ(Commands(Texts{session.link.ReadFrame()}), Texts{""});
  EXPECT_ANY_THROW(session.link.ReadFrame()) << "nothing for the second";
}

TEST_F(Ending, RepeatedInterruptChangesNothing) {
  PlayerSession session = Start({"--unum=3"});
  session.Turns(1, 5);
  for (int i = 0; i < 3; ++i) {
    session.player.Signal(SIGINT);
    WaitUntilHandled(session.player, SIGINT);
    session.AwaitWaiting();
  }
  session.link.SendFrame(MessageOfCycle(6));
  const std::optional<int> status = session.player.WaitForEnd();
  ASSERT_TRUE(status);
  EXPECT_TRUE(WIFEXITED(*status));
  EXPECT_EQ(WEXITSTATUS(*status), 0);
}

TEST_F(Ending, OtherSignalsKeepTheirDefaults) {
  for (const int signal : {SIGTERM, SIGHUP, SIGUSR1}) {
    PlayerSession session = Start({"--unum=3"});
    session.Turns(1, 2);
    session.player.Signal(signal);
    ExpectDeathBy(session.player, signal);
  }
}

TEST_F(Ending, ClosedServerLeavesItSpinningAndAnInterruptDoesNotHelp) {
  PlayerSession session = Start({"--unum=3"});
  session.Turns(1, 5);
  session.link.Close();
  EXPECT_TRUE(SpinsFor(session.player, milliseconds(200)));
  session.player.Signal(SIGINT);
  WaitUntilHandled(session.player, SIGINT);
  EXPECT_TRUE(SpinsFor(session.player, milliseconds(100)));
}

TEST_F(Ending, ServerThatClosesWithinAFrameLeavesItSpinningToo) {
  PlayerSession session = Start({"--unum=3"});
  session.Turns(1, 5);
  EXPECT_EQ(session.TurnOfBytes(LengthField(100) + "(time "), Texts{});
  session.link.Close();
  EXPECT_TRUE(SpinsFor(session.player, milliseconds(200)));
}

TEST_F(Ending, WritingToAClosedServerIsTheEndWithoutAWord) {
  PlayerSession session = Start({"--unum=3"});
  session.Turns(1, 5);
  session.player.Signal(SIGSTOP);
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (session.player.State() != 'T') {
    ASSERT_LT(std::chrono::steady_clock::now(), deadline) << "the player doesn't stop";
  }
  // Several sentences to say, and nobody there any more by the time it says them.
  std::string seen = "(See";
  for (int number = 1; number <= 6; ++number) {
    seen += " (P (team Other) (id " + std::to_string(number) + ") (head (pol 4.0 10.0 1.5)))";
  }
  session.link.SendFrame(MessageOfCycle(6, seen + ")"));
  session.link.Close();
  session.player.Signal(SIGCONT);
  ExpectDeathBy(session.player, SIGPIPE);
  EXPECT_EQ(session.player.Errors(), "");
}

TEST_F(Ending, WithoutAServerTheSceneRequestIsTheEndWithoutAWord) {
  PlayerProcess player(kPlayer, {"--host=" + EnterOwnNetwork().address}, directory.path());
  ExpectDeathBy(player, SIGPIPE);
  EXPECT_EQ(player.Errors(), "");
  EXPECT_EQ(player.Output().find("connected successfully!"), std::string::npos);
}

// The resolver may ask a name server that doesn't answer; it gives up by itself.
TEST_F(Ending, UnknownHostIsAnAbnormalEnd) {
  EnterOwnNetwork();
  PlayerProcess player(kPlayer, {"--host=no-such-host.invalid"}, directory.path());
  const std::optional<int> status = player.WaitForEnd(milliseconds(50000));
  ASSERT_TRUE(status);
  ASSERT_TRUE(WIFSIGNALED(*status)) << player.Errors();
  EXPECT_EQ(WTERMSIG(*status), SIGABRT) << player.Errors();
  EXPECT_EQ(player.Output().find("connected successfully!"), std::string::npos);
}

struct Cut {
  const char* name;
  const char* element;
};

class ShortPlayerElement : public Ending, public ::testing::WithParamInterface<Cut> {};

TEST_P(ShortPlayerElement, IsTheEnd) {
  PlayerSession session = Start({"--unum=3"});
  session.Turns(1, 5);
  session.link.SendFrame(MessageOfCycle(6, GetParam().element));
  ExpectDeathBy(session.player, SIGABRT);
  EXPECT_NE(session.player.Errors().find("basic_string::substr"), std::string::npos)
      << session.player.Errors();
}

INSTANTIATE_TEST_SUITE_P(
    Ending, ShortPlayerElement,
    ::testing::Values(Cut{"Team", "(See (P (te) (id 3) (head (pol 4.0 10.0 1.5))))"},
                      Cut{"Number", "(See (P (team Foo) (i (head (pol 4.0 10.0 1.5)))))"},
                      Cut{"Everything", "(See (P))"}),
    [](const auto& test) { return test.param.name; });

}  // namespace
