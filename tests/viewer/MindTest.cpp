#include "viewer/server/Mind.h"

#include <gtest/gtest.h>

#include <string>

#include "arena/record/Attitude.h"

namespace arena::view {
namespace {

/// One player in slot 4, upright at the middle, facing the right goal (+x).
CycleRecord recordOfSpeaker(long cycle, Side side, const std::string& said = {}) {
  CycleRecord record;
  record.cycle = cycle;
  record.ball = {2, 0, 0.042};
  PlayerRecord player;
  player.session = 9;
  player.slot = 4;
  player.shirt = Shirt{side, 5};
  player.position = {0, 0, kStandingHeight};
  player.attitude = attitudeOf({0, 1, 0, -1, 0, 0, 0, 0, 1});
  player.said = said;
  record.players = {player};
  return record;
}

TEST(Mind, NobodyThereHasNone) {
  Timeline timeline;
  EXPECT_FALSE(mindAt(timeline, 1, 4));
  timeline.add(recordOfSpeaker(1, Side::kLeft));
  EXPECT_FALSE(mindAt(timeline, 1, 3));
  EXPECT_FALSE(mindAt(timeline, 1, 12));
  EXPECT_TRUE(mindAt(timeline, 1, 4));
}

TEST(Mind, LatestReportsUpToTheCycleCount) {
  Timeline timeline;
  timeline.add(recordOfSpeaker(20, Side::kLeft, "P,5,0.5,0.25"));
  timeline.add(recordOfSpeaker(22, Side::kLeft, "|,5,2.10,0.10,1.60"));
  timeline.add(recordOfSpeaker(23, Side::kLeft, "~,8,3,1"));
  timeline.add(recordOfSpeaker(40, Side::kLeft, "P,5,9,9"));
  const auto mind = mindAt(timeline, 39, 4);
  ASSERT_TRUE(mind && mind->self && mind->ball && mind->words);
  EXPECT_DOUBLE_EQ(mind->self->what.x, 0.5);
  EXPECT_EQ(mind->self->cycle, 20);
  EXPECT_DOUBLE_EQ(mind->ball->what.y, 0.1);
  ASSERT_EQ(mind->opponents.size(), 1U);
  EXPECT_EQ(mind->opponents[0].what.number, 2);
  EXPECT_EQ(mind->words->what, "~,8,3,1");
}

TEST(Mind, RightTeamsReportsAreTurnedIntoTheField) {
  Timeline timeline;
  timeline.add(recordOfSpeaker(20, Side::kRight, "P,5,0.5,0.25"));
  const auto mind = mindAt(timeline, 20, 4);
  ASSERT_TRUE(mind && mind->self);
  EXPECT_DOUBLE_EQ(mind->self->what.x, -0.5);
  EXPECT_DOUBLE_EQ(mind->self->what.y, -0.25);
}

TEST(Mind, WhatWasSaidLongAgoIsForgotten) {
  Timeline timeline;
  timeline.add(recordOfSpeaker(20, Side::kLeft, "P,5,0.5,0.25"));
  timeline.add(recordOfSpeaker(20 + kMemoryCycles, Side::kLeft));
  EXPECT_FALSE(mindAt(timeline, 20 + kMemoryCycles, 4)->self);
}

TEST(Mind, WordsOfASessionBeforeInTheSameSlotAreNotItsOwn) {
  Timeline timeline;
  timeline.add(recordOfSpeaker(20, Side::kLeft, "P,5,0.5,0.25"));
  CycleRecord next = recordOfSpeaker(21, Side::kLeft);
  next.players[0].session = 10;
  timeline.add(next);
  EXPECT_FALSE(mindAt(timeline, 21, 4)->self);
}

// Shown straight ahead at cycle 21; the player says that the ball lies at (0, 2) and itself at the
// origin: so it believes to look along +y.
TEST(Mind, HeadingIsWorkedOutFromTheBallsReport) {
  Timeline timeline;
  timeline.add(recordOfSpeaker(20, Side::kLeft, "P,5,0,0"));
  timeline.add(recordOfSpeaker(21, Side::kLeft));
  timeline.add(recordOfSpeaker(22, Side::kLeft, "|,5,0.00,2.00,2.00"));
  const auto mind = mindAt(timeline, 22, 4);
  ASSERT_TRUE(mind && mind->headingDeg);
  EXPECT_NEAR(mind->headingDeg->what, 90, 1e-6);
}

TEST(Mind, HeadingTakesTheNecksTurnIntoAccount) {
  Timeline timeline;
  timeline.add(recordOfSpeaker(20, Side::kLeft, "P,5,0,0"));
  CycleRecord look = recordOfSpeaker(21, Side::kLeft);
  look.players[0].jointDeg[rowOfPerceptor("hj1")] = 30;
  timeline.add(look);
  timeline.add(recordOfSpeaker(22, Side::kLeft, "|,5,2.00,0.00,2.00"));
  const auto mind = mindAt(timeline, 22, 4);
  ASSERT_TRUE(mind && mind->headingDeg);
  // The ball is ahead of the torso whatever the head does; a row's own angle turns the neck.
  EXPECT_NEAR(mind->headingDeg->what, 0, 0.05);
}

TEST(Mind, NoHeadingFromReportsThatLieFarApart) {
  Timeline timeline;
  timeline.add(recordOfSpeaker(20, Side::kLeft, "P,5,0,0"));
  timeline.add(recordOfSpeaker(69, Side::kLeft));
  timeline.add(recordOfSpeaker(70, Side::kLeft, "|,5,0.00,2.00,2.00"));
  EXPECT_FALSE(mindAt(timeline, 70, 4)->headingDeg);
}

TEST(Mind, ActionIsTheLastNumberOnALineOfItsOwn) {
  Timeline timeline;
  CycleRecord record = recordOfSpeaker(20, Side::kLeft);
  record.players[0].traced = {"5", "23", "pushed nothing 0", "12 and more", "24", "-1", ""};
  timeline.add(record);
  timeline.add(recordOfSpeaker(30, Side::kLeft));
  const auto mind = mindAt(timeline, 30, 4);
  ASSERT_TRUE(mind && mind->action);
  EXPECT_EQ(mind->action->what, 23);
  EXPECT_EQ(mind->action->cycle, 20);
}

TEST(Mind, KeepsTheLastLinesOldestFirst) {
  Timeline timeline;
  CycleRecord record = recordOfSpeaker(20, Side::kLeft);
  for (int i = 0; i < 12; ++i) record.players[0].traced.push_back("line " + std::to_string(i));
  timeline.add(record);
  const auto mind = mindAt(timeline, 20, 4);
  ASSERT_EQ(mind->trace.size(), kMostTraceLines);
  EXPECT_EQ(mind->trace.front(), "line 4");
  EXPECT_EQ(mind->trace.back(), "line 11");
}

}  // namespace
}  // namespace arena::view
