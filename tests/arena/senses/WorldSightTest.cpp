// What a simulated robot's message says of the landmarks, against angles worked out from bearings
// and two plane rotations instead of from the camera's axes.

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numbers>
#include <optional>
#include <sstream>
#include <string>

#include "arena/senses/Landmarks.h"
#include "arena/senses/Perception.h"
#include "arena/world/World.h"
#include "tests/arena/senses/Snapshots.h"

namespace arena {
namespace {

constexpr double kRad = std::numbers::pi / 180;

/// Heights by the body table: torso 0.38, neck 0.09 above it, head 0.065 above that; the head nods
/// about a point 0.005 below its origin.
constexpr double kNodHeight = 0.38 + 0.09 + 0.065 - 0.005;
constexpr double kHeadAboveNod = 0.005;

struct Gaze {
  double x, y, heading;  ///< of the robot
  double yaw, pitch;     ///< [deg] hj1 to the left, hj2 upward
};

/// What the robot should see of a landmark; none if it is out of view.
std::optional<Polar> expected(const Gaze& gaze, const Vec3& place) {
  const double view = (gaze.heading + gaze.yaw) * kRad;
  const double pitch = gaze.pitch * kRad;
  const double dx = place[0] - gaze.x;
  const double dy = place[1] - gaze.y;
  // In the vertical plane of the view, seen from the point about which the head nods.
  const double range = std::hypot(dx, dy);
  const double bearing = std::atan2(dy, dx) - view;
  const double ahead = range * std::cos(bearing);
  const double left = range * std::sin(bearing);
  const double above = place[2] - kNodHeight;
  // Nodding upward turns the view towards what is above.
  const double aheadOfView = ahead * std::cos(pitch) + above * std::sin(pitch);
  const double aboveView = above * std::cos(pitch) - ahead * std::sin(pitch) - kHeadAboveNod;

  const Polar polar{std::sqrt(aheadOfView * aheadOfView + left * left + aboveView * aboveView),
                    std::atan2(left, aheadOfView) / kRad,
                    std::asin(aboveView / std::sqrt(aheadOfView * aheadOfView + left * left +
                                                    aboveView * aboveView)) /
                        kRad};
  if (std::abs(polar.horizontalDeg) > 60 || std::abs(polar.elevationDeg) > 60) return std::nullopt;
  return polar;
}

std::map<std::string, Polar> landmarksIn(const std::string& message) {
  std::map<std::string, Polar> seen;
  for (const Landmark& landmark : kLandmarks) {
    const std::string name(landmark.name);
    const std::string opening = "(" + name + " (pol ";
    const auto at = message.find(opening);
    if (at == std::string::npos) continue;
    std::istringstream numbers(message.substr(at + opening.size()));
    Polar& polar = seen[name];
    numbers >> polar.distance >> polar.horizontalDeg >> polar.elevationDeg;
    EXPECT_TRUE(numbers) << message.substr(at, 40);
  }
  return seen;
}

Snapshot snapshotOf(const World& world) {
  Snapshot shot;
  shot.cycle = 3;
  shot.ball.position = {100, 100, 0};
  shot.actors.push_back({world.robot(0), Shirt{Side::kLeft, 1}, 0});
  return shot;
}

/// Compares every landmark and says how many were in view.
std::size_t checkGaze(const Gaze& gaze) {
  World world;
  world.addRobot(0, {gaze.x, gaze.y, gaze.heading});
  std::array<double, kJointCount> joints{};
  joints[rowOfPerceptor("hj1")] = gaze.yaw;
  joints[rowOfPerceptor("hj2")] = gaze.pitch;
  world.setJointAngles(0, joints);
  const auto seen = landmarksIn(perceive(snapshotOf(world), 0, test::exactSight()));

  std::size_t count = 0;
  for (const Landmark& landmark : kLandmarks) {
    const std::string name(landmark.name);
    const auto polar = expected(gaze, landmark.position);
    EXPECT_EQ(seen.contains(name), polar.has_value()) << name;
    if (!polar || !seen.contains(name)) continue;
    ++count;
    // Two decimals: half a unit of the last, and a thousandth of one for the way it is worked out.
    EXPECT_NEAR(seen.at(name).distance, polar->distance, 0.00501) << name;
    EXPECT_NEAR(seen.at(name).horizontalDeg, polar->horizontalDeg, 0.00501) << name;
    EXPECT_NEAR(seen.at(name).elevationDeg, polar->elevationDeg, 0.00501) << name;
  }
  return count;
}

TEST(WorldSight, LandmarksFromTheOwnHalf) {
  EXPECT_GT(checkGaze({-6.15, 0.5, 0, 0, 0}), 0U);
}

TEST(WorldSight, LandmarksWithTheBodyTurned) {
  EXPECT_GT(checkGaze({2, -1.5, 150, 0, 0}), 0U);
}

TEST(WorldSight, LandmarksWithTheHeadTurnedLeft) {
  EXPECT_GT(checkGaze({-3, 2, 20, 75, 0}), 0U);
}

TEST(WorldSight, LandmarksWithTheHeadTurnedRight) {
  EXPECT_GT(checkGaze({-3, 2, 20, -110, 0}), 0U);
}

TEST(WorldSight, LandmarksWithTheHeadLookingUp) {
  EXPECT_GT(checkGaze({4, 1, -10, 0, 35}), 0U);
}

TEST(WorldSight, LandmarksWithTheHeadLookingDownAndAside) {
  EXPECT_GT(checkGaze({1, -4, 60, -50, -40}), 0U);
}

TEST(WorldSight, LandmarksFromManyPoses) {
  // A walk through pose and head angles in steps that share no factor.
  std::size_t count = 0;
  for (int i = 0; i < 40; ++i) {
    SCOPED_TRACE(i);
    count += checkGaze({-8.0 + (i * 7) % 17, -5.0 + (i * 3) % 11, -180.0 + (i * 53) % 360,
                        -100.0 + (i * 37) % 200, -40.0 + (i * 17) % 80});
  }
  EXPECT_GT(count, 40U);
}

TEST(WorldSight, TheCameraLiesDownWithTheTorso) {
  // On its back at the centre, head towards -x: the view goes straight up, what lies towards -x is
  // above the axis by 90 degrees and out of view, what is right above is on the axis.
  World world;
  world.addRobot(0, {0, 0, 0});
  // Torso axes in the field: right is -y, forward is up, up is -x.
  world.setTorso(0, {{0, 0, 0.1}, {0, 0, -1, -1, 0, 0, 0, 1, 0}});
  Snapshot shot = snapshotOf(world);
  EXPECT_EQ(landmarksIn(perceive(shot, 0, test::exactSight())).size(), 0U);

  // The head is 0.155 m from the torso's origin along its up axis. A ball 2 m above it, moved by
  // 2 m towards +y, is 45 degrees to the left.
  shot.ball.position = {-0.155, 2, 2.1};
  EXPECT_TRUE(test::contains(perceive(shot, 0, test::exactSight()), "(B (pol 2.83 45.00 0.00))"));
}

}  // namespace
}  // namespace arena
