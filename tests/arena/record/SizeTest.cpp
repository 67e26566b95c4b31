// How much a minute of a match takes: twelve robots in the real world, all moving all the time.

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <iostream>
#include <numbers>

#include "arena/record/Attitude.h"
#include "arena/record/RecordEncoder.h"
#include "arena/record/Recordable.h"
#include "arena/world/World.h"
#include "tests/arena/record/Records.h"

namespace arena {
namespace {

/// Robots that swing all their joints, each at its own beat, fall over and go on swinging.
class Dance {
 public:
  Dance() {
    for (int slot = 0; slot < kMaxRobots; ++slot) {
      world_.addRobot(slot, {-7.0 + 1.2 * slot, slot % 2 == 0 ? -1.0 : 1.0, 30.0 * slot});
    }
    world_.setBall({0, 0, 0.042}, {0.5, 0.2, 0});
  }

  CycleRecord next() {
    ++cycle_;
    for (int slot = 0; slot < kMaxRobots; ++slot) {
      for (std::size_t joint = 0; joint < kJointCount; ++joint) {
        const double beat = 1.0 + 0.07 * static_cast<double>(joint) + 0.05 * slot;  // [1/s]
        const double speed =
            1.5 * std::cos(2 * std::numbers::pi * beat * 0.02 * static_cast<double>(cycle_));
        world_.setJointSpeed(slot, static_cast<int>(joint), speed);
      }
    }
    world_.advance();
    CycleRecord record;
    record.cycle = cycle_;
    record.clock = 0.02 * static_cast<double>(cycle_);
    record.mode = PlayMode::kPlayOn;
    record.ball = world_.ball().position;
    record.ballVelocity = world_.ball().velocity;
    for (int slot = 0; slot < kMaxRobots; ++slot) {
      const RobotState body = world_.robot(slot);
      PlayerRecord player;
      player.session = static_cast<std::uint32_t>(slot) + 1;
      player.slot = slot;
      player.shirt = Shirt{slot < 6 ? Side::kLeft : Side::kRight, slot % 6 + 1};
      player.position = body.torso.position;
      player.attitude = attitudeOf(body.torso.axes);
      player.jointDeg = body.jointAngleDeg;
      // What players say to each other is as good as random.
      if (static_cast<int>(cycle_ % 12) == slot) {
        for (int i = 0; i < 20; ++i) player.said += static_cast<char>('!' + random_() % 90);
        std::erase_if(player.said, [](char c) { return c == '(' || c == ')'; });
      }
      record.players.push_back(player);
    }
    return recordable(record);
  }

 private:
  World world_{};
  long cycle_ = 0;
  test::Random random_{9};
};

TEST(Size, AMinuteOfTwelveMovingPlayersIsUnderTwoMegabytes) {
  constexpr int kSeconds = 20;
  Dance dance;
  RecordEncoder encoder;
  std::size_t bytes = RecordEncoder::begin({}).size();
  std::chrono::nanoseconds inEncoder{};
  for (int cycle = 0; cycle < kSeconds * 50; ++cycle) {
    const CycleRecord record = dance.next();
    const auto before = std::chrono::steady_clock::now();
    bytes += encoder.cycle(record).size();
    inEncoder += std::chrono::steady_clock::now() - before;
  }
  const double perMinute = static_cast<double>(bytes) * 60 / kSeconds;
  std::cout << "a minute: " << perMinute / 1e6
            << " MB; a cycle: " << static_cast<double>(inEncoder.count()) / (kSeconds * 50) / 1000
            << " us\n";
  EXPECT_LT(perMinute, 2e6);
}

}  // namespace
}  // namespace arena
