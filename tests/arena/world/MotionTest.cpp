#include <gtest/gtest.h>

#include <limits>
#include <numbers>
#include <stdexcept>

#include "tests/arena/world/Run.h"

namespace arena {
namespace {

constexpr double kDegPerRad = 180 / std::numbers::pi;

double angle(const World& world, std::string_view perceptor) {
  return world.robot(0).jointAngleDeg[rowOfPerceptor(perceptor)];
}

class LightJoint : public testing::TestWithParam<std::string_view> {};
INSTANTIATE_TEST_SUITE_P(HeadAndArms, LightJoint,
                         testing::Values("hj1", "hj2", "laj1", "raj1", "laj2", "laj3", "raj3",
                                         "raj4"));

TEST_P(LightJoint, MovesHalfARadianInHalfASecondAtOneRadianPerSecond) {
  World world;
  world.addRobot(0, {0, 0, 0});
  run(world, 0.2);
  world.setJointSpeed(0, rowOf(GetParam()), 1);
  run(world, 0.5);
  EXPECT_NEAR(angle(world, GetParam()), 0.5 * kDegPerRad, 0.01 * 0.5 * kDegPerRad);
}

TEST_P(LightJoint, StopsWhereItIsToldToStop) {
  World world;
  world.addRobot(0, {0, 0, 0});
  world.setJointSpeed(0, rowOf(GetParam()), 2);
  run(world, 0.2);
  world.setJointSpeed(0, rowOf(GetParam()), 0);
  run(world, 0.1);
  const double stopped = angle(world, GetParam());
  EXPECT_NEAR(stopped, 0.4 * kDegPerRad, 0.5);
  run(world, 2);
  EXPECT_NEAR(angle(world, GetParam()), stopped, 0.05);
}

TEST(Motion, SpeedIsKeptUntilAnotherOneComes) {
  World world;
  world.addRobot(0, {0, 0, 0});
  world.setJointSpeed(0, rowOf("hj1"), 0.5);
  run(world, 2);
  EXPECT_NEAR(angle(world, "hj1"), kDegPerRad, 0.5);
  world.setJointSpeed(0, rowOf("hj1"), -0.5);
  run(world, 4);
  EXPECT_NEAR(angle(world, "hj1"), -kDegPerRad, 1);
}

TEST(Motion, LastSpeedOfACycleCounts) {
  World world;
  world.addRobot(0, {0, 0, 0});
  world.setJointSpeed(0, rowOf("hj1"), 0);
  world.setJointSpeed(0, rowOf("hj1"), -5);
  world.setJointSpeed(0, rowOf("hj1"), 1);
  run(world, 0.5);
  EXPECT_NEAR(angle(world, "hj1"), 0.5 * kDegPerRad, 0.5);
}

TEST(Motion, SpeedsBeyondSevenAreCut) {
  World world;
  world.addRobot(0, {0, 0, 0});
  world.setJointSpeed(0, rowOf("hj1"), 1000);
  run(world, 0.2);
  const double turned = angle(world, "hj1");
  EXPECT_LT(turned, 7 * 0.2 * kDegPerRad);
  EXPECT_GT(turned, 0.9 * 7 * 0.2 * kDegPerRad);
}

TEST(Motion, ServoSpeedFactorScalesWhatIsCommanded) {
  World world({.servoSpeedFactor = 0.5});
  world.addRobot(0, {0, 0, 0});
  world.setJointSpeed(0, rowOf("hj1"), 1);
  run(world, 1);
  EXPECT_NEAR(angle(world, "hj1"), 0.5 * kDegPerRad, 0.5);
}

TEST(Motion, EveryJointStopsAtBothEndsOfItsRange) {
  for (std::size_t j = 0; j < kJointCount; ++j) {
    for (const double speed : {-7.0, 7.0}) {
      World world;
      world.addRobot(0, {0, 0, 0});
      // High up, so that the ground is not in the way: the range alone stops it.
      world.setTorso(0, {{0, 0, 30}, {1, 0, 0, 0, 1, 0, 0, 0, 1}});
      std::array<double, kJointCount> degrees{};
      degrees[j] = speed > 0 ? kJoints[j].highDeg - 10 : kJoints[j].lowDeg + 10;
      if (degrees[j] < kJoints[j].lowDeg || degrees[j] > kJoints[j].highDeg) degrees[j] = 0;
      // Out of each other's way.
      degrees[rowOfPerceptor("llj2")] += j == rowOfPerceptor("llj2") ? 0 : 20;
      degrees[rowOfPerceptor("rlj2")] -= j == rowOfPerceptor("rlj2") ? 0 : 20;
      world.setJointAngles(0, degrees);
      world.setJointSpeed(0, static_cast<int>(j), speed);
      double furthest = 0;
      for (int i = 0; i < 50; ++i) {
        world.advance();
        furthest = std::max(furthest, world.robot(0).jointAngleDeg[j] * (speed > 0 ? 1 : -1));
      }
      const double end = speed > 0 ? kJoints[j].highDeg : -kJoints[j].lowDeg;
      EXPECT_LT(furthest, end + 1) << kJoints[j].perceptor << " at " << speed;
      EXPECT_GT(furthest, end - 1) << kJoints[j].perceptor << " at " << speed;
    }
  }
}

TEST(Motion, WeakMotorsLetTheRobotSink) {
  World strong;
  World weak({.motorTorqueLimit = 0.1});
  for (World* world : {&strong, &weak}) {
    world->addRobot(0, {0, 0, 0});
    std::array<double, kJointCount> crouched{};
    for (const char* knee : {"llj4", "rlj4"}) crouched[rowOfPerceptor(knee)] = -60;
    for (const char* other : {"llj3", "rlj3", "llj5", "rlj5"}) {
      crouched[rowOfPerceptor(other)] = 30;
    }
    world->setJointAngles(0, crouched);
    run(*world, 2);
  }
  EXPECT_GT(strong.robot(0).torso.position[2], 0.3);
  EXPECT_LT(weak.robot(0).torso.position[2], 0.25);
}

/// Bends and stretches the legs three times in 3 s; where the torso is then.
Vec3 afterKneeBends(double stepSeconds) {
  World world({.stepSeconds = stepSeconds});
  world.addRobot(0, {0, 0, 90});
  const auto bend = [&](double speed) {
    for (const char* hip : {"llj3", "rlj3", "llj5", "rlj5"}) {
      world.setJointSpeed(0, rowOf(hip), speed);
    }
    for (const char* knee : {"llj4", "rlj4"}) world.setJointSpeed(0, rowOf(knee), -2 * speed);
    run(world, 0.5);
  };
  for (int i = 0; i < 3; ++i) {
    bend(0.8);
    EXPECT_LT(world.robot(0).torso.position[2], 0.375);
    bend(-0.8);
  }
  bend(0);
  EXPECT_NEAR(world.robot(0).torso.position[2], 0.38, 0.005);
  return world.robot(0).torso.position;
}

TEST(Motion, ResultOfKneeBendsDoesNotHangOnTheStep) {
  const Vec3 fine = afterKneeBends(0.001);
  EXPECT_LT(distance(afterKneeBends(0.002), fine), 0.003);
  EXPECT_LT(distance(afterKneeBends(0.004), fine), 0.003);
  EXPECT_LT(distance(afterKneeBends(0.005), fine), 0.003);
}

TEST(Motion, BadCommandsAreRefusedAndChangeNothing) {
  World world;
  world.addRobot(0, {0, 0, 0});
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_THROW(world.setJointSpeed(0, 0, nan), std::invalid_argument);
  EXPECT_THROW(world.setJointSpeed(0, 0, std::numeric_limits<double>::infinity()),
               std::invalid_argument);
  EXPECT_THROW(world.setJointSpeed(0, 22, 1), std::invalid_argument);
  EXPECT_THROW(world.setJointSpeed(0, -1, 1), std::invalid_argument);
  EXPECT_THROW(world.setJointSpeed(1, 0, 1), std::invalid_argument);
  EXPECT_THROW(world.beam(0, {nan, 0, 0}), std::invalid_argument);
  EXPECT_THROW(world.setBall({0, 0, nan}), std::invalid_argument);
  World untouched;
  untouched.addRobot(0, {0, 0, 0});
  run(world, 0.1);
  run(untouched, 0.1);
  EXPECT_EQ(world.robot(0).jointAngleDeg, untouched.robot(0).jointAngleDeg);
}

TEST(Motion, StepsThatDoNotDivideTheCycleAreRefused) {
  EXPECT_THROW(World({.stepSeconds = 0.003}), std::invalid_argument);
  EXPECT_THROW(World({.stepSeconds = 0.03}), std::invalid_argument);
  EXPECT_THROW(World({.stepSeconds = 0}), std::invalid_argument);
  EXPECT_THROW(World({.servoSpeedFactor = -1}), std::invalid_argument);
}

}  // namespace
}  // namespace arena
