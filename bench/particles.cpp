// What does a step of the particle filter cost beside the bare cost of its chance? A measured place
// goes through the gate of 400 particles, which draws two numbers for each; beside it as many calls
// of the same distribution on a generator of the same kind.
//
//   particles [steps, default 4000] [--json FILE]

#include <gsl/gsl_randist.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <string>

#include "behaviour/Agent.h"
#include "bench/Report.h"
#include "bench/Ways.h"
#include "perception/WorldModel.h"

namespace {

constexpr int kShirt = 5;
constexpr int kDraws = 800;
constexpr double kSigma = 0.02;  ///< [m] of the filter's draws

struct FreeGenerator {
  void operator()(gsl_rng* generator) const { gsl_rng_free(generator); }
};

volatile double sink = 0;  // keeps the draws from being left out

int run(int argc, char** argv) {
  const std::string file = bench::takeJsonFile(argc, argv);
  const int steps = argc > 1 ? std::max(1, std::atoi(argv[1])) : 4000;
  Agent* const player = Agent::getSingleton();
  player->uNum = kShirt;
  const std::unique_ptr<gsl_rng, FreeGenerator> generator(gsl_rng_alloc(gsl_rng_mt19937));
  int i = 0;
  const auto step = [player, &i] {
    // A player on its way, with the error of its sights: the gate lets most particles through.
    const VecPosition measured(3 * std::sin(0.002 * i) + 0.01 * (i % 7),
                               2 * std::cos(0.003 * i) - 0.01 * (i % 5), 0.0);
    player->calculateMyPosWithParticleFiltering(measured);
    ++i;
  };
  const auto draws = [&generator] {
    double sum = 0;
    for (int draw = 0; draw < kDraws; ++draw) sum += gsl_ran_gaussian(generator.get(), kSigma);
    sink = sum;
  };
  bench::Report report("particles");
  bench::timeByTurns(report, {{"step", step}, {"800 draws", draws}}, steps, "us",
                     [](double seconds) { return seconds * 1e6; });
  report.addRatio("step", "800 draws", bench::atMost(1.5));
  Agent::freeSingleton();
  WorldModel::freeSingleton();

  std::cout << report.asTable();
  if (!file.empty()) report.save(file);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "particles: " << error.what() << '\n';
    return 1;
  }
}
