#include "workshop/judge/Judge.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "workshop/judge/Report.h"
#include "workshop/trial/ScriptFolder.h"
#include "workshop/trial/Seeds.h"

namespace workshop {
namespace {

using testing::HasSubstr;
using testing::Not;

/// A motion that anybody can do, and one that needs a script that isn't there.
std::vector<Motion> smallTable() {
  TrialJob stand;
  stand.start = Start::kUpright;
  stand.steps = {standFor(20)};
  TrialJob turn = stand;
  turn.steps = {playScript("turnL40")};
  const auto standing = [](Trials trials) {
    return std::vector{shareOf(trials, isStanding, 1, "stands in")};
  };
  return {{"stand", "standing", {stand, stand}, 2, standing, standing},
          {"standstill", "standing still", {stand}, 1, standing, standing},
          {"turn", "turning", {turn}, 1, standing, standing}};
}

class JudgeTest : public testing::Test {
 protected:
  JudgeTest() {
    settings.scripts = folder.path();
    settings.worlds = 2;
  }

  ScriptFolder folder;
  JudgeSettings settings;
};

TEST_F(JudgeTest, TriesEveryVariantAndSoManyWorlds) {
  const auto verdicts = judge(smallTable(), settings);
  ASSERT_EQ(verdicts.size(), 3U);
  EXPECT_EQ(verdicts[0].nominal.size(), 2U);
  EXPECT_EQ(verdicts[0].perturbed.size(), 4U);
  EXPECT_EQ(verdicts[1].nominal.size(), 1U);
  EXPECT_EQ(verdicts[1].perturbed.size(), 2U);
  EXPECT_TRUE(verdicts[0].met());
  EXPECT_EQ(verdicts[2].error, "there is no script for the action turnL40");
  EXPECT_FALSE(verdicts[2].met());
  EXPECT_FALSE(allMet(verdicts));
}

TEST_F(JudgeTest, OnlyTakesANameOrWhatNamesBeginWith) {
  settings.worlds = 0;
  settings.only = {"stand"};
  EXPECT_EQ(judge(smallTable(), settings).size(), 1U);
  settings.only = {"stands"};
  EXPECT_EQ(judge(smallTable(), settings).at(0).motion.name, "standstill");
  settings.only = {"s"};
  EXPECT_EQ(judge(smallTable(), settings).size(), 2U);
  settings.only = {"walk"};
  EXPECT_THROW((void)judge(smallTable(), settings), std::invalid_argument);
}

TEST_F(JudgeTest, SeedsOfTuningAreRefused) {
  settings.firstSeed = kFirstTuningSeed - 3;
  EXPECT_THROW((void)judge(smallTable(), settings), std::invalid_argument);
  settings.only = {"standstill"};
  EXPECT_NO_THROW((void)judge(smallTable(), settings));
}

TEST_F(JudgeTest, BarsBelowMakeAVerdict) {
  Verdict verdict;
  verdict.nominalBars = {{"1", "0", true}};
  EXPECT_TRUE(verdict.met());
  verdict.perturbedBars = {{"1", "2", false}};
  EXPECT_FALSE(verdict.met());
}

TEST_F(JudgeTest, TableSaysWhatFallsShort) {
  Verdict verdict;
  verdict.motion.title = "hopping";
  verdict.nominalBars = {{"0.1 m", "0.5 m or more", false}, {"stands in 1 of 1", "1 of 1", true}};
  const std::string table = tableOf({verdict}, settings);
  EXPECT_THAT(table, HasSubstr("BELOW  hopping"));
  EXPECT_THAT(table, HasSubstr("0.1 m (BELOW: 0.5 m or more); stands in 1 of 1"));
  EXPECT_THAT(table, HasSubstr("0 of 1 motions are up to their bars"));
}

TEST_F(JudgeTest, JsonHoldsEveryTrial) {
  settings.only = {"stand", "turn"};
  const auto json = jsonOf(judge(smallTable(), settings), settings);
  EXPECT_EQ(json["met"], false);
  EXPECT_EQ(json["first_seed"], 1);
  EXPECT_EQ(json["motions"][0]["name"], "stand");
  EXPECT_EQ(json["motions"][0]["perturbed"]["trials"].size(), 4U);
  EXPECT_EQ(json["motions"][0]["nominal"]["trials"][0]["stands"], true);
  EXPECT_THAT(json["motions"][1]["error"].get<std::string>(), HasSubstr("turnL40"));
}

TEST_F(JudgeTest, ReportHasATableAndAPlotPerMotion) {
  settings.keepSeries = true;
  const auto verdicts = judge(smallTable(), settings);
  writeReport(verdicts, settings, folder.path() / "page.md");
  EXPECT_TRUE(std::filesystem::exists(folder.path() / "page" / "stand.svg"));
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "page" / "turn.svg"));
  std::ifstream in(folder.path() / "page.md");
  const std::string page{std::istreambuf_iterator<char>(in), {}};
  EXPECT_THAT(page, HasSubstr("| standing | stands in 2 of 2 (2 of 2) | stands in 4 of 4"));
  EXPECT_THAT(page, HasSubstr("![standing](page/stand.svg)"));
  EXPECT_THAT(page, HasSubstr("How to author a motion"));
  EXPECT_THAT(page, Not(HasSubstr(folder.path().string())));
}

TEST_F(JudgeTest, ReportThatCantBeWrittenIsAnError) {
  folder.write("page", "stands where the plots' folder should be");
  EXPECT_THROW(writeReport({}, settings, folder.path() / "page.md"), std::runtime_error);
  EXPECT_THROW(writeFile(folder.path() / "none" / "page.md", ""), std::runtime_error);
}

}  // namespace
}  // namespace workshop
