#include "math/Plane.h"

#include <cmath>
#include <sstream>

#include "math/Geometry.h"

Plane::Plane(VecPosition normalVector, VecPosition point) {
  setPlane(normalVector, point);
}

void Plane::setPlane(VecPosition normalVector, VecPosition point) {
  normal = normalVector / normalVector.getMagnitude();
  delta = -point.dot(normal);
}

bool Plane::setPlaneNormal(VecPosition n) {
  normal = n;
  normalize();
  return true;
}

bool Plane::setPlaneDelta(double d) {
  delta = d;
  return true;
}

void Plane::normalize() {
  const double length = normal.getMagnitude();
  normal /= length;
  delta /= length;
}

bool Plane::isInside(VecPosition p) const {
  return normal.dot(p) == -delta;
}

double Plane::getDistanceToPoint(const VecPosition& p) const {
  return std::fabs(normal.dot(p) + delta);
}

VecPosition Plane::getPointOnPlaneClosestTo(const VecPosition& p) const {
  Line3 perpendicular;
  perpendicular.setVector(normal);
  perpendicular.setPoint(p);
  VecPosition foot;
  perpendicular.getIntersectionWithPlane(*this, foot);
  return foot;
}

VecPosition Plane::getArbitraryPoint() const {
  return getPointOnPlaneClosestTo(VecPosition(0.0, 0.0, 0.0));
}

VecPosition Plane::getMirroredPoint(const VecPosition& p) const {
  return p - (p - getPointOnPlaneClosestTo(p)) * 2.0;
}

double Plane::getDihedralAngle(const Plane& other) const {
  return acosDeg(normal.dot(other.normal));
}

bool Plane::getIntersectionWithPlane(const Plane& other, Line3& result) const {
  if (normal.isParallelTo(other.normal)) {
    return false;
  }
  // What lies in both planes is perpendicular to both normals. A line of this plane across that
  // direction can't but run into the other plane, and does so at a point of both.
  const VecPosition along = normal.cross(other.normal);
  Line3 across;
  across.setVector(along.cross(normal));
  across.setPoint(getArbitraryPoint());
  VecPosition shared;
  if (!across.getIntersectionWithPlane(other, shared)) {
    std::cerr << "(Plane::getIntersectionWithPlane) At last, math and reletivity joined together! "
                 "Thanks Orvald!"
              << std::endl;
    return false;
  }
  result.setVector(along);
  result.setPoint(shared);
  return true;
}

std::string Plane::str() const {
  std::ostringstream os;
  os << "(Plane " << normal.str(CARTESIAN) << " " << delta << ")";
  return os.str();
}

void Plane::show(std::ostream& os) const {
  os << str();
}
