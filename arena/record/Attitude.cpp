#include "arena/record/Attitude.h"

#include <cmath>

namespace arena {

Quaternion attitudeOf(const Mat3& m) {
  // The largest of the four parts is taken from the diagonal, the others follow from it by
  // division: never by something small.
  const double trace = m[0] + m[4] + m[8];
  Quaternion q{};
  if (trace > 0) {
    const double s = 2 * std::sqrt(trace + 1);
    q = {s / 4, (m[7] - m[5]) / s, (m[2] - m[6]) / s, (m[3] - m[1]) / s};
  } else if (m[0] > m[4] && m[0] > m[8]) {
    const double s = 2 * std::sqrt(1 + m[0] - m[4] - m[8]);
    q = {(m[7] - m[5]) / s, s / 4, (m[1] + m[3]) / s, (m[2] + m[6]) / s};
  } else if (m[4] > m[8]) {
    const double s = 2 * std::sqrt(1 + m[4] - m[0] - m[8]);
    q = {(m[2] - m[6]) / s, (m[1] + m[3]) / s, s / 4, (m[5] + m[7]) / s};
  } else {
    const double s = 2 * std::sqrt(1 + m[8] - m[0] - m[4]);
    q = {(m[3] - m[1]) / s, (m[2] + m[6]) / s, (m[5] + m[7]) / s, s / 4};
  }
  if (q[0] < 0) q = {-q[0], -q[1], -q[2], -q[3]};
  return q;
}

Mat3 axesOf(const Quaternion& attitude) {
  const double length =
      std::hypot(std::hypot(attitude[0], attitude[1]), std::hypot(attitude[2], attitude[3]));
  if (length == 0) return Frame{}.axes;
  const double w = attitude[0] / length;
  const double x = attitude[1] / length;
  const double y = attitude[2] / length;
  const double z = attitude[3] / length;
  return {1 - 2 * (y * y + z * z), 2 * (x * y - w * z),     2 * (x * z + w * y),
          2 * (x * y + w * z),     1 - 2 * (x * x + z * z), 2 * (y * z - w * x),
          2 * (x * z - w * y),     2 * (y * z + w * x),     1 - 2 * (x * x + y * y)};
}

}  // namespace arena
