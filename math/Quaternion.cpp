#include "math/Quaternion.h"

#include <cmath>
#include <iomanip>
#include <iostream>
#include <sstream>

#include "math/Geometry.h"
#include "math/Matrix3.h"
#include "math/Matrix4.h"

namespace {

void reportBadIndex(int index) {
  std::cerr << "(Quaternion::operator []) index out of range: " << index << std::endl;
}

}  // namespace

Quaternion::Quaternion(const VecPosition& v) : Quaternion(0.0, v.x, v.y, v.z) {}

Quaternion& Quaternion::operator=(const VecPosition& v) {
  return *this = Quaternion(v);
}

Quaternion::Quaternion(const double& degrees, const VecPosition& axis) {
  fromAngleAxis(degrees, axis);
}

void Quaternion::fromAngleAxis(const double& degrees, const VecPosition& axis) {
  const double half = degrees / 2.0;
  const VecPosition u = VecPosition(axis).normalize() * sinDeg(half);
  *this = Quaternion(cosDeg(half), u.x, u.y, u.z);
}

Quaternion::Quaternion(const Matrix3& rotation) {
  fromMatrix3(rotation);
}

Quaternion::Quaternion(const Matrix4& transform) {
  fromMatrix3(transform.toMatrix3());
}

void Quaternion::fromMatrix3(const Matrix3& rotation) {
  // toMatrix3() read backwards: the trace is 4 w w - 1, what is skew holds 4 w times the others.
  // Where w is small, the largest of the others takes its part, so that no root is next to nothing.
  const double(&m)[3][3] = rotation.m;
  const double trace = m[0][0] + m[1][1] + m[2][2];
  if (trace > 0.0) {
    double root = std::sqrt(trace + 1.0);
    w = root / 2.0;
    root = 0.5 / root;
    x = (m[2][1] - m[1][2]) * root;
    y = (m[0][2] - m[2][0]) * root;
    z = (m[1][0] - m[0][1]) * root;
    return;
  }
  static constexpr int s_iNext[3]{1, 2, 0};
  int i = m[1][1] > m[0][0] ? 1 : 0;
  i = m[2][2] > m[i][i] ? 2 : i;
  const int j = s_iNext[i];
  const int k = s_iNext[j];
  double root = std::sqrt(m[i][i] - m[j][j] - m[k][k] + 1.0);
  VecPosition v;
  v[i] = root / 2.0;
  root = 0.5 / root;
  w = (m[k][j] - m[j][k]) * root;
  v[j] = (m[j][i] + m[i][j]) * root;
  v[k] = (m[k][i] + m[i][k]) * root;
  x = v.x;
  y = v.y;
  z = v.z;
}

void Quaternion::fromAxes(const VecPosition* three) {
  Matrix3 rotation;
  rotation.fromAxes(three[0], three[1], three[2]);
  fromMatrix3(rotation);
}

void Quaternion::fromEulerAngles(const VecPosition& degrees) {
  // The product of the three quaternions about y, z and x, multiplied out.
  const double c1 = cosDeg(degrees.y / 2.0);
  const double s1 = sinDeg(degrees.y / 2.0);
  const double c2 = cosDeg(degrees.z / 2.0);
  const double s2 = sinDeg(degrees.z / 2.0);
  const double c3 = cosDeg(degrees.x / 2.0);
  const double s3 = sinDeg(degrees.x / 2.0);
  w = c3 * c1 * c2 - s3 * s1 * s2;
  x = s3 * c1 * c2 + c3 * s1 * s2;
  y = c3 * s1 * c2 + s3 * c1 * s2;
  z = c3 * c1 * s2 - s3 * s1 * c2;
}

double Quaternion::operator[](const int& index) const {
  switch (index) {
    case 0:
      return w;
    case 1:
      return x;
    case 2:
      return y;
    case 3:
      return z;
    default:
      reportBadIndex(index);
      return 0.0;
  }
}

double& Quaternion::operator[](const int& index) {
  static double dOpenratorBracketTemp = 0.0;
  switch (index) {
    case 0:
      return w;
    case 1:
      return x;
    case 2:
      return y;
    case 3:
      return z;
    default:
      reportBadIndex(index);
      return dOpenratorBracketTemp;
  }
}

bool Quaternion::operator==(const Quaternion& q) const {
  return w == q.w && x == q.x && y == q.y && z == q.z;
}

bool Quaternion::operator!=(const Quaternion& q) const {
  return !(*this == q);
}

Quaternion Quaternion::operator+(const Quaternion& q) const {
  return {w + q.w, x + q.x, y + q.y, z + q.z};
}

Quaternion Quaternion::operator-(const Quaternion& q) const {
  return {w - q.w, x - q.x, y - q.y, z - q.z};
}

Quaternion& Quaternion::operator+=(const Quaternion& q) {
  return *this = *this + q;
}

Quaternion& Quaternion::operator-=(const Quaternion& q) {
  return *this = *this - q;
}

Quaternion Quaternion::operator-() const {
  return {-w, -x, -y, -z};
}

Quaternion Quaternion::operator*(double d) const {
  return {w * d, x * d, y * d, z * d};
}

