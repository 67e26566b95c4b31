#include "workshop/tune/Tuning.h"

#include <chrono>
#include <cmath>
#include <fstream>
#include <iomanip>
#include <memory>
#include <stdexcept>

namespace workshop {
namespace {

void writeJson(const std::filesystem::path& file, const Json& value) {
  const std::filesystem::path fresh = file.string() + ".new";
  {
    std::ofstream out(fresh);
    out << value.dump(2) << '\n';
    if (!out) throw std::runtime_error(fresh.string() + ": can't be written");
  }
  std::filesystem::rename(fresh, file);
}

/// Costs of other worlds don't compare, and the record would tell of a run that never was.
void requireSameRun(const std::filesystem::path& best, const TuningSettings& settings) {
  std::ifstream in(best);
  const Json record = Json::parse(in, nullptr, false);
  if (!record.is_object() || !record.contains("tuned")) {
    throw std::runtime_error(best.string() + ": doesn't tell how the run was begun");
  }
  const Json& tuned = record.at("tuned");
  if (tuned.value("sigma", 0.0) == settings.search.sigma &&
      tuned.value("worlds", -1) == settings.evaluation.worlds) {
    return;
  }
  throw std::runtime_error(best.string() + ": the run was begun with --sigma " +
                           tuned.value("sigma", Json()).dump() + " --worlds " +
                           tuned.value("worlds", Json()).dump());
}

/// A bar for a person, redrawn in place.
void showProgress(std::ostream& status, const TuningSettings& settings, const SearchState& state,
                  double seconds) {
  constexpr int kWidth = 30;
  const int full = kWidth * state.generation / std::max(settings.generations, 1);
  status << '\r' << settings.name << " [" << std::string(static_cast<std::size_t>(full), '#')
         << std::string(static_cast<std::size_t>(kWidth - full), '.') << "] generation "
         << state.generation << '/' << settings.generations << ", " << state.evaluations
         << " evaluations, best " << std::fixed << std::setprecision(4) << state.bestCost << ", "
         << std::setprecision(0) << seconds << " s " << std::flush;
}

Json recorded(const Evaluator& evaluator, const TuningSettings& settings,
              const SearchState& state) {
  Json result = evaluator.description(state.bestPoint);
  result["tuned"] = {
      {"seed", settings.search.seed},         {"sigma", settings.search.sigma},
      {"worlds", settings.evaluation.worlds}, {"generations", state.generation},
      {"evaluations", state.evaluations},     {"cost", std::round(state.bestCost * 1e4) / 1e4}};
  return result;
}

}  // namespace

void tune(const TuningSettings& settings, std::ostream& status) {
  const Descriptions descriptions = readDescriptions(settings.parameters);
  if (!descriptions.contains(settings.name)) {
    throw ParameterError(settings.parameters.string() + ": no parameters are called " +
                         settings.name);
  }
  std::filesystem::create_directories(settings.work);
  const std::string run = settings.name + "-" + std::to_string(settings.search.seed);
  const std::filesystem::path checkpoint = settings.work / (run + ".checkpoint");
  const std::filesystem::path best = settings.work / (run + ".json");

  if (settings.resume) requireSameRun(best, settings);
  Evaluator evaluator(descriptions, settings.name, settings.evaluation);
  const auto began = std::chrono::steady_clock::now();
  const auto seconds = [&] {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
  };
  const std::vector<double> start = evaluator.start();
  const CostFunction cost = [&evaluator](const std::vector<double>& point) {
    return evaluator.cost(point);
  };
  const auto search = settings.resume ? std::make_unique<Search>(cost, start.size(), checkpoint)
                                      : std::make_unique<Search>(cost, start, settings.search);
  while (search->state().generation < settings.generations) {
    showProgress(status, settings, search->state(), seconds());
    search->advance();
    search->save(checkpoint);
    writeJson(best, recorded(evaluator, settings, search->state()));
  }
  showProgress(status, settings, search->state(), seconds());
  status << '\n';
  if (settings.write) {
    writeJson(settings.parameters / (settings.name + ".json"),
              recorded(evaluator, settings, search->state()));
  }
}

}  // namespace workshop
