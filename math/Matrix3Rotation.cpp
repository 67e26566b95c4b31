// Rotations told as a matrix: by three axes, by an axis and an angle, by three angles one after the
// other. The arithmetic of the class stands in Matrix3.cpp.

#include <cmath>

#include "math/Geometry.h"
#include "math/Matrix3.h"

namespace {

Matrix3 aboutX(double angleRad) {
  const double c = std::cos(angleRad);
  const double s = std::sin(angleRad);
  return {1, 0, 0,   //
          0, c, -s,  //
          0, s, c};
}

Matrix3 aboutY(double angleRad) {
  const double c = std::cos(angleRad);
  const double s = std::sin(angleRad);
  return {c,  0, s,  //
          0,  1, 0,  //
          -s, 0, c};
}

Matrix3 aboutZ(double angleRad) {
  const double c = std::cos(angleRad);
  const double s = std::sin(angleRad);
  return {c, -s, 0,  //
          s, c,  0,  //
          0, 0,  1};
}

/// One element of the matrix, or its opposite.
struct Entry {
  double sign;
  int row;
  int column;

  [[nodiscard]] double of(const Matrix3& matrix) const { return sign * matrix.m[row][column]; }
};

/// The angle of a vector in a plane, told by two elements.
struct Angle {
  Entry y;
  Entry x;

  [[nodiscard]] double of(const Matrix3& matrix) const {
    return std::atan2(y.of(matrix), x.of(matrix));
  }
};

/// Where the three angles of one order of rotations are found in its product, for instance
///   Rz(a) Ry(b) Rx(c):   m[0][0] = cos a cos b,   m[1][0] = sin a cos b,   m[2][0] = -sin b.
struct EulerOrder {
  Entry sineOfB;
  Angle a;
  Angle c;
  Angle atPole;  ///< a when b is a quarter turn and c is put to 0
};

constexpr Entry pos(int row, int column) {
  return {1.0, row, column};
}

constexpr Entry neg(int row, int column) {
  return {-1.0, row, column};
}

// clang-format off
constexpr EulerOrder
//       sine of b    a: y, x                 c: y, x                 a at the pole: y, x
    kZYX{neg(2, 0), {pos(1, 0), pos(0, 0)}, {pos(2, 1), pos(2, 2)}, {neg(0, 1), pos(0, 2)}},
    kZXY{pos(2, 1), {neg(0, 1), pos(1, 1)}, {neg(2, 0), pos(2, 2)}, {pos(0, 2), pos(0, 0)}},
    kYZX{pos(1, 0), {neg(2, 0), pos(0, 0)}, {neg(1, 2), pos(1, 1)}, {pos(2, 1), pos(2, 2)}},
    kYXZ{neg(1, 2), {pos(0, 2), pos(2, 2)}, {pos(1, 0), pos(1, 1)}, {neg(0, 1), pos(0, 0)}},
    kXZY{neg(0, 1), {pos(2, 1), pos(1, 1)}, {pos(0, 2), pos(0, 0)}, {neg(2, 0), pos(2, 2)}},
    kXYZ{pos(0, 2), {neg(1, 2), pos(2, 2)}, {neg(0, 1), pos(0, 0)}, {pos(1, 0), pos(1, 1)}};
// clang-format on

bool toEulerAngles(const Matrix3& matrix, const EulerOrder& order, double& a, double& b,
                   double& c) {
  constexpr double kQuarterTurn = 1.5707963267948966;
  b = std::asin(order.sineOfB.of(matrix));
  if (b >= kQuarterTurn) {
    a = order.atPole.of(matrix);
    c = 0.0;
    return false;
  }
  if (b <= -kQuarterTurn) {
    a = 0.0 - order.atPole.of(matrix);
    c = 0.0;
    return false;
  }
  a = order.a.of(matrix);
  c = order.c.of(matrix);
  return true;
}

}  // namespace

void Matrix3::fromAxes(const VecPosition& xAxis, const VecPosition& yAxis,
                       const VecPosition& zAxis) {
  setColoumn(0, xAxis);
  setColoumn(1, yAxis);
  setColoumn(2, zAxis);
}

