// Robots that come, go, are moved, and never mind each other.

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <stdexcept>
#include <vector>

#include "arena/model/FieldTable.h"
#include "tests/arena/world/Run.h"

namespace arena {
namespace {

/// New speeds for all joints of the robots in SLOTS.
void flail(World& world, std::initializer_list<int> slots, std::mt19937& random, double fastest) {
  std::uniform_real_distribution<double> speed(-fastest, fastest);
  for (const int slot : slots) {
    for (int j = 0; j < static_cast<int>(kJointCount); ++j) {
      world.setJointSpeed(slot, j, speed(random));
    }
  }
}

bool sameBits(const RobotState& a, const RobotState& b) {
  const auto same = [](const auto& x, const auto& y) {
    return std::equal(x.begin(), x.end(), y.begin(), [](double p, double q) {
      return std::bit_cast<std::uint64_t>(p) == std::bit_cast<std::uint64_t>(q);
    });
  };
  return same(a.torso.position, b.torso.position) && same(a.torso.axes, b.torso.axes) &&
         same(a.torsoVelocity, b.torsoVelocity) && same(a.jointAngleDeg, b.jointAngleDeg) &&
         same(a.gyroDegPerSec, b.gyroDegPerSec) && same(a.accelerometer, b.accelerometer) &&
         same(a.leftFoot.force, b.leftFoot.force) && same(a.rightFoot.centre, b.rightFoot.centre);
}

TEST(Robots, EqualCallsGiveStatesEqualToTheLastBit) {
  World first;
  World second;
  for (World* world : {&first, &second}) {
    std::mt19937 random(11);
    world->addRobot(3, {0, 0, 10});
    world->addRobot(0, {0.3, 0.1, 200});
    world->setBall({0.2, 0, kBallRadius}, {0.5, 0, 0});
    for (int i = 0; i < 100; ++i) {
      if (i % 5 == 0) flail(*world, {0, 3}, random, 7);
      if (i == 50) world->addRobot(5, {0, 0.5, 0});
      if (i == 70) world->removeRobot(0);
      if (i == 70) world->addRobot(0, {1, 1, 0});
      world->advance();
    }
  }
  for (const int slot : {0, 3, 5}) EXPECT_TRUE(sameBits(first.robot(slot), second.robot(slot)));
  EXPECT_EQ(first.ball().position, second.ball().position);
}

TEST(Robots, TwoWorldsInOneProcessDoNotKnowOfEachOther) {
  World alone;
  alone.addRobot(0, {0, 0, 0});
  std::mt19937 random(5);
  for (int i = 0; i < 50; ++i) {
    flail(alone, {0}, random, 3);
    alone.advance();
  }
  // The same again, beside a world where other things happen in between.
  World again;
  World other({.stepSeconds = 0.002, .groundFriction = 0.3});
  again.addRobot(0, {0, 0, 0});
  other.addRobot(0, {0, 0, 0});
  other.addRobot(1, {0.2, 0, 0});
  random.seed(5);
  std::mt19937 otherRandom(6);
  for (int i = 0; i < 50; ++i) {
    flail(again, {0}, random, 3);
    flail(other, {0, 1}, otherRandom, 7);
    again.advance();
    other.advance();
  }
  EXPECT_TRUE(sameBits(alone.robot(0), again.robot(0)));
}

TEST(Robots, OthersPlayOnUndisturbedWhileRobotsComeAndGo) {
  World quiet;
  World busy;
  for (World* world : {&quiet, &busy}) {
    world->addRobot(2, {0, 0, 0});
    world->setBall({3, 0, kBallRadius}, {0, 1, 0});
  }
  std::mt19937 random(1);
  std::mt19937 sameRandom(1);
  for (int i = 0; i < 50; ++i) {
    flail(quiet, {2}, random, 1);
    flail(busy, {2}, sameRandom, 1);
    if (i == 10) busy.addRobot(0, {-4, 4, 0});
    if (i == 20) busy.addRobot(11, {4, 4, 0});
    if (i == 30) busy.removeRobot(0);
    quiet.advance();
    busy.advance();
  }
  // Not to the last bit: the solver's iterations end when all robots together are solved.
  const RobotState a = quiet.robot(2);
  const RobotState b = busy.robot(2);
  EXPECT_LT(distance(a.torso.position, b.torso.position), 1e-6);
  for (std::size_t j = 0; j < kJointCount; ++j) {
    EXPECT_NEAR(a.jointAngleDeg[j], b.jointAngleDeg[j], 1e-4);
  }
  EXPECT_LT(distance(quiet.ball().position, busy.ball().position), 1e-6);
  EXPECT_NEAR(quiet.time(), busy.time(), 1e-12);
}

TEST(Robots, StateIsTheSameRightBeforeAndAfterAnotherOneComes) {
  World world;
  world.addRobot(6, {0, 0, 0});
  std::mt19937 random(2);
  flail(world, {6}, random, 3);
  run(world, 0.3);
  const RobotState before = world.robot(6);
  world.addRobot(1, {2, 2, 0});
  EXPECT_TRUE(sameBits(before, world.robot(6)));
  world.removeRobot(1);
  EXPECT_TRUE(sameBits(before, world.robot(6)));
}

TEST(Robots, CommandedSpeedsSurviveTheComingOfAnother) {
  World world;
  world.addRobot(6, {0, 0, 0});
  world.setJointSpeed(6, rowOf("hj1"), 1);
  world.addRobot(1, {2, 2, 0});
  run(world, 0.5);
  EXPECT_GT(world.robot(6).jointAngleDeg[0], 28);
  EXPECT_NEAR(world.robot(1).jointAngleDeg[0], 0, 0.1);
}

TEST(Robots, TwelveFindRoomAndAThirteenthDoesNot) {
  World world;
  for (int slot = 0; slot < kMaxRobots; ++slot) {
    EXPECT_FALSE(world.hasRobot(slot));
    world.addRobot(slot, {slot - 6.0, 0, 0});
    EXPECT_TRUE(world.hasRobot(slot));
  }
  EXPECT_THROW(world.addRobot(12, {}), std::invalid_argument);
  EXPECT_THROW(world.addRobot(-1, {}), std::invalid_argument);
  EXPECT_THROW(world.addRobot(4, {}), std::invalid_argument);
  run(world, 0.1);
  for (int slot = 0; slot < kMaxRobots; ++slot) {
    EXPECT_NEAR(world.robot(slot).torso.position[0], slot - 6.0, 0.01);
  }
}

TEST(Robots, SeveralAtOnceAreLikeOneAfterTheOther) {
  const std::vector<Arrival> arrivals{{7, {0.3, 0, 90}}, {2, {0, 0.3, 0}}, {11, {-1, 0, 45}}};
  World together;
  World oneByOne;
  for (World* world : {&together, &oneByOne}) {
    world->addRobot(4, {1, 1, 0});
    run(*world, 10);
  }
  together.addRobots(arrivals);
  for (const auto& [slot, pose] : arrivals) oneByOne.addRobot(slot, pose);
  for (World* world : {&together, &oneByOne}) {
    std::mt19937 random(7);
    flail(*world, {2, 4, 7, 11}, random, 7);
    run(*world, 30);
  }
  for (const int slot : {2, 4, 7, 11}) {
    EXPECT_TRUE(sameBits(together.robot(slot), oneByOne.robot(slot))) << slot;
  }
}

TEST(Robots, OfSeveralAtOnceNoneComesIfOneCant) {
  World world;
  world.addRobot(4, {1, 1, 0});
  EXPECT_THROW(world.addRobots({{1, {}}, {4, {}}}), std::invalid_argument);
  EXPECT_THROW(world.addRobots({{1, {}}, {1, {3, 0, 0}}}), std::invalid_argument);
  EXPECT_THROW(world.addRobots({{1, {}}, {2, {std::nan(""), 0, 0}}}), std::invalid_argument);
  world.addRobots({});
  for (const int slot : {1, 2}) EXPECT_FALSE(world.hasRobot(slot)) << slot;
  EXPECT_TRUE(world.hasRobot(4));
}

TEST(Robots, EmptySlotsAreRefusedExceptForRemoval) {
  World world;
  world.removeRobot(3);
  EXPECT_FALSE(world.hasRobot(3));
  EXPECT_THROW((void)world.robot(3), std::invalid_argument);
  EXPECT_THROW(world.beam(3, {}), std::invalid_argument);
  EXPECT_THROW((void)world.touchedBall(3), std::invalid_argument);
  EXPECT_THROW(world.setJointAngles(3, {}), std::invalid_argument);
  EXPECT_THROW(world.setTorso(3, {}), std::invalid_argument);
}

TEST(Robots, BeamedRobotStandsStraightAtRestAndKeepsStill) {
  World world;
  world.addRobot(0, {0, 0, 0});
  std::mt19937 random(3);
  flail(world, {0}, random, 7);
  run(world, 1);
  world.beam(0, {-3, 2, 135});
  RobotState robot = world.robot(0);
  EXPECT_LT(distance(robot.torso.position, {-3, 2, 0.385}), 0.01);
  // Forward is the second axis: 135 degrees from +x towards +y.
  EXPECT_NEAR(robot.torso.axes[1], -std::sqrt(0.5), 1e-12);
  EXPECT_NEAR(robot.torso.axes[4], std::sqrt(0.5), 1e-12);
  EXPECT_NEAR(robot.torso.axes[8], 1, 1e-12);
  for (const double degrees : robot.jointAngleDeg) EXPECT_EQ(degrees, 0);
  EXPECT_EQ(robot.torsoVelocity, (Vec3{0, 0, 0}));
  EXPECT_EQ(robot.accelerometer, (Vec3{0, 0, 9.81}));
  double highest = 0;
  for (int i = 0; i < 100; ++i) {
    world.advance();
    highest = std::max(highest, world.robot(0).torso.position[2]);
  }
  robot = world.robot(0);
  EXPECT_LT(highest, 0.3801);
  EXPECT_LT(distance(robot.torso.position, {-3, 2, 0.38}), 0.002);
  for (const double degrees : robot.jointAngleDeg) EXPECT_NEAR(degrees, 0, 0.1);
}

TEST(Robots, BeamedIntoEachOtherPartWithoutHarm) {
  World world;
  for (int slot = 0; slot < 4; ++slot) world.addRobot(slot, {0.02 * slot, 0, 40.0 * slot});
  run(world, 3);
  for (int slot = 0; slot < 4; ++slot) {
    const Vec3 place = world.robot(slot).torso.position;
    EXPECT_LT(std::hypot(place[0], place[1]), 3);
    EXPECT_GT(place[2], 0);
    EXPECT_LT(place[2], 0.6);
  }
}

TEST(Robots, ModelsMadeAheadChangeNothing) {
  World prepared;
  prepared.prepareModels(3);
  World plain;
  for (World* world : {&prepared, &plain}) {
    std::mt19937 random(5);
    world->addRobot(0, {0, 0, 0});
    world->addRobot(1, {0.3, 0, 180});
    flail(*world, {0, 1}, random, 5);
    run(*world, 0.2);
    world->removeRobot(0);
    world->addRobot(4, {-1, 0, 90});
    world->addRobot(5, {-2, 0, 90});
    world->addRobot(6, {-3, 0, 90});  // more than was prepared for
    run(*world, 0.2);
  }
  for (const int slot : {1, 4, 5, 6})
    EXPECT_TRUE(sameBits(prepared.robot(slot), plain.robot(slot)));
}

TEST(Robots, TimeRunsInCycles) {
  World world;
  EXPECT_EQ(world.time(), 0);
  run(world, 1);
  EXPECT_NEAR(world.time(), 1, 1e-9);
}

TEST(Robots, MovedWorldGoesOn) {
  World world;
  world.addRobot(0, {0, 0, 0});
  run(world, 0.1);
  World moved = std::move(world);
  run(moved, 0.1);
  EXPECT_NEAR(moved.time(), 0.2, 1e-9);
  EXPECT_TRUE(moved.hasRobot(0));
}

}  // namespace
}  // namespace arena
