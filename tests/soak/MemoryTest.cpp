#include "soak/Memory.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace soak {
namespace {

TEST(Slope, OfPointsOnALineIsThatOfTheLine) {
  EXPECT_DOUBLE_EQ(slopeOf({{0, 5}, {2, 6}, {10, 10}}), 0.5);
}

// By hand: mean (1, 2), sum of dx dy = (-1)(-1) + 0 + (1)(2 - ... ) over (0,1), (1,1), (2,4):
// (-1)(-1) + (0)(-1) + (1)(2) = 3, sum of dx dx = 2.
TEST(Slope, IsThatOfTheLeastSquares) {
  EXPECT_DOUBLE_EQ(slopeOf({{0, 1}, {1, 1}, {2, 4}}), 1.5);
}

TEST(Slope, IsNoneWhereThereIsNoLine) {
  EXPECT_EQ(slopeOf({}), 0);
  EXPECT_EQ(slopeOf({{3, 7}}), 0);
  EXPECT_EQ(slopeOf({{3, 7}, {3, 9}}), 0);
}

// 1000 cycles in 1000 s; 50 kB at once within the first tenth, then 1 kB per 100 cycles.
TEST(Memory, GrowthIsCountedBehindTheFirstTenth) {
  std::vector<Line> lines{{0, "0.00 s  a"}, {1000, "20.00 s  b"}};
  std::vector<Sample> samples{{0, "left-1", 10, 10, 0}};
  for (int time = 100; time <= 1000; time += 100) {
    samples.push_back({static_cast<double>(time), "left-1", 500, 400, 50 + time / 100.0});
  }
  const auto memory = memoryOf(samples, Progress(lines));
  ASSERT_EQ(memory.size(), 1U);
  EXPECT_EQ(memory[0].process, "left-1");
  EXPECT_EQ(memory[0].levels.size(), 11U);
  EXPECT_DOUBLE_EQ(memory[0].ownAtFirstKb, 51);
  EXPECT_DOUBLE_EQ(memory[0].ownAtLastKb, 60);
  EXPECT_NEAR(memory[0].ownGrowthKb, 100, 1e-9);
  EXPECT_NEAR(memory[0].residentGrowthKb, 0, 1e-9);
}

// Up to cycle 700 a kB in 100 cycles, from then on nothing.
TEST(Memory, LastQuarterTellsWhetherItGoesOn) {
  std::vector<Sample> samples;
  for (int time = 0; time <= 1000; time += 100) {
    samples.push_back({static_cast<double>(time), "left-1", 500, 400, std::min(time, 700) / 100.0});
  }
  const auto memory = memoryOf(samples, Progress({{0, "0.00 s  a"}, {1000, "20.00 s  b"}}));
  ASSERT_EQ(memory.size(), 1U);
  EXPECT_GT(memory[0].ownGrowthKb, 50);
  EXPECT_NEAR(memory[0].lastGrowthKb, 0, 1e-9);
}

TEST(Memory, EachProcessHasALineOfItsOwn) {
  const std::vector<Line> lines{{0, "0.00 s  a"}, {10, "20.00 s  b"}};
  const auto memory = memoryOf(
      {{5, "right-1", 1, 1, 1}, {5, "left-1", 1, 1, 1}, {9, "left-1", 1, 1, 2}}, Progress(lines));
  ASSERT_EQ(memory.size(), 2U);
  EXPECT_EQ(memory[0].process, "left-1");
  EXPECT_EQ(memory[0].levels.size(), 2U);
  EXPECT_EQ(memory[1].process, "right-1");
}

}  // namespace
}  // namespace soak
