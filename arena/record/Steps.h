#pragma once

/// The steps that a record's quantities are rounded to, and how far they may go. A quantity is kept
/// as a whole number of steps; the double that stands for N steps is always N / perUnit, so a
/// rounded value rounds to itself.

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace arena {

struct Step {
  double perUnit;     ///< steps in one unit
  std::int64_t most;  ///< steps either way; what is beyond is cut
};

inline constexpr Step kLengthStep{1'000, 1'000'000};  ///< 1 mm, to 1 km
inline constexpr Step kSpeedStep{1'000, 1'000'000};   ///< 1 mm/s, to 1 km/s
inline constexpr Step kAngleStep{50, 18'000};         ///< 0.02 deg, to 360 deg
inline constexpr Step kTurnStep{10'000, 10'000};      ///< a quaternion's parts, to 1
inline constexpr Step kClockStep{50, 50'000'000};     ///< a cycle of 0.02 s, to eleven days

/// VALUE in whole steps; what is not finite counts as zero.
inline std::int64_t stepsOf(double value, const Step& step) {
  if (!std::isfinite(value)) return 0;
  const double steps = std::round(value * step.perUnit);
  const auto most = static_cast<double>(step.most);
  return static_cast<std::int64_t>(std::clamp(steps, -most, most));
}

inline double valueOf(std::int64_t steps, const Step& step) {
  return static_cast<double>(steps) / step.perUnit;
}

inline double rounded(double value, const Step& step) {
  return valueOf(stepsOf(value, step), step);
}

}  // namespace arena
