#include "arena/world/Sensors.h"

#include <gtest/gtest.h>

#include <numbers>

#include "arena/model/FieldTable.h"
#include "tests/arena/world/Run.h"

namespace arena {
namespace {

constexpr double kWeight = 4.6071 * 9.81;  // [N] the table's masses added up by hand
constexpr Mat3 kUpright{1, 0, 0, 0, 1, 0, 0, 0, 1};

TEST(Accelerometer, AtRestReadsGravityUpward) {
  Accelerometer sensor;
  sensor.reset(kUpright);
  EXPECT_EQ(sensor.reading(), (Vec3{0, 0, 9.81}));
}

TEST(Accelerometer, OneCycleTakesInFifteenPercentOfAJolt) {
  Accelerometer sensor;
  sensor.reset(kUpright);
  // 0.4 m/s forward within 0.02 s is 20 m/s^2.
  sensor.update(kUpright, {0, 0.4, 0}, 0.02);
  EXPECT_NEAR(sensor.reading()[1], 3.0, 1e-12);
  sensor.update(kUpright, {0, 0.4, 0}, 0.02);
  EXPECT_NEAR(sensor.reading()[1], 3.0 * 0.85, 1e-12);
  EXPECT_NEAR(sensor.reading()[2], 9.81, 1e-12);
}

TEST(Accelerometer, FreeFallReadsNothingInTheEnd) {
  Accelerometer sensor;
  sensor.reset(kUpright);
  for (int i = 1; i <= 100; ++i) sensor.update(kUpright, {0, 0, -9.81 * 0.02 * i}, 0.02);
  EXPECT_NEAR(sensor.reading()[2], 0, 1e-4);
}

TEST(Sensors, StandingReadsGravityAndNoTurning) {
  World world;
  world.addRobot(0, {1, -2, 70});
  run(world, 2);
  const RobotState robot = world.robot(0);
  EXPECT_NEAR(robot.accelerometer[0], 0, 0.05);
  EXPECT_NEAR(robot.accelerometer[1], 0, 0.05);
  EXPECT_NEAR(robot.accelerometer[2], 9.81, 0.05);
  for (const double rate : robot.gyroDegPerSec) EXPECT_NEAR(rate, 0, 0.05);
}

/// Puts a robot down with AXES at HEIGHT and lets it come to rest.
RobotState layDown(const Mat3& axes, double height) {
  World world;
  world.addRobot(0, {0, 0, 0});
  world.setTorso(0, {{0, 0, height}, axes});
  run(world, 3);
  return world.robot(0);
}

TEST(Sensors, LyingOnTheBackReadsGravityForward) {
  EXPECT_GT(layDown({1, 0, 0, 0, 0, -1, 0, 1, 0}, 0.08).accelerometer[1], 9);
}

TEST(Sensors, LyingOnTheFrontReadsGravityBackward) {
  // The arms would prop it up; they are laid beside the head.
  World world;
  world.addRobot(0, {0, 0, 0});
  std::array<double, kJointCount> degrees{};
  degrees[rowOfPerceptor("laj1")] = degrees[rowOfPerceptor("raj1")] = 90;
  world.setJointAngles(0, degrees);
  world.setTorso(0, {{0, 0, 0.13}, {1, 0, 0, 0, 0, 1, 0, -1, 0}});
  run(world, 3);
  EXPECT_LT(world.robot(0).accelerometer[1], -6);
}

TEST(Sensors, LyingOnTheRightSideReadsGravityToTheLeft) {
  EXPECT_LT(layDown({0, 1, 0, 0, 0, -1, -1, 0, 0}, 0.16).accelerometer[0], -9);
}

TEST(Sensors, LyingOnTheLeftSideReadsGravityToTheRight) {
  EXPECT_GT(layDown({0, -1, 0, 0, 0, -1, 1, 0, 0}, 0.16).accelerometer[0], 9);
}

TEST(Sensors, GyroAgreesWithTheTorsosTurningBetweenCycles) {
  World world;
  world.addRobot(0, {0, 0, 30});
  // It topples over its toes, turning a little, since one ankle gives way faster; the ground is
  // not reached yet.
  world.setJointSpeed(0, rowOf("llj5"), -2);
  world.setJointSpeed(0, rowOf("rlj5"), -1.5);
  RobotState before = world.robot(0);
  double fastest = 0;
  for (int i = 0; i < 25; ++i) {
    world.advance();
    const RobotState now = world.robot(0);
    // The turn from one attitude to the next, B^T * N = 1 + [angle x] for a small one.
    Vec3 turn{};
    for (std::size_t row = 0; row < 3; ++row) {
      const Vec3 column{now.torso.axes[(row + 1) % 3], now.torso.axes[3 + (row + 1) % 3],
                        now.torso.axes[6 + (row + 1) % 3]};
      const Vec3 mirror{now.torso.axes[(row + 2) % 3], now.torso.axes[3 + (row + 2) % 3],
                        now.torso.axes[6 + (row + 2) % 3]};
      turn[row] = (inFrame(before.torso.axes, column)[(row + 2) % 3] -
                   inFrame(before.torso.axes, mirror)[(row + 1) % 3]) /
                  2;
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
      const double meanRate = turn[axis] / kCycleSeconds * 180 / std::numbers::pi;
      const double meanGyro = (before.gyroDegPerSec[axis] + now.gyroDegPerSec[axis]) / 2;
      // The rate is not constant within a cycle, least of all in the jerk of the start.
      if (i > 10) {
        EXPECT_NEAR(meanGyro, meanRate, 3 + 0.1 * std::abs(meanRate)) << i;
      }
      fastest = std::max(fastest, std::abs(meanRate));
    }
    before = now;
  }
  EXPECT_GT(fastest, 30);
}

TEST(Sensors, FallingForwardTurnsAgainstTheRightHand) {
  World world;
  world.addRobot(0, {0, 0, 0});
  // Leaning 25 degrees forward: up is (0, cos, -sin) seen from the torso.
  const double s = std::sin(25 * std::numbers::pi / 180);
  const double c = std::cos(25 * std::numbers::pi / 180);
  world.setTorso(0, {{0, 0, 0.36}, {1, 0, 0, 0, c, s, 0, -s, c}});
  run(world, 0.3);
  EXPECT_LT(world.robot(0).gyroDegPerSec[0], -10);
}

TEST(Sensors, FeetCarryTheWeightWhileStanding) {
  World world;
  world.addRobot(0, {0, 0, 0});
  run(world, 2);
  const RobotState robot = world.robot(0);
  ASSERT_TRUE(robot.leftFoot.touching);
  ASSERT_TRUE(robot.rightFoot.touching);
  EXPECT_NEAR(robot.leftFoot.force[2] + robot.rightFoot.force[2], kWeight, 0.02 * kWeight);
  EXPECT_NEAR(robot.leftFoot.force[2], robot.rightFoot.force[2], 0.02 * kWeight);
}

TEST(Sensors, PressureLiesUnderTheCentreOfMassWhileStanding) {
  World world;
  world.addRobot(0, {0, 0, 0});
  run(world, 2);
  const RobotState robot = world.robot(0);
  // By hand, forward of the torso's origin, per side: arm 0.003 + 0.00315 + 0.028, leg -0.00215 +
  // 0.001125 - 0.000625 + 0.005 kg m; the foot's origin lies 0.025 m forward.
  const double forward = 2 * (0.03415 + 0.00335) / 4.6071;
  EXPECT_NEAR(robot.leftFoot.centre[1], forward - 0.025, 0.001);
  EXPECT_NEAR(robot.rightFoot.centre[1], forward - 0.025, 0.001);
  EXPECT_NEAR(robot.leftFoot.centre[2], -0.01, 0.001);
}

TEST(Sensors, FeetInTheAirFeelNothing) {
  World world;
  world.addRobot(0, {0, 0, 0});
  world.setTorso(0, {{0, 0, 2}, kUpright});
  run(world, 0.1);
  EXPECT_FALSE(world.robot(0).leftFoot.touching);
  EXPECT_FALSE(world.robot(0).rightFoot.touching);
  EXPECT_EQ(world.robot(0).leftFoot.force, (Vec3{0, 0, 0}));
}

TEST(Sensors, CameraLooksAlongTheHeadingAndTurnsWithTheHead) {
  World world;
  world.addRobot(0, {0, 0, 90});
  std::array<double, kJointCount> degrees{};
  world.setJointAngles(0, degrees);
  const Frame straight = world.robot(0).camera;
  EXPECT_NEAR(straight.axes[4], 1, 1e-9);  // y of the view direction
  EXPECT_NEAR(straight.position[2], kStandingHeight + 0.09 + 0.065, 1e-9);
  degrees[rowOfPerceptor("hj1")] = 30;
  world.setJointAngles(0, degrees);
  // Positive yaw is to the left: from +y towards -x.
  EXPECT_NEAR(world.robot(0).camera.axes[1], -0.5, 1e-9);
  degrees[rowOfPerceptor("hj1")] = 0;
  degrees[rowOfPerceptor("hj2")] = 30;
  world.setJointAngles(0, degrees);
  EXPECT_NEAR(world.robot(0).camera.axes[7], 0.5, 1e-9);  // positive pitch looks up
}

TEST(Sensors, VisiblePartsAreWhereTheTablePutsThem) {
  World world;
  world.addRobot(0, {2, 1, 90});  // the torso's axes are the field's
  const RobotState robot = world.robot(0);
  EXPECT_LT(distance(robot.leftFootPosition, {2 - 0.055, 1 + 0.025, 0.01}), 1e-9);
  EXPECT_LT(distance(robot.rightFootPosition, {2 + 0.055, 1 + 0.025, 0.01}), 1e-9);
  EXPECT_LT(distance(robot.leftLowerArm, {2 - 0.098, 1 + 0.14, 0.38 + 0.075 + 0.009}), 1e-9);
  EXPECT_LT(distance(robot.rightLowerArm, {2 + 0.098, 1 + 0.14, 0.38 + 0.075 + 0.009}), 1e-9);
  EXPECT_LT(distance(robot.head, {2, 1, 0.38 + 0.155}), 1e-9);
}

}  // namespace
}  // namespace arena