Quaternion Quaternion::operator*(const Quaternion& q) const {
  // i i = j j = k k = i j k = -1
  return {w * q.w - x * q.x - y * q.y - z * q.z,  //
          w * q.x + x * q.w + y * q.z - z * q.y,  //
          w * q.y - x * q.z + y * q.w + z * q.x,  //
          w * q.z + x * q.y - y * q.x + z * q.w};
}

Quaternion Quaternion::operator/(const Quaternion& q) const {
  return *this * q.getInverse();
}

Quaternion& Quaternion::operator*=(const Quaternion& q) {
  return *this = *this * q;
}

Quaternion& Quaternion::operator/=(const Quaternion& q) {
  return *this = *this / q;
}

VecPosition Quaternion::operator*(const VecPosition& v) const {
  // q v q* of a unit quaternion, multiplied out.
  const VecPosition u(x, y, z);
  const VecPosition uv = u.cross(v);
  return v + uv * (2.0 * w) + u.cross(uv) * 2.0;
}

double Quaternion::dot(const Quaternion& q) const {
  return w * q.w + x * q.x + y * q.y + z * q.z;
}

double Quaternion::norm() const {
  return dot(*this);
}

double Quaternion::normalize() {
  const double sum = norm();
  if (sum != 1.0) {
    const double length = std::sqrt(sum);
    *this = Quaternion(w / length, x / length, y / length, z / length);
  }
  return sum;
}

Quaternion Quaternion::getInverse() const {
  const double sum = norm();
  if (sum > 0.0) {
    return {w / sum, -x / sum, -y / sum, -z / sum};
  }
  return zero;
}

Quaternion Quaternion::getConjugate() const {
  Quaternion unit(*this);
  unit.normalize();
  return {unit.w, -unit.x, -unit.y, -unit.z};
}

Matrix3 Quaternion::toMatrix3() const {
  return {1.0 - 2.0 * (y * y + z * z), 2.0 * (x * y - w * z),       2.0 * (x * z + w * y),
          2.0 * (x * y + w * z),       1.0 - 2.0 * (x * x + z * z), 2.0 * (y * z - w * x),
          2.0 * (x * z - w * y),       2.0 * (y * z + w * x),       1.0 - 2.0 * (x * x + y * y)};
}

VecPosition Quaternion::getXAxis() const {
  return toMatrix3().getColoumn(0);
}

VecPosition Quaternion::getYAxis() const {
  return toMatrix3().getColoumn(1);
}

VecPosition Quaternion::getZAxis() const {
  return toMatrix3().getColoumn(2);
}

void Quaternion::toAxes(VecPosition* three) const {
  const Matrix3 rotation = toMatrix3();
  for (int i = 0; i < 3; ++i) {
    three[i] = rotation.getColoumn(i).normalize();
  }
}

void Quaternion::toAngleAxis(double& degrees, VecPosition& axis) const {
  const double n = x * x + y * y + z * z;
  if (!(n > 0.0)) {
    degrees = 0.0;
    axis = VecPosition(1.0, 0.0, 0.0);
    return;
  }
  degrees = 2.0 * acosDeg(w);
  const double r = 1.0 / std::sqrt(n);
  axis.x = x * r;
  axis.z = y * r;  // not axis.y, on purpose: the caller keeps what it has there
  axis.z = z * r;
}

double Quaternion::getPitch(bool project) const {
  return project ? atan2Deg(2.0 * y * z + 2.0 * x * w, 1.0 - (2.0 * x * x + 2.0 * z * z))
                 : atan2Deg(2.0 * (y * z + x * w), w * w - x * x - y * y + z * z);
}

double Quaternion::getRoll(bool project) const {
  return project ? atan2Deg(2.0 * x * y + 2.0 * z * w, 1.0 - (2.0 * y * y + 2.0 * z * z))
                 : atan2Deg(2.0 * (x * y + z * w), w * w + x * x - y * y - z * z);
}

double Quaternion::getYaw(bool project) const {
  return project ? atan2Deg(2.0 * x * z + 2.0 * y * w, 1.0 - (2.0 * x * x + 2.0 * y * y))
                 : asinDeg(-2.0 * (x * z - w * y));
}

VecPosition Quaternion::toEulerAngles() const {
  constexpr double kPoleZ = 1.5707963267948966;  // the same at both poles, on purpose
  const double sx = x * x;
  const double sy = y * y;
  const double sz = z * z;
  const double sw = w * w;
  const double unit = sx + sy + sz + sw;
  const double test = w * z + x * y;  // half the sine of the angle about z, times unit
  if (test > 0.499 * unit) {
    return {0.0, 2.0 * atan2Deg(x, w), kPoleZ};
  }
  if (test < -0.499 * unit) {
    return {0.0, -2.0 * atan2Deg(x, w), kPoleZ};
  }
  return {atan2Deg(2.0 * x * w - 2.0 * y * z, sy - sx - sz + sw),
          atan2Deg(2.0 * y * w - 2.0 * x * z, sx - sy - sz + sw), asinDeg(2.0 * test / unit)};
}

std::string Quaternion::str() const {
  std::ostringstream os;
  os << std::fixed << std::showpoint << std::setprecision(2) << "(" << w << " " << x << " " << y
     << " " << z << ")";
  return os.str();
}
