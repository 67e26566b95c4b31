#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Eigen/LU>
#include <cmath>
#include <limits>

#include "math/Geometry.h"
#include "math/Line.h"
#include "tests/support/OutputCapture.h"
#include "tests/support/Places.h"

namespace {

const Line kDiagonal(1, -1, 0);   // y = x
const Line kGround(1, 0, 0);      // y = 0
const Line kVertical3(0, 1, -3);  // x = 3

// y = 2x + 1 and y = -x + 4.
TEST(LineCrossing, SlopedLinesCross) {
  EXPECT_THAT(Line(1, -2, -1).getIntersection(Line(1, 1, -4)), IsPlaceNear(1.0, 3.0, 0.0));
  EXPECT_THAT(Line(1, 1, -4).getIntersection(Line(1, -2, -1)), IsPlaceNear(1.0, 3.0, 0.0));
}

TEST(LineCrossing, VerticalLineIsCrossedFromEitherSide) {
  EXPECT_THAT(kVertical3.getIntersection(Line(1, -2, -1)), IsPlace(3, 7, 0));
  EXPECT_THAT(Line(1, -2, -1).getIntersection(kVertical3), IsPlace(3, 7, 0));
}

TEST(LineCrossing, AgreesWithALinearSolver) {
  for (const double a : {-2.0, 0.5, 3.0}) {
    for (const double b : {-1.0, 0.25, 2.0}) {
      for (const double c : {-5.0, 1.0}) {
        Eigen::Matrix2d matrix;
        matrix << b, a, -0.75, 1.25;
        const Eigen::Vector2d expected =
            matrix.fullPivLu().solve(Eigen::Vector2d(-c, 4.0));  // b x + a y = -c
        EXPECT_THAT(Line(a, b, c).getIntersection(Line(1.25, -0.75, -4)),
                    IsPlaceNear(expected.x(), expected.y(), 0.0));
      }
    }
  }
}

TEST(LineCrossing, ParallelLinesMeetAtTheOrigin) {
  EXPECT_THAT(Line(1, -2, -1).getIntersection(Line(1, -2, 5)), IsPlace(0, 0, 0));
  EXPECT_THAT(Line(1, -2, -1).getIntersection(Line(2, -4, 7)), IsPlace(0, 0, 0));
  EXPECT_THAT(kVertical3.getIntersection(Line(0, 2, 5)), IsPlace(0, 0, 0));
  EXPECT_THAT(Line(1, 0, -2).getIntersection(Line(1, 0, -5)), IsPlace(0, 0, 0));
}

TEST(LineCrossing, TrueMeetingAtTheOriginLooksTheSame) {
  EXPECT_THAT(kDiagonal.getIntersection(Line(1, 1, 0)), IsPlace(0, 0, 0));
}

TEST(LineCrossing, ParallelsAreToldByAnExactTestOnly) {
  const VecPosition far = Line(1, -2, -1).getIntersection(Line(1, -2.000001, -2));
  EXPECT_NEAR(far.x, -1e6, 1);
}

TEST(LineCrossing, ImpossibleDivisionIsReportedAndGivesZero) {
  const Line degenerate(0, 0, 1);
  OutputCapture errors(OutputCapture::Stream::Error);
  EXPECT_THAT(kVertical3.getIntersection(degenerate), IsPlace(3, 0, 0));
  EXPECT_EQ(errors.text(), "(Line::getYGivenX) Cannot calculate Y coordinate\n");
}

TEST(ClosestPoint, IsTheFootOfThePerpendicular) {
  EXPECT_THAT(kDiagonal.getPointOnLineClosestTo(VecPosition(2, 0, 0)), IsPlaceNear(1.0, 1.0, 0.0));
  EXPECT_THAT(kVertical3.getPointOnLineClosestTo(VecPosition(-1, 5, 9)), IsPlace(3, 5, 0));
  EXPECT_THAT(Line(1, 0, -2).getPointOnLineClosestTo(VecPosition(-1, 5, 0)), IsPlace(-1, 2, 0));
}

TEST(ClosestPoint, NoOtherPointOfTheLineIsCloser) {
  const Line line(2, -3, 4);
  const VecPosition p(-1.5, 4.25, 0);
  const double nearest = p.getDistanceTo(line.getPointOnLineClosestTo(p));
  for (int i = -200; i <= 200; ++i) {
    const double x = i * 0.05;
    EXPECT_LE(nearest, p.getDistanceTo(VecPosition(x, line.getYGivenX(x), 0)) + 1e-12) << x;
  }
  EXPECT_NEAR(line.getDistanceWithPoint(p), nearest, 1e-12);
}

TEST(LineDistance, HeightOfThePointCounts) {
  EXPECT_NEAR(kDiagonal.getDistanceWithPoint(VecPosition(2, 0, 0)), std::sqrt(2.0), 1e-12);
  EXPECT_NEAR(kDiagonal.getDistanceWithPoint(VecPosition(2, 0, 1)), std::sqrt(3.0), 1e-12);
}

TEST(LineInBetween, FootDecides) {
  const VecPosition from(0, 0, 0);
  const VecPosition to(4, 0, 0);
  EXPECT_TRUE(kGround.isInBetween(VecPosition(2, 50, 0), from, to));
  EXPECT_FALSE(kGround.isInBetween(VecPosition(4.5, 0, 0), from, to));
  EXPECT_FALSE(kGround.isInBetween(VecPosition(-0.5, 0, 0), from, to));
}

TEST(LineInBetween, EndsBelongToIt) {
  EXPECT_TRUE(kGround.isInBetween(VecPosition(4, 3, 0), VecPosition(0, 0), VecPosition(4, 0)));
  EXPECT_TRUE(kGround.isInBetween(VecPosition(0, 3, 0), VecPosition(0, 0), VecPosition(4, 0)));
}

TEST(LineInBetween, EndsOffTheLineAreMeasuredFromTheFoot) {
  // Ends 4 apart and 3 off the line: the foot at (0.5, 0) is 3.04 and 4.6 away from them.
  EXPECT_FALSE(kGround.isInBetween(VecPosition(0.5, 9, 0), VecPosition(0, 3), VecPosition(4, 3)));
  EXPECT_TRUE(kGround.isInBetween(VecPosition(2, 9, 0), VecPosition(0, 3), VecPosition(4, 3)));
}

TEST(ParallelBand, PointBetweenVerticalLinesPasses) {
  const Line left(0, 1, 1.5);
  const Line right(0, 1, -1.5);
  for (const double x : {-1.5, -1.25, 0.0, 0.5, 1.5}) {
    EXPECT_TRUE(Line::isInBetweenTwoParallelLines(left, right, VecPosition(x, 100, 0))) << x;
    EXPECT_TRUE(Line::isInBetweenTwoParallelLines(right, left, VecPosition(x, -100, 0))) << x;
  }
}

TEST(ParallelBand, PointOutsideFails) {
  const Line left(0, 1, 1.5);
  const Line right(0, 1, -1.5);
  for (const double x : {-100.0, -1.51, 1.51, 2.0}) {
    EXPECT_FALSE(Line::isInBetweenTwoParallelLines(left, right, VecPosition(x, 0, 0))) << x;
  }
}

TEST(ParallelBand, HorizontalBandPasses) {
  const Line low(1, 0, 1.5);
  const Line high(1, 0, -1.5);
  EXPECT_TRUE(Line::isInBetweenTwoParallelLines(low, high, VecPosition(7, 1.25, 0)));
  EXPECT_FALSE(Line::isInBetweenTwoParallelLines(low, high, VecPosition(7, 1.75, 0)));
}

TEST(ParallelBand, HeightTakesAPointOutOfIt) {
  EXPECT_FALSE(
      Line::isInBetweenTwoParallelLines(Line(0, 1, 1.5), Line(0, 1, -1.5), VecPosition(0, 0, 0.5)));
}

TEST(ParallelBand, NoNumberFails) {
  const double none = std::numeric_limits<double>::quiet_NaN();
  const Line left(0, 1, 1.5);
  const Line right(0, 1, -1.5);
  EXPECT_FALSE(Line::isInBetweenTwoParallelLines(left, right, VecPosition(none, 0, 0)));
  EXPECT_FALSE(Line::isInBetweenTwoParallelLines(left, right, VecPosition(0, none, 0)));
  EXPECT_FALSE(Line::isInBetweenTwoParallelLines(Line(0, 1, none), right, VecPosition(0, 0, 0)));
}

TEST(ParallelBand, WithinASlopedBandRoundingDecides) {
  const Line low(1, -0.3, 1.7);
  const Line high(1, -0.3, -1.7);
  int passed = 0;
  for (int i = 0; i < 1000; ++i) {
    const double x = 0.0137 * i;
    passed +=
        Line::isInBetweenTwoParallelLines(low, high, VecPosition(x, 0.3 * x + 0.1, 0)) ? 1 : 0;
    EXPECT_FALSE(Line::isInBetweenTwoParallelLines(low, high, VecPosition(x, 0.3 * x + 1.71, 0)));
  }
  EXPECT_GT(passed, 0);
  EXPECT_LT(passed, 1000);
}

/// Start values that no crossing here has.
struct CircleCrossing {
  VecPosition p1{77, 77, 77};
  VecPosition p2{77, 77, 77};
  int count;

