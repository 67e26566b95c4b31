#pragma once

/// When the cycles of a match in real time begin. The match server asks before each cycle. It reads
/// no clock itself: the time is handed in, which is how tests play a minute in no time.
///
/// Cycle k begins k * 0.02 s / speed behind the start, each time worked out from the start, so that
/// no error adds up. After a hold-up the cycles that were missed follow at once; one longer than
/// kMostCyclesBehind is given up: the count starts anew from there, and the slip is counted.

#include <chrono>

namespace arena {

inline constexpr long kMostCyclesBehind = 5;

class CycleClock {
 public:
  using Clock = std::chrono::steady_clock;

  /// SPEED: times real time, above 0. The first cycle begins one period behind START.
  CycleClock(double speed, Clock::time_point start);

  /// When the next cycle begins. Each call is a cycle.
  Clock::time_point next(Clock::time_point now);

  /// From one cycle to the next.
  [[nodiscard]] Clock::duration period() const { return behindStart(1); }
  /// Times that a hold-up was given up.
  [[nodiscard]] int slips() const { return slips_; }

 private:
  [[nodiscard]] Clock::duration behindStart(long cycles) const;

  double cycleNs_;  ///< [ns] not whole at every speed
  Clock::time_point start_;
  long cycles_ = 0;  ///< since start_
  int slips_ = 0;
};

}  // namespace arena
