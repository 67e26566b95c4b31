// Players that send nonsense, beside one that plays: whatever they do, its messages are those of a
// match in which it is alone.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <system_error>

#include "tests/arena/main/RunningServer.h"

namespace arena {
namespace {

using namespace std::chrono_literals;
using test::playScript;
using test::rowOf;
using test::RunningServer;
using test::WireClient;

constexpr std::string_view kSceneMessage = "(scene rsg/agent/nao/nao.rsg)";

ServerSettings aMatch(std::chrono::milliseconds patience) {
  ServerSettings settings;
  settings.pace.speed = 0;
  settings.pace.patience = patience;
  settings.match.referee.waitSeconds = 0.6;
  settings.match.referee.halfSeconds = 1.5;
  return settings;
}

std::string goodAnswer(int n) {
  if (n < 10) return "(beam -3 0.5 10)";
  return n % 40 < 20 ? "(he1 2)(lae1 1)" : "(he1 -2)(lae1 -1)";
}

std::string randomBytes(std::mt19937& random, std::size_t count) {
  std::string bytes(count, '\0');
  for (char& c : bytes) c = static_cast<char>(random() % 256);
  return bytes;
}

/// A balanced frame of effectors right and wrong; never an init that could be granted, since a
/// player with a shirt may be seen.
std::string someEffectors(std::mt19937& random) {
  constexpr std::array<std::string_view, 14> kPieces{"(he1 3)",
                                                     "(lle3 -7)",
                                                     "(rle3 7)",
                                                     "(he1 nan)",
                                                     "(lle4 1e999)",
                                                     "(beam 0 0 0)",
                                                     "(beam -3 0.5 0)",
                                                     "(beam nan nan nan)",
                                                     "(say )(say (x))",
                                                     "(init (unum 9)(teamname Foo))",
                                                     "(init (unum )(teamname Foo))",
                                                     "(unknown)",
                                                     "loose",
                                                     "(scene rsg/agent/nao/nao.rsg)"};
  std::string frame;
  for (auto count = random() % 10; count > 0; --count) frame += kPieces[random() % kPieces.size()];
  return frame;
}

/// One bad player from connection to end.
void misbehave(std::uint16_t port, std::mt19937& random) {
  WireClient client(port);
  switch (random() % 7) {
    case 0:
      client.sendRaw(randomBytes(random, 1 + random() % 2000));
      break;
    case 1:
      client.sendRaw(std::string("\x7f\xff\xff\xff", 4) + randomBytes(random, 100));
      break;
    case 2:
      client.say("(he1 1");
      break;
    case 3:
      client.sendRaw(std::string("\0\0\1\0(he1", 8));  // and leaves in the middle of it
      break;
    case 4:
      client.say(std::string(8000, '(') + std::string(8000, ')'));
      break;
    case 5:
      client.say(kSceneMessage);
      for (int i = 0; i < 5; ++i) client.say(someEffectors(random));
      break;
    default:
      client.say(kSceneMessage);
      client.hear();
      for (int i = 0; i < 3; ++i) client.say(someEffectors(random));
      client.sendRaw(randomBytes(random, random() % 50));
      break;
  }
  if (random() % 2 == 0) client.isClosedWithin(std::chrono::milliseconds(random() % 30));
}

struct Outcome {
  std::vector<std::string> messages;
  Summary summary;
  std::size_t dropped = 0;
};

Outcome play(bool withGarbage, unsigned seed, std::chrono::milliseconds patience) {
  Outcome outcome;
  RunningServer server(aMatch(patience));
  WireClient good(server.port());
  std::atomic<bool> over{false};
  std::thread garbage([&] {
    std::mt19937 random(seed);
    while (withGarbage && !over) {
      try {
        misbehave(server.port(), random);
      } catch (const std::runtime_error&) {
        // Thrown out in mid-sentence: what should happen to it.
      }
    }
  });
  outcome.messages = playScript(good, 1, "Foo", goodAnswer);
  over = true;
  garbage.join();
  outcome.summary = server.finish();
  for (const std::string& line : server.lines()) {
    outcome.dropped +=
        line.find("dropped: ") != std::string::npos || line.find("refused: ") != std::string::npos;
  }
  return outcome;
}

/// A match in which the good player was never late: where a busy machine made it so, its commands
/// weren't those of the script.
Outcome playInTime(bool withGarbage, unsigned seed) {
  for (const auto patience : {30ms, 60ms, 120ms, 240ms}) {
    Outcome outcome = play(withGarbage, seed, patience);
    if (rowOf(outcome.summary, "left 1").lateAnswers == 0) return outcome;
  }
  ADD_FAILURE() << "this machine is too busy: the good player was late in every match";
  return {};
}

class Garbage : public testing::TestWithParam<unsigned> {};

TEST_P(Garbage, BesideAPlayerChangesNothingForIt) {
  const Outcome alone = playInTime(false, 0);
  const Outcome beside = playInTime(true, GetParam());
  ASSERT_GT(alone.messages.size(), 100U);
  EXPECT_GT(beside.dropped, 5U) << "too little garbage to say anything";
  EXPECT_EQ(beside.messages, alone.messages);
  EXPECT_EQ(rowOf(beside.summary, "left 1").malformed, 0);
  EXPECT_EQ(rowOf(beside.summary, "left 1").falls, 0);
  EXPECT_EQ(rowOf(beside.summary, "left 1").beams, 9);
}

INSTANTIATE_TEST_SUITE_P(Seeds, Garbage, testing::Values(1U, 2U, 3U));

}  // namespace
}  // namespace arena
