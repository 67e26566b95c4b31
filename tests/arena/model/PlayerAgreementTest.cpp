// The training ground's robot and the player's idea of its own body are written down separately;
// here they meet.

#include <gtest/gtest.h>

#include <string>

#include "arena/model/BodyTable.h"
#include "behaviour/Agent.h"

namespace arena {
namespace {

TEST(PlayerAgreement, EveryLinkHasThePlayersNameParentOffsetAndMass) {
  const Agent& player = *Agent::getSingleton();
  for (std::size_t i = 0; i < kJointCount; ++i) {
    const HingJoint& theirs = player.joints[i];
    const JointRow& ours = kJoints[i];
    EXPECT_EQ(theirs.name, ours.link);
    EXPECT_EQ(theirs.perceptorName, ours.perceptor);
    ASSERT_NE(theirs.parent, nullptr) << ours.link;
    EXPECT_EQ(theirs.parent->name, ours.parent);
    EXPECT_DOUBLE_EQ(theirs.relPos.x, ours.offset[0]) << ours.link;
    EXPECT_DOUBLE_EQ(theirs.relPos.y, ours.offset[1]) << ours.link;
    EXPECT_DOUBLE_EQ(theirs.relPos.z, ours.offset[2]) << ours.link;
    EXPECT_DOUBLE_EQ(theirs.mass, ours.mass) << ours.link;
  }
}

TEST(PlayerAgreement, TorsoHasThePlayersNameAndMass) {
  const Agent& player = *Agent::getSingleton();
  EXPECT_EQ(player.Torso.name, kTorsoName);
  EXPECT_DOUBLE_EQ(player.Torso.mass, kTorsoMass);
}

TEST(PlayerAgreement, EveryCommandedJointHasThePlayersPairOfNames) {
  const Agent& player = *Agent::getSingleton();
  std::size_t paired = 0;
  for (const auto& flag : player.jointFlags) {
    const std::size_t row = rowOfPerceptor(flag.perceptorName);
    ASSERT_LT(row, kJointCount) << flag.perceptorName;
    EXPECT_EQ(flag.effectorName, kJoints[row].effector);
    ++paired;
  }
  EXPECT_EQ(paired, kJointCount);
}

}  // namespace
}  // namespace arena
