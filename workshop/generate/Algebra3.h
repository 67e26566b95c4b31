#pragma once

/// Rotations and vectors in space, as little as leg kinematics needs. Row-major, radians.

#include <array>
#include <cmath>
#include <numbers>

namespace workshop {

inline constexpr double kRadPerDeg = std::numbers::pi / 180.0;

using Vec3 = std::array<double, 3>;
using Mat3 = std::array<double, 9>;

constexpr Vec3 operator+(const Vec3& a, const Vec3& b) {
  return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}
constexpr Vec3 operator-(const Vec3& a, const Vec3& b) {
  return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
constexpr Vec3 operator*(double s, const Vec3& v) {
  return {s * v[0], s * v[1], s * v[2]};
}
constexpr Vec3 operator*(const Mat3& m, const Vec3& v) {
  return {m[0] * v[0] + m[1] * v[1] + m[2] * v[2], m[3] * v[0] + m[4] * v[1] + m[5] * v[2],
          m[6] * v[0] + m[7] * v[1] + m[8] * v[2]};
}
constexpr Mat3 operator*(const Mat3& a, const Mat3& b) {
  Mat3 m{};
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      for (std::size_t k = 0; k < 3; ++k) m[3 * i + j] += a[3 * i + k] * b[3 * k + j];
    }
  }
  return m;
}
constexpr Mat3 transposed(const Mat3& m) {
  return {m[0], m[3], m[6], m[1], m[4], m[7], m[2], m[5], m[8]};
}
inline Mat3 aboutX(double rad) {
  const double c = std::cos(rad);
  const double s = std::sin(rad);
  return {1, 0, 0, 0, c, -s, 0, s, c};
}
inline Mat3 aboutY(double rad) {
  const double c = std::cos(rad);
  const double s = std::sin(rad);
  return {c, 0, s, 0, 1, 0, -s, 0, c};
}
inline Mat3 aboutZ(double rad) {
  const double c = std::cos(rad);
  const double s = std::sin(rad);
  return {c, -s, 0, s, c, 0, 0, 0, 1};
}

}  // namespace workshop
