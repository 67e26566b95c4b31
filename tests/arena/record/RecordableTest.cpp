#include "arena/record/Recordable.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/arena/record/Records.h"

namespace arena {
namespace {

TEST(Recordable, QuantitiesAreRoundedToTheirSteps) {
  CycleRecord record;
  record.cycle = 1;
  record.ball = {1.23449, -0.0004, 0.0005};
  record.ballVelocity = {0.33333, 0, 0};
  PlayerRecord player;
  player.jointDeg[0] = 12.345;
  player.attitude = {0.70710678, 0, 0, -0.70710678};
  player.beam = Pose{-6.15, 0.5, -0.0};
  record.players.push_back(player);
  const CycleRecord rounded = recordable(record);
  EXPECT_EQ(rounded.ball, (Vec3{1.234, 0, 0.001}));
  EXPECT_FALSE(std::signbit(rounded.ball[1]));
  EXPECT_EQ(rounded.ballVelocity[0], 0.333);
  EXPECT_EQ(rounded.players[0].jointDeg[0], 12.34);
  EXPECT_EQ(rounded.players[0].attitude, (Quaternion{0.7071, 0, 0, -0.7071}));
  EXPECT_EQ(rounded.players[0].beam, (Pose{-6.15, 0.5, 0}));
}

TEST(Recordable, WhatIsNotFiniteOrTooFarIsCut) {
  CycleRecord record;
  record.ball = {std::numeric_limits<double>::quiet_NaN(), 1e9,
                 -std::numeric_limits<double>::infinity()};
  record.clock = -3;
  const CycleRecord cut = recordable(record);
  EXPECT_EQ(cut.ball, (Vec3{0, 1000, 0}));
  EXPECT_EQ(cut.clock, 0);
}

TEST(Recordable, PlayersComeInOrderOfSlotEachOnce) {
  CycleRecord record;
  const auto add = [&](int slot, std::uint32_t session, const std::string& said) {
    PlayerRecord player;
    player.slot = slot;
    player.session = session;
    player.said = said;
    record.players.push_back(player);
  };
  add(7, 1, "a");
  add(3, 2, "b");
  add(3, 4, "same slot");
  add(9, 2, "same session");
  add(12, 5, "no such slot");
  std::string said;
  for (const PlayerRecord& player : recordable(record).players) said += player.said;
  EXPECT_EQ(said, "ba");
}

TEST(Recordable, TextsCanDoNoHarmToATerminal) {
  CycleRecord record;
  record.events.push_back({1.009, "a\x1b[2J\n" + std::string(1, '\0') + "\x7fz \xc3\xa4"});
  const CycleRecord clean = recordable(record);
  EXPECT_EQ(clean.events[0].text, "a?[2J???z \xc3\xa4");
  EXPECT_EQ(clean.events[0].seconds, 1.0);
  EXPECT_FALSE(isRecordable(record.events[0].text));
  EXPECT_TRUE(isRecordable(clean.events[0].text));
}

TEST(Recordable, ARecordableRecordStaysAsItIs) {
  for (const CycleRecord& record : test::wildMatch(/*seed=*/3, 300)) {
    const CycleRecord once = recordable(record);
    EXPECT_EQ(recordable(once), once);
  }
}

}  // namespace
}  // namespace arena
