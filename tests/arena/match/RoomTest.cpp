#include "arena/match/Room.h"

#include <gtest/gtest.h>

#include <cmath>

namespace arena {
namespace {

Spot spotOf(const World& world, int slot) {
  const Vec3 place = world.robot(slot).torso.position;
  return {place[0], place[1]};
}

/// Flat on its back at X, Y, the head towards +x.
Frame onTheBack(double x, double y) {
  return {{x, y, 0.06}, {0, 0, 1, 1, 0, 0, 0, 1, 0}};
}

TEST(Room, OnlyTheOtherSideLeavesAndKeepsItsPosture) {
  World world;
  world.addRobot(0, {-0.5, 0, 0});
  world.addRobot(1, {0.6, 0.8, 180});
  world.addRobot(2, {0, -3, 90});
  const FreeSpace space{{0, 0}, 1.8, Side::kLeft};
  const std::vector<Occupant> players{{0, Side::kLeft}, {1, Side::kRight}, {2, Side::kRight}};
  EXPECT_EQ(leaveFreeSpace(world, space, players), std::vector<int>{1});
  EXPECT_NEAR(spotOf(world, 0).x, -0.5, 1e-12);
  EXPECT_NEAR(spotOf(world, 1).x, 1.2, 1e-12);
  EXPECT_NEAR(spotOf(world, 1).y, 1.6, 1e-12);
  EXPECT_NEAR(spotOf(world, 2).y, -3, 1e-12);
  EXPECT_TRUE(leaveFreeSpace(world, space, players).empty()) << "once is enough";
}

TEST(Room, TwoInTheSamePlaceLeaveForDifferentOnes) {
  World world;
  world.addRobot(3, {0.5, 0, 0});
  world.addRobot(7, {0.8, 0, 0});
  const FreeSpace space{{0, 0}, 1.8, Side::kLeft};
  EXPECT_EQ(leaveFreeSpace(world, space, {{3, Side::kRight}, {7, Side::kRight}}).size(), 2U);
  EXPECT_GE(distance(spotOf(world, 3), spotOf(world, 7)), 0.7);
}

TEST(Room, WhoLiesOnTheSpotOfTheBallIsMovedLyingAsItIs) {
  World world;
  world.addRobot(0, {3, 3, 0});
  world.addRobot(1, {-2, 0, 0});
  world.setTorso(0, onTheBack(0.1, 0));
  world.setBall({0, 0, 0.042});
  EXPECT_EQ(leaveBall(world, {{0, Side::kLeft}, {1, Side::kLeft}}), std::vector<int>{0});
  EXPECT_FALSE(world.overlapsBall(0));
  const Frame torso = world.robot(0).torso;
  EXPECT_NEAR(torso.position[2], 0.06, 1e-12);
  EXPECT_NEAR(torso.axes[8], 0, 1e-12) << "still lying";
  for (int i = 0; i < 50; ++i) world.advance();
  EXPECT_NEAR(world.ball().position[0], 0, 0.01) << "nothing throws the ball";
  EXPECT_NEAR(world.ball().position[1], 0, 0.01);
}

TEST(Room, WhoStandsBesideTheBallMayStay) {
  // 0.15 m behind the ball, as the player does that is to kick off.
  World world;
  world.addRobot(0, {-0.15, 0.05, 0});
  world.setBall({0, 0, 0.042});
  EXPECT_TRUE(leaveBall(world, {{0, Side::kLeft}}).empty());
}

}  // namespace
}  // namespace arena
