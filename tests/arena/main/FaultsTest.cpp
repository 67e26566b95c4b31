// What a bad session may do, over real sockets, beside a player that plays: it is ended with a line
// that says why, and the player's messages come on, cycle by cycle.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tests/arena/main/RunningServer.h"

namespace arena {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using test::rowOf;
using test::RunningServer;
using test::WireClient;
using testing::AllOf;
using testing::Contains;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

constexpr auto kLong = 20s;  ///< only ever waited out by a test that fails
const std::string kBody = "(scene rsg/agent/nao/nao.rsg)";

std::string init(int number, const std::string& team) {
  return "(init (unum " + std::to_string(number) + ")(teamname " + team + "))";
}

/// A match that never gets out of its waiting time, at TIMES real time.
ServerSettings longWait(double times = 4) {
  ServerSettings settings;
  settings.pace.speed = times;
  settings.match.referee.waitSeconds = 10'000;
  return settings;
}

/// [s] what "(time (now 12.34))" at the front of a message says.
double timeOf(const std::string& message) {
  const std::string begin = "(time (now ";
  return message.starts_with(begin) ? std::strtod(message.c_str() + begin.size(), nullptr) : -1;
}

/// A player who plays in a thread of its own and checks that no message is missing.
class GoodPlayer {
 public:
  GoodPlayer(std::uint16_t port, int number, const std::string& team) : client_(port) {
    client_.say(kBody + init(number, team));
    last_ = timeOf(client_.hear().value_or(""));
    thread_ = std::thread([this] { play(); });
  }
  ~GoodPlayer() { leave(); }
  GoodPlayer(const GoodPlayer&) = delete;
  GoodPlayer& operator=(const GoodPlayer&) = delete;

  /// Waits until COUNT messages more have come.
  void playOn(int count) const {
    const int end = heard_ + count;
    while (heard_ < end && !closed_) std::this_thread::yield();
  }
  /// Stops playing. Messages that came and how many of them weren't one cycle behind the last.
  void leave() {
    leaving_ = true;
    if (thread_.joinable()) thread_.join();
  }
  [[nodiscard]] int heard() const { return heard_; }
  [[nodiscard]] int gaps() const { return gaps_; }
  [[nodiscard]] bool closed() const { return closed_; }

 private:
  void play() {
    try {
      while (!leaving_) {
        client_.say("(he1 0.5)");
        const auto message = client_.hear();
        if (!message) break;
        const double now = timeOf(*message);
        if (std::abs(now - last_ - 0.02) > 0.001) ++gaps_;
        last_ = now;
        ++heard_;
      }
    } catch (const std::exception&) {
      closed_ = true;
    }
    closed_ = closed_ || !leaving_;
  }

