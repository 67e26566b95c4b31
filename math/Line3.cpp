#include "math/Line3.h"

#include <cmath>
#include <iostream>

#include "math/Geometry.h"

namespace {

bool isNextToNothing(const VecPosition& v) {
  return std::fabs(v.x) < EPSILON && std::fabs(v.y) < EPSILON && std::fabs(v.z) < EPSILON;
}

}  // namespace

Line3::Line3(VecPosition p1, VecPosition p2) {
  makeLineFromTwoPoints(p1, p2);
}

Line3::Line3(VecPosition through, double theta, double phi) {
  makeLineFromPointAndAngle(through, theta, phi);
}

Line3::Line3(const Line& line) {
  makeLineFromLineAndXYPlane(line);
}

bool Line3::makeLineFromTwoPoints(VecPosition p1, VecPosition p2) {
  if (p1 == p2) {
    std::cerr << "(Line3::makeLineFromTwoPoints) Given points are identical" << std::endl;
    return false;
  }
  setVector(p2 - p1);
  setPoint(p1);
  return true;
}

void Line3::makeLineFromPointAndAngle(VecPosition through, double theta, double phi) {
  setVector(VecPosition(1.0, theta, phi, POLAR));
  setPoint(through);
}

bool Line3::makeLineFromVectorAndPoint(VecPosition v, VecPosition p) {
  return makeLineFromTwoPoints(p - v, p);
}

void Line3::makeLineFromLineAndXYPlane(const Line& line) {
  if (line.a == 0) {
    const double x = -line.c / line.b;
    makeLineFromTwoPoints(VecPosition(x, 0.0, 0.0), VecPosition(x, 1.0, 0.0));
  } else {
    makeLineFromTwoPoints(VecPosition(0.0, line.getYGivenX(0.0), 0.0),
                          VecPosition(1.0, line.getYGivenX(1.0), 0.0));
  }
}

void Line3::setPoint(const VecPosition& p) {
  point = p;
}

void Line3::setVector(const VecPosition& v) {
  direction = v;
  direction.normalize();
}

bool Line3::operator==(const Line3& other) const {
  return direction == other.direction && point == other.point;
}

bool Line3::operator!=(const Line3& other) const {
  return !(*this == other);
}

double Line3::getDistanceWithPoint(const VecPosition& p) const {
  if (direction == 0.0) {
    // The text names the other distance; it is what readers of the log know.
    std::cerr << "(Line3::getDistanceWithLine) Direction vector is zero" << std::endl;
    return -1000.0;
  }
  // The parallelogram of the direction and the way to p: its area over its base is its height.
  const VecPosition base = (point + direction) - point;
  return base.cross(point - p).getMagnitude() / base.getMagnitude();
}

bool Line3::isPointOnLine(const VecPosition& p) const {
  return getDistanceWithPoint(p) < EPSILON;
}

VecPosition Line3::getPointOnLineClosestTo(const VecPosition& p) const {
  return point + direction * (p - point).dot(direction);
}

double Line3::getDistanceWithLine(const Line3& other) const {
  const VecPosition common = direction.cross(other.direction);  // perpendicular to both
  const double length = common.getMagnitude();
  if (length < EPSILON) {
    return getDistanceWithPoint(other.point);
  }
  return std::fabs((other.point - point).dot(common)) / length;
}

bool Line3::getIntersectionWithPlane(const Plane& plane, VecPosition& result) const {
  const double d = plane.normal.dot(direction);
  if (d == 0) {
    result = UnknownPosition;
    return false;
  }
  // normal · (point + t direction) + delta = 0, solved for t.
  const double t = -(plane.normal.dot(point) + plane.delta) / d;
  result = point + direction * t;
  return true;
}

bool Line3::getProjectionOnPlane(const Plane& plane, Line3& result) const {
  if (direction.isParallelTo(plane.normal)) {
    return false;
  }
  result.makeLineFromTwoPoints(plane.getPointOnPlaneClosestTo(point),
                               plane.getPointOnPlaneClosestTo(point + direction));
  return true;
}

bool Line3::getIntersectionWithLine(const Line3& other, VecPosition& result) const {
  // Written at the ways out alone, for it may be a member of either line.
  if (getDistanceWithLine(other) > EPSILON) {
    result = UnknownPosition;
    return false;
  }
  if (direction.isParallelTo(other.direction) && other.getDistanceWithPoint(point) < EPSILON) {
    result = point;
    return true;
  }
  Line3 segment;
  VecPosition a;
  VecPosition b;
  if (!getLineLineIntersection(other, segment, &a, &b)) {
    result = UnknownPosition;
    return false;
  }
  result = (a + b) / 2.0;
  return true;
}

bool Line3::getLineLineIntersection(const Line3& other, Line3& segment, VecPosition* pa,
                                    VecPosition* pb) const {
  const VecPosition p1 = point;
  const VecPosition p3 = other.point;
  const VecPosition r21 = (p1 + direction) - p1;
  const VecPosition r43 = (p3 + other.direction) - p3;
  const VecPosition r13 = p1 - p3;
  if (isNextToNothing(r43) || isNextToNothing(r21)) {
    return false;
  }
  // The shortest way is perpendicular to both lines:
  //   (r13 + ma r21 - mb r43) · r21 = 0,   (r13 + ma r21 - mb r43) · r43 = 0,
  // two linear equations for the places ma and mb of its ends.
  const double d1343 = r13.dot(r43);
  const double d4321 = r43.dot(r21);
  const double d1321 = r13.dot(r21);
  const double d4343 = r43.dot(r43);
  const double d2121 = r21.dot(r21);
  const double denominator = d2121 * d4343 - d4321 * d4321;
  if (std::fabs(denominator) < EPSILON) {
    return false;
  }
  const double ma = (d1343 * d4321 - d1321 * d4343) / denominator;
  const double mb = (d1343 + d4321 * ma) / d4343;
  const VecPosition a = p1 + r21 * ma;
  const VecPosition b = p3 + r43 * mb;
  if (pa != nullptr) {
    *pa = a;
  }
  if (pb != nullptr) {
    *pb = b;
  }
  if (a != b) {
    segment.makeLineFromTwoPoints(a, b);
  }
  return true;
}

std::string Line3::str() const {
  return "(Line3 V" + direction.str(CARTESIAN) + " P" + point.str(CARTESIAN) + ")";
}
