#include "arena/senses/Sight.h"

#include <gtest/gtest.h>

#include <cmath>

#include "arena/senses/Landmarks.h"
#include "tests/arena/senses/Snapshots.h"

namespace arena {
namespace {

using test::lookingAlongX;

void expectPolar(const Polar& polar, double distance, double horizontal, double elevation) {
  EXPECT_NEAR(polar.distance, distance, 1e-9);
  EXPECT_NEAR(polar.horizontalDeg, horizontal, 1e-9);
  EXPECT_NEAR(polar.elevationDeg, elevation, 1e-9);
}

TEST(Sight, HorizontalAngleIsPositiveToTheLeftOfTheView) {
  expectPolar(polarIn(lookingAlongX({0, 0, 1}), {2, 2, 1}), std::sqrt(8.0), 45, 0);
  expectPolar(polarIn(lookingAlongX({0, 0, 1}), {2, -2, 1}), std::sqrt(8.0), -45, 0);
}

TEST(Sight, ElevationIsPositiveUpward) {
  expectPolar(polarIn(lookingAlongX({1, 1, 1}), {4, 1, 4}), std::sqrt(18.0), 0, 45);
  expectPolar(polarIn(lookingAlongX({1, 1, 1}), {4, 1, -2}), std::sqrt(18.0), 0, -45);
}

TEST(Sight, WhatIsBehindHasALargeAngle) {
  EXPECT_NEAR(std::abs(polarIn(lookingAlongX({0, 0, 0}), {-1, 0, 0}).horizontalDeg), 180, 1e-9);
}

TEST(Sight, ATiltedCameraMeasuresInItsOwnFrame) {
  // Looking straight up, its upper edge towards -x: what lies towards -x is above the axis, what
  // lies towards +y is to the left, as before the tilt.
  const Frame up{{0, 0, 0}, {0, 0, -1, -1, 0, 0, 0, 1, 0}};
  expectPolar(polarIn(up, {0, 0, 3}), 3, 0, 0);
  expectPolar(polarIn(up, {-3, 0, 3}), std::sqrt(18.0), 0, 45);
  expectPolar(polarIn(up, {0, 3, 3}), std::sqrt(18.0), 45, 0);
}

TEST(Sight, SixtyDegreesEitherWayAreInView) {
  EXPECT_TRUE(inView({1, 60, 0}));
  EXPECT_TRUE(inView({1, -60, 0}));
  EXPECT_TRUE(inView({1, 0, 60}));
  EXPECT_TRUE(inView({1, 0, -60}));
  EXPECT_TRUE(inView({1, 60, -60}));
  EXPECT_FALSE(inView({1, 60.001, 0}));
  EXPECT_FALSE(inView({1, -60.001, 0}));
  EXPECT_FALSE(inView({1, 0, 60.001}));
  EXPECT_FALSE(inView({1, 0, -60.001}));
}

TEST(Sight, ErrorsHaveTheSizesThatWereAskedFor) {
  constexpr int kDraws = 50'000;
  NoiseStream stream(5, 1, 1);
  double distance2 = 0;
  double horizontal2 = 0;
  double elevation2 = 0;
  for (int i = 0; i < kDraws; ++i) {
    const Polar seen = withNoise({4, 10, -20}, SightNoise{}, stream);
    distance2 += (seen.distance - 4) * (seen.distance - 4);
    horizontal2 += (seen.horizontalDeg - 10) * (seen.horizontalDeg - 10);
    elevation2 += (seen.elevationDeg + 20) * (seen.elevationDeg + 20);
  }
  EXPECT_NEAR(std::sqrt(distance2 / kDraws), 0.004, 0.004 * 0.02);  // 0.1 % of 4 m
  EXPECT_NEAR(std::sqrt(horizontal2 / kDraws), 0.12, 0.12 * 0.02);
  EXPECT_NEAR(std::sqrt(elevation2 / kDraws), 0.15, 0.15 * 0.02);
}

TEST(Sight, LandmarksStandWhereTheLeftTeamKnowsThem) {
  // Written out, not taken from the field's numbers: players have these by heart.
  const std::array<Landmark, 8> expected{{{"F1L", {-9, 6, 0}},
                                          {"F2L", {-9, -6, 0}},
                                          {"F1R", {9, 6, 0}},
                                          {"F2R", {9, -6, 0}},
                                          {"G1L", {-9, 1.05, 0.8}},
                                          {"G2L", {-9, -1.05, 0.8}},
                                          {"G1R", {9, 1.05, 0.8}},
                                          {"G2R", {9, -1.05, 0.8}}}};
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(kLandmarks[i].name, expected[i].name);
    EXPECT_EQ(kLandmarks[i].position, expected[i].position);
  }
}

}  // namespace
}  // namespace arena
