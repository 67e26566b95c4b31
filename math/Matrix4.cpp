#include "math/Matrix4.h"

#include <functional>

#include "math/Matrix3.h"
#include "math/MatrixElements.h"
#include "math/Quaternion.h"

namespace {

constexpr const char* kName = "Matrix4";

/// The four indices but one.
constexpr int kOthers[4][3]{{1, 2, 3}, {0, 2, 3}, {0, 1, 3}, {0, 1, 2}};

/// Plus or minus, in turn, the determinant of what is left without that row and that column.
double cofactor(const double (&m)[4][4], int row, int column) {
  const int(&r)[3] = kOthers[row];
  const int(&c)[3] = kOthers[column];
  const Matrix3 left(m[r[0]][c[0]], m[r[0]][c[1]], m[r[0]][c[2]],  //
                     m[r[1]][c[0]], m[r[1]][c[1]], m[r[1]][c[2]],  //
                     m[r[2]][c[0]], m[r[2]][c[1]], m[r[2]][c[2]]);
  return (row + column) % 2 == 0 ? left.getDeterminant() : -left.getDeterminant();
}

}  // namespace

Matrix4::Matrix4(const double (*rows)[4])
    : Matrix4(rows[0][0], rows[0][1], rows[0][2], rows[0][3], rows[1][0], rows[1][1], rows[1][2],
              rows[1][3], rows[2][0], rows[2][1], rows[2][2], rows[2][3], rows[3][0], rows[3][1],
              rows[3][2], rows[3][3]) {}

Matrix4::Matrix4(const Matrix3& block) {
  fromMatrix3(block);
}

Matrix4::Matrix4(const Quaternion& rotation) {
  fromQuaternion(rotation);
}

void Matrix4::clearMatrix() {
  *this = identity;
}

Matrix4& Matrix4::operator=(const double& d) {
  matrix_elements::change(m, [scalar = d](double) { return scalar; });
  return *this;
}

Matrix4& Matrix4::operator=(const Matrix3& block) {
  for (int r = 0; r < 3; ++r) {
    for (int c = 0; c < 3; ++c) {
      m[r][c] = block.m[r][c];
    }
  }
  return *this;
}

Matrix4 Matrix4::getScaleMatrix(double x, double y, double z) {
  return {x, 0, 0, 0,  //
          0, y, 0, 0,  //
          0, 0, z, 0,  //
          0, 0, 0, 1};
}

Matrix4 Matrix4::getScaleMatrix(const VecPosition& factors) {
  return getScaleMatrix(factors.x, factors.y, factors.z);
}

Matrix4 Matrix4::getTranslationMatrix(double x, double y, double z) {
  return {1, 0, 0, x,  //
          0, 1, 0, y,  //
          0, 0, 1, z,  //
          0, 0, 0, 1};
}

Matrix4 Matrix4::getTranslationMatrix(const VecPosition& offset) {
  return getTranslationMatrix(offset.x, offset.y, offset.z);
}

Matrix4 Matrix4::createTransform(const VecPosition& pos, const VecPosition& scale,
                                 const Quaternion& orientation) {
  const Matrix3 stretch(scale.x, 0, 0,  //
                        0, scale.y, 0,  //
                        0, 0, scale.z);
  Matrix4 transform(orientation.toMatrix3() * stretch);
  transform.setTranslation(pos);
  return transform;
}

double* Matrix4::operator[](int row) {
  return m[matrix_elements::rowWithin<4>(kName, row)];
}

const double* Matrix4::operator[](int row) const {
  return m[matrix_elements::rowWithin<4>(kName, row)];
}

VecPosition Matrix4::getTranslation() const {
  return {m[0][3], m[1][3], m[2][3]};
}

void Matrix4::setTranslation(const VecPosition& offset) {
  m[0][3] = offset.x;
  m[1][3] = offset.y;
  m[2][3] = offset.z;
}

VecPosition Matrix4::getScale() const {
  return getTranslation();
}

void Matrix4::setScale(const VecPosition& factors) {
  setTranslation(factors);
}

bool Matrix4::isAffine() const {
  return m[3][0] == 0 && m[3][1] == 0 && m[3][2] == 0 && m[3][3] == 1;
}

Matrix3 Matrix4::toMatrix3() const {
  return {m[0][0], m[0][1], m[0][2],  //
          m[1][0], m[1][1], m[1][2],  //
          m[2][0], m[2][1], m[2][2]};
}

