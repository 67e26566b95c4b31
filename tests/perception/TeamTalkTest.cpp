#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "behaviour/Agent.h"
#include "perception/SLangParser.h"
#include "perception/WorldModel.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/OutputCapture.h"
#include "tests/support/Places.h"

namespace {

using testing::ElementsAre;

class TeamTalk : public testing::Test {
 protected:
  static int hear(const std::string& element) { return SLangParser::parseHearMessage(element); }
  void expectNobodyReported() const {
    for (const PolarInfo& ball : world.teamBall) {
      EXPECT_FALSE(ball.seen);
      EXPECT_EQ(ball.distance, 1000);
      EXPECT_THAT(ball.position, IsPlace(-10000, -10000, 0));
    }
    for (const seenPlayer& seen : world.vision.players) {
      EXPECT_FALSE(seen.polar.seen);
      EXPECT_THAT(seen.polar.position, IsPlace(0, 0, 0));
    }
  }

  FreshPlayer player{1};
  WorldModel& world = player.world();
};

TEST_F(TeamTalk, SayIsAFrameOfItsOwnBehindTheZeroSpeeds) {
  player.agent().sendSay("P,1,0,0");
  player.agent().sendSay("");
  EXPECT_EQ(player.link.bytes(), frameOf(std::string(kZeroSpeeds) + "(say P,1,0,0)") +
                                     frameOf(std::string(kZeroSpeeds) + "(say )"));
}

TEST_F(TeamTalk, SayHasNoLimitAndNoCheckOfItsText) {
  const std::string text = std::string(5000, 'x') + " (;)\n";
  player.agent().sendSay(text);
  EXPECT_THAT(player.link.commands(), ElementsAre("(say " + text + ")"));
}

TEST_F(TeamTalk, OwnVoiceIsRememberedAndStoppedAtTheGate) {
  world.hearDirection = 7;
  EXPECT_EQ(hear("(hear 3.2 self |,3,1.00,2.00,4.00)"), 10);
  EXPECT_DOUBLE_EQ(world.hearTime, 3.2);
  EXPECT_TRUE(world.hearSelf);
  EXPECT_EQ(world.hearText, "|,3,1.00,2.00,4.00");
  EXPECT_EQ(world.hearDirection, 7);
  expectNobodyReported();
}

TEST_F(TeamTalk, NoPlayModePassesTheGate) {
  for (const std::string mode : {"PlayOn", "playon", "PLAYON", "BeforeKickOff", ""}) {
    for (const std::string text : {"|,3,1.00,2.00,4.00", "~,9,1.5,-0.25", "P,3,1,2"}) {
      SCOPED_TRACE(mode + ' ' + text);
      world.playMode = mode;
      world.hearDirection = 0;
      world.hearText = "";
      EXPECT_EQ(hear("(hear 3.2 -10 " + text + ")"), 10);
      EXPECT_EQ(world.hearDirection, -10);
      EXPECT_EQ(world.hearText, text);
      EXPECT_FALSE(world.hearSelf);
      expectNobodyReported();
    }
  }
}

TEST_F(TeamTalk, HavingHeardOneselfIsNeverForgotten) {
  hear("(hear 3.2 self a)");
  hear("(hear 3.4 45.5 b)");
  EXPECT_TRUE(world.hearSelf);
  EXPECT_EQ(world.hearDirection, 45.5);
  EXPECT_DOUBLE_EQ(world.hearTime, 3.4);
  EXPECT_EQ(world.hearText, "b");
}

TEST_F(TeamTalk, WordsBehindTheTextAreIgnored) {
  EXPECT_EQ(hear("(hear 3.2 self one two (three))"), 10);
  EXPECT_EQ(world.hearText, "one");
}

TEST_F(TeamTalk, NestedTextIsOneToken) {
  EXPECT_EQ(hear("(hear 3.2 self (o 1:2:3))"), 10);
  EXPECT_EQ(world.hearText, "(o 1:2:3)");
}

TEST_F(TeamTalk, DashesInTheTextChangeNothing) {
  EXPECT_EQ(hear("(hear 3.2 12 --a-b-)"), 10);
  EXPECT_EQ(world.hearText, "--a-b-");
}

TEST_F(TeamTalk, UnsplittableElementIsSaidOnTheTerminal) {
  OutputCapture output;
  EXPECT_EQ(hear("(hear 3.2 self text"), 1);
  EXPECT_EQ(output.text(), "parse hear returned\n");
  EXPECT_EQ(world.hearTime, 0);
  EXPECT_FALSE(world.hearSelf);
  EXPECT_EQ(world.hearText, "");
}

TEST_F(TeamTalk, ShortElementIsIgnored) {
  for (const std::string element : {"()", "(hear)", "(hear 3.2)", "(hear 3.2 self)"}) {
    SCOPED_TRACE(element);
    EXPECT_EQ(hear(element), 1);
    EXPECT_EQ(world.hearTime, 0);
    EXPECT_EQ(world.hearDirection, 0);
    EXPECT_FALSE(world.hearSelf);
    EXPECT_EQ(world.hearText, "");
  }
}

}  // namespace
