#pragma once

/// The ways along which the localisation trial carries its player. Constant; read by the trial.
/// Together they show the player every combination of landmarks that its localisation tells apart.
///
/// Frame: the player's own. Own goal at x = -9, the other goal at x = 9, y to the left of the
/// attack; metres. A view is the direction of the camera, whatever head and body have to do for it.

#include <string_view>
#include <vector>

namespace bench {

/// Where the player is and which way its camera looks.
struct CarriedPose {
  double x = 0;        ///< [m]
  double y = 0;        ///< [m]
  double viewDeg = 0;  ///< [deg] from +x towards +y
};

/// The pose to be held at a time; between two of them everything changes evenly.
struct Waypoint {
  double atSeconds = 0;  ///< [s] since the path's start, ascending
  CarriedPose pose{};
};

struct CarriedPath {
  std::string_view name;
  std::vector<Waypoint> waypoints;  ///< two at least, the first at 0 s
};

std::vector<CarriedPath> carriedPaths();

/// [s]
double duration(const CarriedPath& path);

/// Before the start and after the end the player stands still.
CarriedPose poseAt(const CarriedPath& path, double seconds);

}  // namespace bench
