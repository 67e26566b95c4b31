// The rotation of a quaternion as angles, by numbers worked out by hand.

#include <gtest/gtest.h>

#include <cmath>

#include "math/Geometry.h"
#include "math/Quaternion.h"
#include "tests/support/Places.h"

namespace {

constexpr double kPoleZ = 1.5707963267948966;

Quaternion fromEuler(double x, double y, double z) {
  Quaternion q;
  q.fromEulerAngles({x, y, z});
  return q;
}

TEST(QuaternionToAngleAxis, AboutYLeavesTheCallersYAndEndsWithZZero) {
  VecPosition axis(7, 8, 9);
  double degrees = 0;
  Quaternion(90, VecPosition(0, 1, 0)).toAngleAxis(degrees, axis);
  EXPECT_NEAR(degrees, 90, 1e-12);
  EXPECT_THAT(axis, IsPlaceNear(0, 8, 0));
  EXPECT_EQ(axis.y, 8);
}

TEST(QuaternionToAngleAxis, XAndZAreOfTheUnitAxis) {
  VecPosition axis(7, 8, 9);
  double degrees = 0;
  Quaternion(120, VecPosition(2, 3, 6)).toAngleAxis(degrees, axis);
  EXPECT_NEAR(degrees, 120, 1e-12);
  EXPECT_THAT(axis, IsPlaceNear(2.0 / 7, 8, 6.0 / 7));
}

TEST(QuaternionToAngleAxis, NoTurnIsTakenAlongXWithAllMembers) {
  VecPosition axis(7, 8, 9);
  double degrees = 5;
  Quaternion().toAngleAxis(degrees, axis);
  EXPECT_EQ(degrees, 0);
  EXPECT_THAT(axis, IsPlace(1, 0, 0));
}

TEST(QuaternionToAngleAxis, RealPartBeyondOneHasNoDomainError) {
  VecPosition axis;
  double degrees = 5;
  Quaternion(1 + 1e-15, 1e-9, 0, 0).toAngleAxis(degrees, axis);
  EXPECT_EQ(degrees, 0);
  Quaternion(-1 - 1e-15, 1e-9, 0, 0).toAngleAxis(degrees, axis);
  EXPECT_EQ(degrees, 360);
}

TEST(QuaternionPitchRollYaw, EachIsTheTurnAboutItsAxis) {
  for (const bool project : {false, true}) {
    SCOPED_TRACE(project);
    EXPECT_NEAR(Quaternion(50, VecPosition(1, 0, 0)).getPitch(project), 50, 1e-12);
    EXPECT_NEAR(Quaternion(50, VecPosition(0, 0, 1)).getRoll(project), 50, 1e-12);
    EXPECT_NEAR(Quaternion(50, VecPosition(0, 1, 0)).getYaw(project), 50, 1e-12);
    EXPECT_EQ(Quaternion().getPitch(project), 0);
    EXPECT_EQ(Quaternion().getRoll(project), 0);
    EXPECT_EQ(Quaternion().getYaw(project), 0);
  }
}

TEST(QuaternionPitchRollYaw, YawBeyondAQuarterTurnNeedsTheProjection) {
  const Quaternion q(130, VecPosition(0, 1, 0));
  EXPECT_NEAR(q.getYaw(true), 130, 1e-12);
  EXPECT_NEAR(q.getYaw(false), 50, 1e-12);  // asin
}

// (2, 1, 3, 5) isn't a unit quaternion; the formulas differ in which squares they assume.
TEST(QuaternionPitchRollYaw, FormulasDifferAwayFromUnitLength) {
  const Quaternion q(2, 1, 3, 5);
  const auto degrees = [](double y, double x) { return std::atan2(y, x) / PI * 180; };
  EXPECT_NEAR(q.getPitch(true), degrees(30 + 4, 1 - (2 + 50)), 1e-12);
  EXPECT_NEAR(q.getPitch(false), degrees(2 * (15 + 2), 4 - 1 - 9 + 25), 1e-12);
  EXPECT_NEAR(q.getRoll(true), degrees(6 + 20, 1 - (18 + 50)), 1e-12);
  EXPECT_NEAR(q.getRoll(false), degrees(2 * (3 + 10), 4 + 1 - 9 - 25), 1e-12);
  EXPECT_NEAR(q.getYaw(true), degrees(10 + 12, 1 - (2 + 18)), 1e-12);
  EXPECT_NEAR((q * 0.5).getYaw(false), 30, 1e-12);  // -2 (1.25 - 1.5) = 0.5
  EXPECT_EQ(q.getYaw(false), 90);                   // 2 is no sine
}

TEST(QuaternionEuler, OneAngleIsATurnAboutItsAxis) {
  const double c = std::sqrt(3.0) / 2;
  const Quaternion aboutX = fromEuler(60, 0, 0);
  EXPECT_NEAR(aboutX.w, c, 1e-12);
  EXPECT_NEAR(aboutX.x, 0.5, 1e-12);
  const Quaternion aboutY = fromEuler(0, 60, 0);
  EXPECT_NEAR(aboutY.w, c, 1e-12);
  EXPECT_NEAR(aboutY.y, 0.5, 1e-12);
  const Quaternion aboutZ = fromEuler(0, 0, 60);
  EXPECT_NEAR(aboutZ.w, c, 1e-12);
  EXPECT_NEAR(aboutZ.z, 0.5, 1e-12);
}

// About x: y to z. Then about z: nothing. Then about y: z to x.
TEST(QuaternionEuler, TurnsAboutXThenZThenY) {
  EXPECT_THAT(fromEuler(90, 90, 0) * VecPosition(0, 1, 0), IsPlaceNear(1, 0, 0));
  // x to x to y to y; about x first leaves x alone.
  EXPECT_THAT(fromEuler(90, 90, 90) * VecPosition(1, 0, 0), IsPlaceNear(0, 1, 0));
}

TEST(QuaternionEuler, IdentityHasNoAngles) {
  EXPECT_THAT(Quaternion::identity.toEulerAngles(), IsPlace(0, 0, 0));
}

TEST(QuaternionEuler, AnglesComeBackAwayFromThePoles) {
  EXPECT_THAT(fromEuler(30, 40, 50).toEulerAngles(), IsPlaceNear(30, 40, 50));
  EXPECT_THAT(fromEuler(-130, 170, -50).toEulerAngles(), IsPlaceNear(-130, 170, -50));
}

TEST(QuaternionEuler, LengthPlaysNoPart) {
  EXPECT_THAT((fromEuler(30, 40, 50) * 3.0).toEulerAngles(), IsPlaceNear(30, 40, 50));
  EXPECT_EQ((fromEuler(30, 40, 90) * 3.0).toEulerAngles().z, kPoleZ);
}

// At z = 90 the turns about x and y are one of x + y about x half-way: 2 atan2(x, w) = x + y.
TEST(QuaternionEuler, AtThePoleZIsPiHalvesAndXIsZero) {
  EXPECT_THAT(fromEuler(30, 40, 90).toEulerAngles(), IsPlaceNear(0, 70, kPoleZ));
}

TEST(QuaternionEuler, AtTheOtherPoleZHasTheSameSign) {
  // x = s3 c1 c2 - c3 s1 c2 and w = c3 c1 c2 + s3 s1 c2: the angle of 30 - 40, and its opposite.
  EXPECT_THAT(fromEuler(30, 40, -90).toEulerAngles(), IsPlaceNear(0, 10, kPoleZ));
}

TEST(QuaternionEuler, PolesBeginWhereTheSineIsJustBelowOne) {
  // 2 * 0.499 = 0.998 = sin(86.376...)
  EXPECT_NEAR(fromEuler(0, 0, 86.3).toEulerAngles().z, 86.3, 1e-9);
  EXPECT_EQ(fromEuler(0, 0, 86.4).toEulerAngles().z, kPoleZ);
  EXPECT_NEAR(fromEuler(0, 0, -86.3).toEulerAngles().z, -86.3, 1e-9);
  EXPECT_EQ(fromEuler(0, 0, -86.4).toEulerAngles().z, kPoleZ);
}

}  // namespace
