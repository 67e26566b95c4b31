#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "math/Circle.h"
#include "math/Geometry.h"
#include "tests/math/Constants.h"
#include "tests/support/Places.h"

namespace {

/// Start values that no crossing here has.
struct Crossing {
  VecPosition p1{77, 77, 77};
  VecPosition p2{77, 77, 77};
  int count;

  Crossing(const Circle& a, const Circle& b) : count(a.getCircleIntersectionPoints(b, &p1, &p2)) {}
};

TEST(CircleCrossing, TwoPointsLeftOfTheWayToTheOtherFirst) {
  const Crossing crossing(Circle(kOrigin, 5), Circle(VecPosition(8, 0, 0), 5));
  EXPECT_EQ(crossing.count, 2);
  EXPECT_THAT(crossing.p1, IsPlace(4, 3, 0));
  EXPECT_THAT(crossing.p2, IsPlace(4, -3, 0));
}

TEST(CircleCrossing, ExchangedCirclesExchangeThePoints) {
  const Crossing crossing(Circle(VecPosition(8, 0, 0), 5), Circle(kOrigin, 5));
  EXPECT_EQ(crossing.count, 2);
  EXPECT_THAT(crossing.p1, IsPlace(4, -3, 0));
  EXPECT_THAT(crossing.p2, IsPlace(4, 3, 0));
}

TEST(CircleCrossing, HeightsOfTheCentresPlayNoPart) {
  const Crossing crossing(Circle(VecPosition(0, 0, 3), 5), Circle(VecPosition(8, 0, -6), 5));
  EXPECT_EQ(crossing.count, 2);
  EXPECT_THAT(crossing.p1, IsPlace(4, 3, 0));
  EXPECT_THAT(crossing.p2, IsPlace(4, -3, 0));
}

TEST(CircleCrossing, MissedCirclesStillWriteBothPoints) {
  const Crossing crossing(Circle(kOrigin, 1), Circle(VecPosition(5, 0, 0), 1));
  EXPECT_EQ(crossing.count, 0);
  EXPECT_THAT(crossing.p1, IsPlace(2.5, 0, 0));
  EXPECT_THAT(crossing.p2, IsPlace(2.5, 0, 0));
}

TEST(CircleCrossing, CircleWithinTheOtherIsMissed) {
  const Crossing crossing(Circle(kOrigin, 5), Circle(VecPosition(1, 0, 0), 1));
  EXPECT_EQ(crossing.count, 0);
  EXPECT_THAT(crossing.p1, IsPlace(12.5, 0, 0));  // (1 + 25 - 1) / 2
  EXPECT_THAT(crossing.p2, IsPlace(12.5, 0, 0));
}

TEST(CircleCrossing, TouchingCirclesShareOnePoint) {
  const Crossing outside(Circle(kOrigin, 1), Circle(VecPosition(2, 0, 0), 1));
  EXPECT_EQ(outside.count, 1);
  EXPECT_THAT(outside.p1, IsPlace(1, 0, 0));
  EXPECT_THAT(outside.p2, IsPlace(1, 0, 0));
  const Crossing within(Circle(kOrigin, 3), Circle(VecPosition(0, 2, 0), 1));
  EXPECT_EQ(within.count, 1);
  EXPECT_THAT(within.p1, IsPlace(0, 3, 0));
  EXPECT_THAT(within.p2, IsPlace(0, 3, 0));
}

TEST(CircleCrossing, EqualCirclesGiveTwoPointsThatAreNoNumbers) {
  const Crossing crossing(Circle(VecPosition(1, 2, 0), 3), Circle(VecPosition(1, 2, 0), 3));
  EXPECT_EQ(crossing.count, 2);
  for (const VecPosition& p : {crossing.p1, crossing.p2}) {
    EXPECT_TRUE(std::isnan(p.x));
    EXPECT_TRUE(std::isnan(p.y));
    EXPECT_EQ(p.z, 0);
  }
}

TEST(CircleCrossing, BothPointsLieOnBothCircles) {
  for (int degrees = 0; degrees < 360; degrees += 15) {
    SCOPED_TRACE(degrees);
    const VecPosition c0(1, -2, 0);
    const VecPosition c1 = c0 + VecPosition(3, degrees, 0, POLAR);
    const Crossing crossing(Circle(c0, 2), Circle(c1, 2.5));
    ASSERT_EQ(crossing.count, 2);
    for (const VecPosition& p : {crossing.p1, crossing.p2}) {
      EXPECT_NEAR(p.getDistanceTo(c0), 2, 1e-12);
      EXPECT_NEAR(p.getDistanceTo(c1), 2.5, 1e-12);
    }
    // The first lies counter-clockwise of the way between the centres.
    EXPECT_GT((c1 - c0).cross(crossing.p1 - c0).z, 0);
    EXPECT_LT((c1 - c0).cross(crossing.p2 - c0).z, 0);
  }
}

TEST(CircleOverlap, CirclesApartShareNothing) {
  const Circle one(kOrigin, 1);
  EXPECT_EQ(one.getIntersectionArea(Circle(VecPosition(2.5, 0, 0), 1), false), 0);
  EXPECT_EQ(one.getIntersectionArea(Circle(VecPosition(2, 0, 0), 1), false), 0);  // touching
}

TEST(CircleOverlap, CircleWithinTheOtherIsSharedWhole) {
  const Circle large(kOrigin, 3);
  const Circle small(VecPosition(0.5, 0.5, 0), 1);
  EXPECT_NEAR(large.getIntersectionArea(small, false), PI, 1e-12);
  EXPECT_NEAR(small.getIntersectionArea(large, false), PI, 1e-12);
  EXPECT_NEAR(large.getIntersectionArea(Circle(VecPosition(2, 0, 0), 1), true), PI, 1e-12);
  EXPECT_NEAR(large.getIntersectionArea(large, true), 9 * PI, 1e-12);
}

// Unit circles through each other's centre: 2 pi / 3 - sqrt(3) / 2.
TEST(CircleOverlap, LensOfTwoUnitCircles) {
  const Circle one(kOrigin, 1);
  EXPECT_NEAR(one.getIntersectionArea(Circle(VecPosition(1, 0, 0), 1), true),
              2 * PI / 3 - std::sqrt(3.0) / 2, 1e-12);
}

// Counting cells of a fine raster is the other way to it.
TEST(CircleOverlap, LensAgreesWithARaster) {
  const Circle a(kOrigin, 2);
  const Circle b(VecPosition(2.5, 0, 0), 1.5);
  constexpr int kCells = 1000;
  constexpr double kCell = 4.0 / kCells;
  int shared = 0;
  for (int i = 0; i < kCells; ++i) {
    for (int j = 0; j < kCells; ++j) {
      const double x = (i + 0.5) * kCell;
      const double y = (j + 0.5) * kCell - 2;
      const double fromB = x - 2.5;
      shared += x * x + y * y < 4 && fromB * fromB + y * y < 2.25 ? 1 : 0;
    }
  }
  EXPECT_NEAR(a.getIntersectionArea(b, false), shared * kCell * kCell, 0.005);
}

// Radius 5 at the origin and sqrt(10) at (3, 0) cross at (4, +-3). The centre at 3 lies on this
// side of the chord, and the formula still takes the segment as if it lay beyond.
TEST(CircleOverlap, CentreBeyondTheChordIsNotTreatedApart) {
  const double area =
      Circle(kOrigin, 5).getIntersectionArea(Circle(VecPosition(3, 0, 0), std::sqrt(10.0)), false);
  EXPECT_NEAR(area, 25 * std::atan2(3, 4) - 12 + 10 * std::atan2(3, 1) - 3, 1e-9);
}

TEST(CircleOverlap, OtherHeightSharesNothingWhenAskedSo) {
  const Circle low(kOrigin, 3);
  const Circle high(VecPosition(0, 0, 1), 1);
  EXPECT_EQ(low.getIntersectionArea(high, true), 0);
  EXPECT_NEAR(low.getIntersectionArea(high, false), PI, 1e-12);
}

TEST(CircleOverlap, DistanceOfTheCentresIsOnAllThreeAxes) {
  // 8 apart on the ground, where they cross; sqrt(113) apart in all, which is more than 10.
  EXPECT_EQ(Circle(kOrigin, 5).getIntersectionArea(Circle(VecPosition(8, 0, 7), 5), false), 0);
}

}  // namespace
