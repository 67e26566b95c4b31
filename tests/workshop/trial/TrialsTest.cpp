#include "workshop/trial/Trials.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/workshop/trial/Scripts.h"

namespace workshop {
namespace {

TrialJob standing(const ScriptFolder& folder, int cycles) {
  TrialJob job;
  job.scripts = folder.path();
  job.start = Start::kUpright;
  job.steps = {standFor(cycles)};
  return job;
}

TEST(Trials, ResultsComeInTheOrderOfTheJobs) {
  const ScriptFolder folder;
  std::vector<TrialJob> jobs;
  for (const int cycles : {300, 5, 100, 50}) jobs.push_back(standing(folder, cycles));
  const auto results = runTrials(jobs, 3);
  ASSERT_EQ(results.size(), 4U);
  for (std::size_t i = 0; i < jobs.size(); ++i) {
    EXPECT_EQ(results[i].error, "");
    EXPECT_NEAR(results[i].figures.duration, 0.02 * jobs[i].steps[0].cycles, 1e-9);
  }
}

TEST(Trials, OneThatFailsSaysWhyAndHarmsNoOther) {
  const ScriptFolder folder;
  std::vector<TrialJob> jobs{standing(folder, 10), standing(folder, 10), standing(folder, 10)};
  jobs[1].steps = {playScript("sideL")};
  const auto results = runTrials(jobs, 2);
  EXPECT_EQ(results[0].error, "");
  EXPECT_EQ(results[1].error, "there is no script for the action sideL");
  EXPECT_EQ(results[2].error, "");
  EXPECT_TRUE(results[2].figures.stands);
}

TEST(Trials, EachHasAFreshPlayer) {
  const ScriptFolder folder;
  writeWalk(folder);
  TrialJob job = standing(folder, 0);
  // Cut off in mid-walk: a second walk in the same process would begin within the loops.
  job.steps = {walkInto(60)};
  const std::vector<TrialJob> jobs{job, job};
  const auto results = runTrials(jobs, 1);
  EXPECT_EQ(results[0].figures.walkSeconds, results[1].figures.walkSeconds);
}

TEST(Trials, SeriesCrossesTheProcessesWhole) {
  const ScriptFolder folder;
  TrialJob job = standing(folder, 20);
  job.settleCycles = 10;
  job.keepSeries = true;
  const std::vector<TrialJob> jobs{job, standing(folder, 20)};
  const auto results = runTrials(jobs, 2);
  EXPECT_NEAR(static_cast<double>(results[0].series.size()), 20 + 10, 1);
  EXPECT_NEAR(results[0].series.back().torso[2], 0.38, 0.005);
  EXPECT_TRUE(results[1].series.empty());
}

TEST(Trials, ProgressIsToldAfterEachTrial) {
  const ScriptFolder folder;
  const std::vector<TrialJob> jobs(3, standing(folder, 5));
  std::vector<std::size_t> told;
  (void)runTrials(jobs, 1, [&](std::size_t done, std::size_t all) {
    EXPECT_EQ(all, 3U);
    told.push_back(done);
  });
  EXPECT_EQ(told, (std::vector<std::size_t>{1, 2, 3}));
}

TEST(Trials, AreTheSameEachTimeAndDifferFromSeedToSeed) {
  const ScriptFolder folder;
  std::vector<TrialJob> jobs(6, standing(folder, 100));
  jobs[2].seed = jobs[3].seed = 7;
  jobs[4].seed = 8;
  jobs[5].seed = 9;
  const auto results = runTrials(jobs);
  EXPECT_EQ(results[0].figures.forward, results[1].figures.forward);
  EXPECT_EQ(results[2].figures.forward, results[3].figures.forward);
  EXPECT_EQ(results[2].figures.maxTiltDeg, results[3].figures.maxTiltDeg);
  std::set<double> tilts;
  for (std::size_t i : {0U, 2U, 4U, 5U}) tilts.insert(results[i].figures.maxTiltDeg);
  EXPECT_EQ(tilts.size(), 4U);
}

TEST(Trials, NoneIsNoWork) {
  EXPECT_TRUE(runTrials({}).empty());
}

}  // namespace
}  // namespace workshop
