#include "math/Line3.h"

#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>

#include "math/Geometry.h"
#include "tests/support/OutputCapture.h"
#include "tests/support/Places.h"

namespace {

// Direction (2, 3, 6) / 7.
const Line3 kSlantedLine({1, 1, 1}, {3, 4, 7});

TEST(Line3, IsAPlainValueOfSixNumbers) {
  EXPECT_FALSE(std::is_polymorphic_v<Line3>);
  EXPECT_EQ(sizeof(Line3), 6 * sizeof(double));
}

TEST(Line3, StartsAlongXThroughTheOrigin) {
  EXPECT_THAT(Line3().getVector(), IsPlace(1, 0, 0));
  EXPECT_THAT(Line3().getPoint(), IsPlace(0, 0, 0));
}

TEST(Line3, TwoPointsGiveAUnitDirectionFromTheFirst) {
  EXPECT_THAT(kSlantedLine.direction, IsPlaceNear(2.0 / 7, 3.0 / 7, 6.0 / 7));
  EXPECT_THAT(kSlantedLine.point, IsPlace(1, 1, 1));
  Line3 line;
  EXPECT_TRUE(line.makeLineFromTwoPoints({1, 1, 1}, {1, 1, -3}));
  EXPECT_THAT(line.direction, IsPlace(0, 0, -1));
}

TEST(Line3, PointWithItselfIsReportedAndLeavesTheLineAsItWas) {
  Line3 line = kSlantedLine;
  OutputCapture errors(OutputCapture::Stream::Error);
  EXPECT_FALSE(line.makeLineFromTwoPoints({5, 6, 7}, {5, 6, 7}));
  EXPECT_TRUE(line == kSlantedLine);
  const Line3 made({5, 6, 7}, {5, 6, 7});
  EXPECT_TRUE(made == Line3());
  const std::string once = "(Line3::makeLineFromTwoPoints) Given points are identical\n";
  EXPECT_EQ(errors.text(), once + once);
}

TEST(Line3, DirectionNextToNothingIsNotScaled) {
  EXPECT_THAT(Line3({0, 0, 0}, {0, 0.00005, 0}).direction, IsPlace(0, 0.00005, 0));
  EXPECT_THAT(Line3({0, 0, 0}, {0, EPSILON, 0}).direction, IsPlace(0, EPSILON, 0));
  EXPECT_THAT(Line3({0, 0, 0}, {0, 0.00011, 0}).direction, IsPlaceNear(0, 1, 0));
  Line3 line;
  line.setVector({0, 0, -0.00005});
  EXPECT_THAT(line.direction, IsPlace(0, 0, -0.00005));
  line.setVector({0, 0, -8});
  EXPECT_THAT(line.direction, IsPlace(0, 0, -1));
}

TEST(Line3, AnglesAreAzimuthAndElevation) {
  const Line3 line({1, 2, 3}, 90, 30);
  EXPECT_THAT(line.direction, IsPlaceNear(0, std::sqrt(3.0) / 2, 0.5));
  EXPECT_THAT(line.point, IsPlace(1, 2, 3));
  Line3 other;
  other.makeLineFromPointAndAngle({1, 2, 3}, 90, 30);
  EXPECT_TRUE(other == line);
}

TEST(Line3, VectorAndPointKeepThePointBeforeTheVector) {
  Line3 line;
  EXPECT_TRUE(line.makeLineFromVectorAndPoint({0, 0, 4}, {1, 2, 3}));
  EXPECT_THAT(line.direction, IsPlace(0, 0, 1));
  EXPECT_THAT(line.point, IsPlace(1, 2, -1));
  EXPECT_TRUE(line.isPointOnLine({1, 2, 3}));
}

TEST(Line3, LineOfTheFieldLiesAtHeightZero) {
  const Line3 sloped(Line(1, -2, -1));  // y = 2x + 1
  EXPECT_THAT(sloped.point, IsPlace(0, 1, 0));
  EXPECT_THAT(sloped.direction, IsPlaceNear(1 / std::sqrt(5.0), 2 / std::sqrt(5.0), 0));
  const Line3 vertical(Line(0, 2, -6));  // x = 3
  EXPECT_THAT(vertical.point, IsPlace(3, 0, 0));
  EXPECT_THAT(vertical.direction, IsPlace(0, 1, 0));
  Line3 made;
  made.makeLineFromLineAndXYPlane(Line(0, 2, -6));
  EXPECT_TRUE(made == vertical);
}

TEST(Line3, PointIsSetAsGiven) {
  Line3 line = kSlantedLine;
  line.setPoint({9, 8, 7});
  EXPECT_THAT(line.getPoint(), IsPlace(9, 8, 7));
  EXPECT_EQ(line.getVector(), kSlantedLine.direction);
}

TEST(Line3, EqualityIsOfDirectionAndPoint) {
  const Line3 line({0, 0, 0}, {0, 0, 2});
  Line3 copy;
  copy = line;
  EXPECT_TRUE(copy == line);
  EXPECT_FALSE(copy != line);
  const Line3 fromFurtherOn({0, 0, 1}, {0, 0, 2});
  const Line3 backwards({0, 0, 0}, {0, 0, -2});
  EXPECT_TRUE(line != fromFurtherOn);
  EXPECT_FALSE(line == fromFurtherOn);
  EXPECT_TRUE(line != backwards);
}

TEST(Line3Distance, IsTheHeightOfThePoint) {
  EXPECT_NEAR(Line3().getDistanceWithPoint({77, 3, 4}), 5, 1e-12);
  EXPECT_NEAR(Line3({1, 0, 0}, {1, 1, 0}).getDistanceWithPoint({1, 9, -2}), 2, 1e-12);
}

TEST(Line3Distance, LineWithoutDirectionIsReported) {
  Line3 line;
  line.setVector({0, 0, 0});
  OutputCapture errors(OutputCapture::Stream::Error);
  const double distance = line.getDistanceWithPoint({1, 2, 3});
  EXPECT_EQ(errors.text(), "(Line3::getDistanceWithLine) Direction vector is zero\n");
  EXPECT_EQ(distance, -1000);
}

TEST(Line3Distance, PointIsOnTheLineWithinTheTolerance) {
  EXPECT_TRUE(Line3().isPointOnLine({5, 0, 0}));
  EXPECT_TRUE(Line3().isPointOnLine({5, 0.00009, 0}));
  EXPECT_FALSE(Line3().isPointOnLine({5, 0, 0.0001}));
  EXPECT_FALSE(Line3().isPointOnLine({5, 0.00008, 0.00008}));
}

// -1000 is below the tolerance.
TEST(Line3Distance, EveryPointIsOnALineWithoutDirection) {
  Line3 line;
  line.setVector({0, 0, 0});
  OutputCapture errors(OutputCapture::Stream::Error);
  const bool on = line.isPointOnLine({1, 2, 3});
  EXPECT_EQ(errors.text(), "(Line3::getDistanceWithLine) Direction vector is zero\n");
  EXPECT_TRUE(on);
}

TEST(Line3Distance, ClosestPointIsTheFoot) {
  EXPECT_THAT(Line3({2, 5, 1}, {2, 6, 1}).getPointOnLineClosestTo({7, 8, 9}), IsPlaceNear(2, 8, 1));
  // (4, 4, 1) = (1, 1, 1) + (3, 3, 0), and (3, 3, 0) · (2, 3, 6) / 49 = 15 / 49.
  EXPECT_THAT(kSlantedLine.getPointOnLineClosestTo({4, 4, 1}),
              IsPlaceNear(79.0 / 49, 94.0 / 49, 139.0 / 49));
}

TEST(Line3Distance, SkewLinesPassEachOther) {
  const Line3 alongX({0, 0, 1}, {1, 0, 1});
  const Line3 alongY({5, 7, -2}, {5, 8, -2});
  EXPECT_NEAR(alongX.getDistanceWithLine(alongY), 3, 1e-12);
  EXPECT_NEAR(alongY.getDistanceWithLine(alongX), 3, 1e-12);
}

TEST(Line3Distance, ParallelLinesKeepTheirs) {
  const Line3 other({3, 3, 4}, {1, 3, 4});
  EXPECT_NEAR(Line3().getDistanceWithLine(other), 5, 1e-12);
}

// 10 ahead, 3 beside and 4 above: a parallel there is 5 away, any other line 4.
TEST(Line3Distance, NearlyParallelLinesAreTakenForParallel) {
  EXPECT_NEAR(Line3().getDistanceWithLine(Line3({10, 3, 4}, {11, 3.00009, 4})), 5, 1e-12);
  EXPECT_NEAR(Line3().getDistanceWithLine(Line3({10, 3, 4}, {11, 3.00011, 4})), 4, 1e-12);
}

TEST(Line3Distance, BetweenLinesReportsThisOneWithoutDirection) {
  Line3 none;
  none.setVector({0, 0, 0});
  OutputCapture errors(OutputCapture::Stream::Error);
  const double fromThis = none.getDistanceWithLine(Line3());
  const double fromTheOther = Line3({0, 3, 4}, {1, 3, 4}).getDistanceWithLine(none);
  EXPECT_EQ(errors.text(), "(Line3::getDistanceWithLine) Direction vector is zero\n");
  EXPECT_EQ(fromThis, -1000);
  EXPECT_NEAR(fromTheOther, 5, 1e-12);
}

TEST(Line3Text, NamesDirectionAndPoint) {
  EXPECT_EQ(Line3({1, 2, 3}, {1, 2, 5}).str(), "(Line3 V(0.00 0.00 1.00) P(1.00 2.00 3.00))");
}

}  // namespace
