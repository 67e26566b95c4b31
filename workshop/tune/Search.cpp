#include "workshop/tune/Search.h"

#include <algorithm>
#include <boost/archive/text_iarchive.hpp>
#include <boost/archive/text_oarchive.hpp>
#include <boost/serialization/vector.hpp>
#include <cmath>
#include <fstream>
#include <limits>
#include <pagmo/algorithm.hpp>
#include <pagmo/algorithms/cmaes.hpp>
#include <pagmo/population.hpp>
#include <pagmo/problem.hpp>
#include <random>
#include <stdexcept>
#include <utility>

namespace workshop {
namespace {

/// The cost as the library wants a problem. Bounds are wide: the strategy may step over the edges.
/// Copied at the library's will; what it points to lives in the Search.
struct Problem {
  const CostFunction* cost = nullptr;
  SearchState* state = nullptr;
  std::size_t dimensions = 1;

  [[nodiscard]] pagmo::vector_double fitness(const pagmo::vector_double& point) const {
    const double found = (*cost)(point);
    ++state->evaluations;
    if (found < state->bestCost) {
      state->bestCost = found;
      state->bestPoint = point;
    }
    return {found};
  }
  [[nodiscard]] std::pair<pagmo::vector_double, pagmo::vector_double> get_bounds() const {
    return {pagmo::vector_double(dimensions, -1.0), pagmo::vector_double(dimensions, 2.0)};
  }
};

int populationOf(const SearchSettings& settings, std::size_t dimensions) {
  if (settings.population > 0) return std::max(settings.population, 5);
  return 4 + static_cast<int>(3 * std::log(static_cast<double>(dimensions)));
}

}  // namespace

struct Search::Strategy {
  CostFunction cost;
  SearchState state{0, 0, std::numeric_limits<double>::infinity(), {}};
  pagmo::population population;
  pagmo::algorithm algorithm{};

  Strategy(CostFunction costFunction, std::size_t dimensions)
      : cost(std::move(costFunction)),
        population(pagmo::problem{Problem{&cost, &state, dimensions}}) {}
};

Search::Search(CostFunction cost, const std::vector<double>& start, const SearchSettings& settings)
    : strategy_(std::make_unique<Strategy>(std::move(cost), start.size())) {
  const auto seed = static_cast<unsigned>(settings.seed);
  // One generation per call, and what has been learnt is kept from call to call.
  strategy_->algorithm =
      pagmo::algorithm{pagmo::cmaes{1, -1, -1, -1, -1, settings.sigma, 0, 0, true, false, seed}};
  std::mt19937_64 random(settings.seed);
  std::normal_distribution<double> step(0, settings.sigma);
  strategy_->population.push_back(start);
  for (int i = 1; i < populationOf(settings, start.size()); ++i) {
    std::vector<double> point = start;
    for (double& number : point) number = std::abs(std::remainder(number + step(random), 2.0));
    strategy_->population.push_back(point);
  }
}

Search::Search(CostFunction cost, std::size_t dimensions, const std::filesystem::path& checkpoint)
    : strategy_(std::make_unique<Strategy>(std::move(cost), dimensions)) {
  std::ifstream in(checkpoint);
  if (!in) throw std::runtime_error(checkpoint.string() + ": can't be read");
  try {
    boost::archive::text_iarchive archive(in);
    std::vector<std::vector<double>> points;
    std::vector<std::vector<double>> costs;
    SearchState& state = strategy_->state;
    archive >> state.generation >> state.evaluations >> state.bestCost >> state.bestPoint;
    archive >> points >> costs >> strategy_->algorithm;
    if (points.empty() || points.front().size() != dimensions) {
      throw std::runtime_error("belongs to other parameters");
    }
    for (std::size_t i = 0; i < points.size(); ++i) {
      strategy_->population.push_back(points[i], costs.at(i));
    }
  } catch (const std::exception& problem) {
    throw std::runtime_error(checkpoint.string() + ": " + problem.what());
  }
}

Search::~Search() = default;

void Search::advance() {
  strategy_->population = strategy_->algorithm.evolve(strategy_->population);
  ++strategy_->state.generation;
}

const SearchState& Search::state() const {
  return strategy_->state;
}

void Search::save(const std::filesystem::path& file) const {
  const std::filesystem::path fresh = file.string() + ".new";
  {
    std::ofstream out(fresh);
    boost::archive::text_oarchive archive(out);
    const SearchState& state = strategy_->state;
    const std::vector<std::vector<double>> points = strategy_->population.get_x();
    const std::vector<std::vector<double>> costs = strategy_->population.get_f();
    archive << state.generation << state.evaluations << state.bestCost << state.bestPoint;
    archive << points << costs << std::as_const(strategy_->algorithm);
    if (!out) throw std::runtime_error(fresh.string() + ": can't be written");
  }
  std::filesystem::rename(fresh, file);
}

}  // namespace workshop
