// What does a step of the particle filter cost beside the bare cost of its chance? A measured place
// goes through the gate of 400 particles, which draws two numbers for each; beside it as many calls
// of the same distribution on a generator of the same kind.
//
//   particles [steps, default 4000] [--json FILE]

#include <gsl/gsl_randist.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "behaviour/Agent.h"
#include "bench/Report.h"
#include "perception/WorldModel.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kShirt = 5;
constexpr int kDraws = 800;
constexpr double kSigma = 0.02;  ///< [m] of the filter's draws

struct FreeGenerator {
  void operator()(gsl_rng* generator) const { gsl_rng_free(generator); }
};

double microseconds(Clock::time_point start) {
  return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

volatile double sink = 0;  // keeps the draws from being left out

int run(int argc, char** argv) {
  const std::string file = bench::takeJsonFile(argc, argv);
  const int steps = argc > 1 ? std::max(1, std::atoi(argv[1])) : 4000;
  Agent* const player = Agent::getSingleton();
  player->uNum = kShirt;
  const std::unique_ptr<gsl_rng, FreeGenerator> generator(gsl_rng_alloc(gsl_rng_mt19937));
  std::vector<double> ours;
  std::vector<double> bare;
  for (int i = 0; i < steps; ++i) {
    // A player on its way, with the error of its sights: the gate lets most particles through.
    const VecPosition measured(3 * std::sin(0.002 * i) + 0.01 * (i % 7),
                               2 * std::cos(0.003 * i) - 0.01 * (i % 5), 0.0);
    Clock::time_point start = Clock::now();
    player->calculateMyPosWithParticleFiltering(measured);
    ours.push_back(microseconds(start));

    start = Clock::now();
    double sum = 0;
    for (int draw = 0; draw < kDraws; ++draw) sum += gsl_ran_gaussian(generator.get(), kSigma);
    sink = sum;
    bare.push_back(microseconds(start));
  }
  Agent::freeSingleton();
  WorldModel::freeSingleton();

  bench::Report report("particles");
  report.add(bench::figureOf("step", "us", std::move(ours)));
  report.add(bench::figureOf("800 draws", "us", std::move(bare)));
  report.addRatio("step", "800 draws", bench::atMost(1.5));
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
