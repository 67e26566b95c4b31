#include "math/VecPosition.h"

#include <cmath>
#include <iomanip>
#include <iostream>
#include <sstream>

#include "math/Geometry.h"

namespace {

constexpr double kBadIndex = -1000.0;

void reportBadIndex(int index) {
  std::cerr << "(VecPosition::operator []) Index out of range: " << index << std::endl;
}

}  // namespace

VecPosition VecPosition::getVecPositionFromPolar(double r, double theta, double phi) {
  return {r * cosDeg(phi) * cosDeg(theta), r * cosDeg(phi) * sinDeg(theta), r * sinDeg(phi)};
}

bool VecPosition::setX(double value) {
  x = value;
  return true;
}

bool VecPosition::setY(double value) {
  y = value;
  return true;
}

bool VecPosition::setZ(double value) {
  z = value;
  return true;
}

double VecPosition::operator[](const int& index) const {
  switch (index) {
    case 0:
      return x;
    case 1:
      return y;
    case 2:
      return z;
    default:
      reportBadIndex(index);
      return kBadIndex;
  }
}

double& VecPosition::operator[](const int& index) {
  static double m_Value;
  switch (index) {
    case 0:
      return x;
    case 1:
      return y;
    case 2:
      return z;
    default:
      reportBadIndex(index);
      m_Value = kBadIndex;
      return m_Value;
  }
}

double VecPosition::normalizeAngle(double ang) {
  while (ang > 180.0) {
    ang -= 360.0;
  }
  while (ang < -180.0) {
    ang += 360.0;
  }
  return ang;
}

VecPosition& VecPosition::operator=(const double& d) {
  x = d;
  y = d;
  z = d;
  return *this;
}

VecPosition VecPosition::operator+(const VecPosition& p) const {
  return {x + p.x, y + p.y, z + p.z};
}

VecPosition VecPosition::operator-(const VecPosition& p) const {
  return {x - p.x, y - p.y, z - p.z};
}

VecPosition VecPosition::operator*(const VecPosition& p) const {
  return {x * p.x, y * p.y, z * p.z};
}

VecPosition VecPosition::operator/(const VecPosition& p) const {
  return {x / p.x, y / p.y, z / p.z};
}

VecPosition VecPosition::operator+(const double& d) const {
  return {x + d, y + d, z + d};
}

VecPosition VecPosition::operator-(const double& d) const {
  return {x - d, y - d, z - d};
}

VecPosition VecPosition::operator*(const double& d) const {
  return {x * d, y * d, z * d};
}

VecPosition VecPosition::operator/(const double& d) const {
  const double reciprocal = 1.0 / d;
  return {x * reciprocal, y * reciprocal, z * reciprocal};
}

VecPosition& VecPosition::operator+=(const VecPosition& p) {
  return *this = *this + p;
}

VecPosition& VecPosition::operator-=(const VecPosition& p) {
  return *this = *this - p;
}

VecPosition& VecPosition::operator*=(const VecPosition& p) {
  return *this = *this * p;
}

VecPosition& VecPosition::operator/=(const VecPosition& p) {
  return *this = *this / p;
}

VecPosition& VecPosition::operator+=(const double& d) {
  return *this = *this + d;
}

VecPosition& VecPosition::operator-=(const double& d) {
  return *this = *this - d;
}

VecPosition& VecPosition::operator*=(const double& d) {
  return *this = *this * d;
}

VecPosition& VecPosition::operator/=(const double& d) {
  return *this = *this / d;
}

VecPosition VecPosition::operator-() const {
  return {-x, -y, -z};
}

bool VecPosition::operator==(const VecPosition& p) const {
  return x == p.x && y == p.y && z == p.z;
}

bool VecPosition::operator!=(const VecPosition& p) const {
  return !(*this == p);
}

bool VecPosition::operator==(const double& d) const {
  return x == d && y == d && z == d;
}

bool VecPosition::operator!=(const double& d) const {
  return !(*this == d);
}

double VecPosition::dot(const VecPosition& p) const {
  return x * p[0] + y * p[1] + z * p[2];
}

VecPosition VecPosition::cross(const VecPosition& p) const {
  return {y * p.z - z * p.y, z * p.x - x * p.z, x * p.y - y * p.x};
}

