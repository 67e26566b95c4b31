#include "math/Plane.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iostream>
#include <type_traits>

#include "math/Geometry.h"
#include "tests/math/Constants.h"
#include "tests/support/OutputCapture.h"
#include "tests/support/Places.h"

namespace {

// 2x + 3y + 6z = 14, whose normal has length 7.
const Plane kSlantedPlane({2, 3, 6}, {7, 0, 0});

TEST(Plane, IsAPlainValueOfFourNumbers) {
  EXPECT_FALSE(std::is_polymorphic_v<Plane>);
  EXPECT_EQ(sizeof(Plane), 4 * sizeof(double));
}

TEST(Plane, AxisPlanesAreWhatTheirNormalsMake) {
  struct Row {
    Plane plane;
    VecPosition normal;
  };
  for (const Row& row :
       {Row{Plane::XY, {0, 0, 1}}, Row{Plane::YZ, {1, 0, 0}}, Row{Plane::XZ, {0, 1, 0}}}) {
    const Plane made(row.normal, kOrigin);
    EXPECT_EQ(row.plane.normal, row.normal);
    EXPECT_EQ(row.plane.delta, 0);
    EXPECT_EQ(made.normal, row.plane.normal);
    EXPECT_EQ(made.delta, row.plane.delta);
    EXPECT_EQ(std::signbit(made.delta), std::signbit(row.plane.delta));
  }
}

TEST(Plane, ScalesTheNormalAndTakesDeltaFromThePoint) {
  EXPECT_THAT(kSlantedPlane.getPlaneNormal(), IsPlaceNear(2.0 / 7, 3.0 / 7, 6.0 / 7));
  EXPECT_NEAR(kSlantedPlane.getPlaneDelta(), -2, 1e-12);
  Plane plane = Plane::XY;
  plane.setPlane({2, 3, 6}, {1, 2, 1});  // another point of the same plane
  EXPECT_THAT(plane.normal, IsPlaceNear(2.0 / 7, 3.0 / 7, 6.0 / 7));
  EXPECT_NEAR(plane.delta, -2, 1e-12);
}

TEST(Plane, NormalBelowTheToleranceIsScaledAllTheSame) {
  EXPECT_THAT(Plane({0, 0.00001, 0}, {0, 5, 0}).normal, IsPlaceNear(0, 1, 0));
}

TEST(Plane, NewNormalDividesDeltaByItsLength) {
  Plane plane({0, 0, 1}, {0, 0, 0});
  EXPECT_TRUE(plane.setPlaneDelta(-14));
  EXPECT_TRUE(plane.setPlaneNormal({2, 3, 6}));
  EXPECT_THAT(plane.normal, IsPlaceNear(2.0 / 7, 3.0 / 7, 6.0 / 7));
  EXPECT_NEAR(plane.delta, -2, 1e-12);
}

TEST(Plane, ZeroNormalIsNotGuarded) {
  Plane plane = Plane::XY;
  plane.setPlaneDelta(3);
  EXPECT_TRUE(plane.setPlaneNormal(kOrigin));
  EXPECT_TRUE(std::isnan(plane.normal.x));
  EXPECT_TRUE(std::isinf(plane.delta));
}

TEST(Plane, NormalizeDividesTheWholeEquation) {
  Plane plane = Plane::XY;
  plane.normal = VecPosition(2, 3, 6);
  plane.delta = -14;
  plane.normalize();
  EXPECT_THAT(plane.normal, IsPlaceNear(2.0 / 7, 3.0 / 7, 6.0 / 7));
  EXPECT_NEAR(plane.delta, -2, 1e-12);
}

TEST(Plane, InsideIsExact) {
  EXPECT_TRUE(Plane::XY.isInside({3, -4, 0}));
  EXPECT_FALSE(Plane::XY.isInside({3, -4, 1e-300}));
  EXPECT_TRUE(Plane({0, 0, 1}, {0, 0, 2}).isInside({1, 1, 2}));
  EXPECT_FALSE(Plane({0, 0, 1}, {0, 0, 2}).isInside({1, 1, -2}));
}

TEST(Plane, DistanceIsTheHeightOnEitherSide) {
  EXPECT_EQ(Plane::XY.getDistanceToPoint({3, 4, 5}), 5);
  EXPECT_EQ(Plane::XY.getDistanceToPoint({3, 4, -5}), 5);
  EXPECT_NEAR(kSlantedPlane.getDistanceToPoint(kOrigin), 2, 1e-12);
  EXPECT_NEAR(kSlantedPlane.getDistanceToPoint({2, 3, 6}), 5, 1e-12);
}

TEST(Plane, ClosestPointLiesBelowAlongTheNormal) {
  EXPECT_THAT(Plane::XY.getPointOnPlaneClosestTo({3, 4, 5}), IsPlace(3, 4, 0));
  EXPECT_THAT(kSlantedPlane.getPointOnPlaneClosestTo({2, 3, 6}),
              IsPlaceNear(4.0 / 7, 6.0 / 7, 12.0 / 7));
}

TEST(Plane, ArbitraryPointIsTheOneClosestToTheOrigin) {
  EXPECT_THAT(kSlantedPlane.getArbitraryPoint(), IsPlaceNear(4.0 / 7, 6.0 / 7, 12.0 / 7));
  EXPECT_THAT(Plane::YZ.getArbitraryPoint(), IsPlace(0, 0, 0));
}

TEST(Plane, MirrorTurnsTheHeightAbout) {
  EXPECT_THAT(Plane::XY.getMirroredPoint({3, 4, 5}), IsPlace(3, 4, -5));
  // From (2, 3, 6), 5 above the plane, 10 down along the normal.
  EXPECT_THAT(kSlantedPlane.getMirroredPoint({2, 3, 6}),
              IsPlaceNear(-6.0 / 7, -9.0 / 7, -18.0 / 7));
}

TEST(Plane, DihedralAngleIsBetweenTheNormals) {
  EXPECT_EQ(Plane::XY.getDihedralAngle(Plane::XY), 0);
  EXPECT_EQ(Plane::XY.getDihedralAngle(Plane::YZ), 90);
  EXPECT_EQ(Plane::XY.getDihedralAngle(Plane({0, 0, -1}, {0, 0, 3})), 180);
  EXPECT_NEAR(Plane::XY.getDihedralAngle(Plane({0, 1, 1}, kOrigin)), 45, 1e-12);
}

TEST(Plane, RoundingBeyondOneHasNoDomainError) {
  Plane stretched = Plane::XY;
  stretched.normal = VecPosition(0, 0, 1 + 1e-15);
  EXPECT_EQ(stretched.getDihedralAngle(Plane::XY), 0);
  stretched.normal = -stretched.normal;
  EXPECT_EQ(stretched.getDihedralAngle(Plane::XY), 180);
}

TEST(PlaneCrossing, AxisPlanesCrossInAnAxis) {
  Line3 line;
  EXPECT_TRUE(Plane::XY.getIntersectionWithPlane(Plane::XZ, line));
  EXPECT_EQ(line.getVector(), VecPosition(-1, 0, 0));  // z × y
  EXPECT_THAT(line.getPoint(), IsPlace(0, 0, 0));
}

TEST(PlaneCrossing, PointIsOnBothPlanes) {
  // z = 2 and x + z = 5 share x = 3, z = 2.
  Line3 line;
  EXPECT_TRUE(
      Plane({0, 0, 1}, {0, 0, 2}).getIntersectionWithPlane(Plane({1, 0, 1}, {5, 0, 0}), line));
  EXPECT_THAT(line.getVector(), IsPlaceNear(0, 1, 0));
  EXPECT_THAT(line.getPoint(), IsPlaceNear(3, 0, 2));
}

TEST(PlaneCrossing, ParallelPlanesDoNotCross) {
  const Line3 before({1, 2, 3}, {4, 5, 7});
  for (const Plane& other :
       {Plane::XY, Plane({0, 0, 1}, {0, 0, 3}), Plane({0, 0, -2}, {0, 0, 3})}) {
    Line3 line = before;
    EXPECT_FALSE(Plane::XY.getIntersectionWithPlane(other, line));
    EXPECT_TRUE(line == before);
  }
}

TEST(PlaneCrossing, ParallelsAreToldByAnExactTest) {
  Line3 line;
  EXPECT_TRUE(Plane::XY.getIntersectionWithPlane(Plane({0, 1e-6, 1}, {0, 0, 3e-6}), line));
  EXPECT_NEAR(line.getPoint().y, 3, 1e-9);
  EXPECT_NEAR(line.getPoint().z, 0, 1e-9);
  EXPECT_EQ(line.getVector().y, 0);
}

// Not possible for two planes; a normal that is far too short gets there all the same, because
// the direction of the auxiliary line vanishes.
TEST(PlaneCrossing, AuxiliaryLineThatMissesIsReported) {
  Plane broken = Plane::XZ;
  broken.normal = VecPosition(0, 1e-200, 0);
  Line3 line;
  OutputCapture errors(OutputCapture::Stream::Error);
  EXPECT_FALSE(broken.getIntersectionWithPlane(Plane::XY, line));
  EXPECT_EQ(errors.text(),
            "(Plane::getIntersectionWithPlane) At last, math and reletivity joined together! "
            "Thanks Orvald!\n");
}

TEST(PlaneText, HasTheNormalInTwoDecimalsAndDelta) {
  EXPECT_EQ(Plane({0, 2, 0}, {0, 1.5, 0}).str(), "(Plane (0.00 1.00 0.00) -1.5)");
  OutputCapture output;
  Plane({0, 2, 0}, {0, 1.5, 0}).show();
  std::cout.flush();
  EXPECT_EQ(output.text(), "(Plane (0.00 1.00 0.00) -1.5)");
}

}  // namespace
