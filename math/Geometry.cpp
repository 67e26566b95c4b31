#include "math/Geometry.h"

#include <cmath>
#include <cstdlib>
#include <ctime>

namespace {

/// The range of the C library's generator here, written out as the formula needs it.
constexpr double kRandRange = 2147483647.0;

double distanceToSeam(double ang) {
  return (ang >= 0.0 ? 180.0 : -180.0) - ang;
}

}  // namespace

int sign(double d) {
  return d > 0.0 ? 1 : -1;
}

double max(double a, double b) {
  return a > b ? a : b;
}

double min(double a, double b) {
  return b > a ? a : b;
}

double Rad2Deg(double x) {
  return x * 180.0 / PI;
}

double Deg2Rad(double x) {
  return x * PI / 180.0;
}

double sinDeg(double x) {
  return std::sin(Deg2Rad(x));
}

double cosDeg(double x) {
  return std::cos(Deg2Rad(x));
}

double tanDeg(double x) {
  return std::tan(Deg2Rad(x));
}

double asinDeg(double x) {
  if (x >= 1.0) {
    return 90.0;
  }
  if (x <= -1.0) {
    return -90.0;
  }
  return Rad2Deg(std::asin(x));
}

double acosDeg(double x) {
  if (x >= 1.0) {
    return 0.0;
  }
  if (x <= -1.0) {
    return 180.0;
  }
  return Rad2Deg(std::acos(x));
}

double atanDeg(double x) {
  return Rad2Deg(std::atan(x));
}

double atan2Deg(double y, double x) {
  if (std::fabs(y) < EPSILON && std::fabs(x) < EPSILON) {
    return 0.0;
  }
  return VecPosition::normalizeAngle(Rad2Deg(std::atan2(y, x)));
}

bool isAngInInterval(double ang, double minAng, double maxAng) {
  if (ang < 0.0) {
    ang += 360.0;
  }
  if (minAng < 0.0) {
    minAng += 360.0;
  }
  if (maxAng < 0.0) {
    maxAng += 360.0;
  }
  if (maxAng > minAng) {
    return minAng < ang && ang < maxAng;
  }
  return ang <= maxAng || ang >= minAng;
}

double getAngleDifference(double a1, double a2) {
  const double direct = std::fabs(a1 - a2);
  const double acrossSeam = std::fabs(distanceToSeam(a1) - distanceToSeam(a2));
  return min(direct, acrossSeam);
}

double getBisectorTwoAngles(double a1, double a2) {
  const double cx = (cosDeg(a1) + cosDeg(a2)) / 2.0;
  const double sy = (sinDeg(a1) + sinDeg(a2)) / 2.0;
  return atan2Deg(sy, cx);
}

int Round(double x) {
  return static_cast<int>(x + 0.5);
}

void Randomize() {
  std::srand(static_cast<unsigned int>(std::time(nullptr)));
}

double drand() {
  return std::rand() / kRandRange;
}

int Random(int n) {
  return static_cast<int>(n * drand());
}

int Random(int a, int b) {
  return a + static_cast<int>(std::abs(b - a) * drand());
}
