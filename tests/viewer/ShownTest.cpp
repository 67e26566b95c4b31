#include "viewer/server/Shown.h"

#include <gtest/gtest.h>

#include "arena/record/Attitude.h"
#include "arena/record/Recordable.h"
#include "arena/senses/Sight.h"
#include "arena/world/World.h"

namespace arena::view {
namespace {

/// A robot of a real world in a twisted pose, and the record of it.
struct Twisted {
  RobotState state{};
  PlayerRecord player{};
};

Twisted twisted() {
  World world;
  world.addRobot(0, {2.5, -1.5, 130});
  std::array<double, kJointCount> angles{};
  angles[rowOfPerceptor("hj1")] = 70;
  angles[rowOfPerceptor("hj2")] = -25;
  world.setJointAngles(0, angles);
  Frame lying;
  lying.position = {2.5, -1.5, 0.3};
  lying.axes = axesOf({0.8, 0.3, -0.4, 0.33});
  world.setTorso(0, lying);
  Twisted made;
  made.state = world.robot(0);
  made.player.position = made.state.torso.position;
  made.player.attitude = attitudeOf(made.state.torso.axes);
  made.player.jointDeg = made.state.jointAngleDeg;
  return made;
}

TEST(Shown, CameraIsWhereTheWorldHasIt) {
  const Twisted robot = twisted();
  const Frame camera = cameraOf(robot.player);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(camera.position[i], robot.state.camera.position[i], 1e-6);
  }
  for (std::size_t i = 0; i < 9; ++i) {
    EXPECT_NEAR(camera.axes[i], robot.state.camera.axes[i], 1e-6);
  }
}

/// Upright in the middle, facing the right goal.
PlayerRecord inTheMiddle() {
  PlayerRecord player;
  player.position = {0, 0, kStandingHeight};
  player.attitude = attitudeOf({0, 1, 0, -1, 0, 0, 0, 0, 1});  // its y along the field's x
  return player;
}

TEST(Shown, RightHandLandmarksForWhoFacesTheRightGoal) {
  const Shown shown = shownTo(inTheMiddle(), {3, 0, kBallRadius});
  EXPECT_EQ(shown.landmarks.to_string(), "11001100");  // G2R G1R, F2R F1R; the last row first
  ASSERT_TRUE(shown.ballBearingDeg);
  EXPECT_NEAR(*shown.ballBearingDeg, 0, 1e-9);
}

TEST(Shown, BearingOfTheBallCountsFromTheTorsoHoweverTheHeadIsTurned) {
  PlayerRecord player = inTheMiddle();
  player.jointDeg[rowOfPerceptor("hj1")] = 40;
  const Shown shown = shownTo(player, {2, 2, kStandingHeight + 0.155});
  ASSERT_TRUE(shown.ballBearingDeg);
  EXPECT_NEAR(*shown.ballBearingDeg, 45, 1e-6);
}

TEST(Shown, BallBehindTheBackIsNotInView) {
  EXPECT_FALSE(shownTo(inTheMiddle(), {-3, 0, kBallRadius}).ballBearingDeg);
}

}  // namespace
}  // namespace arena::view
