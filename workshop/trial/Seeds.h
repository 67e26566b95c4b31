#pragma once

/// Who plays in which perturbed worlds. What was tuned in a world isn't judged in it: judge refuses
/// the seeds of tuning, tune takes no others.

#include <cstdint>

namespace workshop {

/// Judging uses the seeds below, tuning those from here on.
inline constexpr std::uint64_t kFirstTuningSeed = 1'000'000;
/// Tuning runs of different numbers share no world as long as none asks for more.
inline constexpr int kTuningWorldsPerRun = 1000;

/// The seed of the WORLD-th world (0 to kTuningWorldsPerRun - 1) of tuning run RUN.
constexpr std::uint64_t tuningSeed(std::uint64_t run, int world) {
  return kFirstTuningSeed + run * static_cast<std::uint64_t>(kTuningWorldsPerRun) +
         static_cast<std::uint64_t>(world);
}

}  // namespace workshop