  WireClient client_;
  double last_ = 0;
  std::atomic<bool> leaving_{false};
  std::atomic<bool> closed_{false};
  std::atomic<int> heard_{0};
  std::atomic<int> gaps_{0};
  std::thread thread_{};
};

/// Lets MISBEHAVE do its worst beside a good player, and ends the match. What was said then.
std::vector<std::string> beside(const ServerSettings& settings,
                                const std::function<void(std::uint16_t)>& misbehave,
                                Summary* summary = nullptr) {
  RunningServer server(settings);
  GoodPlayer good(server.port(), 1, "Foo");
  misbehave(server.port());
  good.playOn(20);
  EXPECT_FALSE(good.closed());
  EXPECT_EQ(good.gaps(), 0);
  good.leave();
  const Summary end = server.finish(/*stop=*/true);
  if (summary != nullptr) *summary = end;
  return server.lines();
}

/// A peer that ends itself by what it does, and the reason that is told.
struct BadPeer {
  std::string name;
  std::function<void(WireClient&)> misbehave;
  std::string why;
};

class BadSession : public testing::TestWithParam<BadPeer> {};

TEST_P(BadSession, EndsWithALineAndTheOthersPlayOn) {
  const auto lines = beside(longWait(), [](std::uint16_t port) {
    WireClient bad(port);
    GetParam().misbehave(bad);
    EXPECT_TRUE(bad.isClosedWithin(kLong));
  });
  EXPECT_THAT(lines, Contains(EndsWith(" s  session 2 dropped: " + GetParam().why)));
}

/// The same with a body and a shirt: its robot leaves the field, the shirt is free again.
TEST_P(BadSession, TakesItsRobotAlong) {
  Summary summary;
  const auto lines = beside(
      longWait(),
      [](std::uint16_t port) {
        {
          WireClient bad(port);
          bad.say(kBody + init(2, "Foo"));
          ASSERT_TRUE(bad.hear());
          GetParam().misbehave(bad);
          EXPECT_TRUE(bad.isClosedWithin(kLong));
        }
        WireClient next(port);
        next.say(kBody + init(2, "Foo"));
        while (next.hear().value_or("(unum 2)").find("(unum 2)") == std::string::npos) continue;
      },
      &summary);
  EXPECT_THAT(lines, Contains(EndsWith(" s  left 2 dropped: " + GetParam().why)));
  int twos = 0;
  for (const PlayerSummary& player : summary.players) twos += player.name == "left 2" ? 1 : 0;
  EXPECT_EQ(twos, 2);
}

INSTANTIATE_TEST_SUITE_P(
    Peers, BadSession,
    testing::Values(
        BadPeer{"Garbage",
                [](WireClient& bad) { bad.sendRaw("GET / HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n"); },
                // "GET " as a length: 0x47455420
                "a frame of 1195725856 bytes, over the limit of 16380"},
        BadPeer{"OverTheLimit",
                [](WireClient& bad) { bad.sendRaw("\0\0\x3f\xfd"s + std::string(16381, ' ')); },
                "a frame of 16381 bytes, over the limit of 16380"},
        BadPeer{"HalfFrame",
                [](WireClient& bad) {
                  bad.sendRaw("\0\0\1\0(he1 1)"s);
                  bad.hangUp();
                },
                "the player closed the connection"},
        BadPeer{"BrokenFrame", [](WireClient& bad) { bad.say("(he1 1))"); },
                "a broken frame: parentheses don't match"},
        BadPeer{"Vanishing", [](WireClient& bad) { bad.reset(); },
                "the connection broke: Connection reset by peer"}),
    [](const auto& row) { return row.param.name; });

class SilentPeer : public testing::TestWithParam<std::string> {};

TEST_P(SilentPeer, IsEndedAfterTheSpanThatIsSet) {
  ServerSettings settings = longWait();
  settings.link.silence = 600ms;
  const auto lines = beside(settings, [](std::uint16_t port) {
    WireClient silent(port);
    silent.sendRaw(GetParam());
    EXPECT_TRUE(silent.isClosedWithin(kLong));
  });
  EXPECT_THAT(lines, Contains(HasSubstr(" dropped: silent for 600 ms")));
}

INSTANTIATE_TEST_SUITE_P(Peers, SilentPeer,
                         testing::Values("", "\0\0"s, "\0\0\1\0(he1 "s,
                                         "\0\0\0\x1d(scene rsg/agent/nao/nao.rsg)"s));

/// It goes on talking, so only what waits for it tells.
TEST(Faults, AReaderThatStopsReadingIsCutOff) {
  ServerSettings settings = longWait(0);
  settings.pace.patience = 200ms;
  settings.pace.settle = 100us;
  const auto lines = beside(settings, [](std::uint16_t port) {
    WireClient bad(port, /*noDelay=*/true, /*receiveBytes=*/65536);
    bad.say(kBody + init(2, "Foo"));
    while (bad.sendRaw("\0\0\0\7(he1 1)"s)) std::this_thread::sleep_for(100us);
  });
  const auto line = std::find_if(lines.begin(), lines.end(), [](const std::string& one) {
    return one.find("left 2 dropped: a slow reader: ") != std::string::npos;
  });
  ASSERT_NE(line, lines.end()) << testing::PrintToString(lines);
  const long waited = std::strtol(line->c_str() + line->find("reader: ") + 8, nullptr, 10);
  EXPECT_GT(waited, 1024 * 1024);
  EXPECT_LE(waited, 1024 * 1024 + 16384);
}

TEST(Faults, OfAHundredConnectionsAtOnceSixtyFourStay) {
  ServerSettings settings = longWait();
  settings.link.timeToAsk = kLong;
  const auto lines = beside(settings, [](std::uint16_t port) {
    std::vector<std::unique_ptr<WireClient>> crowd;
    for (int i = 0; i < 100; ++i) crowd.push_back(std::make_unique<WireClient>(port));
    EXPECT_TRUE(crowd.back()->isClosedWithin(kLong));
    EXPECT_FALSE(crowd.front()->isClosedWithin(10ms));
  });
  // One of the 64 is the good player.
  EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                          [](const std::string& line) {
                            return line.ends_with(" dropped: more than 64 sessions");
                          }),
            100 - 63);
}

/// One that asks for what it can't have, after WHO has come in, and what is told.
struct Unwelcome {
  std::string name;
  std::vector<std::pair<int, std::string>> who;  ///< number and team, one behind the other
  int number;
  std::string team;
  std::string why;
};

