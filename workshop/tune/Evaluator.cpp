#include "workshop/tune/Evaluator.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "workshop/trial/Seeds.h"
#include "workshop/trial/Trials.h"

namespace workshop {
namespace {

/// Played first; a motion that falls in one of them isn't tried in the others.
constexpr int kFirstWorlds = 2;

}  // namespace

Evaluator::Evaluator(Descriptions descriptions, std::string name, const Evaluation& settings)
    : descriptions_(std::move(descriptions)), name_(std::move(name)), settings_(settings) {
  for (const auto& [file, text] : allScripts(descriptions_)) folder_.write(file, text);
  const Json& description = descriptions_.at(name_);
  space_ = spaceOf(description, name_);
  objective_ = objectiveOf(description, name_);
}

std::vector<double> Evaluator::start() const {
  return pointOf(descriptions_.at(name_), space_);
}

Json Evaluator::description(const std::vector<double>& point) const {
  return movedTo(descriptions_.at(name_), space_, point);
}

std::vector<double> Evaluator::costsOf(int firstWorld, int lastWorld) const {
  std::vector<TrialJob> jobs;
  for (int world = firstWorld; world <= lastWorld; ++world) {
    std::optional<std::uint64_t> seed;
    if (world > 0) seed = tuningSeed(settings_.seed, world);
    for (TrialJob& job : objective_.jobs(folder_.path(), seed, world)) {
      jobs.push_back(std::move(job));
    }
  }
  std::vector<double> costs;
  for (const TrialResult& result : runTrials(jobs, settings_.workers)) {
    costs.push_back(objective_.cost(result));
  }
  return costs;
}

double Evaluator::cost(const std::vector<double>& point) {
  Descriptions moved = descriptions_;
  moved[name_] = description(point);
  for (const auto& [file, text] : scriptsOf(moved, name_)) folder_.write(file, text);
  const int firstWorlds = std::min(kFirstWorlds, settings_.worlds);
  std::vector<double> costs = costsOf(0, firstWorlds - 1);
  const double first = std::accumulate(costs.begin(), costs.end(), 0.0);
  const double average = first / static_cast<double>(costs.size());
  // As if the others came out no better, and a little worse still.
  if (average >= kFallCost / 2) return 1.1 * average;
  const std::vector<double> more = costsOf(firstWorlds, settings_.worlds);
  costs.insert(costs.end(), more.begin(), more.end());
  return std::accumulate(costs.begin(), costs.end(), 0.0) / static_cast<double>(costs.size());
}

}  // namespace workshop
