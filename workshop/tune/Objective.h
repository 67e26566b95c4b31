#pragma once

/// What tuning wants of a motion: which trials show it, and how bad their outcome is. A description
/// names its objective under "objective":
///
///     {"motion": "walk", "loops": 7, "aim": 0.6}
///     {"motion": "script", "action": "turnL15", "turnDeg": 15, "forward": 0, "left": 0}
///
/// Costs are averages over worlds; a fall costs more than any way of standing.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "workshop/generate/Numbers.h"
#include "workshop/trial/Job.h"
#include "workshop/trial/Result.h"

namespace workshop {

/// What a fall adds to a trial's cost.
inline constexpr double kFallCost = 2.0;

struct Objective {
  /// The trials in one world; empty seed: the nominal one. INDEX counts the worlds, so that they
  /// may differ in more than the seed.
  std::function<std::vector<TrialJob>(const std::filesystem::path& scripts,
                                      std::optional<std::uint64_t> seed, int index)>
      jobs;
  /// How bad one of those trials came out.
  std::function<double(const TrialResult&)> cost;
};

/// Throws ParameterError for an objective that nobody knows. WHERE names the file.
Objective objectiveOf(const Json& description, const std::string& where);

}  // namespace workshop
