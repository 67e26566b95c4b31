#include "viewer/server/Shown.h"

#include <cmath>
#include <numbers>

#include "arena/record/Attitude.h"
#include "arena/senses/Sight.h"

namespace arena::view {
namespace {

Vec3 turned(const Mat3& m, const Vec3& v) {
  return {m[0] * v[0] + m[1] * v[1] + m[2] * v[2], m[3] * v[0] + m[4] * v[1] + m[5] * v[2],
          m[6] * v[0] + m[7] * v[1] + m[8] * v[2]};
}

Mat3 product(const Mat3& a, const Mat3& b) {
  Mat3 m{};
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 3; ++column) {
      for (std::size_t k = 0; k < 3; ++k) m[3 * row + column] += a[3 * row + k] * b[3 * k + column];
    }
  }
  return m;
}

Vec3 sum(const Vec3& a, const Vec3& b) {
  return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

/// From the parent's frame to that of the link of joint ROW, turned by DEGREES about its axis.
Frame linked(const Frame& parent, const JointRow& row, double degrees) {
  const double half = degrees * std::numbers::pi / 360;
  const double s = std::sin(half);
  const Mat3 turn = axesOf({std::cos(half), s * row.axis[0], s * row.axis[1], s * row.axis[2]});
  const Vec3 pivot = sum(row.offset, row.anchor);
  const Vec3 back = turned(turn, {-row.anchor[0], -row.anchor[1], -row.anchor[2]});
  return {sum(parent.position, turned(parent.axes, sum(pivot, back))), product(parent.axes, turn)};
}

}  // namespace

Frame cameraOf(const PlayerRecord& player) {
  constexpr std::size_t neck = rowOfLink("Neck");
  constexpr std::size_t head = rowOfLink("Head");
  const Frame torso{player.position, axesOf(player.attitude)};
  return linked(linked(torso, kJoints[neck], player.jointDeg[neck]), kJoints[head],
                player.jointDeg[head]);
}

Shown shownTo(const PlayerRecord& player, const Vec3& ball) {
  const Frame camera = cameraOf(player);
  Shown shown;
  for (std::size_t i = 0; i < kLandmarks.size(); ++i) {
    shown.landmarks[i] = inView(polarIn(camera, kLandmarks[i].position));
  }
  const Polar toBall = polarIn(camera, ball);
  if (inView(toBall)) {
    shown.ballBearingDeg = toBall.horizontalDeg + player.jointDeg[rowOfPerceptor("hj1")];
  }
  return shown;
}

}  // namespace arena::view
