#include <gtest/gtest.h>

#include "tests/arena/world/Run.h"

namespace arena {
namespace {

class StandingAtStep : public testing::TestWithParam<double> {};
INSTANTIATE_TEST_SUITE_P(Steps, StandingAtStep, testing::Values(0.002, 0.004, 0.005));

TEST_P(StandingAtStep, SixtySecondsWithoutDriftOrSag) {
  World world({.stepSeconds = GetParam()});
  world.addRobot(0, {0, 0, 0});
  const Vec3 start = world.robot(0).torso.position;
  double drift = 0;
  double sag = 0;
  for (int i = 0; i < 3000; ++i) {
    world.advance();
    const RobotState robot = world.robot(0);
    drift = std::max(drift, distance(robot.torso.position, start));
    for (const double degrees : robot.jointAngleDeg) sag = std::max(sag, std::abs(degrees));
    ASSERT_NEAR(robot.torso.position[2], 0.385, 0.01);
  }
  EXPECT_LT(drift, 0.001);
  EXPECT_LT(sag, 0.1);
}

TEST_P(StandingAtStep, NeverReadsAsAFall) {
  World world({.stepSeconds = GetParam()});
  world.addRobot(0, {0, 0, 0});
  for (int i = 0; i < 3000; ++i) {
    world.advance();
    const Vec3 felt = world.robot(0).accelerometer;
    ASSERT_NEAR(felt[0], 0, 0.2);
    ASSERT_NEAR(felt[1], 0, 0.2);
    ASSERT_NEAR(felt[2], 9.81, 0.2);
  }
}

TEST_P(StandingAtStep, HoldsACrouchToo) {
  World world({.stepSeconds = GetParam()});
  world.addRobot(0, {0, 0, 0});
  const auto bend = [&](double speed) {
    for (const char* joint : {"llj3", "rlj3", "llj5", "rlj5"}) {
      world.setJointSpeed(0, rowOf(joint), speed);
    }
    for (const char* joint : {"llj4", "rlj4"}) world.setJointSpeed(0, rowOf(joint), -2 * speed);
  };
  bend(0.5);
  run(world, 1);
  bend(0);
  run(world, 1);
  const RobotState before = world.robot(0);
  ASSERT_GT(before.torso.position[2], 0.3);
  run(world, 30);
  const RobotState after = world.robot(0);
  EXPECT_LT(distance(before.torso.position, after.torso.position), 0.001);
  for (std::size_t j = 0; j < kJointCount; ++j) {
    EXPECT_NEAR(before.jointAngleDeg[j], after.jointAngleDeg[j], 0.05);
  }
}

}  // namespace
}  // namespace arena
