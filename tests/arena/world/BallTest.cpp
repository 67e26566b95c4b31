#include <gtest/gtest.h>

#include "arena/model/FieldTable.h"
#include "tests/arena/world/Run.h"

namespace arena {
namespace {

/// Where the ball comes to rest; fails when it has not within a minute.
double restX(World& world) {
  for (int i = 0; i < 3000; ++i) {
    world.advance();
    if (std::abs(world.ball().velocity[0]) < 0.002) return world.ball().position[0];
  }
  ADD_FAILURE() << "still rolling";
  return 0;
}

class BallAtStep : public testing::TestWithParam<double> {};
INSTANTIATE_TEST_SUITE_P(Steps, BallAtStep, testing::Values(0.002, 0.004, 0.005));

TEST_P(BallAtStep, SetOffAtOneMetrePerSecondWithoutSpinGoesTwoToFourMetres) {
  World world({.stepSeconds = GetParam()});
  world.setBall({-1, 2, kBallRadius}, {1, 0, 0});
  const double way = restX(world) + 1;
  EXPECT_GT(way, 2);
  EXPECT_LT(way, 4);
}

TEST_P(BallAtStep, RollingAtOneMetrePerSecondGoesTwoToFourMetres) {
  World world({.stepSeconds = GetParam()});
  world.setBall({-3, 0, kBallRadius}, {2, 0, 0});
  while (world.ball().velocity[0] > 1) world.advance();
  const BallState ball = world.ball();
  // By now it rolls: its lowest point stands still.
  ASSERT_NEAR(ball.angularVelocity[1] * kBallRadius, ball.velocity[0], 0.02);
  const double way = restX(world) - ball.position[0];
  EXPECT_GT(way, 2);
  EXPECT_LT(way, 4);
}

TEST(Ball, RollsStraight) {
  World world;
  world.setBall({0, 1, kBallRadius}, {0, 3, 0});
  run(world, 2);
  EXPECT_NEAR(world.ball().position[0], 0, 1e-4);
  EXPECT_GT(world.ball().position[1], 4);
}

TEST(Ball, LiesStillWhereItIsPut) {
  World world;
  world.setBall({2, -3, kBallRadius});
  run(world, 10);
  EXPECT_LT(distance(world.ball().position, {2, -3, kBallRadius}), 0.001);
}

TEST(Ball, FallsAsFarAsGravityTakesIt) {
  World world;
  world.setBall({0, 0, 5});
  run(world, 0.5);
  EXPECT_NEAR(world.ball().position[2], 5 - 9.81 * 0.25 / 2, 0.02);
  EXPECT_NEAR(world.ball().velocity[2], -9.81 * 0.5, 1e-9);
}

TEST(Ball, BouncesOffTheGoalPost) {
  World world;
  world.setBall({8, kGoalWidth / 2 + kGoalPostRadius, kBallRadius}, {10, 0, 0});
  run(world, 1);
  EXPECT_LT(world.ball().position[0], 9);
}

TEST(Ball, IsTouchedByTheRobotThatItRunsInto) {
  World world;
  world.addRobot(4, {0, 0, 0});  // looks towards +x, feet 0.055 left and right of its middle
  world.addRobot(7, {0, 3, 0});
  world.setBall({0.3, 0.055, kBallRadius}, {-1, 0, 0});
  world.advance();
  EXPECT_FALSE(world.touchedBall(4));
  bool touched = false;
  for (int i = 0; i < 25 && !touched; ++i) {
    world.advance();
    touched = world.touchedBall(4);
    EXPECT_FALSE(world.touchedBall(7));
  }
  EXPECT_TRUE(touched);
  // A touch lasts as long as the contact, not for ever.
  world.setBall({3, -3, kBallRadius});
  world.advance();
  EXPECT_FALSE(world.touchedBall(4));
}

TEST(Ball, MovesWhenALegSwingsIntoIt) {
  World world;
  world.addRobot(0, {0, 0, 0});
  run(world, 0.2);
  world.setBall({0.105 + kBallRadius + 0.005, -0.055, kBallRadius});
  // The right leg forward, from hip and knee.
  world.setJointSpeed(0, rowOf("rlj3"), 5);
  run(world, 0.4);
  EXPECT_GT(world.ball().position[0], 0.2);
}

}  // namespace
}  // namespace arena
