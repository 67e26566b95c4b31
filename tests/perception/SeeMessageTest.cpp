#include <gtest/gtest.h>

#include <string>

#include "perception/SLangParser.h"
#include "perception/WorldModel.h"
#include "tests/support/FreshPlayer.h"

namespace {

class SeeMessage : public testing::Test {
 protected:
  void SetUp() override {
    world.cycle = 30;
    world.lastSeeCycle = 12;
  }
  static int decode(const std::string& element) {
    return SLangParser::updateFromSeeMessage(element);
  }
  [[nodiscard]] int seenCount() const {
    const visionInfo& vision = world.vision;
    int count = 0;
    for (const PolarInfo& record : {vision.ball, vision.F1L, vision.F2L, vision.F1R, vision.F2R,
                                    vision.G1L, vision.G2L, vision.G1R, vision.G2R}) {
      count += record.seen ? 1 : 0;
    }
    for (const seenPlayer& seen : vision.players) {
      count += seen.polar.seen ? 1 : 0;
    }
    return count;
  }

  FreshPlayer player;
  WorldModel& world = player.world();
};

TEST_F(SeeMessage, EachKindOfObjectReachesItsDecoder) {
  EXPECT_EQ(decode("(See (F1L (pol 1 0 0)) (G2R (pol 2 0 0)) (B (pol 3 0 0))"
                   " (P (team Foe) (id 2) (head (pol 4 0 0))))"),
            0);
  EXPECT_EQ(world.vision.F1L.distance, 1);
  EXPECT_EQ(world.vision.G2R.distance, 2);
  EXPECT_EQ(world.vision.ball.distance, 3);
  EXPECT_EQ(world.vision.players[7].polar.distance, 4);
  EXPECT_EQ(seenCount(), 4);
  EXPECT_EQ(world.lastSeeCycle, 30);
}

TEST_F(SeeMessage, LineAloneIsOneComplaintAndCountsAsSight) {
  EXPECT_EQ(decode("(See (L (pol 1 2 3) (pol 4 5 6)))"), 1);
  EXPECT_EQ(world.lastSeeCycle, 30);
  EXPECT_EQ(seenCount(), 0);
}

TEST_F(SeeMessage, EmptyOneCountsAsSight) {
  EXPECT_EQ(decode("(See)"), 0);
  EXPECT_EQ(world.lastSeeCycle, 30);
  EXPECT_EQ(seenCount(), 0);
}

TEST_F(SeeMessage, UnsplittableOneCountsAsSightToo) {
  EXPECT_EQ(decode("(See (F1L (pol 1 2 3))"), 1);
  EXPECT_EQ(world.lastSeeCycle, 30);
  EXPECT_EQ(seenCount(), 0);
}

TEST_F(SeeMessage, ComplaintsAreCounted) {
  EXPECT_EQ(decode("(See (L (pol 1 2 3)) (F9X (pol 1 2 3)) (F1L (pol 1 2 3)) (b (pol 1 2 3)) x)"),
            4);
  EXPECT_EQ(seenCount(), 1);
}

TEST_F(SeeMessage, NameOfTheElementIsNotLookedAt) {
  EXPECT_EQ(decode("((B) (F1L (pol 1 2 3)))"), 0);
  EXPECT_FALSE(world.vision.ball.seen);
  EXPECT_TRUE(world.vision.F1L.seen);
}

TEST_F(SeeMessage, BareWordsAreJudgedByTheirSecondCharacterToo) {
  EXPECT_EQ(decode("(See xF xG xL)"), 3);
  EXPECT_EQ(decode("(See xB)"), 0);
  EXPECT_TRUE(world.vision.ball.seen);
  EXPECT_EQ(world.vision.ball.distance, 0);
}

}  // namespace
