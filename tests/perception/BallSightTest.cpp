#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "behaviour/Agent.h"
#include "perception/SLangParser.h"
#include "perception/WorldModel.h"
#include "tests/perception/OldSight.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/Places.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BallSight : public testing::Test {
 protected:
  void SetUp() override { world.cycle = 40; }
  static int decode(const std::string& element) { return SLangParser::parseBallInfo(element); }

  FreshPlayer player{2};
  Agent& agent = player.agent();
  WorldModel& world = player.world();
};

TEST_F(BallSight, PolarValuesAreStored) {
  EXPECT_EQ(decode("(B (pol 1.4 3.5 -20.0))"), 0);
  EXPECT_EQ(world.vision.ball.distance, 1.4);
  EXPECT_EQ(world.vision.ball.angle, 3.5);
  EXPECT_EQ(world.vision.ball.elevation, -20);
  EXPECT_TRUE(world.vision.ball.seen);
  EXPECT_EQ(world.vision.ball.lastSeenCycle, 40);
}

TEST_F(BallSight, PlaceAddsSightNeckAndHeading) {
  agent.myPos = VecPosition(1, 2, 5);
  agent.myDegree = 50;
  agent.findJoint("hj1")->angle = 30;
  decode("(B (pol 4 10 60))");  // 90 degrees to the side, half the distance on the ground
  EXPECT_THAT(world.teamBall[1].position, IsPlaceNear(1, 4, 0));
}

TEST_F(BallSight, TiltOfTheHeadIsLeftOut) {
  agent.findJoint("hj2")->angle = 60;
  decode("(B (pol 4 0 0))");
  EXPECT_THAT(world.teamBall[1].position, IsPlaceNear(4, 0, 0));
}

TEST_F(BallSight, AnglesBeyondOneTurnAreTaken) {
  agent.myDegree = 359;
  agent.findJoint("hj1")->angle = 351;
  decode("(B (pol 3 10 0))");  // two whole turns
  EXPECT_THAT(world.teamBall[1].position, IsPlaceNear(3, 0, 0));
}

TEST_F(BallSight, OwnRecordOfTheTeamsBallIsWritten) {
  decode("(B (pol 3 180 0))");
  const PolarInfo& own = world.teamBall[1];
  EXPECT_TRUE(own.seen);
  EXPECT_EQ(own.lastSeenCycle, 40);
  EXPECT_EQ(own.distance, 3);
  EXPECT_NEAR(own.position.x, -3, 1e-9);
  for (const int other : {0, 2, 3, 4, 5}) {
    EXPECT_FALSE(world.teamBall.at(static_cast<std::size_t>(other)).seen);
    EXPECT_EQ(world.teamBall.at(static_cast<std::size_t>(other)).distance, 1000);
  }
}

TEST_F(BallSight, OnlyThePlaceOnTheGroundIsWritten) {
  world.teamBall[1].position.z = 9;
  decode("(B (pol 3 0 0))");
  EXPECT_EQ(world.teamBall[1].position.z, 9);
}

TEST_F(BallSight, BallRecordHasNoPlaceAndTheTeamsBallStays) {
  world.ballPos = VecPosition(5, 6, 7);
  world.vision.ball.position = VecPosition(1, 2, 3);
  decode("(B (pol 3 0 0))");
  EXPECT_THAT(world.vision.ball.position, IsPlace(1, 2, 3));
  EXPECT_THAT(world.ballPos, IsPlace(5, 6, 7));
}

TEST_F(BallSight, SpeedIsTheWayFromTheTeamsBallOverTheTime) {
  world.ballPos = VecPosition(1, 3, 6);
  world.vision.ball.lastSeenCycle = 30;
  decode("(B (pol 3 0 0))");  // at (3, 0, 0): 7 m in ten cycles of 0.02 s
  EXPECT_THAT(world.ballSpeed, IsPlaceNear(35.0, 35.0, 35.0));
}

