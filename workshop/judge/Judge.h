#pragma once

/// Runs the acceptance table over a folder of scripts, on all cores. `pitchmotion judge` and the
/// test of the shipped scripts call it.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "workshop/judge/Motions.h"
#include "workshop/trial/Trials.h"

namespace workshop {

struct JudgeSettings {
  std::filesystem::path scripts = "scripts";
  /// Names of motions, or what they begin with; empty: all.
  std::vector<std::string> only{};
  int worlds = 20;  ///< perturbed ones per motion
  std::uint64_t firstSeed = 1;
  int workers = 0;  ///< 0: one per core
  bool keepSeries = false;
};

/// What became of one motion.
struct Verdict {
  Motion motion{};
  std::string error{};               ///< why it couldn't be tried; empty when it could
  std::vector<Figures> nominal{};    ///< by variant
  std::vector<Figures> perturbed{};  ///< by seed, from the first on
  std::vector<Bar> nominalBars{};
  std::vector<Bar> perturbedBars{};
  std::vector<Sample> series{};  ///< of the first variant in the nominal world, if kept

  [[nodiscard]] bool met() const;
};

/// The motions of TABLE that the settings ask for. Throws std::invalid_argument for a name that is
/// none, and for seeds that belong to tuning.
std::vector<Verdict> judge(const std::vector<Motion>& table, const JudgeSettings& settings,
                           const Progress& progress = {});

/// True if every motion is up to its bars.
bool allMet(const std::vector<Verdict>& verdicts);

}  // namespace workshop
