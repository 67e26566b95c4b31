#include "workshop/generate/LegKinematics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "workshop/generate/Standing.h"

namespace workshop {
namespace {

// From the body table: hip to ankle is (0, 0.01 + 0.005 - 0.01, -0.04 - 0.125 - 0.055).
TEST(LegKinematics, StretchedLegReachesTheTablesLength) {
  for (const Leg leg : {Leg::kLeft, Leg::kRight}) {
    const FootPlace foot = footPlace(leg, {});
    EXPECT_NEAR(foot.ankle[0], 0, 1e-12);
    EXPECT_NEAR(foot.ankle[1], 0.005, 1e-12);
    EXPECT_NEAR(foot.ankle[2], -0.220, 1e-12);
    for (std::size_t i = 0; i < 9; ++i) EXPECT_NEAR(foot.sole[i], i % 4 == 0 ? 1 : 0, 1e-12);
  }
  EXPECT_NEAR(ankleHeight(), 0.045, 1e-12);
}

// Every angle's sign is seen from one small motion of its own.
TEST(LegKinematics, AnglesTurnAsTheServerSays) {
  EXPECT_GT(footPlace(Leg::kLeft, {0, 0, 10, 0, 0, 0}).ankle[1], 0.02) << "hip pitch: forward";
  EXPECT_LT(footPlace(Leg::kLeft, {0, 0, 0, -10, 0, 0}).ankle[1], 0) << "knee: shank back";
  EXPECT_GT(footPlace(Leg::kLeft, {0, 0, 0, 0, 10, 0}).sole[7], 0.1) << "ankle pitch: toe up";
  EXPECT_LT(footPlace(Leg::kLeft, {0, 10, 0, 0, 0, 0}).ankle[0], -0.02) << "hip roll: left";
  EXPECT_GT(footPlace(Leg::kLeft, {-20, 0, 0, 0, 0, 0}).sole[3], 0.1) << "left toes to the left";
  EXPECT_LT(footPlace(Leg::kRight, {-20, 0, 0, 0, 0, 0}).sole[3], -0.1)
      << "right toes to the right";
}

TEST(LegKinematics, InverseFindsTheAnglesThatMadeThePlace) {
  std::mt19937 random(5);
  const auto within = [&random](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  for (int i = 0; i < 500; ++i) {
    for (const Leg leg : {Leg::kLeft, Leg::kRight}) {
      const double side = leg == Leg::kLeft ? -1 : 1;
      const LegAngles angles{within(-40, 0),  side * within(-20, 25), within(-20, 60),
                             within(-90, -2), within(-30, 45),        side * within(-25, 20)};
      const LegAngles found = legAngles(leg, footPlace(leg, angles));
      for (std::size_t j = 0; j < angles.size(); ++j) {
        ASSERT_NEAR(found[j], angles[j], 1e-6) << "angle " << j << " of sample " << i;
      }
    }
  }
}

TEST(LegKinematics, PlaceBeyondReachStretchesTheLeg) {
  const LegAngles angles = legAngles(Leg::kLeft, {{0, 0, -0.5}, {1, 0, 0, 0, 1, 0, 0, 0, 1}});
  EXPECT_NEAR(angles[3], 2.386, 0.01) << "thigh and shank in one line";
}

// All at zero the body is symmetric, its arms point forward and the feet stick out forward.
TEST(LegKinematics, CentreOfMassLiesInTheMiddleAndMovesWithTheLegs) {
  const Vec3 straight = centreOfMass({});
  EXPECT_NEAR(straight[0], 0, 1e-12);
  Posture kicking{};
  setLeg(kicking, Leg::kRight, {0, 0, 40, 0, 0, 0});
  EXPECT_GT(centreOfMass(kicking)[1], straight[1]);
  EXPECT_GT(centreOfMass(kicking)[2], straight[2]);
}

TEST(Standing, BothFeetAreFlatUnderTheLeaningTorso) {
  Stance stance;
  stance.leanDeg = 8;
  const Posture posture = standingPosture(stance, {});
  for (const Leg leg : {Leg::kLeft, Leg::kRight}) {
    const FootPlace foot = footPlace(leg, legOf(posture, leg));
    // Seen from the ground the torso leans by 8 degrees; the sole undoes it.
    const Mat3 seen = aboutX(-8 * std::acos(-1.0) / 180) * foot.sole;
    for (std::size_t i = 0; i < 9; ++i) EXPECT_NEAR(seen[i], i % 4 == 0 ? 1 : 0, 1e-9);
    const Vec3 ankle = aboutX(-8 * std::acos(-1.0) / 180) * foot.ankle;
    EXPECT_NEAR(ankle[2], -stance.hipHeight, 1e-9);
  }
}

TEST(Standing, LeaningForwardMovesTheMassOverTheToes) {
  Stance upright;
  upright.leanDeg = 0;
  Stance leaning;
  leaning.leanDeg = 8;
  EXPECT_GT(massAheadOfAnkles(leaning, {}), massAheadOfAnkles(upright, {}) + 0.005);
}

}  // namespace
}  // namespace workshop