TEST_F(BallSight, TwiceInOneCycleHasNoFiniteSpeedAndBreaksNothing) {
  decode("(B (pol 3 0 0))");
  decode("(B (pol 4 0 0))");
  EXPECT_TRUE(std::isinf(world.ballSpeed.x));
  EXPECT_TRUE(std::isinf(world.ballSpeed.z));
  world.ballPos = VecPosition(5, 0, 0);
  decode("(B (pol 5 0 0))");  // no way in no time
  EXPECT_TRUE(std::isnan(world.ballSpeed.y));
  EXPECT_EQ(world.teamBall[1].distance, 5);
}

TEST_F(BallSight, GarbledValuesAreZerosButTheBallIsSeen) {
  for (const std::string element : {"(B (pol))", "(B (pol a b c))", "(B)", "(B ())", "xB", ""}) {
    SCOPED_TRACE(element);
    world.vision.ball = oldSight(false);
    EXPECT_EQ(decode(element), 0);
    EXPECT_TRUE(world.vision.ball.seen);
    EXPECT_EQ(world.vision.ball.distance, 0);
    EXPECT_EQ(world.vision.ball.angle, 0);
    EXPECT_EQ(world.vision.ball.elevation, 0);
  }
}

TEST_F(BallSight, ReportOfNumberTwo) {
  agent.myPos = VecPosition(-1.5, -0.25, 0);
  decode("(B (pol 3 0 0))");
  EXPECT_THAT(player.link.commands(), ElementsAre("(say |,2,1.50,-0.25,3.00)"));
}

TEST_F(BallSight, ReportHasTwoDecimalsWhateverTheSize) {
  agent.myPos = VecPosition(1234567.891, -0.001, 0);
  decode("(B (pol 0.001 0 0))");
  EXPECT_THAT(player.link.commands(), ElementsAre("(say |,2,1234567.89,-0.00,0.00)"));
}

TEST_F(BallSight, ReportIsAFrameOfItsOwnBehindTheZeroSpeeds) {
  decode("(B (pol 3 0 0))");
  EXPECT_EQ(player.link.bytes(), frameOf(std::string(kZeroSpeeds) + "(say |,2,3.00,0.00,3.00)"));
}

TEST_F(BallSight, CyclesDivisibleBy21HaveNoReport) {
  for (const int cycle : {0, 21, 42, 63, 84, 2100}) {
    SCOPED_TRACE(cycle);
    world.cycle = cycle;
    world.teamBall[1] = PolarInfo();
    decode("(B (pol 3 0 0))");
    EXPECT_THAT(player.link.commands(), IsEmpty());
    EXPECT_TRUE(world.teamBall[1].seen);
    EXPECT_EQ(world.teamBall[1].lastSeenCycle, cycle);
    EXPECT_EQ(world.teamBall[1].distance, 3);
  }
}

TEST_F(BallSight, AllOtherCyclesHaveOne) {
  for (const int cycle : {1, 20, 22, 40, 41, 43, 62}) {
    SCOPED_TRACE(cycle);
    world.cycle = cycle;
    decode("(B (pol 3 0 0))");
    EXPECT_THAT(player.link.commands(), ElementsAre("(say |,2,3.00,0.00,3.00)"));
  }
}

TEST_F(BallSight, EveryShirtNumberWritesItsOwnRecord) {
  for (int number = 1; number <= 6; ++number) {
    SCOPED_TRACE(number);
    agent.uNum = number;
    decode("(B (pol 3 0 0))");
    EXPECT_TRUE(world.teamBall.at(static_cast<std::size_t>(number - 1)).seen);
    EXPECT_THAT(player.link.commands(),
                ElementsAre("(say |," + std::to_string(number) + ",3.00,0.00,3.00)"));
  }
}

TEST_F(BallSight, ShirtNumberOutsideTheTeamReportsButWritesNoRecord) {
  for (const int number : {0, 7, -1, 12, 2147483647}) {
    SCOPED_TRACE(number);
    agent.uNum = number;
    decode("(B (pol 3 0 0))");
    for (const PolarInfo& record : world.teamBall) {
      EXPECT_FALSE(record.seen);
    }
    EXPECT_THAT(player.link.commands(),
                ElementsAre("(say |," + std::to_string(number) + ",3.00,0.00,3.00)"));
  }
}

}  // namespace