class Refused : public testing::TestWithParam<Unwelcome> {};

TEST_P(Refused, WithALineAndTheOthersPlayOn) {
  const auto lines = beside(longWait(), [](std::uint16_t port) {
    std::vector<std::unique_ptr<WireClient>> others;
    for (const auto& [number, team] : GetParam().who) {
      others.push_back(std::make_unique<WireClient>(port));
      others.back()->say(kBody + init(number, team));
      ASSERT_TRUE(others.back()->hear());
    }
    WireClient unwelcome(port);
    unwelcome.say(kBody + init(GetParam().number, GetParam().team));
    EXPECT_TRUE(unwelcome.isClosedWithin(kLong));
    for (auto& other : others) EXPECT_FALSE(other->isClosedWithin(10ms));
  });
  EXPECT_THAT(lines, Contains(HasSubstr(" refused: " + GetParam().why)));
}

INSTANTIATE_TEST_SUITE_P(
    Players, Refused,
    testing::Values(
        // left 1 of Foo is the good player
        Unwelcome{"ThirdTeam", {{1, "Bar"}}, 1, "Baz", "a third team, Baz"},
        Unwelcome{"SeventhShirt", {}, 7, "Foo", "shirt number 7 is outside 1 to 6"},
        Unwelcome{"ShirtZero", {}, 0, "Foo", "shirt number 0 is outside 1 to 6"},
        Unwelcome{"NegativeShirt", {}, -3, "Foo", "shirt number -3 is outside 1 to 6"},
        Unwelcome{"TakenOnBothSides", {{1, "Foo"}}, 1, "Foo", "number 1 of Foo is already playing"},
        Unwelcome{"SeventhPlayer",
                  {{2, "Foo"}, {3, "Foo"}, {4, "Foo"}, {5, "Foo"}, {6, "Foo"}, {1, "Bar"}},
                  6,
                  "Foo",
                  "number 6 of Foo is already playing"},
        Unwelcome{"ThirteenthBody",
                  {{2, "Foo"},
                   {3, "Foo"},
                   {4, "Foo"},
                   {5, "Foo"},
                   {6, "Foo"},
                   {1, "Bar"},
                   {2, "Bar"},
                   {3, "Bar"},
                   {4, "Bar"},
                   {5, "Bar"},
                   {6, "Bar"}},
                  1,
                  "Foo",
                  "the field is full, 12 robots"}),
    [](const auto& row) { return row.param.name; });

TEST(Faults, NumbersThatAreNoneAreSkippedAndCounted) {
  Summary summary;
  beside(
      longWait(),
      [](std::uint16_t port) {
        WireClient bad(port);
        bad.say(kBody + init(2, "Foo"));
        ASSERT_TRUE(bad.hear());
        bad.say("(he1 nan)(he2 inf)(lle3 -inf)(lle4 1e999)(beam nan 0 0)(beam 0 0 inf)(lae1 1)");
        for (int i = 0; i < 20; ++i) {
          const std::string message = bad.hear().value_or("nan");
          EXPECT_THAT(message, AllOf(Not(HasSubstr("nan")), Not(HasSubstr("inf"))));
        }
      },
      &summary);
  EXPECT_EQ(rowOf(summary, "left 2").malformed, 6);
  EXPECT_EQ(rowOf(summary, "left 2").falls, 0);
}

/// Fifty sessions that send as much as they can, two of them with bodies. By processor time, so
/// that a busy machine doesn't decide.
TEST(Faults, AFloodCostsNoCycleItsTime) {
  ServerSettings settings = longWait(1);
  RunningServer server(settings);
  GoodPlayer good(server.port(), 1, "Foo");
  std::string flood;
  while (flood.size() < 60'000) flood += "\0\0\0\x16(he1 1.25)(lae3 -0.5)"s;
  std::atomic<bool> over{false};
  std::thread bad([&] {
    std::vector<std::unique_ptr<WireClient>> crowd;
    for (int i = 0; i < 50; ++i) {
      crowd.push_back(std::make_unique<WireClient>(server.port()));
      if (i < 2) crowd.back()->say(kBody);
    }
    while (!over) {
      for (auto& one : crowd) one->offer(flood);
      std::this_thread::sleep_for(1ms);
    }
  });
  good.playOn(75);
  over = true;
  bad.join();
  good.leave();
  EXPECT_FALSE(good.closed());
  EXPECT_EQ(good.gaps(), 0);
  server.finish(/*stop=*/true);
  EXPECT_EQ(server.pace().lateByOwnFault, 0);
  EXPECT_GT(server.pace().cycles, 70);
}

}  // namespace
}  // namespace arena
