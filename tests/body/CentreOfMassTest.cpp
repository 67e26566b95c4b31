#include "tests/body/BodyTest.h"

namespace {

using CentreOfMass = BodyTest;

// The sum over the body table of (offset + parent's offset) * mass, worked out in fractions. The
// left and right halves cancel in x.
TEST_F(CentreOfMass, IsTheMassWeightedSumOfTwoOffsetsPerLink) {
  body.myPos = VecPosition(0, 0, 0);
  const VecPosition sum = body.computeCOM();
  EXPECT_NEAR(sum.x, 0, 1e-12);
  EXPECT_NEAR(sum.y, 0.075, 1e-12);
  EXPECT_NEAR(sum.z, -0.13072, 1e-12);
}

// 1.2171 kg of torso, and 0.05 + 2 * 0.07 + 2 * 0.09 kg of the links that hang on it.
TEST_F(CentreOfMass, MovesWithThePlayerByTheMassOfTheTorsoAndItsFiveLinks) {
  body.myPos = VecPosition(2, -1, 0);
  const VecPosition before = body.computeCOM();
  body.myPos = VecPosition(3, -1, 0);
  const VecPosition after = body.computeCOM();
  EXPECT_NEAR(after.x - before.x, 1.5871, 1e-12);
  EXPECT_NEAR(after.y - before.y, 0, 1e-12);
  EXPECT_NEAR(after.z - before.z, 0, 1e-12);
}

TEST_F(CentreOfMass, LeavesEachLinksPlaceBehind) {
  body.myPos = VecPosition(1, 2, 3);
  body.computeCOM();
  EXPECT_EQ(body.Torso.relPos, VecPosition(1, 2, 3));
  EXPECT_NEAR(body.joints[0].absPos.z, 3.09, 1e-12) << "neck: on the torso, which is the player";
  EXPECT_NEAR(body.joints[1].absPos.z, 0.155, 1e-12) << "head: on the neck's offset alone";
  EXPECT_NEAR(body.joints[6].absPos.y, 0.09, 1e-12) << "left elbow: on the upper arm";
}

TEST_F(CentreOfMass, UpdateTorsoPosTakesThePlayersPlace) {
  body.myPos = VecPosition(-4, 0.5, 0.25);
  body.updateTorsoPos();
  EXPECT_EQ(body.Torso.relPos, VecPosition(-4, 0.5, 0.25));
}

}  // namespace
