#include "arena/senses/Sight.h"

#include <cmath>
#include <numbers>

namespace arena {
namespace {

/// A little above the tangent of the half angle: what lies beyond is out of view whatever rounding
/// makes of it.
constexpr double kSurelyBeside = 1.7321;
static_assert(kViewHalfAngleDeg == 60.0);

double degrees(double radians) {
  return radians * 180.0 / std::numbers::pi;
}

struct InCamera {
  double right = 0;
  double ahead = 0;
  double up = 0;
};

InCamera inCamera(const Frame& camera, const Vec3& point) {
  const Vec3 away{point[0] - camera.position[0], point[1] - camera.position[1],
                  point[2] - camera.position[2]};
  const Mat3& axes = camera.axes;
  return {axes[0] * away[0] + axes[3] * away[1] + axes[6] * away[2],
          axes[1] * away[0] + axes[4] * away[1] + axes[7] * away[2],
          axes[2] * away[0] + axes[5] * away[1] + axes[8] * away[2]};
}

Polar polarOf(const InCamera& place) {
  const auto& [right, ahead, up] = place;
  return {std::sqrt(right * right + ahead * ahead + up * up), degrees(std::atan2(-right, ahead)),
          degrees(std::atan2(up, std::hypot(right, ahead)))};
}

}  // namespace

Polar polarIn(const Frame& camera, const Vec3& point) {
  return polarOf(inCamera(camera, point));
}

std::optional<Polar> seenIn(const Frame& camera, const Vec3& point) {
  const InCamera place = inCamera(camera, point);
  if (std::abs(place.right) > kSurelyBeside * place.ahead + 1e-9) return std::nullopt;
  const Polar polar = polarOf(place);
  if (!inView(polar)) return std::nullopt;
  return polar;
}

bool inView(const Polar& polar) {
  return std::abs(polar.horizontalDeg) <= kViewHalfAngleDeg &&
         std::abs(polar.elevationDeg) <= kViewHalfAngleDeg;
}

Polar withNoise(const Polar& polar, const SightNoise& noise, NoiseStream& stream) {
  // One statement each: the order in which the stream is read is part of a match's repeatability.
  const double distance = polar.distance * (1 + noise.distanceFraction * stream.gaussian());
  const double horizontal = polar.horizontalDeg + noise.horizontalDeg * stream.gaussian();
  const double elevation = polar.elevationDeg + noise.elevationDeg * stream.gaussian();
  return {distance, horizontal, elevation};
}

}  // namespace arena
