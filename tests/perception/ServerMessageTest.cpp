#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "behaviour/Agent.h"
#include "perception/SLangParser.h"
#include "perception/WorldModel.h"
#include "tests/perception/OldSight.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/OutputCapture.h"
#include "tests/support/Places.h"

namespace {

using testing::ElementsAre;

class ServerMessage : public testing::Test {
 protected:
  static bool decode(const std::string& message) {
    return SLangParser::updateFromServerMsg(message);
  }
  void showEverything() const {
    visionInfo& vision = world.vision;
    for (PolarInfo* record : {&vision.ball, &vision.F1L, &vision.F2L, &vision.F1R, &vision.F2R,
                              &vision.G1L, &vision.G2L, &vision.G1R, &vision.G2R}) {
      *record = oldSight(true);
    }
    for (seenPlayer& seen : vision.players) {
      seen.polar = oldSight(true);
    }
    for (PolarInfo& ball : world.teamBall) {
      ball.seen = true;
    }
  }
  void expectNothingShownButKept() const {
    const visionInfo& vision = world.vision;
    for (const PolarInfo& record : {vision.ball, vision.F1L, vision.F2L, vision.F1R, vision.F2R,
                                    vision.G1L, vision.G2L, vision.G1R, vision.G2R}) {
      expectUnseen(record);
    }
    for (const seenPlayer& seen : vision.players) {
      expectUnseen(seen.polar);
    }
    for (const PolarInfo& ball : world.teamBall) {
      EXPECT_TRUE(ball.seen);
    }
  }
  static void expectUnseen(const PolarInfo& record) {
    EXPECT_FALSE(record.seen);
    EXPECT_EQ(record.distance, 3);
    EXPECT_EQ(record.angle, 4);
    EXPECT_EQ(record.elevation, 5);
    EXPECT_EQ(record.lastSeenCycle, 6);
  }

