#pragma once

/// The values of math/ in the forms of Eigen, which is the other way to compute.

#include <Eigen/Geometry>
#include <Eigen/LU>

#include "math/Algebra.h"

inline Eigen::Vector3d eigen(const VecPosition& v) {
  return {v.x, v.y, v.z};
}

inline Eigen::Matrix3d eigen(const Matrix3& matrix) {
  return Eigen::Map<const Eigen::Matrix<double, 3, 3, Eigen::RowMajor>>(&matrix.m[0][0]);
}

inline Eigen::Matrix4d eigen(const Matrix4& matrix) {
  return Eigen::Map<const Eigen::Matrix<double, 4, 4, Eigen::RowMajor>>(&matrix.m[0][0]);
}

inline Eigen::Quaterniond eigen(const Quaternion& q) {
  return {q.w, q.x, q.y, q.z};
}

/// The largest difference of two members; no number where either has none.
template <typename A, typename B>
double apart(const Eigen::MatrixBase<A>& a, const Eigen::MatrixBase<B>& b) {
  return (a - b).template lpNorm<Eigen::Infinity>() + 0.0 * (a - b).sum();
}

inline double apart(const Eigen::Quaterniond& a, const Eigen::Quaterniond& b) {
  return apart(a.coeffs(), b.coeffs());
}

/// As rotations: a quaternion and its opposite are one.
inline double turnApart(const Eigen::Quaterniond& a, const Eigen::Quaterniond& b) {
  return std::min(apart(a.coeffs(), b.coeffs()), apart(a.coeffs(), -b.coeffs()));
}
