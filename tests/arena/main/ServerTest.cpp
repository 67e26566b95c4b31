#include "arena/main/MatchServer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "tests/arena/main/RunningServer.h"

namespace arena {
namespace {

using namespace std::chrono_literals;
using test::playScript;
using test::rowOf;
using test::RunningServer;
using test::Script;
using test::WireClient;

ServerSettings shortMatch(double speed, std::size_t players) {
  ServerSettings settings;
  settings.pace.speed = speed;
  settings.pace.playersToStart = players;
  settings.match.referee.waitSeconds = 0.5;
  settings.match.referee.halfSeconds = 1;
  settings.match.referee.gameOverSeconds = 0.2;
  return settings;
}

/// Beams, moves, talks and falls.
std::string livelyAnswer(int n) {
  if (n < 20) return "(beam -2 0 0)";
  if (n < 40) return "(he1 1)(say left)";
  return "(he1 -1)(lle3 2)(rle3 2)";
}

std::string quietAnswer(int n) {
  if (n < 20) return "(beam -2 1 -20)";
  return n % 7 == 0 ? "(lae1 1)(say right)" : "(lae1 -1)";
}

struct Record {
  std::vector<std::string> left;
  std::vector<std::string> right;
  Summary summary;
};

Record playTwo(const ServerSettings& settings) {
  Record record;
  RunningServer server(settings);
  WireClient left(server.port());
  WireClient right(server.port());
  std::thread second([&] { record.right = playScript(right, 2, "Bar", quietAnswer); });
  record.left = playScript(left, 1, "Foo", livelyAnswer);
  second.join();
  record.summary = server.finish();
  return record;
}

// A ground rougher than numbers can tell: they run away once the legs move.
TEST(MatchServer, DivergedPhysicsEndTheMatchWithItsSummary) {
  ServerSettings settings = shortMatch(0, 1);
  settings.match.world.groundFriction = 1e120;
  RunningServer server(settings);
  WireClient player(server.port());
  playScript(player, 1, "Foo", [](int n) { return n < 3 ? "(beam -2 0 0)" : "(lle3 7)(rle3 -7)"; });
  const Summary summary = server.finish();
  ASSERT_FALSE(server.lines().empty());
  EXPECT_TRUE(server.lines().back().ends_with(" s  the match ends here, the physics diverged"))
      << server.lines().back();
  EXPECT_EQ(server.fault(), "the physics diverged");
  EXPECT_EQ(rowOf(summary, "left 1").name, "left 1");
}

/// A match in which every command came in its cycle. Where a busy machine made one late, the
/// commands weren't those of the script, and nothing can be said: then it's played again at half
/// the pace, which may change nothing either.
Record playTwoInTime(ServerSettings settings) {
  for (int attempt = 0; attempt < 6; ++attempt) {
    Record record = playTwo(settings);
    const auto late = [&](const std::string& name) {
      return rowOf(record.summary, name).lateAnswers;
    };
    if (late("left 1") == 0 && late("right 2") == 0) return record;
    settings.pace.speed /= 2;
    settings.pace.patience *= 2;
  }
  ADD_FAILURE() << "this machine is too busy: every match had a late answer";
  return {};
}

TEST(Server, RealTimeAndAsFastAsPossibleGiveTheSameMessages) {
  const Record fast = playTwoInTime(shortMatch(0, 2));
  const Record real = playTwoInTime(shortMatch(1, 2));
  ASSERT_GT(fast.left.size(), 80U);
  EXPECT_EQ(fast.left, real.left);
  EXPECT_EQ(fast.right, real.right);
}

TEST(Server, AMatchAsFastAsPossibleRepeatsItself) {
  const Record first = playTwoInTime(shortMatch(0, 2));
  const Record second = playTwoInTime(shortMatch(0, 2));
  ASSERT_GT(first.left.size(), 80U);
  EXPECT_EQ(first.left, second.left);
  EXPECT_EQ(first.right, second.right);
}

TEST(Server, RealTimeTakesItsTime) {
  ServerSettings settings = shortMatch(4, 1);
  const auto begin = std::chrono::steady_clock::now();
  RunningServer server(settings);
  WireClient client(server.port());
  playScript(client, 1, "Foo", quietAnswer);
  const Summary summary = server.finish();
  EXPECT_NEAR(summary.seconds, 3.2, 0.021);  // two halves of 0.5 s and 1 s each, 0.2 s of the end
  if (summary.clockSlips == 0) {
    EXPECT_GE(std::chrono::steady_clock::now() - begin, 3.2s / 4 - 20ms);
  }
}

/// The last of 1500 cycles begins 1500 periods behind the start, and no cycle is missing: nothing
/// drifts. A hold-up of this machine that was given up says nothing: then again at half the speed.
TEST(Server, RealTimeDoesNotDrift) {
  for (const double speed : {20.0, 10.0, 5.0, 2.5}) {
    ServerSettings settings = shortMatch(speed, 1);
    settings.match.referee.waitSeconds = 9.9;
    settings.match.referee.halfSeconds = 5;  // 2 * (9.9 + 5) + 0.2 = 30
    RunningServer server(settings);
    WireClient client(server.port());
    playScript(client, 1, "Foo", quietAnswer);
    const Summary summary = server.finish();
    if (summary.clockSlips > 0) continue;
    const PaceReport& pace = server.pace();
    EXPECT_EQ(pace.cycles, 1500);
    EXPECT_GE(pace.seconds, 30 / speed);
    EXPECT_LT(pace.seconds, 30 / speed + std::chrono::duration<double>(pace.worst).count() + 0.01);
    return;
  }
  FAIL() << "this machine is too busy";
}

TEST(Server, EveryPlayerIsToldOfTheEndAndThenClosed) {
  const Record record = playTwo(shortMatch(0, 2));
  ASSERT_FALSE(record.left.empty());
  EXPECT_NE(record.left.back().find("(pm GameOver)"), std::string::npos);
  EXPECT_NE(record.right.back().find("(pm GameOver)"), std::string::npos);
  EXPECT_TRUE(record.summary.finished);
}

TEST(Server, TheFirstCycleWaitsForThePlayersAskedFor) {
  RunningServer server(shortMatch(0, 2));
  WireClient left(server.port());
  WireClient right(server.port());
  std::vector<std::string> ofLeft;
  std::thread first([&] { ofLeft = playScript(left, 1, "Foo", quietAnswer); });
  const auto ofRight = playScript(right, 2, "Bar", quietAnswer);
  first.join();
  ASSERT_FALSE(ofLeft.empty());
  EXPECT_EQ(ofLeft.size(), ofRight.size());
  EXPECT_EQ(ofLeft.front().substr(0, 17), "(time (now 0.02))");
}

TEST(Server, ARequestToStopEndsTheMatchInOrder) {
  ServerSettings settings = shortMatch(1, 1);
  settings.match.referee.waitSeconds = 1000;
  RunningServer server(settings);
  WireClient client(server.port());
  client.say("(scene rsg/agent/nao/nao.rsg)(init (unum 3)(teamname Foo))");
  ASSERT_TRUE(client.hear());
  const Summary summary = server.finish(/*stop=*/true);
  EXPECT_FALSE(summary.finished);
  EXPECT_EQ(summary.players.size(), 1U);
  EXPECT_TRUE(client.isClosedWithin(20s));
  EXPECT_NE(server.lines().back().find(" s  stopped"), std::string::npos);
}

TEST(Server, ARequestToStopIsHeardWhileWaitingForPlayers) {
  RunningServer server(shortMatch(0, 3));
  EXPECT_EQ(server.finish(/*stop=*/true).seconds, 0);
}

TEST(Server, APlayerThatNeverAnswersIsNotWaitedForLongerThanPatience) {
  ServerSettings settings = shortMatch(0, 2);
  settings.pace.patience = 5ms;
  RunningServer server(settings);
  WireClient mute(server.port());
  mute.say("(scene rsg/agent/nao/nao.rsg)(init (unum 5)(teamname Foo))");
  WireClient client(server.port());
  const auto messages = playScript(client, 1, "Foo", quietAnswer);
  const Summary summary = server.finish();
  EXPECT_TRUE(summary.finished);
  // Every message but the last could have been answered before the next cycle.
  EXPECT_EQ(rowOf(summary, "left 5").lateAnswers, static_cast<int>(messages.size()) - 1);
}

TEST(Server, ARefusedPlayerIsClosedAndTheOthersPlayOn) {
  RunningServer server(shortMatch(0, 3));
  WireClient left(server.port());
  WireClient right(server.port());
  WireClient third(server.port());
  std::vector<std::string> ofLeft;
  std::vector<std::string> ofRight;
  std::thread first([&] { ofLeft = playScript(left, 1, "Foo", quietAnswer); });
  std::thread second([&] { ofRight = playScript(right, 1, "Bar", quietAnswer); });
  third.say("(scene rsg/agent/nao/nao.rsg)");
  ASSERT_TRUE(third.hear());  // so its team is the third to come in
  third.say("(init (unum 1)(teamname Baz))");
  EXPECT_TRUE(third.isClosedWithin(20s));
  first.join();
  second.join();
  const Summary summary = server.finish();
  EXPECT_TRUE(summary.finished);
  EXPECT_EQ(ofLeft.size(), ofRight.size());
  const auto refused =
      std::count_if(server.lines().begin(), server.lines().end(), [](const std::string& line) {
        return line.find("session 3 refused: a third team, Baz") != std::string::npos;
      });
  EXPECT_EQ(refused, 1);
}

}  // namespace
}  // namespace arena
