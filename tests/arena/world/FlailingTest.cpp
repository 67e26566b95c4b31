// Properties that hold whatever the robots do: random speeds, falls, heaps.

#include <gtest/gtest.h>

#include <random>

#include "arena/model/FieldTable.h"
#include "tests/arena/world/Run.h"

namespace arena {
namespace {

void expectSound(const World& world, int slot) {
  const RobotState robot = world.robot(slot);
  for (const Vec3* place :
       {&robot.torso.position, &robot.head, &robot.leftLowerArm, &robot.rightLowerArm,
        &robot.leftFootPosition, &robot.rightFootPosition}) {
    for (const double x : *place) ASSERT_TRUE(std::isfinite(x));
    ASSERT_GT((*place)[2], -0.01);
    // Standing on tiptoe with the arms up it reaches 0.7 m; a jump from a heap adds some.
    ASSERT_LT((*place)[2], 1.2);
    ASSERT_LT(std::abs((*place)[0]), 10);
    ASSERT_LT(std::abs((*place)[1]), 10);
  }
  for (std::size_t j = 0; j < kJointCount; ++j) {
    ASSERT_TRUE(std::isfinite(robot.jointAngleDeg[j]));
    ASSERT_GT(robot.jointAngleDeg[j], kJoints[j].lowDeg - 3) << kJoints[j].perceptor;
    ASSERT_LT(robot.jointAngleDeg[j], kJoints[j].highDeg + 3) << kJoints[j].perceptor;
  }
  for (const double x : robot.gyroDegPerSec) ASSERT_TRUE(std::isfinite(x));
  for (const double x : robot.accelerometer) ASSERT_TRUE(std::isfinite(x));
}

struct Heap {
  int robots;
  unsigned seed;
  double stepSeconds;
};

class FlailingHeap : public testing::TestWithParam<Heap> {};
INSTANTIATE_TEST_SUITE_P(Heaps, FlailingHeap,
                         testing::Values(Heap{1, 1, 0.004}, Heap{1, 2, 0.005}, Heap{3, 3, 0.002},
                                         Heap{6, 4, 0.004}, Heap{6, 5, 0.005}, Heap{12, 6, 0.004}));

TEST_P(FlailingHeap, StaysFiniteAboveTheGroundAndWithinItsJoints) {
  const Heap heap = GetParam();
  std::mt19937 random(heap.seed);
  std::uniform_real_distribution<double> speed(-7, 7);
  World world({.stepSeconds = heap.stepSeconds});
  for (int slot = 0; slot < heap.robots; ++slot) {
    const int row = slot / 4;
    world.addRobot(slot, {0.3 * (slot % 4), 0.3 * row, 77.0 * slot});
  }
  world.setBall({0.15, 0.15, kBallRadius});
  // A thousand commanded speeds per second and robot, 20 s.
  for (int i = 0; i < 1000; ++i) {
    for (int slot = 0; slot < heap.robots; ++slot) {
      std::uniform_int_distribution<int> joint(0, kJointCount - 1);
      for (int n = 0; n < 20; ++n) world.setJointSpeed(slot, joint(random), speed(random));
    }
    world.advance();
    for (int slot = 0; slot < heap.robots; ++slot) {
      ASSERT_NO_FATAL_FAILURE(expectSound(world, slot)) << "cycle " << i << " slot " << slot;
    }
    ASSERT_GT(world.ball().position[2], 0);
  }
}

}  // namespace
}  // namespace arena