  CircleCrossing(const Line& line, const Circle& circle)
      : count(line.getCircleIntersectionPoints(circle, &p1, &p2)) {}
};

// y = x + 1 and the circle of radius 5 about the origin.
TEST(LineThroughCircle, SlopedLineGivesTheGreaterXFirst) {
  const CircleCrossing crossing(Line(1, -1, -1), Circle(VecPosition(0, 0, 0), 5));
  EXPECT_EQ(crossing.count, 2);
  EXPECT_THAT(crossing.p1, IsPlaceNear(3.0, 4.0, 0.0));
  EXPECT_THAT(crossing.p2, IsPlaceNear(-4.0, -3.0, 0.0));
}

TEST(LineThroughCircle, VerticalLineGivesTheGreaterYFirst) {
  const CircleCrossing crossing(kVertical3, Circle(VecPosition(0, 0, 9), 5));
  EXPECT_EQ(crossing.count, 2);
  EXPECT_THAT(crossing.p1, IsPlaceNear(3.0, 4.0, 0.0));
  EXPECT_THAT(crossing.p2, IsPlaceNear(3.0, -4.0, 0.0));
}

TEST(LineThroughCircle, NearlyVerticalCountsAsVertical) {
  const CircleCrossing crossing(Line(0.00005, 1, -3), Circle(VecPosition(0, 0, 0), 5));
  EXPECT_EQ(crossing.count, 2);
  EXPECT_THAT(crossing.p1, IsPlaceNear(3.0, 4.0, 0.0));
}

TEST(LineThroughCircle, TouchingLineLeavesZeroInTheSecond) {
  const CircleCrossing flat(Line(1, 0, -5), Circle(VecPosition(2, 0, 0), 5));
  EXPECT_EQ(flat.count, 1);
  EXPECT_THAT(flat.p1, IsPlaceNear(2.0, 5.0, 0.0));
  EXPECT_THAT(flat.p2, IsPlaceNear(0.0, 5.0, 0.0));
  const CircleCrossing upright(Line(0, 1, -5), Circle(VecPosition(0, 2, 0), 5));
  EXPECT_EQ(upright.count, 1);
  EXPECT_THAT(upright.p1, IsPlaceNear(5.0, 2.0, 0.0));
  EXPECT_THAT(upright.p2, IsPlaceNear(5.0, 0.0, 0.0));
}

TEST(LineThroughCircle, MissingLineStillWritesBoth) {
  const CircleCrossing sloped(Line(1, -1, -10), Circle(VecPosition(0, 0, 0), 5));
  EXPECT_EQ(sloped.count, 0);
  EXPECT_THAT(sloped.p1, IsPlaceNear(0.0, 10.0, 0.0));
  EXPECT_THAT(sloped.p2, IsPlaceNear(0.0, 10.0, 0.0));
  const CircleCrossing upright(Line(0, 1, -7), Circle(VecPosition(0, 0, 0), 5));
  EXPECT_EQ(upright.count, 0);
  EXPECT_THAT(upright.p1, IsPlaceNear(7.0, 0.0, 0.0));
  EXPECT_THAT(upright.p2, IsPlaceNear(7.0, 0.0, 0.0));
}

TEST(LineThroughCircle, PointsLieOnLineAndCircle) {
  const Circle circle(VecPosition(1, -2, 0), 3);
  for (int degrees = -80; degrees <= 80; degrees += 20) {
    SCOPED_TRACE(degrees);
    const Line line = Line::makeLineFromPositionAndAngle(VecPosition(1.5, -1, 0), degrees);
    const CircleCrossing crossing(line, circle);
    ASSERT_EQ(crossing.count, 2);
    EXPECT_GT(crossing.p1.x, crossing.p2.x);
    for (const VecPosition& p : {crossing.p1, crossing.p2}) {
      EXPECT_NEAR(p.getDistanceTo(circle.center), 3, 1e-9);
      EXPECT_NEAR(line.getYGivenX(p.x), p.y, 1e-9);
    }
  }
}

}  // namespace
