// Moving a robot as it is, and asking what the ball lies in.

#include <gtest/gtest.h>

#include <limits>

#include "tests/arena/world/Run.h"

namespace arena {
namespace {

TEST(Shift, MovesTheWholeRobotAlongTheGroundAndNothingElse) {
  World world;
  world.addRobot(0, {1, 1, 30});
  world.addRobot(1, {-1, 1, 0});
  world.setJointSpeed(0, rowOf("laj1"), 1.0);
  run(world, 0.2);
  const RobotState before = world.robot(0);
  const RobotState other = world.robot(1);
  world.shift(0, 0.5, -2);
  const RobotState after = world.robot(0);
  EXPECT_NEAR(after.torso.position[0], before.torso.position[0] + 0.5, 1e-12);
  EXPECT_NEAR(after.torso.position[1], before.torso.position[1] - 2, 1e-12);
  EXPECT_DOUBLE_EQ(after.torso.position[2], before.torso.position[2]);
  EXPECT_NEAR(after.leftFootPosition[1], before.leftFootPosition[1] - 2, 1e-12);
  EXPECT_EQ(after.torso.axes, before.torso.axes);
  EXPECT_EQ(after.jointAngleDeg, before.jointAngleDeg);
  EXPECT_EQ(after.torsoVelocity, before.torsoVelocity);
  EXPECT_EQ(world.robot(1).torso.position, other.torso.position);
}

TEST(Shift, MotionGoesOnAsIfNothingHadBeen) {
  // The floor is the same everywhere: a shifted robot does what its unshifted twin does.
  World stays;
  World shifted;
  for (World* world : {&stays, &shifted}) {
    world->addRobot(0, {0, 2, 0});
    world->setJointSpeed(0, rowOf("llj3"), 1.5);
    world->setJointSpeed(0, rowOf("rlj4"), -1.5);
    run(*world, 0.3);
  }
  shifted.shift(0, 1, 1);
  run(stays, 0.3);
  run(shifted, 0.3);
  const RobotState a = stays.robot(0);
  const RobotState b = shifted.robot(0);
  EXPECT_NEAR(b.torso.position[0] - a.torso.position[0], 1, 1e-4);
  EXPECT_NEAR(b.torso.position[1] - a.torso.position[1], 1, 1e-4);
  for (std::size_t j = 0; j < kJointCount; ++j) {
    EXPECT_NEAR(b.jointAngleDeg[j], a.jointAngleDeg[j], 0.01) << j;
  }
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(b.accelerometer[i], a.accelerometer[i], 0.05) << "no jerk is felt";
  }
}

TEST(Shift, NeedsARobotAndFiniteNumbers) {
  World world;
  EXPECT_THROW(world.shift(0, 1, 1), std::invalid_argument);
  world.addRobot(0, {});
  EXPECT_THROW(world.shift(0, std::numeric_limits<double>::quiet_NaN(), 0), std::invalid_argument);
}

TEST(OverlapsBall, IsTrueForTheRobotThatTheBallIsPutIntoAndNoOther) {
  World world;
  world.addRobot(2, {-3, 0, 0});
  world.addRobot(9, {3, 0, 0});
  const Vec3 foot = world.robot(9).leftFootPosition;
  world.setBall({foot[0], foot[1], 0.042});
  EXPECT_TRUE(world.overlapsBall(9));
  EXPECT_FALSE(world.overlapsBall(2));
  world.setBall({0, 0, 0.042});
  EXPECT_FALSE(world.overlapsBall(9));
  EXPECT_THROW((void)world.overlapsBall(0), std::invalid_argument);
}

TEST(OverlapsBall, AskingChangesNothing) {
  World asked;
  World unasked;
  for (World* world : {&asked, &unasked}) {
    world->addRobot(0, {0, 0.05, 0});
    world->setBall({0.15, 0, 0.042});
    world->setJointSpeed(0, rowOf("rlj3"), 2);
  }
  for (int i = 0; i < 40; ++i) {
    (void)asked.overlapsBall(0);
    asked.advance();
    unasked.advance();
    ASSERT_EQ(asked.ball().position, unasked.ball().position) << i;
    ASSERT_EQ(asked.robot(0).jointAngleDeg, unasked.robot(0).jointAngleDeg) << i;
    ASSERT_EQ(asked.touchedBall(0), unasked.touchedBall(0)) << i;
  }
}

}  // namespace
}  // namespace arena
