#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <limits>

#include "math/Geometry.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Sign, ThereIsNoZeroResult) {
  EXPECT_EQ(sign(0.0), -1);
  EXPECT_EQ(sign(-0.0), -1);
  EXPECT_EQ(sign(3.5), 1);
  EXPECT_EQ(sign(1e-300), 1);
  EXPECT_EQ(sign(-2.0), -1);
}

TEST(MaxAndMin, TakeTheGreaterAndTheSmaller) {
  EXPECT_EQ(max(1.5, -2.0), 1.5);
  EXPECT_EQ(max(-2.0, 1.5), 1.5);
  EXPECT_EQ(min(1.5, -2.0), -2.0);
  EXPECT_EQ(min(-2.0, 1.5), -2.0);
}

TEST(MaxAndMin, WithoutAnOrderTheSecondArgumentWins) {
  EXPECT_EQ(max(kNaN, 1.0), 1.0);
  EXPECT_TRUE(std::isnan(max(1.0, kNaN)));
  EXPECT_EQ(min(kNaN, 1.0), 1.0);
  EXPECT_TRUE(std::isnan(min(1.0, kNaN)));
  EXPECT_TRUE(std::signbit(max(0.0, -0.0)));
  EXPECT_TRUE(std::signbit(min(0.0, -0.0)));
}

TEST(Round, CutsTowardsZeroAfterAddingAHalf) {
  EXPECT_EQ(Round(2.5), 3);
  EXPECT_EQ(Round(-2.5), -2);
  EXPECT_EQ(Round(-0.7), 0);
  EXPECT_EQ(Round(-1.2), 0);
  EXPECT_EQ(Round(-1.6), -1);
  EXPECT_EQ(Round(0.49), 0);
  EXPECT_EQ(Round(0.5), 1);
  EXPECT_EQ(Round(7.0), 7);
}

/// The C library's numbers from one seed, as the player's functions should see them.
class RandomNumbers : public testing::Test {
 protected:
  static constexpr unsigned kSeed = 20240607;
  static constexpr double kLargest = 2147483647.0;

  void SetUp() override { std::srand(kSeed); }
  static double nextOfTheSeed(int index) {
    std::srand(kSeed);
    double value = 0;
    for (int i = 0; i <= index; ++i) {
      value = std::rand();
    }
    return value;
  }
};

TEST_F(RandomNumbers, UniformValueIsTheLibrarysOverItsLargest) {
  const double first = drand();
  const double second = drand();
  EXPECT_EQ(first, nextOfTheSeed(0) / kLargest);
  EXPECT_EQ(second, nextOfTheSeed(1) / kLargest);
}

TEST_F(RandomNumbers, IntegerBelowABoundIsCutTowardsZero) {
  const int first = Random(1000);
  const int second = Random(-1000);
  EXPECT_EQ(first, static_cast<int>(std::floor(1000 * (nextOfTheSeed(0) / kLargest))));
  EXPECT_EQ(second, static_cast<int>(std::ceil(-1000 * (nextOfTheSeed(1) / kLargest))));
}

TEST_F(RandomNumbers, IntegerInAnIntervalStartsAtTheFirstBound) {
  const int upwards = Random(5, 105);
  const int fromTheGreater = Random(105, 5);
  const auto offset = [](int index) {
    return static_cast<int>(std::floor(100 * (nextOfTheSeed(index) / kLargest)));
  };
  EXPECT_EQ(upwards, 5 + offset(0));
  // The span is always added, so from the greater bound it leads beyond both.
  EXPECT_EQ(fromTheGreater, 105 + offset(1));
}

TEST_F(RandomNumbers, EmptyIntervalGivesItsBound) {
  EXPECT_EQ(Random(0), 0);
  EXPECT_EQ(Random(7, 7), 7);
}

TEST(Randomize, SeedsWithTheCalendarTime) {
  // The second may change between the two readings; one of the two seeds must then be it.
  const std::time_t before = std::time(nullptr);
  Randomize();
  const int drawn = std::rand();
  const std::time_t after = std::time(nullptr);
  bool found = false;
  for (std::time_t seed = before; seed <= after; ++seed) {
    std::srand(static_cast<unsigned>(seed));
    found = found || std::rand() == drawn;
  }
  EXPECT_TRUE(found);
}

}  // namespace
