#include "bench/StubPlayers.h"

#include <stdexcept>

#include "arena/model/BodyTable.h"
#include "tests/arena/link/WireClient.h"

namespace bench {
namespace {

/// Messages in which it takes its place; the wait before the kick-off is longer.
constexpr int kBeaming = 40;
constexpr int kBetweenWords = 3;

/// A joint command for each joint; the arms and the head move, to and fro.
std::string commands(bool forth) {
  std::string text;
  for (const arena::JointRow& row : arena::kJoints) {
    const bool moves = row.effector == "he1" || row.effector == "lae1" || row.effector == "rae1";
    const std::string speed = moves ? (forth ? "0.5" : "-0.5") : "0";
    text += "(" + std::string(row.effector) + " " + speed + ")";
  }
  return text;
}

void play(std::uint16_t port, int player) {
  const std::string forth = commands(true);
  const std::string back = commands(false);
  const StubPlace place = stubPlace(player);
  const std::string beam =
      "(beam " + std::to_string(place.x) + " " + std::to_string(place.y) + " 0)";
  try {
    arena::test::WireClient client(port);
    client.say("(scene rsg/agent/nao/nao.rsg)(init (unum " + std::to_string(player % 6 + 1) +
               ")(teamname " + (player < 6 ? "Near" : "Far") + "))");
    for (int i = 0; client.hear(); ++i) {
      std::string answer = i / 25 % 2 == 0 ? forth : back;
      if (i < kBeaming) answer += beam;
      if (i % kBetweenWords == 0) answer += "(say aBcDeFgHiJkLmNoPqRsT)";
      client.say(answer);
    }
  } catch (const std::runtime_error&) {
    // The match ended between a message and its answer.
  }
}

}  // namespace

StubPlace stubPlace(int player) {
  const int number = player % 6;
  const int row = number / 3;
  return {-2.0 - 1.5 * row, 2.0 * (number % 3) - 2.0};
}

StubPlayers::StubPlayers(std::uint16_t port, int count) {
  for (int player = 0; player < count; ++player) players_.emplace_back(play, port, player);
}

StubPlayers::~StubPlayers() {
  for (std::thread& player : players_) player.join();
}

}  // namespace bench
