// What holds for any angles, places, lines and circles of the plane, against Eigen's.

#include <gtest/gtest.h>

#include <cmath>

#include "tests/math/EigenForms.h"
#include "tests/math/SeededValues.h"

namespace {

TEST(AngleProperties, NormalizedAngleDiffersByWholeTurns) {
  SeededValues values(81);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const double angle = values.between(-5000, 5000);
    const double normal = VecPosition::normalizeAngle(angle);
    ASSERT_LE(std::fabs(normal), 180);
    ASSERT_NEAR(normal, std::remainder(angle, 360.0), 1e-9);
  }
}

TEST(AngleProperties, DifferenceAndBisectorAreOfTheDirections) {
  SeededValues values(82);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const double a = values.between(-180, 180);
    const double b = values.between(-180, 180);
    const Eigen::Vector2d u(std::cos(Deg2Rad(a)), std::sin(Deg2Rad(a)));
    const Eigen::Vector2d v(std::cos(Deg2Rad(b)), std::sin(Deg2Rad(b)));
    const double between = Rad2Deg(std::atan2(std::fabs(u.x() * v.y() - u.y() * v.x()), u.dot(v)));
    ASSERT_NEAR(getAngleDifference(a, b), between, 1e-9);
    if (between < 179) {
      const double half = getBisectorTwoAngles(a, b);
      ASSERT_NEAR(getAngleDifference(half, a), between / 2, 1e-9);
      ASSERT_NEAR(getAngleDifference(half, b), between / 2, 1e-9);
    }
  }
}

TEST(PlaceProperties, ProductsAndMeasuresAgreeWithEigen) {
  SeededValues values(83);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const VecPosition a = values.place();
    const VecPosition b = values.place();
    ASSERT_LT(apart(eigen(a.cross(b)), eigen(a).cross(eigen(b))), 1e-12);
    ASSERT_NEAR(a.dot(b), eigen(a).dot(eigen(b)), 1e-12);
    ASSERT_NEAR(a.getMagnitude(), eigen(a).norm(), 1e-12);
    ASSERT_NEAR(a.getDistanceTo(b), (eigen(a) - eigen(b)).norm(), 1e-12);
    const VecPosition back(a.getMagnitude(), a.getTheta(), a.getPhi(), POLAR);
    ASSERT_LT(apart(eigen(back), eigen(a)), 1e-11);
    const double f = values.between(-2, 2);
    ASSERT_LT(
        apart(eigen(a.getVecPositionOnLineFraction(b, f)), eigen(a) + f * (eigen(b) - eigen(a))),
        1e-11);
  }
}

TEST(PlaceProperties, ChangesOfFrameUndoEachOther) {
  SeededValues values(84);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const VecPosition origin = values.place();
    const VecPosition v = values.place();
    const double angle = values.between(-360, 360);
    VecPosition moved = v;
    moved.relativeToGlobal(origin, angle);
    const Eigen::Affine3d frame = Eigen::Translation3d(eigen(origin)) *
                                  Eigen::AngleAxisd(Deg2Rad(angle), Eigen::Vector3d::UnitZ());
    ASSERT_LT(apart(eigen(moved), frame * eigen(v)), 1e-10);
    ASSERT_LT(apart(eigen(moved.globalToRelative(origin, angle)), eigen(v)), 1e-10);
  }
}

TEST(LineProperties, ClosestPointIsClosestAndAgreesWithEigen) {
  SeededValues values(85);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    VecPosition a = values.place();
    VecPosition b = values.place();
    VecPosition p = values.place();
    a.z = b.z = p.z = 0;
    if (std::fabs(a.x - b.x) < 0.1 || std::fabs(a.y - b.y) < 0.1) {
      continue;
    }
    const Line line = Line::makeLineFromTwoPoints(a, b);
    const auto expected = Eigen::ParametrizedLine<double, 3>::Through(eigen(a), eigen(b));
    const VecPosition foot = line.getPointOnLineClosestTo(p);
    ASSERT_LT(apart(eigen(foot), expected.projection(eigen(p))), 1e-8);
    ASSERT_NEAR(line.getDistanceWithPoint(p), expected.distance(eigen(p)), 1e-8);
    const double x = values.between(-20, 20);
    ASSERT_LE(p.getDistanceTo(foot), p.getDistanceTo({x, line.getYGivenX(x), 0}) + 1e-9);
  }
}

TEST(CircleProperties, CrossingsLieOnBothCircles) {
  SeededValues values(86);
  int crossed = 0;
  for (int i = 0; i < SeededValues::kTries; ++i) {
    VecPosition c0 = values.place();
    VecPosition c1 = values.place();
    c0.z = c1.z = 0;
    const double r0 = values.between(0.1, 10);
    const double r1 = values.between(0.1, 10);
    VecPosition p1;
    VecPosition p2;
    const int count = Circle(c0, r0).getCircleIntersectionPoints(Circle(c1, r1), &p1, &p2);
    const double d = c0.getDistanceTo(c1);
    ASSERT_EQ(count, d < r0 + r1 && d > std::fabs(r0 - r1) ? 2 : 0);
    if (count == 2) {
      ++crossed;
      for (const VecPosition& p : {p1, p2}) {
        ASSERT_NEAR(p.getDistanceTo(c0), r0, 1e-8);
        ASSERT_NEAR(p.getDistanceTo(c1), r1, 1e-8);
      }
    }
  }
  EXPECT_GT(crossed, SeededValues::kTries / 4);
}

}  // namespace
