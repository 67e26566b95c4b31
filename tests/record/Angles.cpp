#include "tests/record/Angles.h"

#include <cmath>

namespace {

constexpr double kPi = 3.141592653589793;

/// Taylor series; the terms left out are below 1e-17 for up to a quarter of a turn.
[[nodiscard]] double SineOfSmall(double radians) {
  double term = radians;
  double sum = radians;
  for (int n = 2; n <= 24; n += 2) {
    term *= -radians * radians / (n * (n + 1));
    sum += term;
  }
  return sum;
}

/// For 0 to 1. Halving the angle twice leaves at most 11.25 degrees for the series.
[[nodiscard]] double ArcTangent(double ratio) {
  const double half = ratio / (1 + std::sqrt(1 + ratio * ratio));
  const double quarter = half / (1 + std::sqrt(1 + half * half));
  double power = quarter;
  double sum = 0;
  for (int n = 1; n <= 25; n += 2) {
    sum += power / n;
    power *= -quarter * quarter;
  }
  return 4 * sum / kPi * 180;
}

}  // namespace

double Normalised(double degrees) {
  while (degrees >= 180) degrees -= 360;
  while (degrees < -180) degrees += 360;
  return degrees;
}

double Sine(double degrees) {
  double folded = Normalised(degrees);
  if (folded > 90) folded = 180 - folded;
  if (folded < -90) folded = -180 - folded;
  return SineOfSmall(folded / 180 * kPi);
}

double Cosine(double degrees) {
  return Sine(degrees + 90);
}

double Direction(double y, double x) {
  const double across = y < 0 ? -y : y;
  const double along = x < 0 ? -x : x;
  if (across + along == 0) return 0;
  double angle = across <= along ? ArcTangent(across / along) : 90 - ArcTangent(along / across);
  if (x < 0) angle = 180 - angle;
  return y < 0 ? -angle : angle;
}
