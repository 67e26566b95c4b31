#pragma once

/// Whether a process keeps taking memory: the straight line through its samples by least squares.
/// soak_report asks once per process of the long match.

#include <string>
#include <vector>

#include "soak/Samples.h"

namespace soak {

/// What a process takes at first isn't growth: the line is laid through what comes behind this part
/// of the match.
inline constexpr double kSettlingPart = 0.1;
/// A second line is laid through what comes behind this part: who loses memory in every cycle does
/// so to the end, who touches more of its heap now and then does not.
inline constexpr double kLastPart = 0.75;

/// One sample on the match's own time.
struct Level {
  double cycle = 0;
  double residentKb = 0;
  double sharedOutKb = 0;
  double ownKb = 0;
};

struct ProcessMemory {
  std::string process{};
  std::vector<Level> levels{};  ///< in order of time
  // Of the levels behind the settling part:
  double ownAtFirstKb = 0;
  double ownAtLastKb = 0;
  double ownGrowthKb = 0;       ///< per 10,000 cycles
  double residentGrowthKb = 0;  ///< per 10,000 cycles
  double lastGrowthKb = 0;      ///< of its own, per 10,000 cycles, in the last part alone
};

/// Rise of the straight line through POINTS (x, y) that is nearest by least squares; 0 when there
/// are no two different x.
double slopeOf(const std::vector<std::pair<double, double>>& points);

/// One per process that has samples, in order of name.
std::vector<ProcessMemory> memoryOf(const std::vector<Sample>& samples, const Progress& progress);

}  // namespace soak
