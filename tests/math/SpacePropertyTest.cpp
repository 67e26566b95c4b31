// What holds for any planes, lines and points in space: feet of perpendiculars are closest,
// mirrored points mirror back, what is shared lies on both. Eigen's lines and planes are the other
// way.

#include <gtest/gtest.h>

#include <Eigen/QR>
#include <cmath>

#include "tests/math/EigenForms.h"
#include "tests/math/SeededValues.h"

namespace {

constexpr double kRounding = 1e-10;

using EigenPlane = Eigen::Hyperplane<double, 3>;
using EigenLine = Eigen::ParametrizedLine<double, 3>;

TEST(PlaneProperties, DistanceFootAndMirrorAgreeWithEigen) {
  SeededValues values(71);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const VecPosition normal = values.direction();
    const VecPosition on = values.place();
    const VecPosition p = values.place();
    const Plane plane(normal * values.between(0.01, 100), on);
    const EigenPlane expected(eigen(normal), eigen(on));
    ASSERT_NEAR(plane.getDistanceToPoint(p), expected.absDistance(eigen(p)), kRounding);
    const VecPosition foot = plane.getPointOnPlaneClosestTo(p);
    ASSERT_LT(apart(eigen(foot), expected.projection(eigen(p))), kRounding);
    ASSERT_NEAR(plane.getDistanceToPoint(foot), 0, kRounding);
    ASSERT_NEAR(plane.getArbitraryPoint().getMagnitude(), plane.getDistanceToPoint({0, 0, 0}),
                kRounding);
    const VecPosition mirrored = plane.getMirroredPoint(p);
    ASSERT_LT(apart(eigen(mirrored), 2 * expected.projection(eigen(p)) - eigen(p)), kRounding);
    ASSERT_LT(apart(eigen(plane.getMirroredPoint(mirrored)), eigen(p)), kRounding);
  }
}

TEST(PlaneProperties, NoOtherPointOfThePlaneIsCloser) {
  SeededValues values(72);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const Plane plane(values.direction(), values.place());
    const VecPosition p = values.place();
    const double closest = p.getDistanceTo(plane.getPointOnPlaneClosestTo(p));
    // Another point of the plane, by a step across the normal.
    const VecPosition across = plane.normal.cross(values.direction());
    const VecPosition other = plane.getArbitraryPoint() + across * values.between(-20, 20);
    ASSERT_NEAR(plane.getDistanceToPoint(other), 0, kRounding);
    ASSERT_LE(closest, p.getDistanceTo(other) + kRounding);
  }
}

TEST(PlaneProperties, SharedLineLiesOnBothPlanes) {
  SeededValues values(73);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const Plane one(values.direction(), values.place());
    const Plane other(values.direction(), values.place());
    const double sine = one.normal.cross(other.normal).getMagnitude();
    if (sine < 0.01) {
      continue;
    }
    Line3 line;
    ASSERT_TRUE(one.getIntersectionWithPlane(other, line));
    ASSERT_NEAR(line.direction.getMagnitude(), 1, kRounding);
    for (const double t : {-5.0, 0.0, 7.0}) {
      const VecPosition p = line.point + line.direction * t;
      ASSERT_NEAR(one.getDistanceToPoint(p), 0, 1e-8);
      ASSERT_NEAR(other.getDistanceToPoint(p), 0, 1e-8);
    }
    const double expected = Rad2Deg(std::atan2(sine, one.normal.dot(other.normal)));
    ASSERT_NEAR(one.getDihedralAngle(other), expected, 1e-6);
  }
}

TEST(Line3Properties, DistanceAndFootAgreeWithEigen) {
  SeededValues values(74);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const VecPosition a = values.place();
    const VecPosition b = values.place();
    const VecPosition p = values.place();
    if (a.getDistanceTo(b) < 0.1) {
      continue;
    }
    const Line3 line(a, b);
    const EigenLine expected = EigenLine::Through(eigen(a), eigen(b));
    ASSERT_NEAR(line.getDistanceWithPoint(p), expected.distance(eigen(p)), kRounding);
    ASSERT_LT(apart(eigen(line.getPointOnLineClosestTo(p)), expected.projection(eigen(p))),
              kRounding);
    ASSERT_TRUE(line.isPointOnLine(line.getPointOnLineClosestTo(p)));
    const VecPosition other = line.point + line.direction * values.between(-20, 20);
    ASSERT_LE(line.getDistanceWithPoint(p), p.getDistanceTo(other) + kRounding);
  }
}

