// How many times faster than real time does a motion trial run on one core? The walking chain and a
// get-up from the shipped scripts, in the nominal world and in a perturbed one, with the sight and
// without. Beside them, as a yardstick, the bare world with one robot standing, in the same run.
//
//   trial [folder of scripts, default scripts]

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

#include "arena/world/World.h"
#include "workshop/trial/Trials.h"

namespace {

constexpr int kRuns = 5;

struct Case {
  const char* name;
  workshop::TrialJob job;
};

double bareWorld() {
  constexpr int kCycles = 1500;
  arena::World world;
  world.addRobot(0, {0, 0, 0});
  const std::clock_t start = std::clock();
  for (int i = 0; i < kCycles; ++i) world.advance();
  const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  return kCycles * arena::kCycleSeconds / seconds;
}

workshop::TrialJob jobOf(workshop::Step step, workshop::Start start) {
  workshop::TrialJob job;
  job.start = start;
  job.steps = {std::move(step)};
  job.endAtFall = false;
  return job;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string scripts = argc > 1 ? argv[1] : "scripts";
  std::array<Case, 4> cases{
      Case{"walk 30 s", jobOf(workshop::walkFor(1500), workshop::Start::kReady)},
      Case{"walk 30 s, seeing", jobOf(workshop::walkFor(1500), workshop::Start::kReady)},
      Case{"walk 30 s, perturbed", jobOf(workshop::walkFor(1500), workshop::Start::kReady)},
      Case{"get up from the back", jobOf(workshop::getUp(), workshop::Start::kOnBack)}};
  cases[1].job.sight = true;
  cases[2].job.seed = 1;
  std::printf("compiler %s; times real time by processor time, of %d runs\n%-24s%8s%8s%8s\n",
              __VERSION__, kRuns, "", "min", "p50", "max");
  std::vector<double> bare;
  bare.reserve(kRuns);
  for (int i = 0; i < kRuns; ++i) bare.push_back(bareWorld());
  std::sort(bare.begin(), bare.end());
  std::printf("%-24s%8.0f%8.0f%8.0f\n", "bare world, standing", bare.front(), bare[kRuns / 2],
              bare.back());
  for (Case& what : cases) {
    what.job.scripts = scripts;
    const std::vector<workshop::TrialJob> jobs(kRuns, what.job);
    std::vector<double> factors;
    for (const workshop::TrialResult& result : workshop::runTrials(jobs, 1)) {
      if (!result.error.empty()) {
        std::fprintf(stderr, "trial: %s\n", result.error.c_str());
        return 1;
      }
      factors.push_back(result.figures.simulatedSeconds / result.figures.cpuSeconds);
    }
    std::sort(factors.begin(), factors.end());
    std::printf("%-24s%8.0f%8.0f%8.0f\n", what.name, factors.front(), factors[kRuns / 2],
                factors.back());
  }
  return 0;
}
