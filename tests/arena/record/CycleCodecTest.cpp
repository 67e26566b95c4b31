#include "arena/record/CycleCodec.h"

#include <gtest/gtest.h>

#include "arena/record/Recordable.h"
#include "tests/arena/record/Records.h"

namespace arena {
namespace {

class WildMatch : public testing::TestWithParam<int> {};

TEST_P(WildMatch, ComesBackAsItWas) {
  CycleEncoder encoder;
  CycleDecoder decoder;
  ByteWriter bytes;
  for (const CycleRecord& wild : test::wildMatch(static_cast<std::uint64_t>(GetParam()), 200)) {
    const CycleRecord record = recordable(wild);
    bytes.clear();
    encoder.encode(record, bytes);
    ASSERT_LE(bytes.bytes().size(), kMostPayloadBytes);
    const auto back = decoder.decode(bytes.bytes());
    ASSERT_TRUE(back) << "cycle " << record.cycle;
    ASSERT_EQ(*back, record) << "cycle " << record.cycle;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, WildMatch, testing::Range(1, 11));

TEST(CycleCodec, TheLargestRecordFits) {
  const std::string longest(kMostRecordedTextBytes, 'x');
  CycleRecord record;
  record.cycle = 1;
  record.teamNames = {longest, longest};
  for (std::uint32_t i = 0; i < 12; ++i) {
    PlayerRecord player;
    player.session = 0xffffff00U + i;
    player.slot = static_cast<int>(i);
    player.shirt = Shirt{Side::kRight, 6};
    player.position = {1e9, 1e9, 1e9};
    player.attitude = {-1, -1, -1, -1};
    player.jointDeg.fill(-360);
    player.beam = Pose{1e9, 1e9, 360};
    player.ignoredBeams = player.malformed = kMostCounted;
    player.said = longest;
    player.traced.assign(kMostRecordedTraces, longest);
    record.players.push_back(player);
  }
  record.left.assign(kMostRecordedLeavings, {0xffffffffU, longest});
  record.events.assign(kMostRecordedEvents, {1e6, longest});
  record.clockSlips = kMostCounted;
  record = recordable(record);
  CycleEncoder encoder;
  ByteWriter bytes;
  encoder.encode(record, bytes);
  EXPECT_LE(bytes.bytes().size(), kMostPayloadBytes);
  CycleDecoder decoder;
  EXPECT_EQ(decoder.decode(bytes.bytes()), record);
}

TEST(CycleCodec, WhatGoesOnAsItWentTakesAByteEach) {
  CycleEncoder encoder;
  ByteWriter bytes;
  for (int cycle = 1; cycle <= 3; ++cycle) {
    CycleRecord record;
    record.cycle = cycle;
    PlayerRecord player;
    player.position = {3.5 * cycle, 0, 0.38};
    player.jointDeg.fill(7.5 * cycle);
    record.players.push_back(player);
    bytes.clear();
    encoder.encode(record, bytes);
  }
  // Cycle, flags, mode, clock; six for the ball; slots; a player's flags and its 29 quantities.
  EXPECT_EQ(bytes.bytes().size(), 4U + 6 + 1 + 1 + 29);
}

TEST(CycleCodec, AnyBytesAreTakenOrLeftButNeverMore) {
  // Good payloads with bytes changed, cut and added: what comes out is recordable or nothing.
  test::Random random(11);
  int taken = 0;
  for (int round = 0; round < 3000; ++round) {
    CycleEncoder encoder;
    CycleDecoder decoder;
    for (const CycleRecord& record : test::smallMatch(3)) {
      ByteWriter bytes;
      encoder.encode(record, bytes);
      std::string payload = bytes.bytes();
      for (auto changes = random() % 3; changes > 0; --changes) {
        payload[random() % payload.size()] = static_cast<char>(random());
      }
      if (random() % 8 == 0) payload.resize(random() % payload.size());
      if (random() % 8 == 0) payload.push_back(static_cast<char>(random()));
      const auto back = decoder.decode(payload);
      if (!back) break;
      ++taken;
      ASSERT_EQ(recordable(*back), *back);
    }
  }
  EXPECT_GT(taken, 1000);
}

TEST(CycleCodec, ACycleThatDoesNotFollowIsRefused) {
  CycleEncoder encoder;
  ByteWriter first;
  CycleRecord record;
  record.cycle = 1;
  record.players.emplace_back();
  encoder.encode(record, first);
  ByteWriter second;
  record.cycle = 2;
  encoder.encode(record, second);
  // The second says no session: only who has read the first knows it.
  CycleDecoder fresh;
  EXPECT_FALSE(fresh.decode(second.bytes()));
  std::string standing = first.bytes();
  standing[0] = 0;  // no cycle further
  CycleDecoder another;
  EXPECT_FALSE(another.decode(standing));
}

}  // namespace
}  // namespace arena
