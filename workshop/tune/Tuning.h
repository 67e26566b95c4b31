#pragma once

/// One tuning run from the command line's point of view: settings in, a better parameter file out.

#include <filesystem>
#include <ostream>
#include <string>

#include "workshop/tune/Evaluator.h"
#include "workshop/tune/Search.h"

namespace workshop {

struct TuningSettings {
  std::filesystem::path parameters = "workshop/parameters";
  /// Holds checkpoint and best parameters so far, in files named after the motion and the seed.
  std::filesystem::path work = "build/tune";
  std::string name{};
  Evaluation evaluation{};
  SearchSettings search{};
  int generations = 100;  ///< in all, those before a resumption included
  bool resume = false;
  bool write = false;  ///< put the result back among the parameters
};

/// Runs to the end, showing its progress on STATUS; every generation leaves a checkpoint. What
/// comes out records seed, worlds, evaluations and cost under "tuned". A run goes on only with the
/// sigma and the worlds that it was begun with. Throws ParameterError and std::runtime_error.
void tune(const TuningSettings& settings, std::ostream& status);

}  // namespace workshop
