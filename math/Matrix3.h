#pragma once

/// A matrix of three rows, as linear maps of space and rotations above all. Part of the small
/// linear algebra that stands ready; the player's turn doesn't call it.
///
/// Vectors are columns: m * v. The columns of a rotation are where it takes the three axes.
/// Euler angles are in radians here, an angle about an axis in degrees.

#include <ostream>
#include <string>

#include "math/VecPosition.h"

class Matrix4;
class Quaternion;

class Matrix3 {
 public:
  double m[3][3];  ///< [row][column]

  static const Matrix3 zero;
  static const Matrix3 identity;

  // Making one.
  /// The identity.
  constexpr Matrix3() : Matrix3(1, 0, 0, 0, 1, 0, 0, 0, 1) {}
  /// Row by row.
  constexpr Matrix3(const double& m00, const double& m01, const double& m02, const double& m10,
                    const double& m11, const double& m12, const double& m20, const double& m21,
                    const double& m22)
      : m{{m00, m01, m02}, {m10, m11, m12}, {m20, m21, m22}} {}
  /// Three rows.
  explicit Matrix3(const double (*rows)[3]);
  /// The upper left block.
  Matrix3(const Matrix4& matrix);
  /// The rotation, of a unit quaternion.
  Matrix3(const Quaternion& rotation);
  /// Back to the identity.
  void clearMatrix();
  /// Sets all nine elements to the scalar.
  Matrix3& operator=(const double& d);

  // Parts.
  /// A row. An index that has none is reported on standard error and stands for the nearest row.
  double* operator[](int row);
  const double* operator[](int row) const;
  /// UnknownPosition, and a word on standard error, for an index outside 0 to 2.
  [[nodiscard]] VecPosition getColoumn(const int& column) const;
  /// An index outside 0 to 2 is reported on standard error and writes nothing.
  void setColoumn(const int& column, const VecPosition& v);

  // Exact comparisons.
  bool operator==(const Matrix3& other) const;
  bool operator!=(const Matrix3& other) const;

  // Element by element.
  Matrix3 operator+(const Matrix3& other) const;
  Matrix3 operator-(const Matrix3& other) const;
  Matrix3 operator+(double d) const;
  Matrix3 operator-(double d) const;
  Matrix3 operator*(double d) const;
  Matrix3 operator/(double d) const;
  Matrix3& operator+=(const Matrix3& other);
  Matrix3& operator-=(const Matrix3& other);
  Matrix3& operator+=(double d);
  Matrix3& operator-=(double d);
  Matrix3& operator*=(double d);
  Matrix3& operator/=(double d);

  // The product of matrices, this on the left; a quotient is the product with the inverse.
  Matrix3 operator*(const Matrix3& other) const;
  Matrix3 operator/(const Matrix3& other) const;
  Matrix3& operator*=(const Matrix3& other);
  Matrix3& operator/=(const Matrix3& other);
  /// With a column vector.
  VecPosition operator*(const VecPosition& v) const;

  [[nodiscard]] double getDeterminant() const;
  [[nodiscard]] Matrix3 getTranspose() const;
  /// A determinant next to nothing is reported on standard error and divided by all the same.
  [[nodiscard]] Matrix3 getInverseMatrix() const;
  /// Makes the columns perpendicular to each other and of unit length, by Gram and Schmidt: the
  /// first keeps its direction. A column without length isn't guarded against.
  void orthoNormalize();

  // Axes and rotations; Matrix3Rotation.cpp.
  /// Three columns.
  void fromAxes(const VecPosition& xAxis, const VecPosition& yAxis, const VecPosition& zAxis);
  /// The rows are the x, the y and the z members of the three points.
  void createFrom3Points(const VecPosition& p1, const VecPosition& p2, const VecPosition& p3);
  /// Needs a unit axis.
  void fromAxisAngle(const VecPosition& axis, const double& degrees);
  /// Of a rotation: 0 to 180 [deg], and along x where there is no turn.
  void toAxisAngle(VecPosition& axis, double& degrees) const;

  // The product of three elementary rotations in the order of the name, each by the angle at its
  // place in the list: XYZ is Rx(a) · (Ry(b) · Rz(c)). [rad]
  void fromEulerAnglesXYZ(const double& a, const double& b, const double& c);
  void fromEulerAnglesXZY(const double& a, const double& b, const double& c);
  void fromEulerAnglesYXZ(const double& a, const double& b, const double& c);
  void fromEulerAnglesYZX(const double& a, const double& b, const double& c);
  void fromEulerAnglesZXY(const double& a, const double& b, const double& c);
  void fromEulerAnglesZYX(const double& a, const double& b, const double& c);
  // And back: b from -pi/2 to pi/2. [rad] False at those ends, the poles, where only the sum or the
  // difference of the outer angles is known; c is 0 there. The a told at a pole builds the rotation
  // again in XYZ, YZX and ZXY, and in ZYX at the upper one. It has the other sign in XZY and YXZ,
  // and is half a turn off in ZYX at the lower one: by design, so ask the result before using it.
  bool toEulerAnglesXYZ(double& a, double& b, double& c) const;
  bool toEulerAnglesXZY(double& a, double& b, double& c) const;
  bool toEulerAnglesYXZ(double& a, double& b, double& c) const;
  bool toEulerAnglesYZX(double& a, double& b, double& c) const;
  bool toEulerAnglesZXY(double& a, double& b, double& c) const;
  bool toEulerAnglesZYX(double& a, double& b, double& c) const;

  /// "(Matrix3 (m00 m01 ... m22))", two fixed decimals.
  [[nodiscard]] std::string str() const;
};

inline constexpr Matrix3 Matrix3::zero{0, 0, 0, 0, 0, 0, 0, 0, 0};
inline constexpr Matrix3 Matrix3::identity{1, 0, 0, 0, 1, 0, 0, 0, 1};

/// A row vector with a matrix.
VecPosition operator*(const VecPosition& v, const Matrix3& matrix);
/// As str() has it, whatever the stream's format.
std::ostream& operator<<(std::ostream& os, Matrix3 matrix);
