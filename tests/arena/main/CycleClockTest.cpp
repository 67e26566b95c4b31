#include "arena/main/CycleClock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace arena {
namespace {

using namespace std::chrono_literals;
using Clock = CycleClock::Clock;

constexpr Clock::time_point kStart{1'000'000'123ns};

TEST(CycleClock, TheFirstCycleBeginsOnePeriodBehindTheStart) {
  CycleClock clock(1, kStart);
  EXPECT_EQ(clock.next(kStart), kStart + 20ms);
  EXPECT_EQ(clock.next(kStart + 20ms), kStart + 40ms);
}

TEST(CycleClock, AMinuteHasThreeThousandCycles) {
  CycleClock clock(1, kStart);
  Clock::time_point now = kStart;
  long cycles = 0;
  while (true) {
    const Clock::time_point begin = clock.next(now);
    if (begin > kStart + 60s) break;
    now = begin + 3ms;  // what the cycle itself takes
    ++cycles;
  }
  EXPECT_EQ(cycles, 3000);
  EXPECT_EQ(clock.slips(), 0);
}

/// Hold-ups of nearly five cycles, at random, none before the last is made good: a minute keeps its
/// cycles.
TEST(CycleClock, HoldUpsDoNotChangeTheCountOfAMinute) {
  std::mt19937 random(3);
  CycleClock clock(1, kStart);
  Clock::time_point now = kStart;
  long cycles = 0;
  while (true) {
    const Clock::time_point begin = clock.next(now);
    if (begin > kStart + 60s) break;
    const bool holdUp = now <= begin && random() % 10 == 0;
    now = std::max(now, begin) + std::chrono::milliseconds(holdUp ? random() % 95 : 1);
    ++cycles;
  }
  EXPECT_EQ(cycles, 3000);
  EXPECT_EQ(clock.slips(), 0);
}

/// A period of 6,666,666.67 ns at three times real time, of 2,857,142.86 ns at seven times: cut to
/// whole nanoseconds a day of cycles would end milliseconds early.
TEST(CycleClock, APeriodThatIsNotWholeDoesNotDrift) {
  constexpr long kDay = 24L * 3600 * 50;
  for (const int speed : {3, 7}) {
    CycleClock clock(speed, kStart);
    Clock::time_point begin = kStart;
    for (long i = 0; i < kDay; ++i) begin = clock.next(begin);
    const auto behind = std::chrono::nanoseconds(begin - kStart).count();
    EXPECT_NEAR(static_cast<double>(behind), 24.0 * 3600 * 1e9 / speed, 100) << speed;
  }
}

TEST(CycleClock, AHoldUpOfFiveCyclesIsMadeGoodAtOnce) {
  CycleClock clock(1, kStart);
  clock.next(kStart);  // 20 ms
  const Clock::time_point now = kStart + 140ms;
  for (int due = 40; due <= 140; due += 20) {
    EXPECT_EQ(clock.next(now), kStart + std::chrono::milliseconds(due));
  }
  EXPECT_EQ(clock.slips(), 0);
}

TEST(CycleClock, ALongerOneIsGivenUpAndCounted) {
  CycleClock clock(1, kStart);
  clock.next(kStart);  // 20 ms
  const Clock::time_point now = kStart + 140ms + 1ns;
  EXPECT_EQ(clock.next(now), now);
  EXPECT_EQ(clock.next(now), now + 20ms);
  EXPECT_EQ(clock.slips(), 1);
}

}  // namespace
}  // namespace arena
