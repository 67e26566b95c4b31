#include "perception/WorldModel.h"

#include <gtest/gtest.h>

#include <vector>

#include "behaviour/Agent.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/Places.h"

namespace {

class WorldModelAlone : public testing::Test {
 protected:
  void SetUp() override { WorldModel::freeSingleton(); }
  void TearDown() override { WorldModel::freeSingleton(); }
};

TEST_F(WorldModelAlone, IsMadeOnceAndFreed) {
  EXPECT_EQ(WorldModel::m_Instance, nullptr);
  WorldModel* first = WorldModel::getSingleton();
  EXPECT_EQ(WorldModel::m_Instance, first);
  EXPECT_EQ(WorldModel::getSingleton(), first);
  first->cycle = 7;
  WorldModel::freeSingleton();
  EXPECT_EQ(WorldModel::m_Instance, nullptr);
  EXPECT_EQ(WorldModel::getSingleton()->cycle, 0);
}

TEST_F(WorldModelAlone, StartValues) {
  const WorldModel& world = *WorldModel::getSingleton();
  EXPECT_THAT(world.ballPos, IsPlace(0, 0, 0));
  EXPECT_THAT(world.ballSpeed, IsPlace(0, 0, 0));
  EXPECT_FALSE(world.hearSelf);
  EXPECT_EQ(world.hearText, "");
  EXPECT_EQ(world.serverTime, 0);
  EXPECT_EQ(world.gameTime, 0);
  EXPECT_EQ(world.gameTimeDelta, 0.02);
  EXPECT_EQ(world.playMode, "");
  EXPECT_EQ(world.teamName, "");
  EXPECT_EQ(world.teamSide, "");
  EXPECT_EQ(world.cycle, 0);
}

TEST_F(WorldModelAlone, VisionAndTeamBallStartAtZero) {
  const WorldModel& world = *WorldModel::getSingleton();
  std::vector<PolarInfo> records{world.vision.ball, world.vision.G1L, world.vision.G2L,
                                 world.vision.G1R,  world.vision.G2R, world.vision.F1L,
                                 world.vision.F2L,  world.vision.F1R, world.vision.F2R};
  ASSERT_EQ(world.vision.players.size(), 12U);
  for (const seenPlayer& player : world.vision.players) {
    records.push_back(player.polar);
  }
  ASSERT_EQ(world.teamBall.size(), 6U);
  records.insert(records.end(), world.teamBall.begin(), world.teamBall.end());
  for (const PolarInfo& record : records) {
    EXPECT_FALSE(record.seen);
    EXPECT_EQ(record.distance, 0);
    EXPECT_EQ(record.angle, 0);
    EXPECT_EQ(record.elevation, 0);
    EXPECT_EQ(record.lastSeenCycle, 0);
    EXPECT_THAT(record.position, IsPlace(0, 0, 0));
  }
}

TEST(WorldModel, MakingOfThePlayerPutsTheTeamsBallsFarAway) {
  const FreshPlayer player;
  for (const PolarInfo& record : player.world().teamBall) {
    EXPECT_EQ(record.distance, 1000);
    EXPECT_FALSE(record.seen);
    EXPECT_EQ(record.lastSeenCycle, 0);
    EXPECT_THAT(record.position, IsPlace(-10000, -10000, 0));
  }
}

}  // namespace
