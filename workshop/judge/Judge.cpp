#include "workshop/judge/Judge.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "workshop/trial/Seeds.h"

namespace workshop {
namespace {

std::vector<Motion> chosen(const std::vector<Motion>& table, const std::vector<std::string>& only) {
  if (only.empty()) return table;
  std::vector<bool> wanted(table.size(), false);
  for (const std::string& name : only) {
    bool found = false;
    const bool exact = std::any_of(table.begin(), table.end(),
                                   [&](const Motion& motion) { return motion.name == name; });
    for (std::size_t i = 0; i < table.size(); ++i) {
      if (exact ? table[i].name != name : !table[i].name.starts_with(name)) continue;
      wanted[i] = found = true;
    }
    if (!found) throw std::invalid_argument("no motion is called " + name);
  }
  std::vector<Motion> motions;
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (wanted[i]) motions.push_back(table[i]);
  }
  return motions;
}

bool allBarsMet(const std::vector<Bar>& bars) {
  return std::all_of(bars.begin(), bars.end(), [](const Bar& bar) { return bar.met; });
}

/// The trials of one motion: its variants in the nominal world, then the perturbed ones.
std::vector<TrialJob> jobsOf(const Motion& motion, const JudgeSettings& settings) {
  std::vector<TrialJob> jobs;
  for (TrialJob job : motion.variants) {
    job.scripts = settings.scripts;
    job.keepSeries = settings.keepSeries && jobs.empty();
    jobs.push_back(std::move(job));
  }
  const int worlds = settings.worlds * motion.worldsPerSeed;
  for (int i = 0; i < worlds; ++i) {
    TrialJob job = motion.variants[static_cast<std::size_t>(i) % motion.variants.size()];
    job.scripts = settings.scripts;
    job.seed = settings.firstSeed + static_cast<std::uint64_t>(i);
    jobs.push_back(std::move(job));
  }
  return jobs;
}

Verdict verdictOn(const Motion& motion, std::span<TrialResult> results) {
  Verdict verdict;
  verdict.motion = motion;
  for (TrialResult& result : results) {
    if (!result.error.empty() && verdict.error.empty()) verdict.error = result.error;
    const bool nominal = verdict.nominal.size() < motion.variants.size();
    (nominal ? verdict.nominal : verdict.perturbed).push_back(result.figures);
  }
  if (!verdict.error.empty()) return verdict;
  verdict.series = std::move(results.front().series);
  verdict.nominalBars = motion.nominal(verdict.nominal);
  if (!verdict.perturbed.empty()) verdict.perturbedBars = motion.perturbed(verdict.perturbed);
  return verdict;
}

}  // namespace

bool Verdict::met() const {
  return error.empty() && allBarsMet(nominalBars) && allBarsMet(perturbedBars);
}

std::vector<Verdict> judge(const std::vector<Motion>& table, const JudgeSettings& settings,
                           const Progress& progress) {
  const std::vector<Motion> motions = chosen(table, settings.only);
  std::vector<TrialJob> jobs;
  std::vector<std::size_t> counts;
  std::uint64_t lastSeed = settings.firstSeed;
  for (const Motion& motion : motions) {
    std::vector<TrialJob> more = jobsOf(motion, settings);
    counts.push_back(more.size());
    if (more.back().seed) lastSeed = std::max(lastSeed, *more.back().seed);
    jobs.insert(jobs.end(), std::make_move_iterator(more.begin()),
                std::make_move_iterator(more.end()));
  }
  if (lastSeed >= kFirstTuningSeed) {
    throw std::invalid_argument("seeds from " + std::to_string(kFirstTuningSeed) +
                                " on are for tuning");
  }
  std::vector<TrialResult> results = runTrials(jobs, settings.workers, progress);
  std::vector<Verdict> verdicts;
  std::size_t from = 0;
  for (std::size_t i = 0; i < motions.size(); ++i) {
    verdicts.push_back(verdictOn(motions[i], std::span(results).subspan(from, counts[i])));
    from += counts[i];
  }
  return verdicts;
}

bool allMet(const std::vector<Verdict>& verdicts) {
  return std::all_of(verdicts.begin(), verdicts.end(),
                     [](const Verdict& verdict) { return verdict.met(); });
}

}  // namespace workshop
