#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>

#include "behaviour/Agent.h"
#include "perception/SLangParser.h"
#include "perception/WorldModel.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/Places.h"

namespace {

class BallPlacement : public testing::Test {
 protected:
  void SetUp() override {
    world.cycle = 42;  // silent about the ball
    world.teamName = "Foo";
  }
  void setPan(double degrees) const { agent.findJoint("hj1")->angle = degrees; }
  void setTilt(double degrees) const { agent.findJoint("hj2")->angle = degrees; }
  /// Where the sight of a ball puts it.
  [[nodiscard]] VecPosition ball(const std::string& polar) const {
    SLangParser::parseBallInfo("(B (pol " + polar + "))");
    world.setBallPos();
    return world.ballPos;
  }
  /// Where the sight of a team mate puts it.
  [[nodiscard]] VecPosition mate(const std::string& polar) const {
    SLangParser::parsePlayerInfo("(P (team Foo) (id 4) (head (pol " + polar + ")))");
    return world.vision.players[3].polar.position;
  }
  void setReports(const std::array<double, 6>& distances) const {
    for (std::size_t i = 0; i < 6; ++i) {
      world.teamBall.at(i).distance = distances.at(i);
      world.teamBall.at(i).position = VecPosition(static_cast<double>(i), 10, 9);
    }
  }
  [[nodiscard]] VecPosition decided() const {
    world.setBallPos();
    return world.ballPos;
  }

  FreshPlayer player{3};
  Agent& agent = player.agent();
  WorldModel& world = player.world();
};

TEST_F(BallPlacement, BallAheadOfAPlayerThatFacesTheLeftTouchLine) {
  agent.myPos = VecPosition(1, 2, 0);
  agent.myDegree = 90;
  EXPECT_THAT(ball("3 0 0"), IsPlaceNear(1.0, 5.0, 0.0));
  EXPECT_THAT(mate("3 0 0"), IsPlaceNear(1.0, 5.0, 0.0));
}

TEST_F(BallPlacement, SumOfAnglesBeyondATurnIsFine) {
  agent.myDegree = 350;
  setPan(20);
  const double tenDegrees = M_PI / 18;
  EXPECT_THAT(ball("3 0 0"), IsPlaceNear(3 * std::cos(tenDegrees), 3 * std::sin(tenDegrees), 0.0));
  EXPECT_THAT(mate("3 0 0"), IsPlaceNear(3 * std::cos(tenDegrees), 3 * std::sin(tenDegrees), 0.0));
}

TEST_F(BallPlacement, TiltOfTheHeadCountsForPlayersOnly) {
  setTilt(-30);
  EXPECT_THAT(ball("4 0 -30"), IsPlaceNear(4 * std::sqrt(0.75), 0.0, 0.0));
  EXPECT_THAT(mate("4 0 -30"), IsPlaceNear(2.0, 0.0, 0.0));
  EXPECT_EQ(world.vision.players[3].polar.elevation, -60);
  EXPECT_EQ(world.vision.ball.elevation, -30);
}

TEST_F(BallPlacement, HeightOfThePlayerPlaysNoPart) {
  agent.myPos = VecPosition(1, 2, 5);
  EXPECT_THAT(ball("3 0 45"), IsPlaceNear(1 + 3 * std::sqrt(0.5), 2.0, 0.0));
}

TEST_F(BallPlacement, BeforeAnyReportTheBallIsFarOffTheField) {
  EXPECT_THAT(decided(), IsPlace(-10000, -10000, 0));
}

TEST_F(BallPlacement, ReportNearestToTheBallWins) {
  for (std::size_t nearest = 0; nearest < 6; ++nearest) {
    std::array<double, 6> distances{6, 5, 4, 3, 5, 6};
    distances.at(nearest) = 2;
    setReports(distances);
    EXPECT_THAT(decided(), IsPlace(static_cast<double>(nearest), 10, 0));
  }
}

TEST_F(BallPlacement, LowerNumberWinsATie) {
  setReports({0.5, 0.5, 3, 4, 5, 6});
  EXPECT_THAT(decided(), IsPlace(0, 10, 0));
  setReports({3, 4, 5, 2, 2, 2});
  EXPECT_THAT(decided(), IsPlace(3, 10, 0));
}

TEST_F(BallPlacement, FirstSightOutdoesTheUntouchedRecords) {
  EXPECT_THAT(ball("4 0 0"), IsPlaceNear(4.0, 0.0, 0.0));
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_EQ(world.teamBall.at(i).distance, i == 2 ? 4 : 1000);
  }
}

