#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "behaviour/Agent.h"
#include "perception/SLangParser.h"
#include "perception/WorldModel.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/Places.h"

namespace {

constexpr double kTiny = 1e-9;

double rad(double degrees) {
  return degrees * M_PI / 180;
}

class Orientation : public testing::Test {
 protected:
  void SetUp() override { vision.setFlagPos("left"); }
  void setPan(double degrees) const { agent.findJoint("hj1")->angle = degrees; }
  /// The heading when a landmark that truly lies at BEARING is seen at ANGLE. [deg]
  [[nodiscard]] double heading(double bearing, double angle, double pan) const {
    setPan(pan);
    PolarInfo flag;
    flag.position = VecPosition(agent.myPos.x + 5 * std::cos(rad(bearing)),
                                agent.myPos.y + 5 * std::sin(rad(bearing)), 0.8);
    flag.angle = angle;
    return agent.computeMyDegree(flag);
  }
  static void see(PolarInfo& flag, double distance, double angle) {
    flag.distance = distance;
    flag.angle = angle;
    flag.seen = true;
  }
  [[nodiscard]] double found() const {
    agent.findOrientation();
    return agent.myDegree;
  }

  FreshPlayer player{2};
  Agent& agent = player.agent();
  WorldModel& world = player.world();
  visionInfo& vision = world.vision;
  // In the order that decides between equal distances.
  const std::array<PolarInfo*, 8> flags{&vision.F1L, &vision.F1R, &vision.F2L, &vision.F2R,
                                        &vision.G1L, &vision.G1R, &vision.G2L, &vision.G2R};
};

TEST(OrientationStart, HeadingIsZeroBeforeTheFirstLandmark) {
  const FreshPlayer player;
  EXPECT_EQ(player.agent().myDegree, 0);
}

TEST_F(Orientation, PostStraightAheadGivesItsBearing) {
  see(vision.G1R, 9, 0);
  EXPECT_NEAR(found(), 6.65, 0.01);
  EXPECT_NEAR(std::tan(rad(agent.myDegree)), 1.05 / 9, 1e-12);
}

TEST_F(Orientation, SightAndPanAreTakenOffTheBearing) {
  agent.myPos = VecPosition(0, 1.05, 0);
  setPan(20);
  see(vision.G1L, 9, 10);  // straight along negative x
  EXPECT_NEAR(found(), 150, kTiny);
}

TEST_F(Orientation, NegativeIsBroughtUpByATurn) {
  EXPECT_NEAR(heading(-170, 30, 0), 160, kTiny);
}

TEST_F(Orientation, PanIsTakenOffAfterTheFirstTurn) {
  EXPECT_NEAR(heading(170, -170, 30), 310, kTiny);
}

TEST_F(Orientation, FullTurnIsTakenOffAgain) {
  EXPECT_NEAR(heading(170, -170, -30), 10, kTiny);
}

TEST_F(Orientation, NegativeAfterThePanIsBroughtUpToo) {
  EXPECT_NEAR(heading(20, 10, 30), 340, kTiny);
}

TEST_F(Orientation, ManyTurnsAreBroughtBack) {
  EXPECT_NEAR(heading(90, 730, 0), 80, kTiny);
  EXPECT_NEAR(heading(90, -730, 0), 100, kTiny);
  EXPECT_NEAR(heading(90, 0, 725), 85, kTiny);
}

TEST_F(Orientation, WholeTurnIsZero) {
  EXPECT_EQ(heading(0, -360, 0), 0);
  EXPECT_EQ(heading(0, 0, -720), 0);
  EXPECT_EQ(heading(0, 1e-17, 0), 0);  // a turn added to next to nothing is a whole turn
}

TEST_F(Orientation, LiesInOneTurnAndUndoesTheSight) {
  agent.myPos = VecPosition(1.5, -2.25, 0);
  for (double bearing = -175; bearing <= 180; bearing += 35.5) {
    for (double angle = -180; angle <= 180; angle += 40) {
      for (double pan = -120; pan <= 120; pan += 60) {
        SCOPED_TRACE(testing::Message() << bearing << " seen at " << angle << ", pan " << pan);
        const double h = heading(bearing, angle, pan);
        EXPECT_GE(h, 0);
        EXPECT_LT(h, 360);
        EXPECT_NEAR(std::cos(rad(h + angle + pan)), std::cos(rad(bearing)), kTiny);
        EXPECT_NEAR(std::sin(rad(h + angle + pan)), std::sin(rad(bearing)), kTiny);
      }
    }
  }
}

TEST_F(Orientation, OnlyThePanOfTheHeadCounts) {
  agent.findJoint("hj2")->angle = 40;
  agent.myPos.z = 3;
  PolarInfo flag;
  flag.position = VecPosition(0, 7, 0.8);
  flag.elevation = -50;
  flag.distance = 123;
  EXPECT_NEAR(agent.computeMyDegree(flag), 90, kTiny);
}

TEST_F(Orientation, DirectionToALandmarkNextToThePlayerStillCounts) {
  PolarInfo flag;
  flag.position = VecPosition(-1e-9, 1e-9, 0);
  EXPECT_NEAR(agent.computeMyDegree(flag), 135, kTiny);
  flag.position = VecPosition(0, 0, 0);  // underfoot
  flag.angle = -25;
  EXPECT_NEAR(agent.computeMyDegree(flag), 25, kTiny);
}

TEST_F(Orientation, ComputingAloneWritesNothing) {
  agent.myDegree = 42;
  agent.myPos = VecPosition(1, 2, 3);
  EXPECT_NEAR(heading(-170, 30, 0), 160, kTiny);
  EXPECT_EQ(agent.myDegree, 42);
  EXPECT_THAT(agent.myPos, IsPlace(1, 2, 3));
}

TEST_F(Orientation, NearestLandmarkDecides) {
  for (std::size_t nearest = 0; nearest < flags.size(); ++nearest) {
    for (std::size_t i = 0; i < flags.size(); ++i) {
      see(*flags.at(i), i == nearest ? 3 : 4 + static_cast<double>(i),
          10.0 * static_cast<double>(i));
    }
    const double expected = agent.computeMyDegree(*flags.at(nearest));
    EXPECT_EQ(found(), expected) << nearest;
  }
}

TEST_F(Orientation, OfEqualDistancesTheEarlierStays) {
  for (std::size_t first = 0; first < flags.size(); ++first) {
    for (std::size_t second = first + 1; second < flags.size(); ++second) {
      for (PolarInfo* flag : flags) {
        flag->seen = false;
      }
      see(*flags.at(first), 3, 0);
      see(*flags.at(second), 3, 77);
      const double expected = agent.computeMyDegree(*flags.at(first));
      EXPECT_EQ(found(), expected) << first << " and " << second;
    }
  }
}

TEST_F(Orientation, CornerFlagGoesBeforeAPostAtTheSameDistance) {
  see(vision.F2R, 5, 0);
  see(vision.G1L, 5, 0);
  EXPECT_NEAR(std::tan(rad(found())), -6.0 / 9, kTiny);
  EXPECT_GT(agent.myDegree, 270);
}

TEST_F(Orientation, UnseenRecordIsSkippedAndDoesNotHideAFartherOne) {
  see(vision.F1L, 1, 0);
  vision.F1L.seen = false;
  see(vision.G2R, 8, 0);
  EXPECT_NEAR(std::tan(rad(found())), -1.05 / 9, kTiny);
}

TEST_F(Orientation, DistanceBeyondAllBoundsIsNoLandmark) {
  agent.myDegree = 42;
  see(vision.F1L, 100000000.0, 0);
  EXPECT_EQ(found(), 42);
  see(vision.F1L, 99999999.0, 0);
  EXPECT_NE(found(), 42);
}

TEST_F(Orientation, SightOfAnEarlierCycleWouldCount) {
  world.cycle = 50;
  world.lastSeeCycle = 7;
  agent.myPos = VecPosition(9, 0, 0);
  see(vision.F1R, 6, 0);
  EXPECT_NEAR(found(), 90, kTiny);
}

TEST_F(Orientation, MessageWithoutSightLeavesTheHeadingAlone) {
  agent.myPos = VecPosition(9, 0, 0);
  ASSERT_TRUE(SLangParser::updateFromServerMsg("((time (now 1.00))(See (F1R (pol 6 0 0))))"));
  EXPECT_NEAR(found(), 90, kTiny);
  agent.myPos = VecPosition(0, 6, 0);
  setPan(33);
  for (int i = 0; i < 3; ++i) {
    ASSERT_TRUE(SLangParser::updateFromServerMsg("((time (now 1.02)))"));
    EXPECT_NEAR(found(), 90, kTiny);
  }
}

TEST_F(Orientation, HeadingFollowsAStalePosition) {
  agent.myPos = VecPosition(9, 0, 0);
  see(vision.F1R, 6, 0);
  EXPECT_NEAR(found(), 90, kTiny);
  agent.myPos = VecPosition(3, 0, 0);
  EXPECT_NEAR(found(), 45, kTiny);
}

}  // namespace
