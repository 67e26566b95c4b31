#include "arena/match/Posture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace arena {
namespace {

/// A torso turned about its x axis.
Frame leaning(double degrees) {
  const double c = std::cos(degrees * std::numbers::pi / 180);
  const double s = std::sin(degrees * std::numbers::pi / 180);
  return {{0, 0, 0.3}, {1, 0, 0, 0, c, -s, 0, s, c}};
}

TEST(Posture, TiltIsTheAngleToTheVertical) {
  EXPECT_NEAR(tiltDeg(leaning(0)), 0, 1e-6);
  EXPECT_NEAR(tiltDeg(leaning(35)), 35, 1e-9);
  EXPECT_NEAR(tiltDeg(leaning(-90)), 90, 1e-9);
  EXPECT_NEAR(tiltDeg(leaning(180)), 180, 1e-5);
}

TEST(Posture, ARobotFallsAboveSixtyDegrees) {
  Posture posture;
  EXPECT_EQ(posture.observe(leaning(59.9)), PostureChange::kNone);
  EXPECT_TRUE(posture.standing());
  EXPECT_EQ(posture.observe(leaning(-60.1)), PostureChange::kFell);
  EXPECT_FALSE(posture.standing());
}

TEST(Posture, RockingAboutTheBorderIsOneFall) {
  Posture posture;
  EXPECT_EQ(posture.observe(leaning(61)), PostureChange::kFell);
  EXPECT_EQ(posture.observe(leaning(59)), PostureChange::kNone);
  EXPECT_EQ(posture.observe(leaning(61)), PostureChange::kNone);
  EXPECT_EQ(posture.observe(leaning(31)), PostureChange::kNone);
  EXPECT_EQ(posture.observe(leaning(29)), PostureChange::kGotUp);
  EXPECT_EQ(posture.observe(leaning(61)), PostureChange::kFell);
}

TEST(Posture, ABeamIsNoGettingUp) {
  Posture posture;
  posture.observe(leaning(90));
  posture.setUpright();
  EXPECT_TRUE(posture.standing());
  EXPECT_EQ(posture.observe(leaning(0)), PostureChange::kNone);
}

}  // namespace
}  // namespace arena