Quaternion Matrix4::toQuaternion() const {
  return Quaternion(toMatrix3());
}

void Matrix4::fromMatrix3(const Matrix3& block) {
  clearMatrix();
  *this = block;
}

void Matrix4::fromQuaternion(const Quaternion& rotation) {
  fromMatrix3(rotation.toMatrix3());
}

bool Matrix4::operator==(const Matrix4& other) const {
  return matrix_elements::equal(m, other.m);
}

bool Matrix4::operator!=(const Matrix4& other) const {
  return !(*this == other);
}

Matrix4 Matrix4::operator+(const Matrix4& other) const {
  return Matrix4(*this) += other;
}

Matrix4 Matrix4::operator-(const Matrix4& other) const {
  return Matrix4(*this) -= other;
}

Matrix4 Matrix4::operator+(double d) const {
  return Matrix4(*this) += d;
}

Matrix4 Matrix4::operator-(double d) const {
  return Matrix4(*this) -= d;
}

Matrix4 Matrix4::operator*(double d) const {
  return Matrix4(*this) *= d;
}

Matrix4 Matrix4::operator/(double d) const {
  return Matrix4(*this) /= d;
}

Matrix4& Matrix4::operator+=(const Matrix4& other) {
  matrix_elements::combine(m, other.m, std::plus<>());
  return *this;
}

Matrix4& Matrix4::operator-=(const Matrix4& other) {
  matrix_elements::combine(m, other.m, std::minus<>());
  return *this;
}

Matrix4& Matrix4::operator+=(double d) {
  matrix_elements::change(m, [d](double element) { return element + d; });
  return *this;
}

Matrix4& Matrix4::operator-=(double d) {
  matrix_elements::change(m, [d](double element) { return element - d; });
  return *this;
}

Matrix4& Matrix4::operator*=(double d) {
  matrix_elements::change(m, [d](double element) { return element * d; });
  return *this;
}

Matrix4& Matrix4::operator/=(double d) {
  matrix_elements::change(m, [d](double element) { return element / d; });
  return *this;
}

Matrix4 Matrix4::operator*(const Matrix4& other) const {
  Matrix4 product;
  matrix_elements::multiply(m, other.m, product.m);
  return product;
}

Matrix4 Matrix4::operator/(const Matrix4& other) const {
  return *this * other.getInverseMatrix();
}

Matrix4& Matrix4::operator*=(const Matrix4& other) {
  return *this = *this * other;
}

Matrix4& Matrix4::operator/=(const Matrix4& other) {
  return *this = *this / other;
}

VecPosition Matrix4::operator*(const VecPosition& v) const {
  const double w = m[3][0] * v.x + m[3][1] * v.y + m[3][2] * v.z + m[3][3];
  return transformAffine(v) / w;
}

VecPosition Matrix4::transformAffine(const VecPosition& v) const {
  return {m[0][0] * v.x + m[0][1] * v.y + m[0][2] * v.z + m[0][3],
          m[1][0] * v.x + m[1][1] * v.y + m[1][2] * v.z + m[1][3],
          m[2][0] * v.x + m[2][1] * v.y + m[2][2] * v.z + m[2][3]};
}

VecPosition operator*(const VecPosition& v, const Matrix4& matrix) {
  return matrix.getTranspose() * v;
}

double Matrix4::getDeterminant() const {
  return toMatrix3().getDeterminant();
}

Matrix4 Matrix4::getTranspose() const {
  Matrix4 transposed(*this);
  matrix_elements::transpose(transposed.m);
  return transposed;
}

Matrix4 Matrix4::getInverseMatrix() const {
  // Cramer: the transpose of the cofactors, over the determinant of all four rows.
  double determinant = 0.0;
  Matrix4 inverse;
  for (int r = 0; r < 4; ++r) {
    for (int c = 0; c < 4; ++c) {
      inverse.m[c][r] = cofactor(m, r, c);
    }
    determinant += m[r][0] * inverse.m[0][r];
  }
  return inverse *= 1.0 / determinant;
}

std::string Matrix4::str() const {
  return matrix_elements::text(kName, m);
}

std::ostream& operator<<(std::ostream& os, Matrix4 matrix) {
  return os << matrix.str();
}
