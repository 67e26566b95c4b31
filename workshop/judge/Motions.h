#pragma once

/// The acceptance table: every motion that the player has, how it is tried, and what is asked of
/// it. judge walks it; a motion tuned further changes nothing here.

#include <functional>
#include <string>
#include <vector>

#include "workshop/judge/Bars.h"
#include "workshop/trial/Job.h"

namespace workshop {

struct Motion {
  std::string name{};   ///< for the command line and file names
  std::string title{};  ///< for people
  /// Tried in turn; all of them in the nominal world. Their script folder is left empty.
  std::vector<TrialJob> variants{};
  int worldsPerSeed = 1;  ///< perturbed worlds for each one asked for
  std::function<std::vector<Bar>(Trials)> nominal{};
  std::function<std::vector<Bar>(Trials)> perturbed{};
};

std::vector<Motion> acceptanceTable();

}  // namespace workshop
