#pragma once

/// Many trials at once: each in a process of its own, so that every one has a fresh player, and a
/// trial that dies harms no other. Judge and tune call this.

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

#include "workshop/trial/Job.h"
#include "workshop/trial/Result.h"

namespace workshop {

/// Called in the caller's process after each trial: how many are done, and of how many.
using Progress = std::function<void(std::size_t done, std::size_t all)>;

/// Results in the order of JOBS; what went wrong in a trial stands in its error. WORKERS 0: one per
/// core. Forks, so the caller should have one thread. Throws std::system_error when no process can
/// be had.
std::vector<TrialResult> runTrials(std::span<const TrialJob> jobs, int workers = 0,
                                   const Progress& progress = {});

}  // namespace workshop
