#include "arena/senses/Noise.h"

#include <gtest/gtest.h>

#include <cmath>

namespace arena {
namespace {

TEST(Noise, TheSameKeysGiveTheSameNumbers) {
  NoiseStream a(7, 3, 12);
  NoiseStream b(7, 3, 12);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(a.gaussian(), b.gaussian());
}

TEST(Noise, EachKeyMatters) {
  const double base = NoiseStream(7, 3, 12).gaussian();
  EXPECT_NE(NoiseStream(8, 3, 12).gaussian(), base);
  EXPECT_NE(NoiseStream(7, 4, 12).gaussian(), base);
  EXPECT_NE(NoiseStream(7, 3, 13).gaussian(), base);
  EXPECT_NE(NoiseStream(3, 7, 12).gaussian(), base);
}

TEST(Noise, NumbersAreStandardNormal) {
  constexpr int kDraws = 200'000;
  NoiseStream stream(1, 2, 3);
  double sum = 0;
  double squares = 0;
  int withinOne = 0;
  for (int i = 0; i < kDraws; ++i) {
    const double value = stream.gaussian();
    ASSERT_TRUE(std::isfinite(value));
    sum += value;
    squares += value * value;
    withinOne += std::abs(value) < 1 ? 1 : 0;
  }
  // Five standard errors: 5 / sqrt(n), and sqrt(2) of that for the variance.
  EXPECT_NEAR(sum / kDraws, 0, 0.0112);
  EXPECT_NEAR(squares / kDraws, 1, 0.0158);
  EXPECT_NEAR(withinOne / static_cast<double>(kDraws), 0.6827, 0.0052);
}

TEST(Noise, NeighbouringCyclesAreUncorrelated) {
  constexpr int kCycles = 20'000;
  double product = 0;
  for (int cycle = 0; cycle < kCycles; ++cycle) {
    const auto key = static_cast<std::uint64_t>(cycle);
    product += NoiseStream(1, 1, key).gaussian() * NoiseStream(1, 1, key + 1).gaussian();
  }
  EXPECT_NEAR(product / kCycles, 0, 0.036);
}

}  // namespace
}  // namespace arena
