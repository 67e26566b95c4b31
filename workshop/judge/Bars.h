#pragma once

/// A bar is one demand on a motion: what was measured, what is wanted, whether it is met. The
/// acceptance table makes its bars with these functions from the figures of trials. Pure.

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "workshop/trial/Result.h"

namespace workshop {

struct Bar {
  std::string measured{};
  std::string wanted{};
  bool met = false;
};

using Measure = std::function<double(const Figures&)>;
using Condition = std::function<bool(const Figures&)>;
using Trials = std::span<const Figures>;

/// Never fell, and stands at the end.
bool isStanding(const Figures& figures);

/// Those of TRIALS for which CONDITION holds.
std::vector<Figures> only(Trials trials, const Condition& condition);

// The bars below take all the trials that they are given; of none no bar is met. DIGITS behind the
// decimal point.

/// The mean lies between LOW and HIGH.
Bar meanWithin(Trials trials, const Measure& measure, double low, double high, int digits,
               const std::string& unit);
/// The mean is LOW or more.
Bar meanAtLeast(Trials trials, const Measure& measure, double low, int digits,
                const std::string& unit);
/// The mean of the magnitudes is HIGH or less.
Bar magnitudeAtMost(Trials trials, const Measure& measure, double high, int digits,
                    const std::string& unit);
/// One sigma of the sample is HIGH or less. Of fewer than kFewest trials it says nothing, and is
/// met.
Bar spreadAtMost(Trials trials, const Measure& measure, double high, int digits,
                 const std::string& unit);
/// CONDITION holds in a SHARE (0 to 1) of all TRIALS, rounded down to whole trials.
Bar shareOf(Trials trials, const Condition& condition, double share, const std::string& what);

/// Trials below which a spread says nothing.
inline constexpr std::size_t kFewest = 10;

}  // namespace workshop