TEST(Line3Properties, MeetingAPlaneAgreesWithEigen) {
  SeededValues values(75);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const Line3 line(values.place(), values.between(-180, 180), values.between(-90, 90));
    const Plane plane(values.direction(), values.place());
    if (std::fabs(plane.normal.dot(line.direction)) < 0.01) {
      continue;
    }
    const EigenPlane eigenPlane(eigen(plane.normal), plane.delta);
    const EigenLine eigenLine(eigen(line.point), eigen(line.direction));
    VecPosition met;
    ASSERT_TRUE(line.getIntersectionWithPlane(plane, met));
    ASSERT_LT(apart(eigen(met), eigenLine.intersectionPoint(eigenPlane)), 1e-8);
    Line3 shadow;
    ASSERT_TRUE(line.getProjectionOnPlane(plane, shadow));
    ASSERT_NEAR(shadow.getDistanceWithPoint(met), 0, 1e-7);
    ASSERT_NEAR(plane.getDistanceToPoint(shadow.point), 0, kRounding);
    ASSERT_NEAR(plane.getDistanceToPoint(shadow.point + shadow.direction), 0, kRounding);
  }
}

// The two places along the lines, by least squares of the difference.
TEST(Line3Properties, ShortestWayIsTheLeastSquaresOne) {
  SeededValues values(76);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const Line3 one(values.place(), values.between(-180, 180), values.between(-90, 90));
    const Line3 other(values.place(), values.between(-180, 180), values.between(-90, 90));
    if (one.direction.cross(other.direction).getMagnitude() < 0.05) {
      continue;
    }
    Eigen::Matrix<double, 3, 2> directions;
    directions << eigen(one.direction), -eigen(other.direction);
    const Eigen::Vector2d t =
        directions.colPivHouseholderQr().solve(eigen(other.point) - eigen(one.point));
    Line3 segment;
    VecPosition a;
    VecPosition b;
    ASSERT_TRUE(one.getLineLineIntersection(other, segment, &a, &b));
    ASSERT_LT(apart(eigen(a), eigen(one.point) + t(0) * eigen(one.direction)), 1e-8);
    ASSERT_LT(apart(eigen(b), eigen(other.point) + t(1) * eigen(other.direction)), 1e-8);
    ASSERT_NEAR(one.getDistanceWithLine(other), a.getDistanceTo(b), 1e-8);
    ASSERT_NEAR(other.getDistanceWithLine(one), a.getDistanceTo(b), 1e-8);
    ASSERT_EQ(segment.point, a);
    VecPosition met(7, 7, 7);
    if (a.getDistanceTo(b) > 0.001) {
      ASSERT_NEAR(segment.direction.dot(one.direction), 0, 1e-5);
      ASSERT_FALSE(one.getIntersectionWithLine(other, met));
      ASSERT_EQ(met, UnknownPosition);
    }
  }
}

TEST(Line3Properties, LinesThroughOnePointMeetThere) {
  SeededValues values(77);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const VecPosition shared = values.place();
    const VecPosition u = values.direction();
    const VecPosition v = values.direction();
    if (u.cross(v).getMagnitude() < 0.05) {
      continue;
    }
    const Line3 one(shared + u * values.between(1, 20), shared);
    const Line3 other(shared - v * values.between(1, 20), shared);
    VecPosition met;
    ASSERT_TRUE(one.getIntersectionWithLine(other, met));
    ASSERT_LT(apart(eigen(met), eigen(shared)), 1e-8);
  }
}

TEST(Line3Properties, LineOfTheFieldKeepsItsPoints) {
  SeededValues values(78);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    VecPosition a = values.place();
    VecPosition b = values.place();
    a.z = 0;
    b.z = 0;
    if (std::fabs(a.x - b.x) < 0.05) {
      b.x = a.x;
    }
    const Line3 line(Line::makeLineFromTwoPoints(a, b));
    ASSERT_NEAR(line.getDistanceWithPoint(a), 0, 1e-9);
    ASSERT_NEAR(line.getDistanceWithPoint(b), 0, 1e-9);
    ASSERT_NEAR(line.direction.getMagnitude(), 1, 1e-12);
  }
}

}  // namespace
