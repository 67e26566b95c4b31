// How many times faster than real time does a motion trial run on one core? The walking chain and a
// get-up from the shipped scripts, in the nominal world and in a perturbed one, with the sight and
// without. Beside them, as a yardstick, the bare world with one robot standing, in the same run.
//
//   trial [folder of scripts, default scripts] [runs, default 5] [--json FILE]

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "arena/world/World.h"
#include "bench/Report.h"
#include "workshop/trial/Trials.h"

namespace {

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

/// Factors on real time; the highest says nothing.
bench::Figure speedOf(const std::string& name, std::vector<double> factors) {
  bench::Figure figure = bench::figureOf(name, "times real time", std::move(factors));
  figure.p99.reset();
  figure.max.reset();
  return figure;
}

int run(int argc, char** argv) {
  const std::string file = bench::takeJsonFile(argc, argv);
  const std::string scripts = argc > 1 ? argv[1] : "scripts";
  const int runs = argc > 2 ? std::max(1, std::atoi(argv[2])) : 5;
  std::array<Case, 4> cases{
      Case{"walk 30 s", jobOf(workshop::walkFor(1500), workshop::Start::kReady)},
      Case{"walk 30 s, seeing", jobOf(workshop::walkFor(1500), workshop::Start::kReady)},
      Case{"walk 30 s, perturbed", jobOf(workshop::walkFor(1500), workshop::Start::kReady)},
      Case{"get up from the back", jobOf(workshop::getUp(), workshop::Start::kOnBack)}};
  cases[1].job.sight = true;
  cases[2].job.seed = 1;
  constexpr const char* kBare = "bare world, standing";
  bench::Report report("trial");
  std::vector<double> bare;
  bare.reserve(static_cast<std::size_t>(runs));
  for (int i = 0; i < runs; ++i) bare.push_back(bareWorld());
  report.add(speedOf(kBare, std::move(bare)));
  for (Case& what : cases) {
    what.job.scripts = scripts;
    const std::vector<workshop::TrialJob> jobs(static_cast<std::size_t>(runs), what.job);
    std::vector<double> factors;
    for (const workshop::TrialResult& result : workshop::runTrials(jobs, 1)) {
      if (!result.error.empty()) throw std::runtime_error(result.error);
      factors.push_back(result.figures.simulatedSeconds / result.figures.cpuSeconds);
    }
    report.add(speedOf(what.name, std::move(factors)));
  }
  for (const Case& what : cases) report.addRatio(what.name, kBare);
  std::cout << "by processor time, of " << runs << " runs each\n" << report.asTable();
  if (!file.empty()) report.save(file);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "trial: " << error.what() << '\n';
    return 1;
  }
}