void Matrix3::createFrom3Points(const VecPosition& p1, const VecPosition& p2,
                                const VecPosition& p3) {
  *this = Matrix3(p1.x, p2.x, p3.x,  //
                  p1.y, p2.y, p3.y,  //
                  p1.z, p2.z, p3.z);
}

void Matrix3::fromAxisAngle(const VecPosition& axis, const double& degrees) {
  // Rodrigues: cos I + sin [axis]x + (1 - cos) axis axisT, with [axis]x v = axis x v.
  const double c = cosDeg(degrees);
  const double s = sinDeg(degrees);
  const double t = 1.0 - c;
  const VecPosition u = axis;
  *this = Matrix3(t * u.x * u.x + c, t * u.x * u.y - s * u.z, t * u.x * u.z + s * u.y,
                  t * u.x * u.y + s * u.z, t * u.y * u.y + c, t * u.y * u.z - s * u.x,
                  t * u.x * u.z - s * u.y, t * u.y * u.z + s * u.x, t * u.z * u.z + c);
}

void Matrix3::toAxisAngle(VecPosition& axis, double& degrees) const {
  // The trace is 1 + 2 cos, and what is skew in the matrix is sin [axis]x.
  const double cosine = 0.5 * (m[0][0] + m[1][1] + m[2][2] - 1.0);
  const double angleRad = std::acos(cosine);
  degrees = Rad2Deg(angleRad);
  if (!(angleRad > 0.0)) {
    axis = VecPosition(1.0, 0.0, 0.0);
    return;
  }
  if (angleRad < PI) {
    axis = VecPosition(m[2][1] - m[1][2], m[0][2] - m[2][0], m[1][0] - m[0][1]);
    axis.normalize();
    return;
  }
  // Half a turn has nothing skew: it is 2 axis axisT - I. The largest member comes from the
  // diagonal, the others from their products with it.
  int i = m[0][0] >= m[1][1] ? 0 : 1;
  i = m[i][i] >= m[2][2] ? i : 2;
  const int j = (i + 1) % 3;
  const int k = (i + 2) % 3;
  const double largest = 0.5 * std::sqrt(1.0 + m[i][i] - m[j][j] - m[k][k]);
  axis[i] = largest;
  axis[j] = m[i][j] / (2.0 * largest);
  axis[k] = m[i][k] / (2.0 * largest);
}

void Matrix3::fromEulerAnglesXYZ(const double& a, const double& b, const double& c) {
  *this = aboutX(a) * (aboutY(b) * aboutZ(c));
}

void Matrix3::fromEulerAnglesXZY(const double& a, const double& b, const double& c) {
  *this = aboutX(a) * (aboutZ(b) * aboutY(c));
}

void Matrix3::fromEulerAnglesYXZ(const double& a, const double& b, const double& c) {
  *this = aboutY(a) * (aboutX(b) * aboutZ(c));
}

void Matrix3::fromEulerAnglesYZX(const double& a, const double& b, const double& c) {
  *this = aboutY(a) * (aboutZ(b) * aboutX(c));
}

void Matrix3::fromEulerAnglesZXY(const double& a, const double& b, const double& c) {
  *this = aboutZ(a) * (aboutX(b) * aboutY(c));
}

void Matrix3::fromEulerAnglesZYX(const double& a, const double& b, const double& c) {
  *this = aboutZ(a) * (aboutY(b) * aboutX(c));
}

bool Matrix3::toEulerAnglesXYZ(double& a, double& b, double& c) const {
  return toEulerAngles(*this, kXYZ, a, b, c);
}

bool Matrix3::toEulerAnglesXZY(double& a, double& b, double& c) const {
  return toEulerAngles(*this, kXZY, a, b, c);
}

bool Matrix3::toEulerAnglesYXZ(double& a, double& b, double& c) const {
  return toEulerAngles(*this, kYXZ, a, b, c);
}

bool Matrix3::toEulerAnglesYZX(double& a, double& b, double& c) const {
  return toEulerAngles(*this, kYZX, a, b, c);
}

bool Matrix3::toEulerAnglesZXY(double& a, double& b, double& c) const {
  return toEulerAngles(*this, kZXY, a, b, c);
}

bool Matrix3::toEulerAnglesZYX(double& a, double& b, double& c) const {
  return toEulerAngles(*this, kZYX, a, b, c);
}
