#include "arena/main/CycleClock.h"

#include <cmath>

#include "arena/world/World.h"

namespace arena {

CycleClock::CycleClock(double speed, Clock::time_point start)
    : cycleNs_(kCycleSeconds * 1e9 / speed), start_(start) {}

CycleClock::Clock::duration CycleClock::behindStart(long cycles) const {
  return std::chrono::nanoseconds(std::llround(static_cast<double>(cycles) * cycleNs_));
}

CycleClock::Clock::time_point CycleClock::next(Clock::time_point now) {
  ++cycles_;
  if (now > start_ + behindStart(cycles_ + kMostCyclesBehind)) {
    start_ = now;
    cycles_ = 0;
    ++slips_;
  }
  return start_ + behindStart(cycles_);
}

}  // namespace arena
