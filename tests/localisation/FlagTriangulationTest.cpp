#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "behaviour/Agent.h"
#include "perception/WorldModel.h"
#include "tests/localisation/Flags.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/OutputCapture.h"
#include "tests/support/Places.h"

namespace {

class FlagTriangulation : public testing::Test {
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
  void setTilt(double degrees) const { agent.findJoint("hj2")->angle = degrees; }
  VecPosition localized() const {
    agent.LocalizeAgentWith3FlagsCircle();
    return agent.myPos;
  }

  FreshPlayer player{2};
  Agent& agent = player.agent();
  WorldModel& world = player.world();
  visionInfo& vision = world.vision;
  Particle_filtering& filter = agent.particleFilters[1];
};

TEST(FlagTriangulationStart, PlayerStandsInTheMiddleAtFirst) {
  const FreshPlayer player;
  EXPECT_THAT(player.agent().myPos, IsPlace(0, 0, 0));
}

// Corner flags 12 apart, 5 and 13 away: a right angle at the nearer one, so (-4, 6) or (-14, 6).
TEST_F(FlagTriangulation, PointBehindTheOwnGoalLineIsRejected) {
  see(vision.F1L, 5, -30);
  see(vision.F2L, 13);
  vision.F1L.distance = 5 / std::cos(M_PI / 6);
  EXPECT_THAT(localized(), IsPlaceNear(-4.0, 6.0, 5 * std::tan(M_PI / 6)));
}

TEST_F(FlagTriangulation, SecondPointIsTakenWhenTheFirstIsOffTheField) {
  see(vision.F1R, 5);
  see(vision.F2R, 13);
  EXPECT_THAT(localized(), IsPlaceNear(4.0, 6.0, 0.0));  // the first is (14, 6)
}

TEST_F(FlagTriangulation, FieldIsTurnedForTheOtherSide) {
  vision.setFlagPos("right");
  see(vision.F1L, 5);
  see(vision.F2L, 13);
  EXPECT_THAT(localized(), IsPlaceNear(4.0, -6.0, 0.0));
}

TEST_F(FlagTriangulation, OneFlagAtEachEndPutsTheRightOneFirst) {
  // A quarter metre to either side of the touch line, both within the margin. Looking from the
  // right flag to the left one the smaller y comes first.
  see(vision.F1L, std::hypot(9, 0.25));
  see(vision.F1R, std::hypot(9, 0.25));
  EXPECT_THAT(localized(), IsPlaceNear(0.0, 5.75, 0.0));
}

TEST_F(FlagTriangulation, FirstOfTwoPointsOnTheFieldWinsEvenIfItIsTheMirrorImage) {
  const VecPosition truth(0, 4.05, 0.5);
  seeFrom(vision.G1L, truth);
  seeFrom(vision.G1R, truth);
  agent.myPos = truth;  // what was known before doesn't help
  EXPECT_THAT(localized(), IsPlaceNear(0.0, -1.95, 0.5));
}

TEST_F(FlagTriangulation, CirclesThatMissGiveTheMiddleOfTheField) {
  see(vision.F1L, 3, -30);
  see(vision.F2L, 4);
  EXPECT_THAT(localized(), IsPlaceNear(0.0, 0.0, 1.5));
}

TEST_F(FlagTriangulation, PointsOffTheFieldGiveItsMiddleToo) {
  see(vision.F1L, std::hypot(20, 6));
  see(vision.F2L, std::hypot(20, 6));  // (11, 0) and (-29, 0)
  EXPECT_THAT(localized(), IsPlaceNear(0.0, 0.0, 0.0));
}

TEST_F(FlagTriangulation, HalfAMetreBeyondTheFlagsIsOff) {
  see(vision.F1L, 18.49);
  see(vision.F2L, std::hypot(18.49, 12));
  EXPECT_THAT(localized(), IsPlaceNear(9.49, 6.0, 0.0));
  see(vision.F1L, 18.5);
  see(vision.F2L, std::hypot(18.5, 12));
  EXPECT_THAT(localized(), IsPlaceNear(0.0, 0.0, 0.0));
}

TEST_F(FlagTriangulation, SinglePointIsTakenWhereverItIs) {
  see(vision.F1L, 6);
  see(vision.F2L, 6);
  EXPECT_THAT(localized(), IsPlaceNear(-9.0, 0.0, 0.0));
  see(vision.F1L, 4);
  see(vision.F2L, 16);  // touching from within, off the field
  EXPECT_THAT(localized(), IsPlaceNear(-9.0, 10.0, 0.0));
}

TEST_F(FlagTriangulation, RadiusIsTheDistanceOverGroundByTheElevationAsSeen) {
  setTilt(-45);  // plays no part in the radius
  see(vision.F1L, 10, -60);
  see(vision.F2L, 26, 60);
  EXPECT_NEAR(localized().x, -4, 1e-9);
  EXPECT_NEAR(agent.myPos.y, 6, 1e-9);
}

TEST_F(FlagTriangulation, HeightAddsTheHeadsTiltToTheElevation) {
  setTilt(30);
  see(vision.F1L, 10, -60);
  see(vision.F2L, 26, 60);
  EXPECT_NEAR(localized().z, 5, 1e-9);  // 10 sin 30
}

TEST_F(FlagTriangulation, HeightComesFromTheNearerFlag) {
  see(vision.G1L, 4, 30);
  see(vision.G2L, 3, -30);
  EXPECT_NEAR(localized().z, 2.3, 1e-9);  // 0.8 + 1.5
  see(vision.G1L, 2.5, -30);
  EXPECT_NEAR(localized().z, 2.05, 1e-9);  // 0.8 + 1.25
}

TEST_F(FlagTriangulation, HeightIsNeverNegative) {
  see(vision.G1L, 4, 30);
  see(vision.G2L, 5);
  EXPECT_NEAR(localized().z, 1.2, 1e-9);  // 0.8 - 2
}

TEST_F(FlagTriangulation, TieOfDistancesTakesTheHeightFromTheSecond) {
  see(vision.G1L, 3, 0);
  see(vision.G2L, 3, -30);
  agent.LocalizeAgentWith2Flags(&vision.G1L, &vision.G2L);
  EXPECT_NEAR(agent.myPos.z, 2.3, 1e-9);
  agent.LocalizeAgentWith2Flags(&vision.G2L, &vision.G1L);
  EXPECT_NEAR(agent.myPos.z, 0.8, 1e-9);
}

TEST_F(FlagTriangulation, UndoesTheSightFromAnywhereOnTheFieldOnEitherSide) {
  for (const char* side : {"left", "right"}) {
    vision.setFlagPos(side);
    for (const auto pair : {std::array{&visionInfo::F1L, &visionInfo::F2L},
                            std::array{&visionInfo::G1L, &visionInfo::G2L},
                            std::array{&visionInfo::F1R, &visionInfo::F2R},
                            std::array{&visionInfo::G1R, &visionInfo::G2R}}) {
      for (double x = -8; x <= 8; x += 2) {
        for (double y = -6; y <= 6; y += 1.5) {
          SCOPED_TRACE(testing::Message() << side << " from " << x << ", " << y);
          seeFrom(vision.*pair[0], VecPosition(x, y, 0.5));
          seeFrom(vision.*pair[1], VecPosition(x, y, 0.5));
          EXPECT_THAT(localized(), IsPlaceNear(x, y, 0.5));
          (vision.*pair[0]).seen = false;
          (vision.*pair[1]).seen = false;
        }
      }
    }
  }
}

TEST_F(FlagTriangulation, CycleWithoutSightChangesNothing) {
  see(vision.F1L, 5);
  see(vision.F2L, 13);
  world.lastSeeCycle = 9;
  EXPECT_THAT(localized(), IsPlace(1, 2, 3));
  world.lastSeeCycle = 11;
  EXPECT_THAT(localized(), IsPlace(1, 2, 3));
}

TEST_F(FlagTriangulation, ThreeFlagsAtOneEndAndOneAtTheOtherChangeNothing) {
  for (const int cycle : {10, 30}) {
    setCycle(cycle);
    const VecPosition truth(-3, 1, 0.5);
    for (PolarInfo* flag : {&vision.F1L, &vision.F2L, &vision.G1L, &vision.G1R}) {
      seeFrom(*flag, truth);
    }
    filter.currentPos = VecPosition(7, 7, 7);
    OutputCapture output;
    OutputCapture errors(OutputCapture::Stream::Error);
    EXPECT_THAT(localized(), IsPlace(1, 2, 3));
    EXPECT_EQ(errors.text(), "");
    EXPECT_EQ(output.text(), "");
    EXPECT_THAT(filter.currentPos, IsPlace(7, 7, 7));
  }
}

TEST_F(FlagTriangulation, NoOutputWithAPositionEither) {
  see(vision.F1L, 5);
  see(vision.F2L, 13);
  OutputCapture output;
  EXPECT_THAT(localized(), IsPlaceNear(-4.0, 6.0, 0.0));
  EXPECT_EQ(output.text(), "");
}

TEST_F(FlagTriangulation, PlaceIsWrittenDirectlyThroughCycle20) {
  setCycle(20);
  see(vision.F1L, 5, 0);
  see(vision.F2L, 13, 0);
  setTilt(30);
  filter.currentPos = VecPosition(7, 7, 7);
  EXPECT_THAT(localized(), IsPlaceNear(-4.0, 6.0, 2.5));
  EXPECT_THAT(filter.currentPos, IsPlace(7, 7, 7));
}

TEST_F(FlagTriangulation, FromCycle21OnTheFilterGetsThePlaceWithoutItsHeight) {
  setCycle(21);
  see(vision.F1L, 5, 0);
  see(vision.F2L, 13, 0);
  setTilt(30);
  filter.currentPos = VecPosition(7, 7, 7);
  localized();
  EXPECT_THAT(filter.currentPos, IsPlaceNear(-4.0, 6.0, 0.0));
  EXPECT_EQ(agent.myPos.z, 0);
}

TEST_F(FlagTriangulation, FromCycle21OnTheFilterGetsTheMiddleForCirclesThatMiss) {
  for (const int cycle : {21, 5000}) {
    setCycle(cycle);
    see(vision.F1L, 3, -30);
    see(vision.F2L, 4);
    filter.currentPos = VecPosition(7, 7, 7);
    localized();
    EXPECT_THAT(filter.currentPos, IsPlace(0, 0, 0));
  }
}

}  // namespace
