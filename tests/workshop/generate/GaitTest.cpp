#include "workshop/generate/Gait.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

#include "workshop/generate/Controller.h"

namespace workshop {
namespace {

constexpr double kTiny = 1e-9;

Gait quietGait() {
  Gait gait;
  gait.blocks = 12;
  gait.sway = 0.004;
  gait.swingShare = 0.4;
  return gait;
}

Course straight(int strides, double forward) {
  Course course;
  course.strides = strides;
  course.pace.forward = forward;
  return course;
}

/// Where LEG's ankle is under a torso in POSTURE that leans by STANCE, from its hip.
Vec3 levelAnkle(const Posture& posture, Leg leg, const Stance& stance) {
  return aboutX(-stance.leanDeg * std::acos(-1.0) / 180) *
         footPlace(leg, legOf(posture, leg)).ankle;
}

TEST(Gait, BeginsAndEndsInTheStandingPosture) {
  const Stance standing;
  const Posture stand = standingPosture(standing, {});
  const std::vector<Posture> path = gaitPath(quietGait(), straight(4, 0.06), standing, {});
  ASSERT_EQ(path.size(), 4U * 12 + 1);
  for (std::size_t j = 0; j < kScriptJointCount; ++j) {
    EXPECT_NEAR(path.front()[j], stand[j], 1e-6) << j;
    EXPECT_NEAR(path.back()[j], stand[j], 1e-6) << j;
  }
}

TEST(Gait, StridesAtFullPaceAreAlike) {
  const std::vector<Posture> path = gaitPath(quietGait(), straight(8, 0.06), {}, {});
  for (int block = 36; block < 48; ++block) {
    for (std::size_t j = 0; j < kScriptJointCount; ++j) {
      EXPECT_NEAR(path[static_cast<std::size_t>(block)][j],
                  path[static_cast<std::size_t>(block + 12)][j], 1e-6);
    }
  }
}

// A foot that stands moves back under the torso by what the torso travels.
TEST(Gait, StandingFootTravelsBackwardsAtThePaceOfTheTorso) {
  const Gait gait = quietGait();
  const std::vector<Posture> path = gaitPath(gait, straight(8, 0.06), {}, {});
  // In stride 3 the left foot swings from 0.05 to 0.45; from block 7 (0.58) on it stands.
  for (std::size_t block = 43; block < 47; ++block) {
    const Vec3 before = levelAnkle(path[block], Leg::kLeft, gait.stance);
    const Vec3 after = levelAnkle(path[block + 1], Leg::kLeft, gait.stance);
    EXPECT_NEAR(after[1] - before[1], -0.06 / 12, 1e-5);
    EXPECT_NEAR(after[2], -gait.stance.hipHeight, 1e-6) << "on the ground";
  }
}

TEST(Gait, SwingingFootRisesToTheLift) {
  const Gait gait = quietGait();
  const std::vector<Posture> path = gaitPath(gait, straight(8, 0.06), {}, {});
  // The swing's middle, a quarter into stride 3, is at block 39.
  EXPECT_NEAR(levelAnkle(path[39], Leg::kLeft, gait.stance)[2], -gait.stance.hipHeight + gait.lift,
              1e-4);
}

TEST(Gait, MirroredStepsAreTheSameStepsToTheOtherSide) {
  Course left;
  left.strides = 3;
  left.pace.left = 0.04;
  const std::vector<Posture> path = gaitPath(quietGait(), left, {}, {});
  for (const Posture& posture : path) {
    const Posture twice = mirrored(mirrored(posture));
    for (std::size_t j = 0; j < kScriptJointCount; ++j) EXPECT_NEAR(twice[j], posture[j], kTiny);
    const Vec3 leftAnkle = footPlace(Leg::kLeft, legOf(posture, Leg::kLeft)).ankle;
    const Vec3 rightAnkle = footPlace(Leg::kRight, legOf(mirrored(posture), Leg::kRight)).ankle;
    EXPECT_NEAR(leftAnkle[0], -rightAnkle[0], 1e-9);
    EXPECT_NEAR(leftAnkle[1], rightAnkle[1], 1e-9);
    EXPECT_NEAR(leftAnkle[2], rightAnkle[2], 1e-9);
  }
}

// The hips turn toes outwards only: a turn must not ask them for more.
TEST(Gait, LeadingFootTakesTheWholeTurnOutwards) {
  Gait gait = quietGait();
  gait.outward = 1;
  Course turn;
  turn.strides = 4;
  turn.pace.turnDeg = 20;
  for (const Posture& posture : gaitPath(gait, turn, {}, {})) {
    EXPECT_LT(posture[rowOfScriptJoint("llj1")], 2.5);
    EXPECT_LT(posture[rowOfScriptJoint("rlj1")], 2.5);
  }
}

TEST(Gait, AGaitThatCannotBeSteppedIsRefused) {
  Gait gait = quietGait();
  gait.blocks = 3;
  EXPECT_THROW(gaitPath(gait, straight(4, 0), {}, {}), std::invalid_argument);
  gait = quietGait();
  gait.swingShare = 0.6;
  EXPECT_THROW(gaitPath(gait, straight(4, 0), {}, {}), std::invalid_argument);
  gait = quietGait();
  gait.rampIn = 0;
  EXPECT_THROW(gaitPath(gait, straight(4, 0), {}, {}), std::invalid_argument);
  EXPECT_THROW(gaitPath(quietGait(), straight(0, 0), {}, {}), std::invalid_argument);
}

}  // namespace
}  // namespace workshop
