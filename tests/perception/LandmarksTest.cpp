#include <gtest/gtest.h>

#include <array>
#include <sstream>
#include <string>

#include "perception/SLangParser.h"
#include "perception/VisionInfo.h"
#include "perception/WorldModel.h"
#include "tests/perception/OldSight.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/Places.h"

namespace {

struct LandmarkRow {
  const char* name;
  PolarInfo visionInfo::*record;
  VecPosition onTheLeft;  ///< its place when the team plays on the left
  VecPosition otherwise;
};

const std::array kLandmarks{
    LandmarkRow{"G1L", &visionInfo::G1L, {-9, 1.05, 0.8}, {9, -1.05, 0.8}},
    LandmarkRow{"G2L", &visionInfo::G2L, {-9, -1.05, 0.8}, {9, 1.05, 0.8}},
    LandmarkRow{"G1R", &visionInfo::G1R, {9, 1.05, 0.8}, {-9, -1.05, 0.8}},
    LandmarkRow{"G2R", &visionInfo::G2R, {9, -1.05, 0.8}, {-9, 1.05, 0.8}},
    LandmarkRow{"F1L", &visionInfo::F1L, {-9, 6, 0}, {9, -6, 0}},
    LandmarkRow{"F2L", &visionInfo::F2L, {-9, -6, 0}, {9, 6, 0}},
    LandmarkRow{"F1R", &visionInfo::F1R, {9, 6, 0}, {-9, -6, 0}},
    LandmarkRow{"F2R", &visionInfo::F2R, {9, -6, 0}, {-9, 6, 0}},
};

TEST(LandmarkPlaces, OnTheLeft) {
  visionInfo vision;
  vision.setFlagPos("left");
  for (const LandmarkRow& row : kLandmarks) {
    EXPECT_TRUE((vision.*row.record).position == row.onTheLeft) << row.name;
  }
}

TEST(LandmarkPlaces, AnyOtherSideIsTheFieldTurnedRound) {
  for (const std::string side : {"right", "", "Left", "left ", "none"}) {
    SCOPED_TRACE(side);
    visionInfo vision;
    vision.setFlagPos(side);
    for (const LandmarkRow& row : kLandmarks) {
      EXPECT_TRUE((vision.*row.record).position == row.otherwise) << row.name;
    }
  }
}

TEST(LandmarkPlaces, BeforeTheFirstGameStateTheRightSideCounts) {
  const FreshPlayer player;
  WorldModel& world = player.world();
  ASSERT_EQ(world.teamSide, "");
  world.vision.setFlagPos(world.teamSide);
  for (const LandmarkRow& row : kLandmarks) {
    EXPECT_TRUE((world.vision.*row.record).position == row.otherwise) << row.name;
  }
}

TEST(LandmarkPlaces, OnTheRightTheFirstGoalPostOfTheLeftStandsAtNine) {
  visionInfo vision;
  vision.setFlagPos("right");
  EXPECT_EQ(vision.G1L.position.x, 9);
}

TEST(LandmarkPlaces, NothingElseIsWritten) {
  visionInfo vision;
  vision.F1L = oldSight(true);
  vision.ball.position = VecPosition(1, 2, 3);
  vision.setFlagPos("left");
  EXPECT_EQ(vision.F1L.distance, 3);
  EXPECT_EQ(vision.F1L.angle, 4);
  EXPECT_EQ(vision.F1L.elevation, 5);
  EXPECT_EQ(vision.F1L.lastSeenCycle, 6);
  EXPECT_TRUE(vision.F1L.seen);
  EXPECT_THAT(vision.ball.position, IsPlace(1, 2, 3));
}

class LandmarkSight : public testing::Test {
 protected:
  static int decode(const std::string& element) { return SLangParser::parseFlagInfo(element); }
  [[nodiscard]] int seenCount() const {
    int count = 0;
    for (const LandmarkRow& row : kLandmarks) {
      count += (vision.*row.record).seen ? 1 : 0;
    }
    return count;
  }

  FreshPlayer player;
  visionInfo& vision = player.world().vision;
};

TEST_F(LandmarkSight, EachNameHasItsRecord) {
  int index = 0;
  for (const LandmarkRow& row : kLandmarks) {
    SCOPED_TRACE(row.name);
    ++index;
    std::ostringstream element;
    element << '(' << row.name << " (pol " << index << ".25 -" << index << " 0." << index << "))";
    EXPECT_EQ(decode(element.str()), 0);
    const PolarInfo& record = vision.*row.record;
    EXPECT_EQ(record.distance, index + 0.25);
    EXPECT_EQ(record.angle, -index);
    EXPECT_DOUBLE_EQ(record.elevation, index / 10.0);
    EXPECT_TRUE(record.seen);
    EXPECT_EQ(seenCount(), index);
  }
}

TEST_F(LandmarkSight, LeavesPlaceAndCycleAlone) {
  player.world().cycle = 30;
  vision.F2R.position = VecPosition(1, 2, 3);
  vision.F2R.lastSeenCycle = 7;
  EXPECT_EQ(decode("(F2R (pol 5.2 -30.1 2.0))"), 0);
  EXPECT_THAT(vision.F2R.position, IsPlace(1, 2, 3));
  EXPECT_EQ(vision.F2R.lastSeenCycle, 7);
}

TEST_F(LandmarkSight, UnknownNameIsOneComplaint) {
  for (const std::string element :
       {"(F3L (pol 1 2 3))", "(f1l (pol 1 2 3))", "(F1LX (pol 1 2 3))", "(G (pol 1 2 3))",
        "(F1L  (pol 1 2 3))", "(F1L(pol 1 2 3))", "(F1L )", ""}) {
    SCOPED_TRACE(element);
    EXPECT_EQ(decode(element), 1);
    EXPECT_EQ(seenCount(), 0);
  }
}

TEST_F(LandmarkSight, GarbledValuesAreZerosButTheMarkIsSeen) {
  for (const std::string element :
       {"(F1L (pol))", "(F1L (pol a b c))", "(F1L ())", "(F1L)", "(F1L ", "(F1L (x"}) {
    SCOPED_TRACE(element);
    vision.F1L = oldSight(false);
    EXPECT_EQ(decode(element), 0);
    EXPECT_TRUE(vision.F1L.seen);
    EXPECT_EQ(vision.F1L.distance, 0);
    EXPECT_EQ(vision.F1L.angle, 0);
    EXPECT_EQ(vision.F1L.elevation, 0);
  }
}

TEST_F(LandmarkSight, ShortValuesLeaveZerosBehindThem) {
  EXPECT_EQ(decode("(G1L (pol 5.5))"), 0);
  EXPECT_EQ(vision.G1L.distance, 5.5);
  EXPECT_EQ(vision.G1L.angle, 0);
  EXPECT_EQ(vision.G1L.elevation, 0);
}

}  // namespace
