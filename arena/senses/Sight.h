#pragma once

/// The geometry of a camera: where a point of the field appears in it, and whether it is in view.
/// Called by Perception for everything that a See element might hold.

#include <optional>

#include "arena/senses/Noise.h"
#include "arena/world/State.h"

namespace arena {

/// [deg] what the camera takes in, either way from its axis, horizontally and vertically.
inline constexpr double kViewHalfAngleDeg = 60.0;

/// A point as a camera sees it.
struct Polar {
  double distance = 0;       ///< [m]
  double horizontalDeg = 0;  ///< [deg] positive to the left of the view
  double elevationDeg = 0;   ///< [deg] positive upward
};

/// Errors of sight, one sigma.
struct SightNoise {
  double distanceFraction = 0.001;
  double horizontalDeg = 0.12;
  double elevationDeg = 0.15;
};

/// POINT (field frame) in the camera's own frame: x right, y along the view, z up.
Polar polarIn(const Frame& camera, const Vec3& point);

/// Whether a point is in view, both borders included.
bool inView(const Polar& polar);

/// POINT as polarIn gives it if it is in view. Spares the angles of most of what isn't.
std::optional<Polar> seenIn(const Frame& camera, const Vec3& point);

/// POLAR with an error on each number. Takes three numbers from the stream, always.
Polar withNoise(const Polar& polar, const SightNoise& noise, NoiseStream& stream);

}  // namespace arena
