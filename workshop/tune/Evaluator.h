#pragma once

/// From a point of the search space to its cost: writes the scripts, plays the trials in parallel
/// processes, averages. One per tuning run.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "workshop/generate/Shelf.h"
#include "workshop/trial/ScriptFolder.h"
#include "workshop/tune/Objective.h"
#include "workshop/tune/Space.h"

namespace workshop {

struct Evaluation {
  std::uint64_t seed = 1;  ///< of the run: chooses the worlds
  int worlds = 6;          ///< perturbed ones, besides the nominal; < kTuningWorldsPerRun
  int workers = 0;         ///< processes; 0: one per core
};

class Evaluator {
 public:
  /// Throws ParameterError when the description can't be tuned.
  Evaluator(Descriptions descriptions, std::string name, const Evaluation& settings);

  [[nodiscard]] std::vector<double> start() const;
  [[nodiscard]] double cost(const std::vector<double>& point);
  [[nodiscard]] Json description(const std::vector<double>& point) const;

 private:
  [[nodiscard]] std::vector<double> costsOf(int firstWorld, int lastWorld) const;

  Descriptions descriptions_;
  std::string name_;
  Evaluation settings_;
  Space space_;
  Objective objective_;
  ScriptFolder folder_;
};

}  // namespace workshop
