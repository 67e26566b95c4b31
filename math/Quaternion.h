#pragma once

/// A quaternion w + x i + y j + z k, as a rotation of space above all: the unit quaternion of a
/// turn by an angle about a unit axis is w = cos(angle / 2), (x, y, z) = sin(angle / 2) axis. Part
/// of the small linear algebra that stands ready; the player's turn doesn't call it.
///
/// All angles are in degrees, with one exception that toEulerAngles() tells.

#include <string>

#include "math/VecPosition.h"

class Matrix3;
class Matrix4;

class Quaternion {
 public:
  double w = 1.0;
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  static const Quaternion zero;
  static const Quaternion identity;

  // Making one.
  /// The identity, not zero.
  Quaternion() = default;
  constexpr Quaternion(double real, double i, double j, double k) : w(real), x(i), y(j), z(k) {}
  /// (0, v): no rotation but a place, as q v q* has it.
  Quaternion(const VecPosition& v);
  Quaternion& operator=(const VecPosition& v);
  /// The axis may have any length.
  Quaternion(const double& degrees, const VecPosition& axis);
  void fromAngleAxis(const double& degrees, const VecPosition& axis);
  /// Of a rotation matrix, or the rotation in an affine one.
  Quaternion(const Matrix3& rotation);
  Quaternion(const Matrix4& transform);
  void fromMatrix3(const Matrix3& rotation);
  /// Three perpendicular unit vectors: where the rotation takes the axes.
  void fromAxes(const VecPosition* three);
  /// Turns by the x member about x first, then by z about z, then by y about y. [deg]
  void fromEulerAngles(const VecPosition& degrees);

  /// 0 to 3 is w, x, y, z. Any other index is reported on standard error; it reads 0, and what is
  /// then written through the non-const form stays in a stand-in.
  double operator[](const int& index) const;
  double& operator[](const int& index);

  // Exact comparisons.
  bool operator==(const Quaternion& q) const;
  bool operator!=(const Quaternion& q) const;

  // Member by member.
  Quaternion operator+(const Quaternion& q) const;
  Quaternion operator-(const Quaternion& q) const;
  Quaternion& operator+=(const Quaternion& q);
  Quaternion& operator-=(const Quaternion& q);
  Quaternion operator-() const;
  Quaternion operator*(double d) const;

  // Hamilton's product, this on the left: as rotations, the right one comes first. A quotient is
  // the product with the inverse.
  Quaternion operator*(const Quaternion& q) const;
  Quaternion operator/(const Quaternion& q) const;
  Quaternion& operator*=(const Quaternion& q);
  Quaternion& operator/=(const Quaternion& q);
  /// The vector turned, by a unit quaternion.
  VecPosition operator*(const VecPosition& v) const;

  [[nodiscard]] double dot(const Quaternion& q) const;
  /// The sum of squares, with no root.
  [[nodiscard]] double norm() const;
  /// Makes it a unit quaternion and returns the sum of squares that it had.
  double normalize();
  /// Of zero it is zero.
  [[nodiscard]] Quaternion getInverse() const;
  /// Of the unit quaternion that this one scales to.
  [[nodiscard]] Quaternion getConjugate() const;

  // What the rotation is, of a unit quaternion.
  [[nodiscard]] Matrix3 toMatrix3() const;
  [[nodiscard]] VecPosition getXAxis() const;
  [[nodiscard]] VecPosition getYAxis() const;
  [[nodiscard]] VecPosition getZAxis() const;
  /// The three of them, scaled to unit length.
  void toAxes(VecPosition* three) const;
  /// [deg] Leaves axis.y as the caller had it, on purpose; only where there is no turn the whole
  /// axis is written, as (1, 0, 0).
  void toAngleAxis(double& degrees, VecPosition& axis) const;
  // Pitch is about x, roll about z, yaw about y. [deg] With PROJECT: by how much the turned y, x or
  // z axis has gone round that axis, seen along it. Otherwise the three that build the rotation as
  // roll · yaw · pitch, yaw from -90 to 90.
  [[nodiscard]] double getPitch(bool project) const;
  [[nodiscard]] double getRoll(bool project) const;
  [[nodiscard]] double getYaw(bool project) const;
  /// Undoes fromEulerAngles(). [deg] Near the poles, where z is a quarter turn up or down, x is 0
  /// and z is pi / 2 at BOTH of them, in radians and without the sign: by design.
  [[nodiscard]] VecPosition toEulerAngles() const;

  /// "(w x y z)", two fixed decimals.
  [[nodiscard]] std::string str() const;
};

inline constexpr Quaternion Quaternion::zero{0, 0, 0, 0};
inline constexpr Quaternion Quaternion::identity{1, 0, 0, 0};
