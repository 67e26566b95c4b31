#include "arena/model/BodyTable.h"

#include <gtest/gtest.h>

#include "arena/model/FieldTable.h"

namespace arena {
namespace {

TEST(BodyTable, LinksAndTorsoTogetherWeighWhatTheRobotWeighs) {
  double mass = kTorsoMass;
  for (const JointRow& row : kJoints) mass += row.mass;
  // Torso 1.2171, neck and head 0.4, and per side: arm 0.455, leg 1.04.
  EXPECT_NEAR(mass, 1.2171 + 0.4 + 2 * 0.455 + 2 * 1.04, 1e-12);
}

TEST(BodyTable, LeftAndRightMirrorEachOtherInPlaceMassAndRange) {
  for (std::size_t left = 2; left < kJointCount; left += 2) {
    const JointRow& l = kJoints[left];
    const JointRow& r = kJoints[left + 1];
    ASSERT_EQ(l.link.front(), 'L');
    ASSERT_EQ(r.link.front(), 'R');
    EXPECT_EQ(l.link.substr(1), r.link.substr(1));
    EXPECT_EQ(l.offset[0], -r.offset[0]) << l.link;
    EXPECT_EQ(l.offset[1], r.offset[1]) << l.link;
    EXPECT_EQ(l.offset[2], r.offset[2]) << l.link;
    EXPECT_EQ(l.anchor[0], -r.anchor[0]) << l.link;
    EXPECT_EQ(l.mass, r.mass) << l.link;
    EXPECT_EQ(l.extents, r.extents) << l.link;
    // A turn about x looks the same in the mirror, one about y or z goes the other way round.
    if (l.axis[0] > 0.9) {
      EXPECT_EQ(l.lowDeg, r.lowDeg) << l.link;
      EXPECT_EQ(l.highDeg, r.highDeg) << l.link;
    } else if (l.axis[1] > 0.9 || l.axis[2] > 0.9) {
      EXPECT_EQ(l.lowDeg, -r.highDeg) << l.link;
      EXPECT_EQ(l.highDeg, -r.lowDeg) << l.link;
    }
  }
}

TEST(BodyTable, LegPitchAxesLieWhereAPersonWouldMeasureThem) {
  // From the hip's origin downward, adding offsets and the axes' anchors by hand.
  const auto z = [](std::string_view link) { return kJoints[rowOfLink(link)].offset[2]; };
  const auto anchor = [](std::string_view link) { return kJoints[rowOfLink(link)].anchor[2]; };
  const double thigh = z("LHip1") + z("LHip2") + z("LThigh");
  const double shank = thigh + z("LShank");
  const double foot = shank + z("LAnkle") + z("LFoot");
  const double hipAxis = thigh + anchor("LThigh");
  const double kneeAxis = shank + anchor("LShank");
  const double ankleAxis = foot + anchor("LFoot");
  EXPECT_NEAR(hipAxis - kneeAxis, 0.12, 1e-12);
  EXPECT_NEAR(kneeAxis - ankleAxis, 0.10, 1e-12);
  const double sole = foot - kJoints[rowOfLink("LFoot")].extents[2] / 2;
  EXPECT_NEAR(ankleAxis - sole, 0.045, 1e-12);
  EXPECT_NEAR(-sole, kStandingHeight, 1e-12);
}

TEST(BodyTable, NamesLeadToTheirRowsAndUnknownOnesToNone) {
  EXPECT_EQ(rowOfLink("LFoot"), 20u);
  EXPECT_EQ(rowOfEffector("rae2"), 5u);
  EXPECT_EQ(rowOfPerceptor("raj2"), 5u);
  EXPECT_EQ(rowOfPerceptor("he1"), kJointCount);
  EXPECT_EQ(rowOfEffector("hj1"), kJointCount);
  EXPECT_EQ(rowOfLink("Tail"), kJointCount);
}

TEST(BodyTable, PairsThatNeverCollideAreLinksOfTheTable) {
  for (const LinkPair& pair : kNonColliding) {
    EXPECT_TRUE(pair.a == kTorsoName || rowOfLink(pair.a) < kJointCount) << pair.a;
    EXPECT_LT(rowOfLink(pair.b), kJointCount) << pair.b;
  }
}

// The check that guards the table at compile time has to notice broken tables.
TEST(BodyTable, SanityCheckFindsEveryKindOfDamage) {
  ASSERT_TRUE(bodyTableIsSane(kJoints));
  auto twin = kJoints;
  twin[3].effector = twin[2].effector;
  EXPECT_FALSE(bodyTableIsSane(twin));
  auto backwards = kJoints;
  std::swap(backwards[7].lowDeg, backwards[7].highDeg);
  EXPECT_FALSE(bodyTableIsSane(backwards));
  auto longAxis = kJoints;
  longAxis[10].axis = {-0.71, 0, -0.71};
  EXPECT_FALSE(bodyTableIsSane(longAxis));
  auto orphan = kJoints;
  orphan[1].parent = "RFoot";
  EXPECT_FALSE(bodyTableIsSane(orphan));
  auto weightless = kJoints;
  weightless[0].mass = 0;
  EXPECT_FALSE(bodyTableIsSane(weightless));
  auto flat = kJoints;
  flat[20].extents[2] = 0;
  EXPECT_FALSE(bodyTableIsSane(flat));
}

TEST(FieldTable, BallFitsThroughTheGoalManyTimes) {
  EXPECT_GT(kGoalWidth, 10 * 2 * kBallRadius);
  EXPECT_LT(kGoalWidth, kFieldWidth);
}

}  // namespace
}  // namespace arena
