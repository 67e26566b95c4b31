#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "behaviour/Agent.h"
#include "perception/WorldModel.h"
#include "tests/localisation/Flags.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/Places.h"

namespace {

/// The offered variant with three flags. With p = 10, q = 8 and r * r = 124 its place is (1, 1).
class ThreeFlags : public testing::Test {
 protected:
  void SetUp() override {
    setCycle(10);
    vision.setFlagPos("left");
    agent.myPos = VecPosition(1, 2, 3);
  }
  void setCycle(int cycle) const {
    world.cycle = cycle;
    world.lastSeeCycle = cycle;
  }
  [[nodiscard]] VecPosition localized() const {
    agent.LocalizeAgentWith3Flags();
    return agent.myPos;
  }

  const double r = std::sqrt(124.0);
  FreshPlayer player{2};
  Agent& agent = player.agent();
  WorldModel& world = player.world();
  visionInfo& vision = world.vision;
};

TEST_F(ThreeFlags, CycleWithoutSightChangesNothing) {
  see(vision.F1L, 5);
  see(vision.F2L, 13);
  world.lastSeeCycle = 9;
  EXPECT_THAT(localized(), IsPlace(1, 2, 3));
}

TEST_F(ThreeFlags, TooFewChangeNothing) {
  EXPECT_THAT(localized(), IsPlace(1, 2, 3));
  see(vision.F1L, 5);
  EXPECT_THAT(localized(), IsPlace(1, 2, 3));
  vision.F1L.seen = false;
  see(vision.F1R, 5);
  EXPECT_THAT(localized(), IsPlace(1, 2, 3));
}

TEST_F(ThreeFlags, TwoOfOneEndAreCrossed) {
  see(vision.F1L, 5);
  see(vision.F2L, 13);
  EXPECT_THAT(localized(), IsPlaceNear(-4.0, 6.0, 0.0));
  vision.F1L.seen = vision.F2L.seen = false;
  see(vision.F1R, 5);
  see(vision.F2R, 13);
  EXPECT_THAT(localized(), IsPlaceNear(4.0, 6.0, 0.0));
}

TEST_F(ThreeFlags, OneOfEachEndAreCrossedRightOneFirst) {
  see(vision.F1L, std::hypot(9, 0.25));
  see(vision.F1R, std::hypot(9, 0.25));
  EXPECT_THAT(localized(), IsPlaceNear(0.0, 5.75, 0.0));
}

// p at (-9, 6): 100 - (1 + 9 + 9) - (1 - 6 - 6) = 92 under the root of the height.
TEST_F(ThreeFlags, TwoLeftAndOneRight) {
  see(vision.F1L, 10);
  see(vision.F1R, 8);
  see(vision.F2L, r);
  EXPECT_THAT(localized(), IsPlaceNear(1.0, 1.0, std::sqrt(92.0)));
}

// p at (9, 6): 100 - (1 - 9 - 9) - (1 - 6 - 6) = 128.
TEST_F(ThreeFlags, OneLeftAndTwoRight) {
  see(vision.F1R, 10);
  see(vision.F1L, 8);
  see(vision.F2R, r);
  EXPECT_THAT(localized(), IsPlaceNear(1.0, 1.0, std::sqrt(128.0)));
}

TEST_F(ThreeFlags, TwoOfEachTakeTheLeftOnesWhenTheSecondLeftOneIsNearer) {
  see(vision.F1L, 10);
  see(vision.F1R, 8);
  see(vision.F2L, r);
  see(vision.F2R, r + 1);
  EXPECT_THAT(localized(), IsPlaceNear(1.0, 1.0, std::sqrt(92.0)));
}

TEST_F(ThreeFlags, TwoOfEachTakeTheRightOnesOtherwise) {
  for (const double secondLeft : {r, r + 1}) {
    see(vision.F1R, 10);
    see(vision.F1L, 8);
    see(vision.F2R, r);
    see(vision.F2L, secondLeft);
    agent.myPos = VecPosition(1, 2, 3);
    EXPECT_THAT(localized(), IsPlaceNear(1.0, 1.0, std::sqrt(128.0)));
  }
}

TEST_F(ThreeFlags, PlaceFromThreePassesTheFilterByAtAnyCycle) {
  setCycle(30);
  see(vision.F1L, 10);
  see(vision.F1R, 8);
  see(vision.F2L, r);
  agent.particleFilters[1].currentPos = VecPosition(7, 7, 7);
  EXPECT_THAT(localized(), IsPlaceNear(1.0, 1.0, std::sqrt(92.0)));
  EXPECT_THAT(agent.particleFilters[1].currentPos, IsPlace(7, 7, 7));
}

}  // namespace
