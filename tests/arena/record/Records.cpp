#include "tests/arena/record/Records.h"

#include <cmath>
#include <limits>

#include "arena/record/RecordEncoder.h"
#include "arena/record/Recordable.h"

namespace arena::test {
namespace {

/// 0 to LAST.
int upTo(Random& random, int last) {
  return static_cast<int>(random() % static_cast<std::uint64_t>(last + 1));
}

bool oneIn(Random& random, int n) {
  return upTo(random, n - 1) == 0;
}

double number(Random& random, double size) {
  if (oneIn(random, 300)) return std::numeric_limits<double>::quiet_NaN();
  if (oneIn(random, 300)) return std::numeric_limits<double>::infinity();
  if (oneIn(random, 100)) return std::ldexp(size, upTo(random, 60));
  return std::uniform_real_distribution<>(-size, size)(random);
}

std::string text(Random& random) {
  std::string text(static_cast<std::size_t>(oneIn(random, 50) ? 1000 : upTo(random, 40)), ' ');
  for (char& c : text) c = static_cast<char>(upTo(random, 255));
  return text;
}

PlayerRecord wildPlayer(Random& random, int slot, std::uint32_t session) {
  PlayerRecord player;
  player.slot = slot;
  player.session = session;
  if (!oneIn(random, 5)) {
    player.shirt = Shirt{oneIn(random, 2) ? Side::kLeft : Side::kRight, 1 + upTo(random, 5)};
  }
  for (double& part : player.position) part = number(random, 10);
  for (double& part : player.attitude) part = number(random, 1);
  for (double& angle : player.jointDeg) angle = number(random, 120);
  player.standing = oneIn(random, 2);
  player.touchedBall = oneIn(random, 2);
  player.fell = oneIn(random, 2);
  player.gotUp = oneIn(random, 2);
  player.moved = oneIn(random, 2);
  player.lateAnswer = oneIn(random, 2);
  if (oneIn(random, 3)) {
    player.beam = Pose{number(random, 10), number(random, 10), number(random, 180)};
  }
  if (oneIn(random, 3)) player.ignoredBeams = upTo(random, 3'000'000) - 1'000'000;
  if (oneIn(random, 3)) player.malformed = upTo(random, 300);
  if (oneIn(random, 2)) player.said = text(random);
  for (int lines = oneIn(random, 5) ? upTo(random, 30) : 0; lines > 0; --lines) {
    player.traced.push_back(text(random));
  }
  return player;
}

}  // namespace

std::vector<CycleRecord> wildMatch(std::uint64_t seed, int cycles) {
  Random random(seed);
  std::vector<CycleRecord> match;
  long cycle = 0;
  for (int i = 0; i < cycles; ++i) {
    CycleRecord record;
    record.cycle = cycle += oneIn(random, 20) ? 1 + upTo(random, 100'000) : 1;
    record.clock = number(random, 600);
    record.half = upTo(random, 3);
    record.mode = static_cast<PlayMode>(upTo(random, 16));
    record.score = {upTo(random, 20), upTo(random, 2'000'000)};
    record.droppedBalls = upTo(random, 5);
    record.finished = oneIn(random, 2);
    for (std::string& name : record.teamNames) {
      if (oneIn(random, 2)) name = text(random);
    }
    for (double& part : record.ball) part = number(random, 10);
    for (double& part : record.ballVelocity) part = number(random, 10);
    // More players than there is room for now and then, and two in a slot.
    for (int players = upTo(random, 14); players > 0; --players) {
      record.players.push_back(
          wildPlayer(random, upTo(random, 13) - 1, static_cast<std::uint32_t>(upTo(random, 20))));
    }
    for (int left = upTo(random, 3); left > 0; --left) {
      record.left.push_back({static_cast<std::uint32_t>(random()), text(random)});
    }
    for (int events = oneIn(random, 50) ? 500 : upTo(random, 3); events > 0; --events) {
      record.events.push_back({number(random, 600), text(random)});
    }
    record.clockSlips = upTo(random, 3) - 1;
    match.push_back(std::move(record));
  }
  return match;
}

std::vector<CycleRecord> smallMatch(int cycles) {
  std::vector<CycleRecord> match;
  for (int i = 1; i <= cycles; ++i) {
    CycleRecord record;
    record.cycle = i;
    record.clock = i * kRecordCycleSeconds;
    record.mode = PlayMode::kPlayOn;
    record.teamNames = {"Foo", ""};
    record.ball = {0.01 * i, 0, 0.042};
    for (std::uint32_t number = 1; number <= 2; ++number) {
      PlayerRecord player;
      player.session = number;
      player.slot = static_cast<int>(number);
      player.shirt = Shirt{Side::kLeft, static_cast<int>(number)};
      player.position = {-1.0 * number, 0.002 * i, 0.38};
      player.jointDeg[3] = 10 * std::sin(0.3 * i);
      if (i % 4 == 0) player.said = "word" + std::to_string(i);
      record.players.push_back(player);
    }
    if (i % 5 == 0) record.events.push_back({record.now(), "left 2 fell"});
    match.push_back(recordable(record));
  }
  return match;
}

std::string fileOf(const std::vector<CycleRecord>& records, bool withEnd) {
  RecordEncoder encoder;
  std::string file = RecordEncoder::begin({{"seed", "7"}});
  for (const CycleRecord& record : records) file += encoder.cycle(record);
  if (withEnd) file += RecordEncoder::end();
  return file;
}

}  // namespace arena::test
