#include "bench/CarriedPaths.h"

#include <algorithm>
#include <cmath>

namespace bench {

// Walking speeds, 0.1 to 0.3 m/s. Each path begins with a view that gives the player a place,
// except where said; what is in view follows from the camera's 60 degrees either way.
std::vector<CarriedPath> carriedPaths() {
  return {
      //                                   s     x     y     view
      {"to own goal", {{0, {-2, 0, 180}}, {20, {-6, 0, 180}}}},
      {"to other goal", {{0, {2, 0, 0}}, {20, {6, 0, 0}}}},
      {"own corner and post", {{0, {-5, -1, 120}}, {13, {-5, 1.5, 120}}}},
      {"other corner and post", {{0, {5, 1.5, -70}}, {13, {5, -1, -60}}}},
      {"own three", {{0, {-4, -1, 150}}, {14, {-3, 1.5, 150}}}},
      {"other three, diagonally", {{0, {3, -1.5, -30}}, {14, {5, 0.5, -30}}}},
      {"left touch line", {{0, {-0.5, -2.5, 90}}, {15, {0.6, 0.3, 90}}}},
      {"right touch line", {{0, {0.5, 2.5, -90}}, {15, {-0.6, -0.3, -90}}}},
      // Four at one end give the place, then the turn brings the other end into view.
      {"both ends", {{0, {-3, -5, 150}}, {3, {-3, -5, 90}}, {18, {0, -4.6, 90}}}},
      {"own goal line", {{0, {-8.7, -0.5, 130}}, {10, {-8.8, 0.5, 130}}}},
      {"other goal line", {{0, {8.7, 0.5, -50}}, {10, {8.8, -0.5, -50}}}},
      // Past the corner flag, then out over the touch line, where nothing stands.
      {"away", {{0, {2, 2, 30}}, {3, {2, 2, 75}}, {6, {2, 2, 90}}, {18, {2, 4.8, 90}}}},
  };
}

double duration(const CarriedPath& path) {
  return path.waypoints.back().atSeconds;
}

CarriedPose poseAt(const CarriedPath& path, double seconds) {
  const auto& points = path.waypoints;
  const auto next =
      std::find_if(points.begin() + 1, points.end() - 1,
                   [seconds](const Waypoint& point) { return point.atSeconds >= seconds; });
  const Waypoint& to = *next;
  const Waypoint& from = *(next - 1);
  const double share =
      std::clamp((seconds - from.atSeconds) / (to.atSeconds - from.atSeconds), 0.0, 1.0);
  return {std::lerp(from.pose.x, to.pose.x, share), std::lerp(from.pose.y, to.pose.y, share),
          std::lerp(from.pose.viewDeg, to.pose.viewDeg, share)};
}

}  // namespace bench
