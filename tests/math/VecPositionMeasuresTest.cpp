#include <gtest/gtest.h>

#include <cmath>

#include "math/Geometry.h"
#include "tests/math/Constants.h"

namespace {

void expectNear(const VecPosition& v, double x, double y, double z) {
  EXPECT_NEAR(v.x, x, kTiny);
  EXPECT_NEAR(v.y, y, kTiny);
  EXPECT_NEAR(v.z, z, kTiny);
}

TEST(PolarForm, MagnitudeAzimuthElevation) {
  expectNear(VecPosition::getVecPositionFromPolar(2, 90, 0), 0, 2, 0);
  expectNear(VecPosition::getVecPositionFromPolar(2, 0, 90), 0, 0, 2);
  expectNear(VecPosition::getVecPositionFromPolar(4, 60, 30), std::sqrt(3.0), 3, 2);
  expectNear(VecPosition::getVecPositionFromPolar(2, 180, -30), -std::sqrt(3.0), 0, -1);
}

TEST(PolarForm, AnyKindButCartesianIsPolar) {
  expectNear(VecPosition(2, 90, 0, POLAR), 0, 2, 0);
  expectNear(VecPosition(2, 90, 0, static_cast<CoordSystemT>(2)), 0, 2, 0);
  VecPosition v;
  v.setVecPosition(2, 180, 0, POLAR);
  expectNear(v, -2, 0, 0);
  EXPECT_EQ(static_cast<int>(CARTESIAN), 0);
  EXPECT_EQ(static_cast<int>(POLAR), 1);
}

TEST(PolarForm, MeasuresUndoIt) {
  for (int i = 0; i <= 10; ++i) {
    for (int phi = -85; phi <= 85; phi += 17) {
      const double theta = -175 + 35.5 * i;
      SCOPED_TRACE(testing::Message() << "theta " << theta << ", phi " << phi);
      const VecPosition v(3.5, theta, phi, POLAR);
      EXPECT_NEAR(v.getMagnitude(), 3.5, kTiny);
      EXPECT_NEAR(v.getDirection(), theta, 1e-10);
      EXPECT_NEAR(v.getTheta(), theta, 1e-10);
      EXPECT_NEAR(v.getPhi(), phi, 1e-10);
    }
  }
}

TEST(Measures, MagnitudeAndDistanceCountAllThreeAxes) {
  EXPECT_DOUBLE_EQ(VecPosition(2, -3, 6).getMagnitude(), 7);
  EXPECT_EQ(VecPosition(0, 0, 0).getMagnitude(), 0);
  EXPECT_DOUBLE_EQ(VecPosition(3, 0, 7).getDistanceTo(VecPosition(1, 3, 1)), 7);
}

TEST(Measures, VerticalVectorHasDirectionZeroAndElevationNinety) {
  EXPECT_EQ(VecPosition(0, 0, 5).getDirection(), 0);
  EXPECT_NEAR(VecPosition(0, 0, 5).getPhi(), 90, kTiny);
  EXPECT_NEAR(VecPosition(0, 0, -5).getPhi(), -90, kTiny);
}

TEST(Measures, DirectionOfNextToNothingIsZero) {
  EXPECT_EQ(VecPosition(-0.00005, 0.00005, 3).getDirection(), 0);
  EXPECT_NEAR(VecPosition(-0.0002, 0, 3).getDirection(), 180, kTiny);
  EXPECT_NEAR(VecPosition(0, 0.0001, 0).getTheta(), 90, kTiny);
}

TEST(Measures, ElevationOfNextToNothingIsZero) {
  EXPECT_EQ(VecPosition(0.00005, 0.00005, 0.00005).getPhi(), 0);
  EXPECT_NEAR(VecPosition(0, 0, 0.0001).getPhi(), 90, kTiny);
}

TEST(Measures, DirectionOfTheNegativeAxisIsHalfATurn) {
  EXPECT_NEAR(VecPosition(-1, 0, 0).getDirection(), 180, kTiny);
  EXPECT_NEAR(VecPosition(-1, -1, 0).getDirection(), -135, kTiny);
}

TEST(SetMagnitude, ScalesTheObjectAndReturnsACopy) {
  VecPosition v(0, 3, 4);
  const VecPosition copy = v.setMagnitude(10);
  expectNear(v, 0, 6, 8);
  EXPECT_TRUE(copy == v);
  v.setMagnitude(-5);
  expectNear(v, 0, -3, -4);
}

TEST(SetMagnitude, LeavesAVectorNextToNothingAlone) {
  VecPosition v(0.00005, 0, 0);
  EXPECT_TRUE(v.setMagnitude(10) == VecPosition(0.00005, 0, 0));
  EXPECT_TRUE(v == VecPosition(0.00005, 0, 0));
  VecPosition atTheTolerance(0, 0, EPSILON);
  atTheTolerance.setMagnitude(10);
  EXPECT_TRUE(atTheTolerance == VecPosition(0, 0, EPSILON));
  VecPosition above(0, 0, 0.00011);
  above.setMagnitude(10);
  expectNear(above, 0, 0, 10);
}

TEST(Normalize, GivesLengthOne) {
  VecPosition v(-2, 3, 6);
  const VecPosition copy = v.normalize();
  expectNear(v, -2.0 / 7, 3.0 / 7, 6.0 / 7);
  EXPECT_TRUE(copy == v);
}

TEST(Normalize, LeavesAVectorNextToNothingAlone) {
  VecPosition v(0.00005, 0, 0);
  v.normalize();
  EXPECT_TRUE(v == VecPosition(0.00005, 0, 0));
}

TEST(Rotate, TurnsAboutTheVerticalAxis) {
  VecPosition v(1, 0, 0, CARTESIAN);
  const VecPosition copy = v.rotate(90);
  expectNear(v, 0, 1, 0);
  EXPECT_TRUE(copy == v);
  expectNear(VecPosition(3, 4, 5).rotate(180), -3, -4, 5);
  expectNear(VecPosition(3, 4, 5).rotate(-90), 4, -3, 5);
}

TEST(Rotate, HeightGoesThroughThePolarFormToo) {
  int rounded = 0;
  for (int i = 0; i < 100; ++i) {
    const double z = 0.05 + 0.1 * i;
    const VecPosition before(1, 1, z);
    VecPosition after = before;
    after.rotate(10);
    EXPECT_NEAR(after.z, z, 1e-14);
    EXPECT_EQ(after.z, before.getMagnitude() * sinDeg(before.getPhi()));
    rounded += after.z != z ? 1 : 0;
  }
  EXPECT_GT(rounded, 0);  // the detour shows
  EXPECT_EQ(VecPosition(1, 0, 0).rotate(90).z, 0);
}

TEST(Rotate, VerticalVectorNextToNothingKeepsItsPlace) {
  expectNear(VecPosition(0, 0, 5).rotate(77), 0, 0, 5);
  expectNear(VecPosition(0, 0, 0).rotate(77), 0, 0, 0);
}

TEST(ChangeOfFrame, RelativeToGlobalTurnsThenShifts) {
  VecPosition v(2, 0, 1);
  const VecPosition copy = v.relativeToGlobal(VecPosition(10, 20, 30), 90);
  expectNear(v, 10, 22, 31);
  EXPECT_TRUE(copy == v);
}

TEST(ChangeOfFrame, GlobalToRelativeShiftsThenTurnsBack) {
  VecPosition v(10, 22, 31);
  const VecPosition copy = v.globalToRelative(VecPosition(10, 20, 30), 90);
  expectNear(v, 2, 0, 1);
  EXPECT_TRUE(copy == v);
}

TEST(ChangeOfFrame, EachUndoesTheOther) {
  const VecPosition origin(-4.5, 2, 0.5);
  for (int angle = -350; angle <= 350; angle += 50) {
    VecPosition v(1.5, -2.5, 3.5);
    v.relativeToGlobal(origin, angle);
    v.globalToRelative(origin, angle);
    expectNear(v, 1.5, -2.5, 3.5);
  }
}

TEST(LineFraction, GoesFromThisPointToTheOther) {
  const VecPosition from(1, 2, 3);
  VecPosition to(5, -2, 11);
  expectNear(from.getVecPositionOnLineFraction(to, 0), 1, 2, 3);
  expectNear(from.getVecPositionOnLineFraction(to, 1), 5, -2, 11);
  expectNear(from.getVecPositionOnLineFraction(to, 0.25), 2, 1, 5);
  expectNear(from.getVecPositionOnLineFraction(to, 2), 9, -6, 19);
  expectNear(from, 1, 2, 3);
}

TEST(Parallel, EqualAndOppositeDirections) {
  EXPECT_TRUE(VecPosition(1, 0, 0).isParallelTo(VecPosition(-3, 0, 0)));
  EXPECT_TRUE(VecPosition(0, 0, 2).isParallelTo(VecPosition(0, 0, 5)));
  EXPECT_TRUE(VecPosition(1, 2, 3).isParallelTo(VecPosition(-2, -4, -6)));
  EXPECT_FALSE(VecPosition(1, 0, 0).isParallelTo(VecPosition(1, 0.001, 0)));
  EXPECT_FALSE(VecPosition(1, 0, 0).isParallelTo(VecPosition(0, 1, 0)));
}

TEST(Parallel, ZeroVectorIsParallelToNothing) {
  EXPECT_FALSE(VecPosition(0, 0, 0).isParallelTo(VecPosition(0, 0, 0)));
  EXPECT_FALSE(VecPosition(0, 0, 0).isParallelTo(VecPosition(1, 0, 0)));
  EXPECT_FALSE(VecPosition(1, 0, 0).isParallelTo(VecPosition(0, 0, 0)));
}

TEST(Parallel, ShortVectorsStayUnnormalised) {
  // Below the tolerance normalising changes nothing, so length counts as well.
  EXPECT_FALSE(VecPosition(0.00005, 0, 0).isParallelTo(VecPosition(1, 0, 0)));
  EXPECT_TRUE(VecPosition(0.00005, 0, 0).isParallelTo(VecPosition(-0.00005, 0, 0)));
}

TEST(Parallel, BothVectorsKeepTheirLength) {
  const VecPosition a(2, 0, 0);
  const VecPosition b(4, 0, 0);
  EXPECT_TRUE(a.isParallelTo(b));
  EXPECT_EQ(a.x, 2);
  EXPECT_EQ(b.x, 4);
}

}  // namespace
