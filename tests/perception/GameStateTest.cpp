#include <gtest/gtest.h>

#include <string>

#include "behaviour/Agent.h"
#include "perception/SLangParser.h"
#include "perception/WorldModel.h"
#include "tests/support/FreshPlayer.h"

namespace {

class TimeElement : public testing::Test {
 protected:
  static int decode(const std::string& element) { return SLangParser::parseTimeInfo(element); }
  void expectNothingStored() const {
    EXPECT_EQ(world.serverTime, 4.5);
    EXPECT_EQ(world.stepTime, 0.5);
    EXPECT_EQ(world.cycle, 30);
  }
  void SetUp() override {
    world.serverTime = 4.5;
    world.stepTime = 0.5;
    world.cycle = 30;
  }

  FreshPlayer player;
  WorldModel& world = player.world();
};

TEST_F(TimeElement, AdvancedTimeIsOneCycle) {
  EXPECT_EQ(decode("(time (now 12.34))"), 0);
  EXPECT_EQ(world.serverTime, 12.34);
  EXPECT_EQ(world.cycle, 31);
  EXPECT_EQ(decode("(time (now 12.35))"), 0);
  EXPECT_EQ(world.cycle, 32);
}

TEST_F(TimeElement, SameTimeIsNoNewCycle) {
  EXPECT_EQ(decode("(time (now 4.5))"), 0);
  EXPECT_EQ(world.cycle, 30);
  EXPECT_EQ(world.serverTime, 4.5);
}

TEST_F(TimeElement, EarlierTimeIsTakenWithoutANewCycle) {
  EXPECT_EQ(decode("(time (now 3))"), 0);
  EXPECT_EQ(world.cycle, 30);
  EXPECT_EQ(world.serverTime, 3);
  decode("(time (now 3.02))");
  EXPECT_EQ(world.cycle, 31);
}

TEST_F(TimeElement, StepIsStoredWithTheTime) {
  EXPECT_EQ(decode("(time (now 5) (step 0.02))"), 0);
  EXPECT_EQ(world.stepTime, 0.02);
  EXPECT_EQ(decode("(time (step 0.04) (now 6))"), 0);
  EXPECT_EQ(world.stepTime, 0.04);
}

TEST_F(TimeElement, AbsentStepIsMarkedUnknown) {
  decode("(time (now 5))");
  EXPECT_EQ(world.stepTime, -1000);
}

TEST_F(TimeElement, NanReadsAsZeroAndALaterTimeGoesOn) {
  EXPECT_EQ(decode("(time (now nan))"), 0);
  EXPECT_EQ(world.serverTime, 0);
  EXPECT_EQ(world.cycle, 30);
  decode("(time (now 5))");
  EXPECT_EQ(world.serverTime, 5);
  EXPECT_EQ(world.cycle, 31);
}

TEST_F(TimeElement, LongNanIsAnUnknownTime) {
  EXPECT_EQ(decode("(time (now nan00) (step 0.02))"), 0);
  expectNothingStored();
}

TEST_F(TimeElement, StepAloneStoresNothing) {
  EXPECT_EQ(decode("(time (step 0.02))"), 0);
  expectNothingStored();
}

TEST_F(TimeElement, NameAloneStoresNothing) {
  EXPECT_EQ(decode("(time)"), 0);
  expectNothingStored();
}

TEST_F(TimeElement, UnsplittableOneIsOneComplaint) {
  EXPECT_EQ(decode("(time (now 5)"), 1);
  EXPECT_EQ(decode("time"), 1);
  expectNothingStored();
}

TEST_F(TimeElement, UnknownPartIsOneComplaintAndTheRestIsStored) {
  EXPECT_EQ(decode("(time (now 5) (step 0.02) (x 1))"), 1);
  EXPECT_EQ(world.serverTime, 5);
  EXPECT_EQ(world.stepTime, 0.02);
  EXPECT_EQ(world.cycle, 31);
  EXPECT_EQ(decode("(time word (x) (now 6))"), 2);
  EXPECT_EQ(world.serverTime, 6);
}

TEST_F(TimeElement, MisshapenTimeGivesTheElementUp) {
  EXPECT_EQ(decode("(time (now 1 2))"), 1);
  EXPECT_EQ(decode("(time (now))"), 1);
  EXPECT_EQ(decode("(time (now 5) (now 1 2) (x))"), 1);
  EXPECT_EQ(decode("(time (x) (now 1 2))"), 2);
  expectNothingStored();
}

TEST_F(TimeElement, MisshapenStepIsOnlyAComplaint) {
  EXPECT_EQ(decode("(time (step 1 2) (now 5) (step))"), 2);
  EXPECT_EQ(world.serverTime, 5);
  EXPECT_EQ(world.stepTime, -1000);
}

TEST_F(TimeElement, PartsAreKnownByHowTheyBegin) {
  EXPECT_EQ(decode("(time (nowhere 7) (stepping 0.5))"), 0);
  EXPECT_EQ(world.serverTime, 7);
  EXPECT_EQ(world.stepTime, 0.5);
  EXPECT_EQ(decode("(time (no 8))"), 1);
  EXPECT_EQ(world.serverTime, 7);
}

TEST_F(TimeElement, FirstTimeOfZeroIsNoCycle) {
  const FreshPlayer fresh;
  decode("(time (now 0))");
  EXPECT_EQ(fresh.world().cycle, 0);
  decode("(time (now 0.02))");
  EXPECT_EQ(fresh.world().cycle, 1);
}

class GameStateElement : public testing::Test {
 protected:
  static int decode(const std::string& element) { return SLangParser::parseGameState(element); }
  void SetUp() override {
    world.teamSide = "left";
    world.playMode = "KickOff_Left";
    world.gameTime = 1.5;
    world.gameTimeDelta = 0.25;
  }
  void expectNothingStored() const {
    EXPECT_EQ(agent.uNum, 5);
    EXPECT_EQ(world.teamSide, "left");
    EXPECT_EQ(world.playMode, "KickOff_Left");
    EXPECT_EQ(world.gameTime, 1.5);
    EXPECT_EQ(world.gameTimeDelta, 0.25);
  }

