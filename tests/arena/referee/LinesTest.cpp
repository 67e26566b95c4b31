// When the whole ball is over a line, over which, and where. The field is 18 m x 12 m, the goal
// 2.1 m wide and 0.8 m high, the ball's radius 0.042 m: out is beyond 9.042 m and 6.042 m.

#include "arena/referee/Lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace arena {
namespace {

constexpr double kLow = 0.042;

TEST(Lines, ABallOnTheLineIsInUntilTheWholeOfItIsOver) {
  EXPECT_FALSE(isOut({9.0, 3, kLow}));
  EXPECT_FALSE(isOut({9.0419, 3, kLow}));
  EXPECT_TRUE(isOut({9.0421, 3, kLow}));
  EXPECT_TRUE(isOut({-9.0421, 3, kLow}));
  EXPECT_FALSE(isOut({3, 6.0419, kLow}));
  EXPECT_TRUE(isOut({3, 6.0421, kLow}));
  EXPECT_TRUE(isOut({3, -6.0421, kLow}));
}

TEST(Lines, ABallInTheAirIsOutToo) {
  EXPECT_TRUE(isOut({0, 6.1, 2}));
}

TEST(Lines, ABallThatStaysInCrossesNothing) {
  EXPECT_FALSE(crossing({0, 0, kLow}, {9.04, 0, kLow}));
  EXPECT_FALSE(crossing({9.04, 6.04, kLow}, {-9.04, -6.04, kLow}));
}

TEST(Lines, TheSideLineIsCrossedWhereTheWholeBallIsOver) {
  // A third of the way from y 6.022 to 6.082 the ball's centre is at 6.042.
  const auto out = crossing({3.0, 6.022, kLow}, {3.3, 6.082, kLow});
  ASSERT_TRUE(out);
  EXPECT_EQ(out->line, Line::kSideLine);
  EXPECT_EQ(out->end, Side::kRight);
  EXPECT_NEAR(out->place[0], 3.1, 1e-12);
  EXPECT_NEAR(out->place[1], 6.042, 1e-12);
}

TEST(Lines, TheOtherSideLineAndTheOtherHalf) {
  const auto out = crossing({-2, -6.0, kLow}, {-2, -6.2, kLow});
  ASSERT_TRUE(out);
  EXPECT_EQ(out->line, Line::kSideLine);
  EXPECT_EQ(out->end, Side::kLeft);
  EXPECT_NEAR(out->place[1], -6.042, 1e-12);
}

TEST(Lines, BetweenThePostsUnderTheBarIsAGoal) {
  for (const double y : {0.0, 1.0499, -1.0499}) {
    for (const double z : {kLow, 0.7999}) {
      const auto right = crossing({9.0, y, z}, {9.1, y, z});
      ASSERT_TRUE(right);
      EXPECT_EQ(right->line, Line::kGoal) << y << ' ' << z;
      EXPECT_EQ(right->end, Side::kRight);
      EXPECT_EQ(crossing({-9.0, y, z}, {-9.1, y, z})->end, Side::kLeft);
    }
  }
}

TEST(Lines, BesideThePostOrOverTheBarIsNone) {
  EXPECT_EQ(crossing({9.0, 1.0501, kLow}, {9.1, 1.0501, kLow})->line, Line::kGoalLine);
  EXPECT_EQ(crossing({9.0, -1.0501, kLow}, {9.1, -1.0501, kLow})->line, Line::kGoalLine);
  EXPECT_EQ(crossing({9.0, 0, 0.8001}, {9.1, 0, 0.8001})->line, Line::kGoalLine);
}

TEST(Lines, ABallHalfInTheGoalIsNone) {
  EXPECT_FALSE(crossing({8.9, 0, kLow}, {9.04, 0, kLow}));
}

TEST(Lines, WhatCountsIsWhereItWasOverTheLineAndNotWhereItWent) {
  // Beside the post as it crosses, behind the goal at the end of the cycle.
  EXPECT_EQ(crossing({9.0, 1.2, kLow}, {9.3, 0.6, kLow})->line, Line::kGoalLine);
  // In over the line, then out at the goal's open side.
  EXPECT_EQ(crossing({9.0, 1.0, kLow}, {9.3, 1.3, kLow})->line, Line::kGoal);
  // Over the bar at the line, low behind it.
  EXPECT_EQ(crossing({9.0, 0, 0.9}, {9.3, 0, 0.5})->line, Line::kGoalLine);
}

TEST(Lines, AtTheCornerTheLineThatWasCrossedFirstCounts) {
  EXPECT_EQ(crossing({8.9, 6.03, kLow}, {9.1, 6.13, kLow})->line, Line::kSideLine);
  EXPECT_EQ(crossing({9.03, 5.9, kLow}, {9.13, 6.1, kLow})->line, Line::kGoalLine);
}

TEST(Lines, ABallThatWasOutLeftWhereItWas) {
  const auto out = crossing({9.2, 0.5, kLow}, {9.4, 3, kLow});
  ASSERT_TRUE(out);
  EXPECT_EQ(out->line, Line::kGoal);
  EXPECT_DOUBLE_EQ(out->place[0], 9.2);
  EXPECT_DOUBLE_EQ(out->place[1], 0.5);
}

TEST(Lines, TheCrossingLiesOnTheWayAndOnTheBorder) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> in(-1, 1);
  int seen = 0;
  for (int i = 0; i < 20'000; ++i) {
    const Vec3 from{9 * in(random), 6 * in(random), kLow};
    const Vec3 to{from[0] + 3 * in(random), from[1] + 3 * in(random), kLow};
    const auto out = crossing(from, to);
    ASSERT_EQ(out.has_value(), isOut(to));
    if (!out) continue;
    ++seen;
    const double beyondX = std::abs(out->place[0]) - 9.042;
    const double beyondY = std::abs(out->place[1]) - 6.042;
    ASSERT_NEAR(std::max(beyondX, beyondY), 0, 1e-9);
    ASSERT_EQ(out->line == Line::kSideLine, beyondY > beyondX);
    // On the straight way: the area between place, start and end is none.
    const double area = (out->place[0] - from[0]) * (to[1] - from[1]) -
                        (out->place[1] - from[1]) * (to[0] - from[0]);
    ASSERT_NEAR(area, 0, 1e-9);
  }
  EXPECT_GT(seen, 2000);
}

}  // namespace
}  // namespace arena
