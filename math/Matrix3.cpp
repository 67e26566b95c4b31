#include "math/Matrix3.h"

#include <cmath>
#include <functional>
#include <iostream>

#include "math/Geometry.h"
#include "math/Matrix4.h"
#include "math/MatrixElements.h"
#include "math/Quaternion.h"

namespace {

constexpr const char* kName = "Matrix3";

/// Whether there is such a column; says on standard error that there is none.
bool isColumn(const char* function, int index) {
  const bool within = index >= 0 && index < 3;
  if (!within) {
    std::cerr << "(Matrix3::" << function << ") Index out of bounds: " << index << std::endl;
  }
  return within;
}

/// Without a guard: a vector without length comes out as no numbers.
VecPosition unit(const VecPosition& v) {
  return v / v.getMagnitude();
}

}  // namespace

Matrix3::Matrix3(const double (*rows)[3])
    : Matrix3(rows[0][0], rows[0][1], rows[0][2], rows[1][0], rows[1][1], rows[1][2], rows[2][0],
              rows[2][1], rows[2][2]) {}

Matrix3::Matrix3(const Matrix4& matrix) : Matrix3(matrix.toMatrix3()) {}

Matrix3::Matrix3(const Quaternion& rotation) : Matrix3(rotation.toMatrix3()) {}

void Matrix3::clearMatrix() {
  *this = identity;
}

Matrix3& Matrix3::operator=(const double& d) {
  matrix_elements::change(m, [scalar = d](double) { return scalar; });
  return *this;
}

double* Matrix3::operator[](int row) {
  return m[matrix_elements::rowWithin<3>(kName, row)];
}

const double* Matrix3::operator[](int row) const {
  return m[matrix_elements::rowWithin<3>(kName, row)];
}

VecPosition Matrix3::getColoumn(const int& column) const {
  if (!isColumn("getColoumn", column)) {
    return UnknownPosition;
  }
  return {m[0][column], m[1][column], m[2][column]};
}

void Matrix3::setColoumn(const int& column, const VecPosition& v) {
  if (isColumn("setColoumn", column)) {
    m[0][column] = v.x;
    m[1][column] = v.y;
    m[2][column] = v.z;
  }
}

bool Matrix3::operator==(const Matrix3& other) const {
  return matrix_elements::equal(m, other.m);
}

bool Matrix3::operator!=(const Matrix3& other) const {
  return !(*this == other);
}

Matrix3 Matrix3::operator+(const Matrix3& other) const {
  return Matrix3(*this) += other;
}

Matrix3 Matrix3::operator-(const Matrix3& other) const {
  return Matrix3(*this) -= other;
}

Matrix3 Matrix3::operator+(double d) const {
  return Matrix3(*this) += d;
}

Matrix3 Matrix3::operator-(double d) const {
  return Matrix3(*this) -= d;
}

Matrix3 Matrix3::operator*(double d) const {
  return Matrix3(*this) *= d;
}

Matrix3 Matrix3::operator/(double d) const {
  return Matrix3(*this) /= d;
}

Matrix3& Matrix3::operator+=(const Matrix3& other) {
  matrix_elements::combine(m, other.m, std::plus<>());
  return *this;
}

Matrix3& Matrix3::operator-=(const Matrix3& other) {
  matrix_elements::combine(m, other.m, std::minus<>());
  return *this;
}

Matrix3& Matrix3::operator+=(double d) {
  matrix_elements::change(m, [d](double element) { return element + d; });
  return *this;
}

Matrix3& Matrix3::operator-=(double d) {
  matrix_elements::change(m, [d](double element) { return element - d; });
  return *this;
}

Matrix3& Matrix3::operator*=(double d) {
  matrix_elements::change(m, [d](double element) { return element * d; });
  return *this;
}

Matrix3& Matrix3::operator/=(double d) {
  matrix_elements::change(m, [d](double element) { return element / d; });
  return *this;
}

Matrix3 Matrix3::operator*(const Matrix3& other) const {
  Matrix3 product;
  matrix_elements::multiply(m, other.m, product.m);
  return product;
}

Matrix3 Matrix3::operator/(const Matrix3& other) const {
  return *this * other.getInverseMatrix();
}

Matrix3& Matrix3::operator*=(const Matrix3& other) {
  return *this = *this * other;
}

Matrix3& Matrix3::operator/=(const Matrix3& other) {
  return *this = *this / other;
}

VecPosition Matrix3::operator*(const VecPosition& v) const {
  return {m[0][0] * v.x + m[0][1] * v.y + m[0][2] * v.z,
          m[1][0] * v.x + m[1][1] * v.y + m[1][2] * v.z,
          m[2][0] * v.x + m[2][1] * v.y + m[2][2] * v.z};
}

VecPosition operator*(const VecPosition& v, const Matrix3& matrix) {
  return matrix.getTranspose() * v;
}

double Matrix3::getDeterminant() const {
  // Along the first row.
  return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
         m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
         m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
}

Matrix3 Matrix3::getTranspose() const {
  Matrix3 transposed(*this);
  matrix_elements::transpose(transposed.m);
  return transposed;
}

Matrix3 Matrix3::getInverseMatrix() const {
  const double determinant = getDeterminant();
  if (std::fabs(determinant) < EPSILON) {
    std::cerr << "(Matrix3::inverseMatrix) Determinant is zero" << std::endl;
  }
  // The rows of the cofactors' transpose are the vector products of the columns: each is
  // perpendicular to two of them, and gives the determinant with the third.
  const VecPosition c0 = getColoumn(0);
  const VecPosition c1 = getColoumn(1);
  const VecPosition c2 = getColoumn(2);
  Matrix3 rows;
  rows.fromAxes(c1.cross(c2), c2.cross(c0), c0.cross(c1));
  return rows.getTranspose() / determinant;
}

void Matrix3::orthoNormalize() {
  const VecPosition x = unit(getColoumn(0));
  VecPosition y = getColoumn(1);
  y = unit(y - x * x.dot(y));
  VecPosition z = getColoumn(2);
  z = unit(z - x * x.dot(z) - y * y.dot(z));
  fromAxes(x, y, z);
}

std::string Matrix3::str() const {
  return matrix_elements::text(kName, m);
}

std::ostream& operator<<(std::ostream& os, Matrix3 matrix) {
  return os << matrix.str();
}