TEST_F(BallPlacement, OwnReportHasNoPrecedence) {
  setReports({1000, 1, 1000, 1000, 1000, 1000});
  EXPECT_THAT(ball("4 0 0"), IsPlace(1, 10, 0));
}

TEST_F(BallPlacement, AgeOfAReportDoesNotMatter) {
  setReports({5, 6, 7, 8, 9, 9});
  world.teamBall[1].lastSeenCycle = 41;
  world.teamBall[1].seen = true;
  EXPECT_THAT(decided(), IsPlace(0, 10, 0));
}

TEST_F(BallPlacement, BallOutOfViewStaysWhereItWasSeen) {
  agent.myPos = VecPosition(1, 2, 0);
  const VecPosition seen = ball("3 0 0");
  EXPECT_THAT(seen, IsPlaceNear(4.0, 2.0, 0.0));
  for (int i = 1; i <= 100; ++i) {
    agent.myPos = VecPosition(-i * 0.05, i * 0.03, 0);
    agent.myDegree = i * 3;
    setPan(i);
    SLangParser::updateFromServerMsg("((time (now " + std::to_string(i) + ".00))(See))");
    EXPECT_EQ(decided(), seen) << i;
  }
  EXPECT_FALSE(world.vision.ball.seen);
  EXPECT_EQ(world.vision.ball.lastSeenCycle, 42);
  EXPECT_GT(world.cycle, 42);
}

TEST_F(BallPlacement, FartherSightReplacesTheOwnNearerOne) {
  EXPECT_THAT(ball("2 0 0"), IsPlaceNear(2.0, 0.0, 0.0));
  EXPECT_THAT(ball("5 0 0"), IsPlaceNear(5.0, 0.0, 0.0));
}

TEST_F(BallPlacement, NoReportWithinAllBoundsLeavesTheBallAlone) {
  const double none = std::numeric_limits<double>::quiet_NaN();
  world.ballPos = VecPosition(1, 2, 3);
  setReports({10000000.0, 20000000.0, none, none, 10000000.0, none});
  EXPECT_THAT(decided(), IsPlace(1, 2, 3));
  setReports({10000000.0, 9999999.0, none, none, 10000000.0, none});
  EXPECT_THAT(decided(), IsPlace(1, 10, 0));
}

// The message is decoded before its own landmarks move the player.
TEST_F(BallPlacement, SightsArePlacedWithThePoseOfTheCycleBefore) {
  world.cycle = 4;
  world.vision.setFlagPos("left");
  agent.myPos = VecPosition(1, 2, 0);
  agent.myDegree = 90;
  SLangParser::updateFromServerMsg(
      "((time (now 1.00))(See (F1L (pol 5 180 0)) (F2L (pol 13 0 0)) (B (pol 3 0 0))))");
  agent.basicAgentLoop();
  EXPECT_THAT(agent.myPos, IsPlaceNear(-4.0, 6.0, 0.0));
  EXPECT_NEAR(std::remainder(agent.myDegree, 360), 0, 1e-9);  // by the new place
  EXPECT_THAT(world.ballPos, IsPlaceNear(1.0, 5.0, 0.0));     // by the old one
}

TEST_F(BallPlacement, JointsOfTheSameMessageCountWhenTheyCameBeforeTheSight) {
  SLangParser::updateFromServerMsg(
      "((time (now 1.00))(HJ (n hj1) (ax 90.0))(See (B (pol 3 0 0))))");
  EXPECT_THAT(decided(), IsPlaceNear(0.0, 3.0, 0.0));
  SLangParser::updateFromServerMsg("((time (now 1.02))(See (B (pol 4 0 0)))(HJ (n hj1) (ax 0.0)))");
  EXPECT_THAT(decided(), IsPlaceNear(0.0, 4.0, 0.0));
}

}  // namespace
