#include "arena/match/Places.h"

#include <gtest/gtest.h>

#include <cmath>

#include "arena/world/World.h"

namespace arena {
namespace {

void expectPose(const Pose& pose, double x, double y, double heading) {
  EXPECT_DOUBLE_EQ(pose.x, x);
  EXPECT_DOUBLE_EQ(pose.y, y);
  EXPECT_DOUBLE_EQ(std::remainder(pose.headingDeg - heading, 360), 0);
}

TEST(Places, TheLeftTeamsFrameIsTheFields) {
  expectPose(beamPose(Side::kLeft, {-6.15, 0.5, 0}), -6.15, 0.5, 0);
  expectPose(beamPose(Side::kLeft, {-1, 2, 90}), -1, 2, 90);
}

TEST(Places, TheRightTeamIsTurnedByHalfATurn) {
  expectPose(beamPose(Side::kRight, {-6.15, 0.5, 0}), 6.15, -0.5, 180);
  expectPose(beamPose(Side::kRight, {-1, 2, 90}), 1, -2, -90);
  expectPose(beamPose(Side::kRight, {-1, -2, -135}), 1, 2, 45);
}

TEST(Places, TeamFrameUndoesABeam) {
  for (const Side side : {Side::kLeft, Side::kRight}) {
    for (const BeamRequest beam : {BeamRequest{-8.6, 0, 0}, {-0.28, 2, 45}, {3, -4, -170}}) {
      const TeamPlace place = placeInTeamFrame(side, beamPose(side, beam));
      EXPECT_DOUBLE_EQ(place.x, beam.x);
      EXPECT_DOUBLE_EQ(place.y, beam.y);
      EXPECT_NEAR(place.headingDeg, beam.angleDeg, 1e-12);
    }
  }
}

TEST(Places, AMetreOutsideOfTheLinesIsTheLimit) {
  EXPECT_TRUE(isNearField({10, 7, 0}));
  EXPECT_TRUE(isNearField({-10, -7, 0}));
  EXPECT_FALSE(isNearField({10.01, 0, 0}));
  EXPECT_FALSE(isNearField({0, -7.01, 0}));
  EXPECT_FALSE(isNearField({1e300, 0, 0}));
}

TEST(Places, TouchlinePlacesAreOffTheFieldAndApart) {
  for (int slot = 0; slot < 12; ++slot) {
    const Pose pose = touchlinePose(slot);
    EXPECT_GT(pose.y, 6.3) << "arms reach 0.2 m over the line";
    EXPECT_LT(std::abs(pose.x), 9);
    EXPECT_EQ(pose.headingDeg, -90);
    for (int other = 0; other < slot; ++other) {
      EXPECT_GE(std::abs(pose.x - touchlinePose(other).x), 1.5 - 1e-12);
    }
  }
}

TEST(Places, PoseOfARobotIsWhereItWasPut) {
  World world;
  for (const double heading : {0.0, 90.0, 135.0, -60.0, 180.0}) {
    world.addRobot(0, {1.5, -2, heading});
    const Pose pose = poseOf(world.robot(0));
    EXPECT_NEAR(pose.x, 1.5, 1e-9);
    EXPECT_NEAR(pose.y, -2, 1e-9);
    EXPECT_NEAR(std::remainder(pose.headingDeg - heading, 360), 0, 1e-9);
    world.removeRobot(0);
  }
}

}  // namespace
}  // namespace arena
