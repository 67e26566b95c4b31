#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "math/Geometry.h"
#include "tests/math/Constants.h"

namespace {

TEST(Constants, ToleranceAndPi) {
  EXPECT_EQ(EPSILON, 0.0001);
  EXPECT_EQ(PI, std::acos(-1.0));
}

TEST(DegreeConversion, HalfTurnIsPi) {
  EXPECT_DOUBLE_EQ(Deg2Rad(180.0), 3.141592653589793);
  EXPECT_DOUBLE_EQ(Rad2Deg(3.141592653589793), 180.0);
  EXPECT_DOUBLE_EQ(Deg2Rad(-45.0), -0.7853981633974483);
  EXPECT_DOUBLE_EQ(Rad2Deg(0.5), 28.64788975654116);
}

TEST(DegreeConversion, EachUndoesTheOther) {
  for (int i = -58; i <= 58; ++i) {
    const double degrees = 12.5 * i;
    EXPECT_NEAR(Rad2Deg(Deg2Rad(degrees)), degrees, 1e-10);
  }
}

TEST(DegreeFunctions, KnownSinesCosinesAndTangents) {
  const double halfRootTwo = 0.7071067811865476;
  const double halfRootThree = 0.8660254037844386;
  EXPECT_NEAR(sinDeg(30), 0.5, kTiny);
  EXPECT_NEAR(sinDeg(-90), -1, kTiny);
  EXPECT_NEAR(sinDeg(135), halfRootTwo, kTiny);
  EXPECT_NEAR(cosDeg(60), 0.5, kTiny);
  EXPECT_NEAR(cosDeg(150), -halfRootThree, kTiny);
  EXPECT_NEAR(tanDeg(45), 1, kTiny);
  EXPECT_NEAR(tanDeg(-60), -1.7320508075688772, 1e-11);
}

TEST(DegreeFunctions, AnglesBeyondOneTurnAreTaken) {
  EXPECT_NEAR(sinDeg(30 + 3 * 360), 0.5, kTiny);
  EXPECT_NEAR(cosDeg(60 - 5 * 360), 0.5, kTiny);
}

TEST(DegreeFunctions, KnownInverses) {
  EXPECT_NEAR(asinDeg(0.5), 30, kTiny);
  EXPECT_NEAR(asinDeg(-0.5), -30, kTiny);
  EXPECT_NEAR(acosDeg(0.5), 60, kTiny);
  EXPECT_NEAR(acosDeg(-0.5), 120, kTiny);
  EXPECT_NEAR(atanDeg(1), 45, kTiny);
  EXPECT_NEAR(atanDeg(-1.7320508075688772), -60, kTiny);
}

TEST(DegreeFunctions, ArcSineAndArcCosineHaveNoDomainError) {
  EXPECT_EQ(asinDeg(1), 90);
  EXPECT_EQ(asinDeg(1.5), 90);
  EXPECT_EQ(asinDeg(-1), -90);
  EXPECT_EQ(asinDeg(-7), -90);
  EXPECT_EQ(acosDeg(1), 0);
  EXPECT_EQ(acosDeg(1.0001), 0);
  EXPECT_EQ(acosDeg(-1), 180);
  EXPECT_EQ(acosDeg(-1.5), 180);
}

TEST(ArcTangentOfTwo, FourQuadrantsAndTheAxes) {
  struct Row {
    double y, x, degrees;
  };
  const double rootThree = 1.7320508075688772;
  for (const Row& row :
       {Row{0, 1, 0}, Row{1, 1, 45}, Row{1, 0, 90}, Row{rootThree, -1, 120}, Row{0, -1, 180},
        Row{-1, -1, -135}, Row{-1, 0, -90}, Row{-1, rootThree, -30}}) {
    SCOPED_TRACE(testing::Message() << "y " << row.y << ", x " << row.x);
    EXPECT_NEAR(atan2Deg(row.y, row.x), row.degrees, kTiny);
  }
}

TEST(ArcTangentOfTwo, NextToNothingIsZero) {
  EXPECT_EQ(atan2Deg(0.00005, -0.00005), 0);
  EXPECT_NEAR(atan2Deg(0.0002, 0), 90, kTiny);
}

TEST(ArcTangentOfTwo, BothArgumentsMustBeStrictlyBelowTheTolerance) {
  EXPECT_NEAR(atan2Deg(0.0001, 0.0), 90, kTiny);
  EXPECT_NEAR(atan2Deg(0.0, -0.0001), 180, kTiny);
  EXPECT_NEAR(atan2Deg(-0.00005, -0.0002), -165.96375653207352, 1e-9);
  EXPECT_EQ(atan2Deg(-0.0000999, -0.0000999), 0);
}

TEST(NormalizeAngle, BothEndsStayAsTheyAre) {
  EXPECT_EQ(VecPosition::normalizeAngle(180), 180);
  EXPECT_EQ(VecPosition::normalizeAngle(-180), -180);
}

TEST(NormalizeAngle, WholeTurnsComeOff) {
  EXPECT_EQ(VecPosition::normalizeAngle(540), 180);
  EXPECT_EQ(VecPosition::normalizeAngle(-541), 179);
  EXPECT_EQ(VecPosition::normalizeAngle(-540), -180);
  EXPECT_EQ(VecPosition::normalizeAngle(181), -179);
  EXPECT_EQ(VecPosition::normalizeAngle(-180.5), 179.5);
  EXPECT_EQ(VecPosition::normalizeAngle(3610), 10);
  EXPECT_EQ(VecPosition::normalizeAngle(0), 0);
}

TEST(NormalizeAngle, NotANumberFallsThrough) {
  EXPECT_TRUE(std::isnan(VecPosition::normalizeAngle(std::numeric_limits<double>::quiet_NaN())));
}

TEST(AngleInInterval, PlainIntervalLeavesItsBoundsOut) {
  EXPECT_FALSE(isAngInInterval(10, 10, 20));
  EXPECT_FALSE(isAngInInterval(20, 10, 20));
  EXPECT_TRUE(isAngInInterval(15, 10, 20));
  EXPECT_FALSE(isAngInInterval(9.99, 10, 20));
  EXPECT_FALSE(isAngInInterval(20.01, 10, 20));
}

TEST(AngleInInterval, WrappingIntervalTakesItsBoundsIn) {
  EXPECT_TRUE(isAngInInterval(350, 350, 10));
  EXPECT_TRUE(isAngInInterval(10, 350, 10));
  EXPECT_TRUE(isAngInInterval(0, 350, 10));
  EXPECT_FALSE(isAngInInterval(20, 350, 10));
  EXPECT_FALSE(isAngInInterval(349.99, 350, 10));
}

TEST(AngleInInterval, EqualBoundsCountAsTheWholeTurn) {
  EXPECT_TRUE(isAngInInterval(45, 45, 45));
  EXPECT_TRUE(isAngInInterval(44, 45, 45));
  EXPECT_TRUE(isAngInInterval(200, 45, 45));
}

TEST(AngleInInterval, NegativeAnglesGetOneTurn) {
  EXPECT_TRUE(isAngInInterval(-5, -10, 10));      // 355 in 350..10
  EXPECT_TRUE(isAngInInterval(-10, -20, -5));     // 350 in 340..355
  EXPECT_FALSE(isAngInInterval(-20, -20, -5));    // 340 is the bound of a plain interval
  EXPECT_TRUE(isAngInInterval(-90, 180, 300));    // 270
  EXPECT_FALSE(isAngInInterval(-400, 310, 330));  // one turn only: -40 lies below the interval
}

TEST(AngleDifference, SmallerWayRound) {
  EXPECT_DOUBLE_EQ(getAngleDifference(170, -170), 20);
  EXPECT_DOUBLE_EQ(getAngleDifference(-90, 90), 180);
  EXPECT_DOUBLE_EQ(getAngleDifference(10, 50), 40);
  EXPECT_DOUBLE_EQ(getAngleDifference(-10, 50), 60);
  EXPECT_DOUBLE_EQ(getAngleDifference(180, -180), 0);
  EXPECT_DOUBLE_EQ(getAngleDifference(0, -135), 135);
}

TEST(AngleDifference, IsTheSameFromEitherSide) {
  for (int a = -180; a <= 180; a += 15) {
    for (int b = -180; b <= 180; b += 15) {
      EXPECT_DOUBLE_EQ(getAngleDifference(a, b), getAngleDifference(b, a));
      // The angle between two unit vectors is the same thing computed another way.
      const double cosine = std::cos((a - b) * PI / 180);
      EXPECT_NEAR(std::cos(getAngleDifference(a, b) * PI / 180), cosine, 1e-9);
    }
  }
}

TEST(Bisector, HalfWayAlongTheSmallerArc) {
  EXPECT_NEAR(getBisectorTwoAngles(0, 90), 45, kTiny);
  EXPECT_NEAR(getBisectorTwoAngles(-30, 10), -10, kTiny);
  EXPECT_NEAR(std::fabs(getBisectorTwoAngles(170, -170)), 180, 1e-9);
  EXPECT_NEAR(getBisectorTwoAngles(100, -120), 170, 1e-9);
  EXPECT_NEAR(getBisectorTwoAngles(45, 45), 45, kTiny);
}

TEST(Bisector, OppositeAnglesHaveNone) {
  EXPECT_EQ(getBisectorTwoAngles(0, 180), 0);
  EXPECT_EQ(getBisectorTwoAngles(-90, 90), 0);
  EXPECT_EQ(getBisectorTwoAngles(45, -135), 0);
}

}  // namespace
