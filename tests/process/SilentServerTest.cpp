#include <sys/wait.h>

#include <csignal>

#include "tests/process/PlayerTest.h"
#include "tests/support/OwnNetwork.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using SilentServer = PlayerTest;

/// Between the player's beginning to wait and its death; the bounds around it are the test's slack.
void ExpectDeathAfterSixtySeconds(PlayerProcess& player, Clock::time_point before,
                                  Clock::time_point after) {
  const auto left = std::chrono::ceil<milliseconds>(after + milliseconds(65000) - Clock::now());
  const std::optional<int> status = player.WaitForEnd(left);
  ASSERT_TRUE(status) << "the patience was longer than sixty seconds";
  EXPECT_GE(Clock::now() - before, milliseconds(59900));
  ASSERT_TRUE(WIFSIGNALED(*status));
  EXPECT_EQ(WTERMSIG(*status), SIGABRT);
  EXPECT_EQ(player.Errors(), "");
}

// Two players in the same minute: one is left alone, the other is interrupted in the middle of its
// wait, which neither ends it at once nor gives it sixty seconds more.
TEST_F(SilentServer, EndsThePlayerAfterSixtySecondsWhetherInterruptedOrNot) {
  PlayerSession quiet = Start({"--unum=3"});
  PlayerProcess other(kPlayer, {"--host=" + EnterOwnNetwork().address}, directory.path());
  ServerLink link = quiet.listener.Accept();
  EXPECT_EQ(link.ReadFrame(), kSceneRequest);

  const auto before = Clock::now();
  quiet.Turns(1, 5);
  link.SendFrame(MessageOfCycle(1));
  EXPECT_EQ(link.ReadFrame(), kZeros);
  const auto after = Clock::now();

  EXPECT_FALSE(other.WaitForEnd(milliseconds(30000)));
  other.Signal(SIGINT);
  ExpectDeathAfterSixtySeconds(other, before, after);
  ExpectDeathAfterSixtySeconds(quiet.player, before, after);
}

}  // namespace
