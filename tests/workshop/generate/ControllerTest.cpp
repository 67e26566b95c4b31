#include "workshop/generate/Controller.h"

#include <gmock/gmock.h>

#include <cmath>

namespace workshop {
namespace {

using ::testing::DoubleNear;

// The first cycle's error is half the way d: 0.14 * d/2 + 0.5 * 0.02 * d/2 = 0.075 d. What is left,
// 0.925 d, is the second cycle's error: 0.14 * 0.925 d + 0.5 * 0.02 * (0.5 + 0.925) d = 0.14375 d.
TEST(Controller, ABlockCoversTheShareThatItsGainsGive) {
  EXPECT_NEAR(shareOfCycle(0), 0.075, 1e-12);
  EXPECT_NEAR(shareOfCycle(1), 0.14375, 1e-12);
  EXPECT_NEAR(kBlockShare, 0.21875, 1e-12);
}

// 7 rad/s in the second cycle are 0.14 rad there, and 0.14 * 0.21875 / 0.14375 = 0.21304 rad in
// all.
TEST(Controller, TheFastestBlockIsWhatTheMotorAllowsInItsSecondCycle) {
  EXPECT_NEAR(kMaxBlockDeg, 0.2130435 * 180 / std::acos(-1.0), 1e-4);
}

TEST(Controller, TargetsLeadTheJointsAlongThePath) {
  std::vector<Posture> path(5);
  for (std::size_t k = 0; k < path.size(); ++k) {
    for (std::size_t j = 0; j < kScriptJointCount; ++j) {
      path[k][j] = 10 * std::sin(0.7 * static_cast<double>(k) + static_cast<double>(j));
    }
  }
  const std::vector<Posture> targets = targetsThrough(path);
  ASSERT_EQ(targets.size(), 4U);
  for (std::size_t j = 0; j < kActionJointCount; ++j) {
    double angle = path[0][j];
    for (std::size_t k = 0; k < targets.size(); ++k) {
      angle = afterBlock(angle, targets[k][j]);
      EXPECT_THAT(angle, DoubleNear(path[k + 1][j], 1e-9)) << "joint " << j << " block " << k;
    }
  }
}

TEST(Controller, AnErrorDiesOutFromBlockToBlock) {
  const std::vector<Posture> still(6, Posture{});
  double angle = 8;
  for (const Posture& target : targetsThrough(still)) angle = afterBlock(angle, target[0]);
  EXPECT_NEAR(angle, 8 * std::pow(0.78125, 5), 1e-9);
}

TEST(Controller, APathOfOnePostureNeedsNoBlock) {
  EXPECT_TRUE(targetsThrough({Posture{}}).empty());
  EXPECT_TRUE(targetsThrough({}).empty());
}

}  // namespace
}  // namespace workshop
