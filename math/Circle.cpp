#include "math/Circle.h"

#include <cmath>

#include "math/Geometry.h"

Circle::Circle() : center(UnknownPosition), radius(0.0) {}

Circle::Circle(VecPosition c, double r) : radius(0.0) {
  setCircle(c, r);
}

bool Circle::setCircle(VecPosition c, double r) {
  setCenter(c);
  return setRadius(r);
}

bool Circle::setRadius(double r) {
  const bool accepted = r > 0;
  radius = accepted ? r : 0.0;
  return accepted;
}

bool Circle::setCenter(VecPosition c) {
  center = c;
  return true;
}

double Circle::getCircumference() const {
  return 6.283185307179586 * radius;
}

double Circle::getArea() const {
  return PI * (radius * radius);
}

double Circle::getVolume() const {
  return 4.1887902047863905 * (radius * radius * radius);
}

bool Circle::isInside(VecPosition p, bool ignoreHeight) const {
  VecPosition offset = center - p;
  if (ignoreHeight) {
    offset.z = 0.0;
  }
  return offset.getMagnitude() < radius;
}

int Circle::getCircleIntersectionPoints(Circle other, VecPosition* p1, VecPosition* p2) const {
  const double dx = other.center.x - center.x;
  const double dy = other.center.y - center.y;
  const double d = std::sqrt(dx * dx + dy * dy);
  const double ux = dx / d;
  const double uy = dy / d;
  // From this centre to the chord, and half the chord.
  const double m = (d * d + radius * radius - other.radius * other.radius) / (2 * d);
  const double h2 = radius * radius - m * m;
  const double h = h2 > 0 ? std::sqrt(h2) : 0.0;
  const double bx = center.x + m * ux;
  const double by = center.y + m * uy;
  *p1 = VecPosition(bx - h * uy, by + h * ux, 0.0);
  *p2 = VecPosition(bx + h * uy, by - h * ux, 0.0);
  if (h2 < 0) {
    return 0;
  }
  return h2 == 0 ? 1 : 2;
}

double Circle::getIntersectionArea(Circle other, bool sameHeightOnly) const {
  if (sameHeightOnly && center.z != other.center.z) {
    return 0.0;
  }
  const double d = center.getDistanceTo(other.center);
  if (d > radius + other.radius) {
    return 0.0;
  }
  if (std::fabs(other.radius - radius) >= d) {
    const double smaller = min(radius, other.radius);
    return PI * (smaller * smaller);
  }
  VecPosition p1;
  VecPosition p2;
  if (getCircleIntersectionPoints(other, &p1, &p2) != 2) {
    return 0.0;
  }
  const VecPosition mid = p1.getVecPositionOnLineFraction(p2, 0.5);
  const double h = p1.getDistanceTo(mid);
  const double d0 = center.getDistanceTo(mid);
  const double d1 = other.center.getDistanceTo(mid);
  return std::asin(h / radius) * (radius * radius) - h * d0 +
         std::asin(h / other.radius) * (other.radius * other.radius) - h * d1;
}

void Circle::show(std::ostream& os) const {
  os << "c:" << center << ", r:" << radius;
}
