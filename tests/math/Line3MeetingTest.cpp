// Where lines in space meet planes and each other.

#include <gtest/gtest.h>

#include "math/Geometry.h"
#include "tests/support/OutputCapture.h"
#include "tests/support/Places.h"

namespace {

const VecPosition kElsewhere(77, 77, 77);

TEST(LineMeetsPlane, AtOnePoint) {
  VecPosition result = kElsewhere;
  EXPECT_TRUE(Line3({1, 2, 5}, {1, 3, 4}).getIntersectionWithPlane(Plane::XY, result));
  EXPECT_THAT(result, IsPlaceNear(1, 7, 0));
  // Behind the point too.
  EXPECT_TRUE(Line3({1, 2, 5}, {1, 1, 6}).getIntersectionWithPlane(Plane::XY, result));
  EXPECT_THAT(result, IsPlaceNear(1, 7, 0));
}

TEST(LineMeetsPlane, LineAlongThePlaneNeverDoes) {
  VecPosition result = kElsewhere;
  EXPECT_FALSE(Line3({0, 0, 1}, {1, 0, 1}).getIntersectionWithPlane(Plane::XY, result));
  EXPECT_EQ(result, UnknownPosition);
  result = kElsewhere;
  EXPECT_FALSE(Line3().getIntersectionWithPlane(Plane::XY, result));  // within it
  EXPECT_EQ(result, UnknownPosition);
}

TEST(LineMeetsPlane, ParallelIsExact) {
  VecPosition result = kElsewhere;
  EXPECT_TRUE(Line3({0, 0, 1}, {1, 0, 1 - 1e-9}).getIntersectionWithPlane(Plane::XY, result));
  EXPECT_NEAR(result.x, 1e9, 1e3);
}

TEST(LineMeetsPlane, ResultMayBeTheLinesOwnPoint) {
  Line3 line({1, 2, 5}, {1, 3, 4});
  EXPECT_TRUE(line.getIntersectionWithPlane(Plane::XY, line.point));
  EXPECT_THAT(line.point, IsPlaceNear(1, 7, 0));
}

TEST(LineProjection, LiesBelowTheLine) {
  Line3 shadow;
  EXPECT_TRUE(Line3({1, 2, 5}, {1, 5, 9}).getProjectionOnPlane(Plane::XY, shadow));
  EXPECT_THAT(shadow.point, IsPlaceNear(1, 2, 0));
  EXPECT_THAT(shadow.direction, IsPlaceNear(0, 1, 0));
}

TEST(LineProjection, LineAlongTheNormalHasNone) {
  const Line3 before({1, 2, 3}, {4, 5, 7});
  Line3 shadow = before;
  EXPECT_FALSE(Line3({1, 2, 5}, {1, 2, 9}).getProjectionOnPlane(Plane::XY, shadow));
  EXPECT_FALSE(Line3({1, 2, 9}, {1, 2, 5}).getProjectionOnPlane(Plane::XY, shadow));
  EXPECT_TRUE(shadow == before);
}

TEST(LineMeetsLine, CrossingLinesMeet) {
  VecPosition result = kElsewhere;
  EXPECT_TRUE(
      Line3({0, 2, 3}, {1, 2, 3}).getIntersectionWithLine(Line3({5, 0, 3}, {5, 1, 3}), result));
  EXPECT_THAT(result, IsPlaceNear(5, 2, 3));
}

TEST(LineMeetsLine, SkewLinesDoNot) {
  VecPosition result = kElsewhere;
  EXPECT_FALSE(Line3({0, 2, 3}, {1, 2, 3})
                   .getIntersectionWithLine(Line3({5, 0, 3.00011}, {5, 1, 3.00011}), result));
  EXPECT_EQ(result, UnknownPosition);
}

TEST(LineMeetsLine, PassingWithinTheToleranceIsMeetingHalfWay) {
  VecPosition result = kElsewhere;
  EXPECT_TRUE(Line3({0, 2, 3}, {1, 2, 3})
                  .getIntersectionWithLine(Line3({5, 0, 3.00008}, {5, 1, 3.00008}), result));
  EXPECT_THAT(result, IsPlaceNear(5, 2, 3.00004));
}

TEST(LineMeetsLine, PassingByTheToleranceItselfIsMeeting) {
  VecPosition result = kElsewhere;
  EXPECT_TRUE(Line3().getIntersectionWithLine(Line3({0, 0, EPSILON}, {0, 1, EPSILON}), result));
  EXPECT_THAT(result, IsPlaceNear(0, 0, 0.00005));
}

TEST(LineMeetsLine, ParallelsMustBeStrictlyWithinTheToleranceToBeOneLine) {
  VecPosition result = kElsewhere;
  EXPECT_TRUE(Line3().getIntersectionWithLine(Line3({9, 0.00009, 0}, {8, 0.00009, 0}), result));
  EXPECT_THAT(result, IsPlace(0, 0, 0));
  EXPECT_FALSE(Line3().getIntersectionWithLine(Line3({9, EPSILON, 0}, {8, EPSILON, 0}), result));
  EXPECT_EQ(result, UnknownPosition);
}

TEST(LineMeetsLine, LineWithoutDirectionMeetsNone) {
  Line3 none;
  none.setVector({0, 0, 0});
  VecPosition result = kElsewhere;
  OutputCapture errors(OutputCapture::Stream::Error);
  EXPECT_FALSE(none.getIntersectionWithLine(Line3(), result));
  EXPECT_EQ(result, UnknownPosition);
  EXPECT_EQ(errors.text(), "(Line3::getDistanceWithLine) Direction vector is zero\n");
}

TEST(LineMeetsLine, LineMeetsItselfAtItsPoint) {
  const Line3 line({1, 2, 3}, {1, 4, 3});
  const Line3 again({1, 9, 3}, {1, 8, 3});
  VecPosition result = kElsewhere;
  EXPECT_TRUE(line.getIntersectionWithLine(again, result));
  EXPECT_THAT(result, IsPlace(1, 2, 3));
  EXPECT_TRUE(again.getIntersectionWithLine(line, result));
  EXPECT_THAT(result, IsPlace(1, 9, 3));
}

TEST(LineMeetsLine, ParallelLinesDoNot) {
  VecPosition result = kElsewhere;
  EXPECT_FALSE(Line3().getIntersectionWithLine(Line3({0, 1, 0}, {1, 1, 0}), result));
  EXPECT_EQ(result, UnknownPosition);
}

// Parallel but for the last digits and through one point: the exact test says no, and the
// determinant of the two equations is next to nothing.
TEST(LineMeetsLine, NearlyParallelLinesHaveNoPointEvenIfTheyCross) {
  VecPosition result = kElsewhere;
  EXPECT_FALSE(Line3().getIntersectionWithLine(Line3({0, 0, 0}, {1, 1e-6, 0}), result));
  EXPECT_EQ(result, UnknownPosition);
}

TEST(LineMeetsLine, ResultMayBeEitherLinesOwnPoint) {
  Line3 one({0, 2, 3}, {1, 2, 3});
  Line3 other({5, 0, 3}, {5, 1, 3});
  EXPECT_TRUE(one.getIntersectionWithLine(other, other.point));
  EXPECT_THAT(other.point, IsPlaceNear(5, 2, 3));
  EXPECT_TRUE(one.getIntersectionWithLine(other, one.point));
  EXPECT_THAT(one.point, IsPlaceNear(5, 2, 3));
}

TEST(ShortestWay, JoinsThisLineToTheOther) {
  Line3 segment;
  VecPosition a;
  VecPosition b;
  EXPECT_TRUE(Line3({0, 2, 3}, {1, 2, 3})
                  .getLineLineIntersection(Line3({5, 0, 7}, {5, 1, 7}), segment, &a, &b));
  EXPECT_THAT(a, IsPlaceNear(5, 2, 3));
  EXPECT_THAT(b, IsPlaceNear(5, 2, 7));
  EXPECT_THAT(segment.point, IsPlaceNear(5, 2, 3));
  EXPECT_THAT(segment.direction, IsPlaceNear(0, 0, 1));
}

TEST(ShortestWay, EndsMayBeUnwanted) {
  Line3 segment;
  const Line3 other({5, 0, 7}, {5, 1, 7});
  EXPECT_TRUE(
      Line3({0, 2, 3}, {1, 2, 3}).getLineLineIntersection(other, segment, nullptr, nullptr));
  EXPECT_THAT(segment.point, IsPlaceNear(5, 2, 3));
  VecPosition b;
  EXPECT_TRUE(Line3({0, 2, 3}, {1, 2, 3}).getLineLineIntersection(other, segment, nullptr, &b));
  EXPECT_THAT(b, IsPlaceNear(5, 2, 7));
}

TEST(ShortestWay, OfCrossingLinesLeavesTheSegmentUntouched) {
  const Line3 before({1, 2, 3}, {4, 5, 7});
  Line3 segment = before;
  VecPosition a = kElsewhere;
  VecPosition b = kElsewhere;
  OutputCapture errors(OutputCapture::Stream::Error);
  EXPECT_TRUE(Line3().getLineLineIntersection(Line3({0, -1, 0}, {0, 1, 0}), segment, &a, &b));
  EXPECT_EQ(errors.text(), "");
  EXPECT_TRUE(segment == before);
  EXPECT_THAT(a, IsPlace(0, 0, 0));
  EXPECT_THAT(b, IsPlace(0, 0, 0));
}

TEST(ShortestWay, ParallelLinesHaveNone) {
  const Line3 before({1, 2, 3}, {4, 5, 7});
  Line3 segment = before;
  VecPosition a = kElsewhere;
  VecPosition b = kElsewhere;
  EXPECT_FALSE(Line3().getLineLineIntersection(Line3({0, 1, 0}, {1, 1, 0}), segment, &a, &b));
  // sin² of the angle between them is below the tolerance up to 0.57 degrees.
  EXPECT_FALSE(Line3().getLineLineIntersection(Line3({0, 1, 0}, 0.5, 0), segment, &a, &b));
  EXPECT_TRUE(segment == before);
  EXPECT_EQ(a, kElsewhere);
  EXPECT_EQ(b, kElsewhere);
  EXPECT_TRUE(Line3().getLineLineIntersection(Line3({0, 1, 1}, 0.6, 0), segment, &a, &b));
}

TEST(ShortestWay, LineWithoutDirectionHasNone) {
  Line3 none({0, 1, 0}, {0, 1.00009, 0});
  Line3 segment;
  EXPECT_FALSE(Line3().getLineLineIntersection(none, segment, nullptr, nullptr));
  EXPECT_FALSE(none.getLineLineIntersection(Line3(), segment, nullptr, nullptr));
}

}  // namespace