bool VecPosition::isInFrontOf(const VecPosition& p) const {
  return x > p.x;
}
bool VecPosition::isInFrontOf(const double& d) const {
  return x > d;
}
bool VecPosition::isBehindOf(const VecPosition& p) const {
  return x < p.x;
}
bool VecPosition::isBehindOf(const double& d) const {
  return x < d;
}
bool VecPosition::isLeftOf(const VecPosition& p) const {
  return y < p.y;
}
bool VecPosition::isLeftOf(const double& d) const {
  return y < d;
}
bool VecPosition::isRightOf(const VecPosition& p) const {
  return y > p.y;
}
bool VecPosition::isRightOf(const double& d) const {
  return y > d;
}
bool VecPosition::isUpOf(const VecPosition& p) const {
  return z > p.z;
}
bool VecPosition::isUpOf(const double& d) const {
  return z > d;
}
bool VecPosition::isDownOf(const VecPosition& p) const {
  return z < p.z;
}
bool VecPosition::isDownOf(const double& d) const {
  return z < d;
}

bool VecPosition::isBetweenX(const VecPosition& p1, const VecPosition& p2) const {
  return isInFrontOf(p1) && isBehindOf(p2);
}

bool VecPosition::isBetweenX(const double& d1, const double& d2) const {
  return isInFrontOf(d1) && isBehindOf(d2);
}

bool VecPosition::isBetweenY(const VecPosition& p1, const VecPosition& p2) const {
  return isRightOf(p1) && isLeftOf(p2);
}

bool VecPosition::isBetweenY(const double& d1, const double& d2) const {
  return isRightOf(d1) && isLeftOf(d2);
}

bool VecPosition::isBetweenZ(const VecPosition& p1, const VecPosition& p2) const {
  return isUpOf(p1) && isDownOf(p2);
}

bool VecPosition::isBetweenZ(const double& d1, const double& d2) const {
  return isUpOf(d1) && isDownOf(d2);
}

double VecPosition::getMagnitude() const {
  return std::sqrt(x * x + y * y + z * z);
}

double VecPosition::getDistanceTo(VecPosition p) const {
  return (*this - p).getMagnitude();
}

double VecPosition::getDirection() const {
  return atan2Deg(y, x);
}

double VecPosition::getTheta() const {
  return getDirection();
}

double VecPosition::getPhi() const {
  return atan2Deg(z, std::sqrt(x * x + y * y));
}

VecPosition VecPosition::setMagnitude(double d) {
  const double magnitude = getMagnitude();
  if (magnitude > EPSILON) {
    *this *= d / magnitude;
  }
  return *this;
}

VecPosition VecPosition::normalize() {
  return setMagnitude(1.0);
}

VecPosition VecPosition::rotate(double ang) {
  setVecPosition(getMagnitude(), getDirection() + ang, getPhi(), POLAR);
  return *this;
}

VecPosition VecPosition::relativeToGlobal(VecPosition origin, double ang) {
  rotate(ang);
  return *this += origin;
}

VecPosition VecPosition::globalToRelative(VecPosition origin, double ang) {
  *this -= origin;
  return rotate(-ang);
}

VecPosition VecPosition::getVecPositionOnLineFraction(const VecPosition& p, double f) const {
  return *this * (1.0 - f) + p * f;
}

bool VecPosition::isParallelTo(const VecPosition& v) const {
  if (*this == 0.0 || v == 0.0) {
    return false;
  }
  const VecPosition mine = VecPosition(*this).normalize();
  const VecPosition other = VecPosition(v).normalize();
  return mine == other || mine == -other;
}

std::string VecPosition::str(CoordSystemT cs) const {
  std::ostringstream os;
  os << std::fixed << std::showpoint << std::setprecision(2);
  if (cs == CARTESIAN) {
    os << "(" << x << " " << y << " " << z << ")";
  } else {
    os << "spheric(" << getMagnitude() << " " << getTheta() << " " << getPhi() << ")";
  }
  return os.str();
}

void VecPosition::show(CoordSystemT cs) const {
  if (cs == CARTESIAN) {
    std::cout << *this << std::endl;
  } else {
    std::cout << "(R:" << getMagnitude() << ", theta:" << getTheta() << ", phi:" << getPhi() << ")";
  }
}

std::ostream& operator<<(std::ostream& os, VecPosition v) {
  return os << "(" << v.x << ", " << v.y << ", " << v.z << ")";
}
