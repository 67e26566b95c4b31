#include "math/Line.h"

#include <cmath>
#include <sstream>

#include "math/Algebra.h"
#include "math/Geometry.h"
#include "math/ParallelBand.h"

namespace {

constexpr double kBadIndex = -1000.0;

void reportBadIndex(int index) {
  std::cerr << "(Line::operator []) Index out of bounds: " << index << std::endl;
}

}  // namespace

Line::Line(double aCoefficient, double bCoefficient, double cCoefficient)
    : a(aCoefficient), b(bCoefficient), c(cCoefficient) {}

double Line::operator[](int index) const {
  switch (index) {
    case 0:
      return a;
    case 1:
      return b;
    case 2:
      return c;
    default:
      reportBadIndex(index);
      return kBadIndex;
  }
}

double& Line::operator[](int index) {
  static double dError = kBadIndex;
  switch (index) {
    case 0:
      return a;
    case 1:
      return b;
    case 2:
      return c;
    default:
      reportBadIndex(index);
      return dError;
  }
}

Line Line::makeLineFromTwoPoints(VecPosition p1, VecPosition p2) {
  const double dx = p2.x - p1.x;
  if (std::fabs(dx) < EPSILON) {
    return {0.0, 1.0, -p2.x};
  }
  const double slopeTerm = -(p2.y - p1.y) / dx;
  return {1.0, slopeTerm, -p2.y - slopeTerm * p2.x};
}

Line Line::makeLineFromPositionAndAngle(VecPosition p, double ang) {
  return makeLineFromTwoPoints(p, p + VecPosition(1.0, ang, 0.0, POLAR));
}

double Line::getYGivenX(double x) const {
  if (a == 0) {
    std::cerr << "(Line::getYGivenX) Cannot calculate Y coordinate\n";
    return 0.0;
  }
  return -(b * x + c) / a;
}

double Line::getXGivenY(double y) const {
  if (b == 0) {
    std::cerr << "(Line::getXGivenY) Cannot calculate X coordinate\n";
    return 0.0;
  }
  return -(a * y + c) / b;
}

Line Line::getTangentLine(VecPosition p) const {
  return {b, -a, a * p.x - b * p.y};
}

VecPosition Line::getIntersection(Line other) const {
  if (a / b == other.a / other.b) {
    return {0.0, 0.0, 0.0};
  }
  if (a == 0) {
    const double x = -c / b;
    return {x, other.getYGivenX(x), 0.0};
  }
  const double x =
      other.a == 0 ? -other.c / other.b : (a * other.c - other.a * c) / (other.a * b - a * other.b);
  return {x, getYGivenX(x), 0.0};
}

VecPosition Line::getPointOnLineClosestTo(VecPosition p) const {
  return getIntersection(getTangentLine(p));
}

double Line::getDistanceWithPoint(VecPosition p) const {
  return p.getDistanceTo(getPointOnLineClosestTo(p));
}

bool Line::isInBetween(VecPosition p, VecPosition p1, VecPosition p2) const {
  const VecPosition foot = getPointOnLineClosestTo(p);
  const double between = p1.getDistanceTo(p2);
  return between >= foot.getDistanceTo(p1) && between >= foot.getDistanceTo(p2);
}

bool Line::isInBetweenTwoParallelLines(Line l1, Line l2, VecPosition p) {
  return ParallelBand(l1, l2).holds(p);
}

int Line::getCircleIntersectionPoints(Circle circle, VecPosition* p1, VecPosition* p2) const {
  const double cx = circle.center.x;
  const double cy = circle.center.y;
  const double r = circle.radius;
  double s1 = 0.0;
  double s2 = 0.0;
  if (std::fabs(a) < EPSILON) {
    const double x0 = -c / b;
    const int roots =
        Algebra::abcFormula(1.0, -2 * cy, (x0 - cx) * (x0 - cx) + cy * cy - r * r, &s1, &s2);
    *p1 = VecPosition(x0, s1, 0.0);
    *p2 = VecPosition(x0, s2, 0.0);
    return roots;
  }
  const double da = -b / a;
  const double db = -c / a;
  const int roots =
      Algebra::abcFormula(da * da + 1, 2 * (da * db - cx - cy * da),
                          cx * cx + db * db - 2 * cy * db + cy * cy - r * r, &s1, &s2);
  *p1 = VecPosition(s1, da * s1 + db, 0.0);
  *p2 = VecPosition(s2, da * s2 + db, 0.0);
  return roots;
}

void Line::show(std::ostream& os) const {
  os << *this;
}

std::string Line::str() const {
  std::ostringstream os;
  os << *this;
  return os.str();
}

std::ostream& operator<<(std::ostream& os, Line line) {
  if (line.a == 0) {
    return os << "x = " << -line.c / line.b;
  }
  os << "y = ";
  if (line.b != 0) {
    os << -line.b / line.a << "x ";
  }
  if (line.c > 0) {
    os << "- " << std::fabs(line.c / line.a);
  } else if (line.c < 0) {
    os << "+ " << std::fabs(line.c / line.a);
  }
  return os;
}