  FreshPlayer player{5};
  WorldModel& world = player.world();
  Agent& agent = player.agent();
};

TEST_F(GameStateElement, AllKeysInAnyOrder) {
  EXPECT_EQ(decode("(GS (pm PlayOn) (t 4.00) (team right) (unum 2))"), 0);
  EXPECT_EQ(agent.uNum, 2);
  EXPECT_EQ(world.teamSide, "right");
  EXPECT_EQ(world.gameTime, 4);
  EXPECT_EQ(world.gameTimeDelta, 2.5);
  EXPECT_EQ(world.playMode, "PlayOn");
}

TEST_F(GameStateElement, AbsentKeysLeaveTheirFieldsAlone) {
  EXPECT_EQ(decode("(GS (t 0.00) (pm BeforeKickOff))"), 0);
  EXPECT_EQ(agent.uNum, 5);
  EXPECT_EQ(world.teamSide, "left");
  EXPECT_EQ(decode("(GS)"), 0);
  EXPECT_EQ(world.playMode, "BeforeKickOff");
}

TEST_F(GameStateElement, ServersNumberReplacesTheGivenOne) {
  EXPECT_EQ(decode("(GS (unum 3))"), 0);
  EXPECT_EQ(agent.uNum, 3);
  EXPECT_EQ(world.teamSide, "left");
  EXPECT_EQ(world.gameTimeDelta, 0.25);
}

TEST_F(GameStateElement, NumberIsReadForgivingly) {
  struct Row {
    const char* text;
    int number;
  };
  for (const Row& row : {Row{"(GS (unum no-4x))", -4}, Row{"(GS (unum 06))", 6},
                         Row{"(GS (unum none))", 0}, Row{"(GS (unum nan4))", 0}}) {
    SCOPED_TRACE(row.text);
    agent.uNum = 5;
    EXPECT_EQ(decode(row.text), 0);
    EXPECT_EQ(agent.uNum, row.number);
  }
}

TEST_F(GameStateElement, WordsAreStoredAsTheyStand) {
  EXPECT_EQ(decode("(GS (team (odd one)) (pm play_On2))"), 0);
  EXPECT_EQ(world.teamSide, "(odd one)");
  EXPECT_EQ(world.playMode, "play_On2");
}

TEST_F(GameStateElement, TimeDifferenceIsToTheTimeBefore) {
  decode("(GS (t 1.25))");
  EXPECT_EQ(world.gameTimeDelta, -0.25);
  EXPECT_EQ(world.gameTime, 1.25);
  decode("(GS (t 1.25))");
  EXPECT_EQ(world.gameTimeDelta, 0);
}

TEST_F(GameStateElement, BadPartIsAComplaintAndTheRestIsStored) {
  EXPECT_EQ(decode("(GS (pm PlayOn) (bad))"), 1);
  EXPECT_EQ(world.playMode, "PlayOn");
  EXPECT_EQ(decode("(GS (bad) word (pm GameOver) (x 1))"), 3);
  EXPECT_EQ(world.playMode, "GameOver");
}

TEST_F(GameStateElement, PartMustHaveExactlyTwoWords) {
  EXPECT_EQ(decode("(GS (team))"), 1);
  EXPECT_EQ(decode("(GS (team a b))"), 1);
  EXPECT_EQ(decode("(GS (unum 1 2) (t 1 2) (pm))"), 3);
  expectNothingStored();
}

TEST_F(GameStateElement, KeysAreWholeWords) {
  EXPECT_EQ(decode("(GS (unumber 2) (teams right) (time 3) (pmode X) (T 3))"), 5);
  expectNothingStored();
}

TEST_F(GameStateElement, UnsplittableOneIsOneComplaint) {
  EXPECT_EQ(decode("(GS (unum 2) (pm PlayOn)"), 1);
  expectNothingStored();
}

}  // namespace
