#include "arena/link/Hub.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "arena/link/Frames.h"
#include "tests/arena/link/WireClient.h"

namespace arena {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using Clock = Hub::Clock;
using test::WireClient;
using testing::HasSubstr;

constexpr auto kLong = 20s;  ///< only ever waited out by a test that fails

LinkSettings anyPort() {
  LinkSettings settings;
  settings.port = 0;
  return settings;
}

/// Serves until CONDITION holds; false if it never does.
template <typename Condition>
bool serveUntil(Hub& hub, Condition condition) {
  const auto end = Clock::now() + kLong;
  while (!condition()) {
    if (Clock::now() > end) return false;
    hub.serveUntil(Clock::now() + 1ms);
  }
  return true;
}

/// Serves until COUNT whole frames have come, and gives what each session sent.
std::map<SessionId, Commands> serveFrames(Hub& hub, int count) {
  std::map<SessionId, Commands> all;
  int seen = 0;
  EXPECT_TRUE(serveUntil(hub, [&] {
    for (const Received& one : hub.takeCommands()) {
      seen += one.commands.frames;
      all[one.id] = one.commands;
    }
    return seen >= count;
  }));
  return all;
}

/// Serves until a session is lost and gives it.
Lost serveLoss(Hub& hub) {
  std::vector<Lost> lost;
  EXPECT_TRUE(serveUntil(hub, [&] {
    lost = hub.takeLost();
    return !lost.empty();
  }));
  EXPECT_EQ(lost.size(), 1U);
  return lost.empty() ? Lost{} : lost.front();
}

TEST(Hub, SessionsAreNumberedInOrderOfConnection) {
  Hub hub(anyPort());
  WireClient first(hub.port());
  first.say("(he1 1)");
  serveFrames(hub, 1);
  WireClient second(hub.port());
  second.say("(he1 2)");
  first.say("(he1 3)");
  const auto all = serveFrames(hub, 2);
  EXPECT_EQ(all.at(1).jointSpeeds[0], 3);
  EXPECT_EQ(all.at(2).jointSpeeds[0], 2);
}

TEST(Hub, FramesSinceTheLastTakeAreMerged) {
  Hub hub(anyPort());
  WireClient client(hub.port());
  client.say("(he1 1)(he2 1)");
  client.say("(he1 2)(say a)");
  Commands merged;
  ASSERT_TRUE(serveUntil(hub, [&] {
    hub.serveUntilAnswered(200ms, Clock::now() + kLong);
    for (const Received& one : hub.takeCommands()) merged = one.commands;
    return merged.frames > 0;
  }));
  EXPECT_EQ(merged.frames, 2);
  EXPECT_EQ(merged.jointSpeeds[0], 2);
  EXPECT_EQ(merged.jointSpeeds[1], 1);
  EXPECT_EQ(merged.say, "a");
  EXPECT_TRUE(hub.takeCommands().empty());
}

TEST(Hub, MessagesArriveFramedAndInOrder) {
  Hub hub(anyPort());
  WireClient client(hub.port());
  client.say("");
  serveFrames(hub, 1);
  hub.send(1, "one");
  hub.send(1, std::string(kMaxPayloadBytes, 'x'));
  hub.send(77, "nobody");
  hub.finish(Clock::now() + kLong);
  EXPECT_EQ(client.hear(), "one");
  EXPECT_EQ(client.hear(), std::string(kMaxPayloadBytes, 'x'));
  EXPECT_FALSE(client.hear());
}

TEST(Hub, APieceOfAFrameWaitsForTheRest) {
  Hub hub(anyPort());
  WireClient client(hub.port());
  WireClient other(hub.port());
  client.sendRaw("\0\0\0\7(he1"s);
  other.say("(he1 5)");
  EXPECT_FALSE(serveFrames(hub, 1).contains(1));
  client.sendRaw(" 1)"s);
  EXPECT_EQ(serveFrames(hub, 1).at(1).jointSpeeds[0], 1);
}

TEST(Hub, AFrameOverTheLimitEndsOnlyItsSession) {
  Hub hub(anyPort());
  WireClient bad(hub.port());
  WireClient good(hub.port());
  bad.sendRaw("\0\0\x3f\xfd("s);
  const Lost lost = serveLoss(hub);
  EXPECT_EQ(lost.id, 1U);
  EXPECT_EQ(lost.why, "a frame of 16381 bytes, over the limit of 16380");
  EXPECT_TRUE(bad.isClosedWithin(kLong));
  good.say("(he1 1)");
  EXPECT_TRUE(serveFrames(hub, 1).contains(2));
}

TEST(Hub, ABrokenFrameEndsOnlyItsSession) {
  Hub hub(anyPort());
  WireClient bad(hub.port());
  WireClient good(hub.port());
  bad.say("(he1 1");
  const Lost lost = serveLoss(hub);
  EXPECT_EQ(lost.id, 1U);
  EXPECT_EQ(lost.why, "a broken frame: parentheses don't match");
  good.say("(he1 1)");
  EXPECT_TRUE(serveFrames(hub, 1).contains(2));
}

TEST(Hub, APlayerThatLeavesIsLost) {
  Hub hub(anyPort());
  WireClient client(hub.port());
  client.hangUp();
  EXPECT_EQ(serveLoss(hub).why, "the player closed the connection");
  EXPECT_TRUE(hub.takeLost().empty()) << "a loss is told once";
}

TEST(Hub, ASilentSessionIsEndedAndATalkingOneIsNot) {
  LinkSettings settings = anyPort();
  settings.silence = 400ms;
  Hub hub(settings);
  WireClient silent(hub.port());
  WireClient talking(hub.port());
  std::vector<Lost> lost;
  ASSERT_TRUE(serveUntil(hub, [&] {
    talking.say("");
    hub.takeCommands();
    lost = hub.takeLost();
    return !lost.empty();
  }));
  ASSERT_EQ(lost.size(), 1U);
  EXPECT_EQ(lost[0].id, 1U);
  EXPECT_EQ(lost[0].why, "silent for 400 ms");
}

TEST(Hub, APlayerMayWaitForItsFirstMessage) {
  LinkSettings settings = anyPort();
  settings.silence = 50ms;
  Hub hub(settings);
  WireClient player(hub.port());
  player.say("(scene rsg/agent/nao/nao.rsg)");
  serveFrames(hub, 1);
  hub.serveUntil(Clock::now() + 200ms);
  EXPECT_TRUE(hub.takeLost().empty());
  // From here on it owes an answer, and its time begins.
  hub.send(1, "(time)");
  EXPECT_TRUE(hub.takeLost().empty());
  EXPECT_EQ(serveLoss(hub).why, "silent for 50 ms");
}

TEST(Hub, BytesThatNeverMakeAFrameAreSilence) {
  LinkSettings settings = anyPort();
  settings.silence = 100ms;
  Hub hub(settings);
  WireClient client(hub.port());
  client.sendRaw("\0\0\x0f\xff"s);
  Lost lost;
  ASSERT_TRUE(serveUntil(hub, [&] {
    client.sendRaw("x");
    const auto all = hub.takeLost();
    if (!all.empty()) lost = all.front();
    return !all.empty();
  }));
  EXPECT_EQ(lost.why, "silent for 100 ms");
}

TEST(Hub, ASlowReaderIsCutOffOnceAMebibyteWaits) {
  Hub hub(anyPort());
  WireClient slow(hub.port());
  WireClient good(hub.port());
  slow.say("");
  good.say("");
  serveFrames(hub, 2);
  const std::string message(16000, 'x');
  Lost lost;
  std::size_t sent = 0;
  // The system's own buffers take some megabytes before anything waits here.
  ASSERT_TRUE(serveUntil(hub, [&] {
    hub.send(1, message);
    sent += message.size();
    const auto all = hub.takeLost();
    if (!all.empty()) lost = all.front();
    return !all.empty() || sent > 200'000'000;
  }));
  EXPECT_EQ(lost.id, 1U);
  EXPECT_THAT(lost.why, HasSubstr("a slow reader: "));
  EXPECT_GT(sent, 1024U * 1024U);
  hub.send(2, "still here");
  hub.serveUntil(Clock::now() + 1ms);
  EXPECT_EQ(good.hear(), "still here");
}

/// The most frames of a flood of COUNT frames of 11 bytes that come in between two takes.
int mostFramesAtOnce(int count, bool withBody) {
  Hub hub(anyPort());
  WireClient client(hub.port());
  if (withBody) {
    client.say("(scene rsg/agent/nao/nao.rsg)");
    serveFrames(hub, 1);
  }
  std::string flood;
  for (int i = 0; i < count; ++i) flood += "\0\0\0\7(he1 1)"s;
  std::thread sender([&] { client.sendRaw(flood); });
  int most = 0;
  int all = 0;
  EXPECT_TRUE(serveUntil(hub, [&] {
    hub.serveUntil(Clock::now() + 2ms);
    for (const Received& one : hub.takeCommands()) {
      most = std::max(most, one.commands.frames);
      all += one.commands.frames;
    }
    return all >= count;
  }));
  sender.join();
  EXPECT_EQ(all, count);
  return most;
}

// A portion, and a frame of which most had come in with the one before.
TEST(Hub, AFloodIsReadInPortions) {
  EXPECT_LE(mostFramesAtOnce(20'000, /*withBody=*/true), 16 * 1024 / 11 + 1);
}

TEST(Hub, PortionsAreSmallForWhoHasNoBody) {
  EXPECT_LE(mostFramesAtOnce(5'000, /*withBody=*/false), 1024 / 11 + 1);
}

TEST(Hub, MoreThanTheMostSessionsAreTurnedAway) {
  LinkSettings settings = anyPort();
  settings.maxSessions = 2;
  Hub hub(settings);
  WireClient a(hub.port());
  WireClient b(hub.port());
  WireClient c(hub.port());
  const Lost lost = serveLoss(hub);
  EXPECT_EQ(lost.id, 3U);
  EXPECT_EQ(lost.why, "more than 2 sessions");
  EXPECT_TRUE(c.isClosedWithin(kLong));
}

TEST(Hub, WhoHasNoBodyMakesRoomOnceItHasHadItsTime) {
  LinkSettings settings = anyPort();
  settings.maxSessions = 2;
  settings.timeToAsk = 50ms;
  Hub hub(settings);
  WireClient player(hub.port());
  player.say("(scene rsg/agent/nao/nao.rsg)");
  serveFrames(hub, 1);
  WireClient idle(hub.port());
  idle.say("(he1 1)");
  serveFrames(hub, 1);
  hub.serveUntil(Clock::now() + 100ms);
  WireClient returning(hub.port());
  const Lost lost = serveLoss(hub);
  EXPECT_EQ(lost.id, 2U);
  EXPECT_EQ(lost.why, "more than 2 sessions, and it has no body");
  EXPECT_TRUE(idle.isClosedWithin(kLong));
  returning.say("(he1 1)");
  EXPECT_EQ(serveFrames(hub, 1).begin()->first, 3U);
  EXPECT_FALSE(player.isClosedWithin(10ms));
}

TEST(Hub, PlayersWithBodiesDontMakeRoom) {
  LinkSettings settings = anyPort();
  settings.maxSessions = 1;
  settings.timeToAsk = 0ms;
  Hub hub(settings);
  WireClient player(hub.port());
  player.say("(scene rsg/agent/nao/nao.rsg)");
  serveFrames(hub, 1);
  WireClient other(hub.port());
  EXPECT_EQ(serveLoss(hub).id, 2U);
  EXPECT_FALSE(player.isClosedWithin(10ms));
}

TEST(Hub, ASessionThatTheMatchClosesIsNotLost) {
  Hub hub(anyPort());
  WireClient client(hub.port());
  client.say("");
  serveFrames(hub, 1);
  hub.close(1);
  EXPECT_TRUE(client.isClosedWithin(kLong));
  EXPECT_TRUE(hub.takeLost().empty());
}

TEST(Hub, BodiesAskedForAreCountedWhileTheirSessionsLive) {
  Hub hub(anyPort());
  WireClient a(hub.port());
  WireClient b(hub.port());
  a.say("(scene rsg/agent/nao/nao.rsg)");
  b.say("(he1 1)");
  serveFrames(hub, 2);
  EXPECT_EQ(hub.bodiesAskedFor(), 1U);
  a.hangUp();
  serveLoss(hub);
  EXPECT_EQ(hub.bodiesAskedFor(), 0U);
}

TEST(Hub, WaitingForAnswersEndsWithTheLastOne) {
  Hub hub(anyPort());
  WireClient a(hub.port());
  WireClient b(hub.port());
  a.say("");
  b.say("");
  serveFrames(hub, 2);
  hub.send(1, "question");
  hub.send(2, "question");
  const auto begin = Clock::now();
  std::thread players([&] {
    a.hear();
    a.say("(he1 1)");
    b.hear();
    b.say("(he1 2)");
  });
  hub.serveUntilAnswered(1ms, begin + kLong);
  players.join();
  EXPECT_LT(Clock::now() - begin, kLong / 2);
  EXPECT_EQ(hub.takeCommands().size(), 2U);
}

TEST(Hub, WaitingForAnswersHasAnEnd) {
  Hub hub(anyPort());
  WireClient client(hub.port());
  client.say("");
  serveFrames(hub, 1);
  hub.send(1, "question");
  const auto deadline = Clock::now() + 50ms;
  hub.serveUntilAnswered(1ms, deadline);
  EXPECT_GE(Clock::now(), deadline);
  EXPECT_TRUE(hub.takeCommands().empty());
}

TEST(Hub, FurtherFramesOfAnAnswerAreWaitedFor) {
  Hub hub(anyPort());
  WireClient client(hub.port());
  client.say("");
  serveFrames(hub, 1);
  hub.send(1, "question");
  std::thread player([&] {
    client.hear();
    client.say("(he1 1)");
    std::this_thread::sleep_for(5ms);
    client.say("(he2 2)");
  });
  hub.serveUntilAnswered(1s, Clock::now() + kLong);
  player.join();
  const auto received = hub.takeCommands();
  ASSERT_EQ(received.size(), 1U);
  EXPECT_EQ(received[0].commands.frames, 2);
}

TEST(Hub, APlayerThatHasLeftOwesNoAnswer) {
  Hub hub(anyPort());
  WireClient client(hub.port());
  client.say("");
  serveFrames(hub, 1);
  hub.send(1, "question");
  client.hangUp();
  const auto begin = Clock::now();
  hub.serveUntilAnswered(1ms, begin + kLong);
  EXPECT_LT(Clock::now() - begin, kLong / 2);
}

TEST(Hub, APortInUseIsSaidInOneLine) {
  Hub hub(anyPort());
  LinkSettings settings;
  settings.port = hub.port();
  try {
    Hub second(settings);
    FAIL() << "two hubs on one port";
  } catch (const LinkError& error) {
    EXPECT_EQ(std::string(error.what()), "can't listen on 127.0.0.1:" + std::to_string(hub.port()) +
                                             ": Address already in use");
  }
}

TEST(Hub, AnAddressThatIsNoneIsSaidInOneLine) {
  LinkSettings settings = anyPort();
  settings.listen = "300.0.0.1";
  try {
    const Hub hub(settings);
    FAIL() << "listening on 300.0.0.1";
  } catch (const LinkError& error) {
    EXPECT_THAT(error.what(), HasSubstr("can't listen on 300.0.0.1:0: "));
  }
}

}  // namespace
}  // namespace arena
