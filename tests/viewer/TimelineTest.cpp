#include "viewer/server/Timeline.h"

#include <gtest/gtest.h>

namespace arena::view {
namespace {

CycleRecord recordOf(long cycle) {
  CycleRecord record;
  record.cycle = cycle;
  PlayerRecord player;
  player.session = 7;
  player.slot = 2;
  player.shirt = Shirt{Side::kRight, 3};
  player.position = {0, 0, 0.385};
  record.players = {player};
  return record;
}

TEST(Timeline, EmptyHasNothing) {
  const Timeline timeline;
  EXPECT_EQ(timeline.at(5), nullptr);
  EXPECT_EQ(timeline.first(), 0);
  EXPECT_EQ(timeline.last(), 0);
}

TEST(Timeline, GivesTheLatestMomentUpToACycle) {
  Timeline timeline;
  for (const long cycle : {10, 11, 15}) timeline.add(recordOf(cycle));
  EXPECT_EQ(timeline.at(9)->cycle, 10);
  EXPECT_EQ(timeline.at(10)->cycle, 10);
  EXPECT_EQ(timeline.at(14)->cycle, 11);
  EXPECT_EQ(timeline.at(99)->cycle, 15);
}

TEST(Timeline, ForgetsWhatIsOlderThanItKeepsButNotEvents) {
  Timeline timeline(100);
  for (long cycle = 1; cycle <= 250; ++cycle) {
    CycleRecord record = recordOf(cycle);
    record.players[0].said = "hello";
    if (cycle == 1) record.events = {{0.02, "goal for left, 1:0"}};
    timeline.add(record);
  }
  EXPECT_EQ(timeline.first(), 150);
  EXPECT_EQ(timeline.last(), 250);
  EXPECT_EQ(timeline.said(2).size(), 101U);
  EXPECT_EQ(timeline.said(2).front().cycle, 150);
  ASSERT_EQ(timeline.events().size(), 1U);
  EXPECT_EQ(timeline.events()[0].cycle, 1);
}

TEST(Timeline, LeavesOutWhatIsNotLater) {
  Timeline timeline;
  timeline.add(recordOf(5));
  timeline.add(recordOf(5));
  timeline.add(recordOf(4));
  EXPECT_EQ(timeline.first(), 5);
  EXPECT_EQ(timeline.last(), 5);
}

TEST(Timeline, WhatWasShownIsThatOfTheLastLook) {
  Timeline timeline;
  CycleRecord looking = recordOf(6);  // every third cycle is one for looking
  timeline.add(looking);
  const auto seen = timeline.at(6)->shown[2].landmarks;
  CycleRecord turned = recordOf(7);
  turned.players[0].attitude = {0, 0, 0, 1};  // half a turn
  timeline.add(turned);
  EXPECT_TRUE(seen.any());
  EXPECT_EQ(timeline.at(7)->shown[2].landmarks, seen);
  turned.cycle = 9;
  timeline.add(turned);
  EXPECT_NE(timeline.at(9)->shown[2].landmarks, seen);
}

TEST(Timeline, KnowsWhoseSlotItIs) {
  Timeline timeline;
  timeline.add(recordOf(1));
  EXPECT_EQ(timeline.at(1)->sessionInSlot[2], 7U);
  EXPECT_EQ(timeline.at(1)->sessionInSlot[0], 0U);
}

}  // namespace
}  // namespace arena::view