  FreshPlayer player;
  WorldModel& world = player.world();
  Agent& agent = player.agent();
};

TEST_F(ServerMessage, EmptyOneChangesOnlyTheSeenFlags) {
  showEverything();
  world.lastSeeCycle = -5;
  EXPECT_TRUE(decode("()"));
  expectNothingShownButKept();
  EXPECT_EQ(world.cycle, 0);
  EXPECT_EQ(world.serverTime, 0);
  EXPECT_EQ(world.lastSeeCycle, -5);
  EXPECT_EQ(world.playMode, "");
  EXPECT_TRUE(player.link.bytes().empty());
}

TEST_F(ServerMessage, WithoutSightEverythingSeenIsForgottenButItsPlaces) {
  showEverything();
  EXPECT_TRUE(decode("((time (now 0.02))(GS (t 0.00) (pm BeforeKickOff)))"));
  expectNothingShownButKept();
  EXPECT_EQ(world.cycle, 1);
}

TEST_F(ServerMessage, UnsplittableOneCostsItsDataButClearsTheFlags) {
  showEverything();
  EXPECT_FALSE(decode("((time (now 0.02))(GS (pm PlayOn))"));
  expectNothingShownButKept();
  EXPECT_EQ(world.cycle, 0);
  EXPECT_EQ(world.playMode, "");
  showEverything();
  EXPECT_FALSE(decode(""));
  expectNothingShownButKept();
}

TEST_F(ServerMessage, OneOfEachElementReachesItsDecoder) {
  EXPECT_TRUE(
      decode("((time (now 12.34))(GS (unum 4) (team right) (t 1.50) (pm PlayOn))"
             "(GYR (n torso) (rt 0.01 0.07 0.46))(ACC (n torso) (a 0.25 0.50 9.81))"
             "(HJ (n raj2) (ax -1.02))(FRP (n rf) (c 1 2 3) (f 4 5 6))"
             "(See (F1L (pol 5.2 -30.1 2.0)))(hear 12.3 self word))"));
  EXPECT_EQ(world.serverTime, 12.34);
  EXPECT_EQ(agent.uNum, 4);
  EXPECT_EQ(world.teamSide, "right");
  EXPECT_EQ(world.gameTime, 1.5);
  EXPECT_EQ(world.playMode, "PlayOn");
  EXPECT_THAT(agent.gyroRate, IsPlaceNear(0.01, 0.07, 0.46));
  EXPECT_THAT(agent.accel, IsPlaceNear(0.25, 0.5, 9.81));
  EXPECT_DOUBLE_EQ(agent.findJoint("raj2")->angle, -1.02);
  EXPECT_THAT(agent.rightFootForce, IsPlace(4, 5, 6));
  EXPECT_TRUE(world.vision.F1L.seen);
  EXPECT_EQ(world.hearText, "word");
}

TEST_F(ServerMessage, ElementBeginningWithAGoesToTheAccelerometer) {
  decode("((Anything (goes) (here 1 2 3)))");
  EXPECT_THAT(agent.accel, IsPlace(1, 2, 3));
}

TEST_F(ServerMessage, ElementBeginningWithFGoesToTheFeet) {
  decode("((Foot (n lf) (c 1 2 3) (f 4 5 6)))");
  EXPECT_THAT(agent.leftFootForceCentre, IsPlace(1, 2, 3));
}

TEST_F(ServerMessage, ElementBeginningWithGNeedsItsThirdCharacter) {
  decode("((GYx (n a) (rt 1 2 3))(GSx (pm One)))");
  EXPECT_THAT(agent.gyroRate, IsPlace(1, 2, 3));
  EXPECT_EQ(world.playMode, "One");
  for (const std::string name : {"Gy", "Gs", "GX", "GAME", "G"}) {
    SCOPED_TRACE(name);
    EXPECT_TRUE(decode("((" + name + " (pm Two) (n b) (rt 4 5 6)))"));
    EXPECT_EQ(world.playMode, "One");
    EXPECT_THAT(agent.gyroRate, IsPlace(1, 2, 3));
  }
}

TEST_F(ServerMessage, ElementBeginningWithHGoesToTheJoints) {
  decode("((Hinge (n laj3) (ax 17)))");
  EXPECT_EQ(agent.findJoint("laj3")->angle, 17);
}

TEST_F(ServerMessage, ElementBeginningWithSCountsAsSight) {
  world.cycle = 30;
  decode("((Sound))");
  EXPECT_EQ(world.lastSeeCycle, 30);
}

TEST_F(ServerMessage, ElementBeginningWithSmallHIsHeard) {
  decode("((hum 1.5 self text))");
  EXPECT_EQ(world.hearTime, 1.5);
}

TEST_F(ServerMessage, ElementBeginningWithTCountsAsTime) {
  decode("((temperature (now 21)))");
  EXPECT_EQ(world.serverTime, 21);
  EXPECT_EQ(world.cycle, 1);
}

TEST_F(ServerMessage, CaseMatters) {
  world.lastSeeCycle = -1;
  EXPECT_TRUE(
      decode("((acc (n torso) (a 1 2 3))(frp (n lf) (c 1 2 3) (f 4 5 6))(gyr (rt 1 2 3))"
             "(gs (pm PlayOn))(see (F1L (pol 1 2 3)))(TIME (now 5)))"));
  EXPECT_THAT(agent.accel, IsPlace(0, 0, 0));
  EXPECT_THAT(agent.leftFootForceCentre, IsPlace(0, 0, 0));
  EXPECT_THAT(agent.gyroRate, IsPlace(0, 0, 0));
  EXPECT_EQ(world.playMode, "");
  EXPECT_EQ(world.lastSeeCycle, -1);
  EXPECT_EQ(world.cycle, 0);
}

TEST_F(ServerMessage, UnknownElementsAreSkippedInSilence) {
  OutputCapture output;
  OutputCapture errors(OutputCapture::Stream::Error);
  EXPECT_TRUE(decode("((BAT 3)(TCH n bumper val 0)()(time (now 1))(x))"));
  EXPECT_EQ(output.text(), "");
  EXPECT_EQ(errors.text(), "");
  EXPECT_EQ(world.cycle, 1);
}

TEST_F(ServerMessage, BareWordIsJudgedByItsSecondCharacterToo) {
  world.cycle = 30;
  agent.accel = VecPosition(1, 2, 3);
  decode("(xS)");
  EXPECT_EQ(world.lastSeeCycle, 30);
  decode("(xA)");
  EXPECT_THAT(agent.accel, IsPlace(0, 0, 0));
  OutputCapture output;
  decode("(xh)");
  EXPECT_EQ(output.text(), "parse hear returned\n");
}

TEST_F(ServerMessage, WordsOfOneCharacterAndShortGsAreNothing) {
  EXPECT_TRUE(decode("(x S (G) xG A t)"));
  EXPECT_EQ(world.cycle, 0);
  EXPECT_EQ(world.lastSeeCycle, 0);
}

TEST_F(ServerMessage, LaterElementSeesWhatAnEarlierOneWrote) {
  agent.findJoint("hj1")->angle = 0;
  decode("((HJ (n hj1) (ax 90))(See (B (pol 2 0 0))))");
  EXPECT_THAT(world.teamBall[0].position, IsPlaceNear(0, 2, 0));
}

TEST_F(ServerMessage, EarlierElementWorksWithTheMessageBefore) {
  agent.findJoint("hj1")->angle = 0;
  decode("((See (B (pol 2 0 0)))(HJ (n hj1) (ax 90)))");
  EXPECT_THAT(world.teamBall[0].position, IsPlaceNear(2, 0, 0));
  EXPECT_EQ(agent.findJoint("hj1")->angle, 90);
}

TEST_F(ServerMessage, SightIsDatedByTheTimeElementBeforeIt) {
  decode("((See)(time (now 1)))");
  EXPECT_EQ(world.lastSeeCycle, 0);
  decode("((time (now 2))(See))");
  EXPECT_EQ(world.lastSeeCycle, 2);
}

TEST_F(ServerMessage, SecondSightInOneMessageOverwritesTheFirst) {
  decode("((See (F1L (pol 1 2 3)) (G1R (pol 7 8 9)))(See (F1L (pol 4 5 6))))");
  EXPECT_EQ(world.vision.F1L.distance, 4);
  EXPECT_EQ(world.vision.F1L.angle, 5);
  EXPECT_TRUE(world.vision.F1L.seen);
  EXPECT_TRUE(world.vision.G1R.seen);
  EXPECT_EQ(world.vision.G1R.distance, 7);
}

TEST_F(ServerMessage, SaysLeaveWhileItIsDecoded) {
  world.cycle = 1;
  decode("((See (P (team Foes) (id 3) (head (pol 0 0 0))) (B (pol 0 0 0))))");
  EXPECT_THAT(player.link.commands(), ElementsAre("(say ~,9,0,0)", "(say |,1,0.00,0.00,0.00)"));
}

}  // namespace
