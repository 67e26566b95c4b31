#include "viewer/server/Frame.h"

#include <gtest/gtest.h>

#include <string>

namespace arena::view {
namespace {

/// Bytes as small whole numbers, so that a layout can be written down.
std::vector<int> numbers(const std::string& bytes, std::size_t from, std::size_t count) {
  std::vector<int> out;
  for (std::size_t i = from; i < from + count; ++i) {
    out.push_back(static_cast<unsigned char>(bytes.at(i)));
  }
  return out;
}

CycleRecord recordOfOne() {
  CycleRecord record;
  record.cycle = 0x01020304;
  record.clock = 12.34;
  record.half = 2;
  record.mode = PlayMode::kPlayOn;
  record.score = {3, 1};
  record.ball = {1.0, -0.001, 0.042};
  PlayerRecord player;
  player.slot = 11;
  player.shirt = Shirt{Side::kRight, 6};
  player.position = {-2.0, 0, 0.385};
  player.attitude = {1, 0, 0, -1};
  player.jointDeg[0] = 1.0;
  player.jointDeg[21] = -0.02;
  player.touchedBall = true;
  record.players = {player};
  return record;
}

using Numbers = std::vector<int>;

TEST(Frame, HeadHasTheLayoutThatThePageReads) {
  const std::string bytes = frameOf(recordOfOne(), {});
  ASSERT_EQ(bytes.size(), kFrameHeadBytes + kFramePlayerBytes);
  EXPECT_EQ(numbers(bytes, 0, 4), (Numbers{1, 1, 3, 2}));
  EXPECT_EQ(numbers(bytes, 4, 4), (Numbers{4, 3, 2, 1}));
  EXPECT_EQ(numbers(bytes, 8, 4), (Numbers{0xD2, 0x04, 0, 0}));  // 1234
  EXPECT_EQ(numbers(bytes, 12, 4), (Numbers{3, 1, 0, 0}));
  EXPECT_EQ(numbers(bytes, 16, 8), (Numbers{0xE8, 0x03, 0xFF, 0xFF, 42, 0, 0, 0}));
}

TEST(Frame, PlayerHasTheLayoutThatThePageReads) {
  ShownBySlot shown{};
  shown[11].landmarks[0] = true;
  shown[11].landmarks[7] = true;
  shown[11].ballBearingDeg = 3;
  const std::string bytes = frameOf(recordOfOne(), shown);
  EXPECT_EQ(numbers(bytes, 24, 4), (Numbers{11, 14, 3, 0}));  // 8 + 6; stands, touched
  EXPECT_EQ(numbers(bytes, 28, 2), (Numbers{0x81, 0x01}));    // landmarks 0 and 7, the ball
  EXPECT_EQ(numbers(bytes, 30, 6), (Numbers{0x30, 0xF8, 0, 0, 0x81, 0x01}));  // -2000, 0, 385
  EXPECT_EQ(numbers(bytes, 36, 8), (Numbers{0xFF, 0x7F, 0, 0, 0, 0, 0x01, 0x80}));
  EXPECT_EQ(numbers(bytes, 44, 2), (Numbers{100, 0}));
  EXPECT_EQ(numbers(bytes, 86, 2), (Numbers{0xFE, 0xFF}));
}

TEST(Frame, NumbersThatDoNotFitAreCut) {
  CycleRecord record = recordOfOne();
  record.ball = {500, -500, 0};
  record.score = {300, 0};
  const std::string bytes = frameOf(record, {});
  EXPECT_EQ(numbers(bytes, 16, 4), (Numbers{0xFF, 0x7F, 0x01, 0x80}));
  EXPECT_EQ(numbers(bytes, 12, 1), (Numbers{255}));
}

TEST(Frame, TwelvePlayersAtFiftyASecondStayFarBelowTheStreamsLimit) {
  CycleRecord record = recordOfOne();
  record.players.resize(12, record.players[0]);
  EXPECT_LT(frameOf(record, {}).size() * 50, 60'000U);
}

}  // namespace
}  // namespace arena::view
