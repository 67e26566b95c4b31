#include "arena/referee/FreeSpace.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace arena {
namespace {

TEST(FreeSpace, OnlyTheOtherSideNearTheBallIsInTheWay) {
  const FreeSpace space{{1, 2}, 1.8, Side::kLeft};
  EXPECT_TRUE(isInTheWay(space, Side::kRight, {1, 3.79}));
  EXPECT_FALSE(isInTheWay(space, Side::kRight, {1, 3.81}));
  EXPECT_FALSE(isInTheWay(space, Side::kLeft, {1, 2}));
}

TEST(FreeSpace, WithoutAnExemptSideEverybodyIs) {
  const FreeSpace space{{0, 0}, 0.7, {}};
  EXPECT_TRUE(isInTheWay(space, Side::kLeft, {0.5, 0}));
  EXPECT_TRUE(isInTheWay(space, Side::kRight, {0.5, 0}));
}

TEST(FreeSpace, TheWayOutIsStraightAwayFromTheBallAndALittleFurther) {
  const FreeSpace space{{1, 2}, 1.8, Side::kLeft};
  const auto to = placeOutside(space, Side::kRight, {1.3, 2.4}, {});
  ASSERT_TRUE(to);
  // Direction (0.6, 0.8), 2 m from the ball.
  EXPECT_NEAR(to->x, 2.2, 1e-12);
  EXPECT_NEAR(to->y, 3.6, 1e-12);
}

TEST(FreeSpace, FromTheVeryCentreItIsTowardsTheOwnGoal) {
  const FreeSpace space{{0, 0}, 0.7, {}};
  const auto left = placeOutside(space, Side::kLeft, {0, 0}, {});
  const auto right = placeOutside(space, Side::kRight, {0, 0}, {});
  ASSERT_TRUE(left && right);
  EXPECT_NEAR(left->x, -0.9, 1e-12);
  EXPECT_NEAR(right->x, 0.9, 1e-12);
}

TEST(FreeSpace, NobodyIsPutBesideAnother) {
  const FreeSpace space{{0, 0}, 1.8, Side::kLeft};
  const auto to = placeOutside(space, Side::kRight, {1, 0}, {{2, 0.1}});
  ASSERT_TRUE(to);
  EXPECT_GE(distance(*to, {2, 0.1}), 0.7);
  EXPECT_NEAR(distance(*to, {0, 0}), 2.0, 1e-12);
}

TEST(FreeSpace, NobodyIsPutOffTheField) {
  const FreeSpace space{{3, 6}, 1.8, Side::kLeft};
  const auto to = placeOutside(space, Side::kRight, {3.2, 6.5}, {});
  ASSERT_TRUE(to);
  EXPECT_LE(to->y, 5.7);
  EXPECT_NEAR(distance(*to, {3, 6}), 2.0, 1e-12);
}

TEST(FreeSpace, AWholeSideFindsRoomAtACornerOneAfterTheOther) {
  // The narrowest place: a quarter of a circle.
  const FreeSpace space{{9, 6}, 1.8, Side::kLeft};
  std::mt19937 random(11);
  std::uniform_real_distribution<double> near(-1.2, 1.2);
  for (int trial = 0; trial < 300; ++trial) {
    std::vector<Spot> all(12);
    for (Spot& one : all) one = {9 + near(random), 6 + near(random)};
    for (std::size_t i = 0; i < 6; ++i) {
      std::vector<Spot> others = all;
      others.erase(others.begin() + static_cast<long>(i));
      const auto to = placeOutside(space, Side::kRight, all[i], others);
      ASSERT_TRUE(to);
      EXPECT_LE(to->x, 9);
      EXPECT_LE(to->y, 6);
      EXPECT_GT(distance(*to, space.centre), 1.8);
      for (const Spot& other : others) EXPECT_GE(distance(*to, other), 0.7);
      all[i] = *to;
    }
  }
}

}  // namespace
}  // namespace arena
