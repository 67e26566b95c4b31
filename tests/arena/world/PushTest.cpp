#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <numeric>
#include <stdexcept>

#include "tests/arena/world/Run.h"

namespace arena {
namespace {

double robotMass() {
  return std::accumulate(kJoints.begin(), kJoints.end(), kTorsoMass,
                         [](double sum, const JointRow& row) { return sum + row.mass; });
}

/// A robot that falls freely, so that nothing but the push moves it sideways.
World flying() {
  World world;
  world.addRobot(0, {0, 0, 0});
  Frame torso = world.robot(0).torso;
  torso.position[2] = 50;
  world.setTorso(0, torso);
  return world;
}

TEST(Push, GivesTheImpulseToTheWholeRobot) {
  World world = flying();
  world.push(0, {0.5, 0, 0});
  run(world, 2);
  // The body turns as well, slowly: over two seconds the torso goes on average as fast as all of
  // it.
  const double meanSpeed = world.robot(0).torso.position[0] / 2;
  EXPECT_NEAR(meanSpeed, 0.5 / robotMass(), 0.25 * 0.5 / robotMass());
}

TEST(Push, ActsInTheNextCycleOnly) {
  World world = flying();
  world.push(0, {0.5, 0, 0});
  world.advance();
  const double after = world.robot(0).torsoVelocity[0];
  EXPECT_GT(after, 0.5 / robotMass());
  run(world, 0.1);
  EXPECT_NEAR(world.robot(0).torsoVelocity[0], after, 0.25 * after);
}

TEST(Push, TwoOppositeOnesCancel) {
  World world = flying();
  world.push(0, {0.5, -0.2, 0.1});
  world.push(0, {-0.5, 0.2, -0.1});
  run(world, 0.2);
  EXPECT_NEAR(world.robot(0).torso.position[0], 0, 1e-9);
  EXPECT_NEAR(world.robot(0).torso.position[1], 0, 1e-9);
}

TEST(Push, ResultDoesNotHangOnThePhysicsStep) {
  std::array<double, 2> ways{};
  for (std::size_t i = 0; i < ways.size(); ++i) {
    WorldSettings settings;
    settings.stepSeconds = i == 0 ? 0.002 : 0.005;
    World world(settings);
    world.addRobot(0, {0, 0, 0});
    Frame torso = world.robot(0).torso;
    torso.position[2] = 50;
    world.setTorso(0, torso);
    world.push(0, {0, 0.3, 0});
    run(world, 0.5);
    ways[i] = world.robot(0).torso.position[1];
  }
  EXPECT_NEAR(ways[0], ways[1], 0.05 * ways[0]);
}

TEST(Push, RefusesWhatIsNoPush) {
  World world;
  EXPECT_THROW(world.push(0, {1, 0, 0}), std::invalid_argument);
  world.addRobot(0, {0, 0, 0});
  EXPECT_THROW(world.push(0, {std::numeric_limits<double>::quiet_NaN(), 0, 0}),
               std::invalid_argument);
}

}  // namespace
}  // namespace arena
