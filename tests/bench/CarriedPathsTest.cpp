#include "bench/CarriedPaths.h"

#include <gtest/gtest.h>

#include <cmath>

namespace bench {
namespace {

const CarriedPath kCorner{"corner", {{0, {1, 2, 30}}, {4, {3, 2, 30}}, {6, {3, 1, 90}}}};

void expectPose(const CarriedPose& pose, double x, double y, double viewDeg) {
  EXPECT_DOUBLE_EQ(pose.x, x);
  EXPECT_DOUBLE_EQ(pose.y, y);
  EXPECT_DOUBLE_EQ(pose.viewDeg, viewDeg);
}

TEST(CarriedPaths, BetweenWaypointsEverythingChangesEvenly) {
  expectPose(poseAt(kCorner, 1), 1.5, 2, 30);
  expectPose(poseAt(kCorner, 4), 3, 2, 30);
  expectPose(poseAt(kCorner, 4.5), 3, 1.75, 45);
}

TEST(CarriedPaths, BeforeAndAfterItStandsStill) {
  expectPose(poseAt(kCorner, -1), 1, 2, 30);
  expectPose(poseAt(kCorner, 7), 3, 1, 90);
  EXPECT_DOUBLE_EQ(duration(kCorner), 6);
}

// A particle follows 0.02 m per sight, and a sight comes every 0.06 s: what moves faster than
// 0.33 m/s would measure the path and not the method.
TEST(CarriedPaths, NobodyIsCarriedFasterThanParticlesFollow) {
  for (const CarriedPath& path : carriedPaths()) {
    ASSERT_GE(path.waypoints.size(), 2U) << path.name;
    EXPECT_EQ(path.waypoints.front().atSeconds, 0) << path.name;
    for (std::size_t i = 1; i < path.waypoints.size(); ++i) {
      const Waypoint& from = path.waypoints[i - 1];
      const Waypoint& to = path.waypoints[i];
      ASSERT_GT(to.atSeconds, from.atSeconds) << path.name;
      EXPECT_LE(std::hypot(to.pose.x - from.pose.x, to.pose.y - from.pose.y) /
                    (to.atSeconds - from.atSeconds),
                0.32)
          << path.name;
      EXPECT_LT(std::abs(to.pose.x), 9) << path.name;
      EXPECT_LT(std::abs(to.pose.y), 6) << path.name;
    }
  }
}

}  // namespace
}  // namespace bench
