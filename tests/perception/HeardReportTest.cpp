#include "perception/HeardReport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "behaviour/Agent.h"
#include "perception/WorldModel.h"
#include "tests/perception/OldSight.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/Places.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kOutOfRange = 102;

class HeardReport : public testing::Test {
 protected:
  void SetUp() override { world.cycle = 50; }
  [[nodiscard]] std::vector<std::size_t> reportedPlayers() const {
    std::vector<std::size_t> result;
    for (std::size_t i = 0; i < world.vision.players.size(); ++i) {
      if (world.vision.players.at(i).polar.seen) {
        result.push_back(i);
      }
    }
    return result;
  }
  [[nodiscard]] std::vector<std::size_t> reportedBalls() const {
    std::vector<std::size_t> result;
    for (std::size_t i = 0; i < world.teamBall.size(); ++i) {
      if (world.teamBall.at(i).seen) {
        result.push_back(i);
      }
    }
    return result;
  }

  FreshPlayer player{2};
  WorldModel& world = player.world();
};

TEST_F(HeardReport, OpponentWritesPlaceAndSightOnly) {
  seenPlayer& record = world.vision.players[8];
  record.isOpponent = 5;
  record.unum = 77;
  record.polar = oldSight(false);
  record.polar.position = VecPosition(7, 8, 9);
  EXPECT_EQ(applyHeardReport("~,9,1.5,-0.25"), 0);
  EXPECT_THAT(record.polar.position, IsPlace(1.5, -0.25, 9));
  EXPECT_TRUE(record.polar.seen);
  EXPECT_EQ(record.polar.lastSeenCycle, 50);
  EXPECT_EQ(record.isOpponent, 5);
  EXPECT_EQ(record.unum, 77);
  EXPECT_EQ(record.polar.distance, 3);
  EXPECT_EQ(record.polar.angle, 4);
  EXPECT_EQ(record.polar.elevation, 5);
  EXPECT_THAT(reportedPlayers(), ElementsAre(8));
  EXPECT_THAT(reportedBalls(), IsEmpty());
}

TEST_F(HeardReport, LastOpponentIsRefusedThoughItIsReported) {
  EXPECT_EQ(applyHeardReport("~,11,1,1"), 0);
  EXPECT_THAT(reportedPlayers(), ElementsAre(10));
  EXPECT_EQ(applyHeardReport("~,12,1,1"), kOutOfRange);
  EXPECT_THAT(reportedPlayers(), ElementsAre(10));
}

TEST_F(HeardReport, NegativeNumberIsOutOfRange) {
  EXPECT_EQ(applyHeardReport("~,-1,1,1"), kOutOfRange);
  EXPECT_EQ(applyHeardReport("|,-1,1,1,1"), kOutOfRange);
  EXPECT_THAT(reportedPlayers(), IsEmpty());
  EXPECT_THAT(reportedBalls(), IsEmpty());
}

TEST_F(HeardReport, NumberLikeOnesOwnIsIgnored) {
  EXPECT_EQ(applyHeardReport("~,2,1,1"), 0);
  EXPECT_EQ(applyHeardReport("|,2,1,1,1"), 0);
  EXPECT_THAT(reportedPlayers(), IsEmpty());
  EXPECT_THAT(reportedBalls(), IsEmpty());
  EXPECT_EQ(applyHeardReport("~,3,1,1"), 0);
  EXPECT_THAT(reportedPlayers(), ElementsAre(2));
}

TEST_F(HeardReport, NumberZeroHasNoRecord) {
  for (const std::string text : {"~,0,1,1", "~,x,1,1", "~,", "|,0,1,1,1", "|,x,1,1,1", "|,"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(applyHeardReport(text), 0);
    EXPECT_THAT(reportedPlayers(), IsEmpty());
    EXPECT_THAT(reportedBalls(), IsEmpty());
  }
}

TEST_F(HeardReport, BallWritesTheSpeakersRecord) {
  world.teamBall[2].position = VecPosition(7, 8, 9);
  EXPECT_EQ(applyHeardReport("|,3,1.25,-2.00,4.50"), 0);
  const PolarInfo& record = world.teamBall[2];
  EXPECT_THAT(record.position, IsPlace(1.25, -2, 0));
  EXPECT_EQ(record.distance, 4.5);
  EXPECT_TRUE(record.seen);
  EXPECT_EQ(record.lastSeenCycle, 50);
  EXPECT_THAT(reportedBalls(), ElementsAre(2));
  EXPECT_THAT(reportedPlayers(), IsEmpty());
}

TEST_F(HeardReport, BallOfTheSixthNumberIsTheLast) {
  EXPECT_EQ(applyHeardReport("|,6,1,1,1"), 0);
  EXPECT_THAT(reportedBalls(), ElementsAre(5));
  EXPECT_EQ(applyHeardReport("|,7,1,1,1"), kOutOfRange);
  EXPECT_THAT(reportedBalls(), ElementsAre(5));
}

TEST_F(HeardReport, MissingAndBadNumbersAreZero) {
  EXPECT_EQ(applyHeardReport("|,3"), 0);
  EXPECT_THAT(world.teamBall[2].position, IsPlace(0, 0, 0));
  EXPECT_EQ(world.teamBall[2].distance, 0);
  EXPECT_EQ(applyHeardReport("~,4,a,2.5b"), 0);
  EXPECT_THAT(world.vision.players[3].polar.position, IsPlace(0, 2.5, 0));
}

TEST_F(HeardReport, OtherTextsAreNotRead) {
  for (const std::string text :
       {"P,3,1,2", "(o 1:2:3)", "~9,1,2", "|3,1,2,3", " ~,9,1,2", "", "~"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(applyHeardReport(text), 0);
    EXPECT_THAT(reportedPlayers(), IsEmpty());
    EXPECT_THAT(reportedBalls(), IsEmpty());
  }
}

}  // namespace
