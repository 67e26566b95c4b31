#pragma once

/// A matrix of four rows, as affine maps of space: the upper left block turns and stretches, the
/// last column moves, the bottom row is 0, 0, 0, 1. Part of the small linear algebra that stands
/// ready; the player's turn doesn't call it.
///
/// A point (x, y, z) counts as the column (x, y, z, 1).

#include <ostream>
#include <string>

#include "math/VecPosition.h"

class Matrix3;
class Quaternion;

class Matrix4 {
 public:
  double m[4][4];  ///< [row][column]

  static const Matrix4 zero;
  static const Matrix4 identity;

  // Making one.
  /// The identity.
  constexpr Matrix4() : Matrix4(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1) {}
  /// Row by row.
  constexpr Matrix4(const double& m00, const double& m01, const double& m02, const double& m03,
                    const double& m10, const double& m11, const double& m12, const double& m13,
                    const double& m20, const double& m21, const double& m22, const double& m23,
                    const double& m30, const double& m31, const double& m32, const double& m33)
      : m{{m00, m01, m02, m03}, {m10, m11, m12, m13}, {m20, m21, m22, m23}, {m30, m31, m32, m33}} {}
  /// Four rows.
  explicit Matrix4(const double (*rows)[4]);
  /// With the identity around the block.
  Matrix4(const Matrix3& block);
  Matrix4(const Quaternion& rotation);
  /// Back to the identity.
  void clearMatrix();
  /// Sets all sixteen elements to the scalar.
  Matrix4& operator=(const double& d);
  /// Writes the upper left block and leaves the rest as it was.
  Matrix4& operator=(const Matrix3& block);
  static Matrix4 getScaleMatrix(double x, double y, double z);
  static Matrix4 getScaleMatrix(const VecPosition& factors);
  static Matrix4 getTranslationMatrix(double x, double y, double z);
  static Matrix4 getTranslationMatrix(const VecPosition& offset);
  /// Stretches along the axes first, then turns, then moves.
  static Matrix4 createTransform(const VecPosition& pos, const VecPosition& scale,
                                 const Quaternion& orientation);

  // Parts.
  /// A row. An index that has none is reported on standard error and stands for the nearest row.
  double* operator[](int row);
  const double* operator[](int row) const;
  /// The last column.
  [[nodiscard]] VecPosition getTranslation() const;
  void setTranslation(const VecPosition& offset);
  // The same elements as the translation, on purpose: what a matrix made by getScaleMatrix() has on
  // its diagonal is neither read nor written here.
  [[nodiscard]] VecPosition getScale() const;
  void setScale(const VecPosition& factors);
  /// The bottom row is exactly 0, 0, 0, 1.
  [[nodiscard]] bool isAffine() const;

  // The upper left block.
  [[nodiscard]] Matrix3 toMatrix3() const;
  [[nodiscard]] Quaternion toQuaternion() const;
  /// With the identity around it.
  void fromMatrix3(const Matrix3& block);
  void fromQuaternion(const Quaternion& rotation);

  // Exact comparisons.
  bool operator==(const Matrix4& other) const;
  bool operator!=(const Matrix4& other) const;

  // Element by element.
  Matrix4 operator+(const Matrix4& other) const;
  Matrix4 operator-(const Matrix4& other) const;
  Matrix4 operator+(double d) const;
  Matrix4 operator-(double d) const;
  Matrix4 operator*(double d) const;
  Matrix4 operator/(double d) const;
  Matrix4& operator+=(const Matrix4& other);
  Matrix4& operator-=(const Matrix4& other);
  Matrix4& operator+=(double d);
  Matrix4& operator-=(double d);
  Matrix4& operator*=(double d);
  Matrix4& operator/=(double d);

  // The product of matrices, this on the left; a quotient is the product with the inverse.
  Matrix4 operator*(const Matrix4& other) const;
  Matrix4 operator/(const Matrix4& other) const;
  Matrix4& operator*=(const Matrix4& other);
  Matrix4& operator/=(const Matrix4& other);
  /// The point through the matrix, divided by the w that comes out.
  VecPosition operator*(const VecPosition& v) const;
  /// The same without the bottom row and its division.
  [[nodiscard]] VecPosition transformAffine(const VecPosition& v) const;

  /// Of the upper left block ALONE: how much the map stretches a volume.
  [[nodiscard]] double getDeterminant() const;
  [[nodiscard]] Matrix4 getTranspose() const;
  /// Of the whole matrix. Infinities or no numbers, without a word, where there is none.
  [[nodiscard]] Matrix4 getInverseMatrix() const;

  /// "(Matrix4 (m00 m01 ... m33))", two fixed decimals.
  [[nodiscard]] std::string str() const;
};

inline constexpr Matrix4 Matrix4::zero{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
inline constexpr Matrix4 Matrix4::identity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

/// The point as a row (x, y, z, 1) with the matrix, divided by the w that comes out.
VecPosition operator*(const VecPosition& v, const Matrix4& matrix);
/// As str() has it, whatever the stream's format.
std::ostream& operator<<(std::ostream& os, Matrix4 matrix);
