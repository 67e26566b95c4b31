#include "bench/Summary.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <stdexcept>

namespace bench {
namespace {

std::string runOf(const std::string& benchmark, double player, double echo) {
  Report report(benchmark);
  report.add({"player", "us", player, 10 * player, {}, {}});
  report.add({"echo", "us", echo, {}, {}, {}});
  report.addRatio("player", "echo", atMost(1.5));
  return report.asJson();
}

TEST(Report, PercentilesAreThoseOfTheSortedSamples) {
  const Figure figure = figureOf("f", "us", {5, 1, 4, 2, 3});
  EXPECT_EQ(figure.p50, 3);
  EXPECT_EQ(figure.p99, 4);  // of five the fourth: the last is the maximum
  EXPECT_EQ(figure.max, 5);
  EXPECT_THROW(figureOf("f", "us", {}), std::out_of_range);
}

TEST(Report, RatioOfAMissingFigureIsRefused) {
  Report report("turn");
  EXPECT_THROW(report.addRatio("player", "echo"), std::out_of_range);
}

TEST(Report, JsonFileIsTakenOutOfTheArguments) {
  std::string words[] = {"turn", "5", "--json", "out.json", "scripts"};
  char* argv[] = {words[0].data(), words[1].data(), words[2].data(),
                  words[3].data(), words[4].data(), nullptr};
  int argc = 5;
  EXPECT_EQ(takeJsonFile(argc, argv), "out.json");
  ASSERT_EQ(argc, 3);
  EXPECT_STREQ(argv[1], "5");
  EXPECT_STREQ(argv[2], "scripts");
  EXPECT_EQ(argv[3], nullptr);
  EXPECT_EQ(takeJsonFile(argc, argv), "");
}

TEST(Summary, MedianAndSpreadAreOverTheRuns) {
  const Performance performance =
      performanceOf({runOf("turn", 40, 20), runOf("turn", 10, 10), runOf("turn", 30, 10)});
  ASSERT_EQ(performance.benchmarks.size(), 1U);
  const Summary& turn = performance.benchmarks[0];
  EXPECT_EQ(turn.runs, 3U);
  ASSERT_EQ(turn.figures.size(), 3U);
  EXPECT_EQ(turn.figures[0].median, 30);
  EXPECT_EQ(turn.figures[0].lowest, 10);
  EXPECT_EQ(turn.figures[0].highest, 40);
  EXPECT_EQ(turn.figures[0].p99, 300);
  EXPECT_FALSE(turn.figures[1].p99.has_value());
}

// 40/20, 10/10, 30/10: the median of the ratios is 2, that of the times would give 30/10.
TEST(Summary, RatiosAreThoseWithinOneRun) {
  const Performance performance =
      performanceOf({runOf("turn", 40, 20), runOf("turn", 10, 10), runOf("turn", 30, 10)});
  const SummaryFigure& ratio = performance.benchmarks[0].figures[2];
  EXPECT_EQ(ratio.name, "player / echo");
  EXPECT_EQ(ratio.median, 2);
  EXPECT_FALSE(ratio.isMet());
}

TEST(Summary, AimIsMetAtItsBound) {
  SummaryFigure figure;
  figure.median = 1.5;
  EXPECT_TRUE(figure.isMet());
  figure.aim = atMost(1.5);
  EXPECT_TRUE(figure.isMet());
  figure.aim = atLeast(1.5);
  EXPECT_TRUE(figure.isMet());
  figure.aim = atLeast(1.6);
  EXPECT_FALSE(figure.isMet());
}

TEST(Summary, TableTellsAimsAndWhetherTheyAreMet) {
  const Performance performance = performanceOf({runOf("turn", 40, 20)});
  EXPECT_EQ(asMarkdown(performance.benchmarks[0]),
            "| | median | 1 runs from .. to | p99 | unit | aim |\n"
            "|---|---:|---:|---:|---|---|\n"
            "| player | 40.0 | 40.0 .. 40.0 | 400 | us |  |\n"
            "| echo | 20.0 | 20.0 .. 20.0 |  | us |  |\n"
            "| player / echo | 2.00 | 2.00 .. 2.00 |  | times | at most 1.50: **not met** |\n");
}

TEST(Summary, TemplateKeepsItsProse) {
  const Performance performance = performanceOf({runOf("turn", 40, 20)});
  EXPECT_EQ(fillIn("# Title\n\n{{table turn}}\nProse.\n", performance),
            "# Title\n\n" + asMarkdown(performance.benchmarks[0]) + "Prose.\n");
  EXPECT_EQ(fillIn("No braces.", performance), "No braces.");
  EXPECT_THROW(fillIn("{{table walk}}", performance), std::runtime_error);
  EXPECT_THROW(fillIn("{{machine}}", performance), std::runtime_error);
}

TEST(Summary, RunsThatDontBelongTogetherAreRefused) {
  EXPECT_THROW(performanceOf({}), std::runtime_error);
  EXPECT_THROW(performanceOf({"{"}), std::runtime_error);
  EXPECT_THROW(performanceOf({"{}"}), std::runtime_error);
  nlohmann::json other = nlohmann::json::parse(runOf("turn", 40, 20));
  other["commit"] = "another";
  EXPECT_THROW(performanceOf({runOf("turn", 40, 20), other.dump()}), std::runtime_error);
  Report lacking("turn");
  lacking.add({"player", "us", 1, {}, {}, {}});
  EXPECT_THROW(performanceOf({runOf("turn", 40, 20), lacking.asJson()}), std::runtime_error);
}

TEST(Summary, JsonHasEveryFigure) {
  const auto json = nlohmann::json::parse(
      asJson(performanceOf({runOf("turn", 40, 20), runOf("arena", 3, 4), runOf("turn", 20, 20)})));
  EXPECT_EQ(json["benchmarks"].size(), 2U);
  EXPECT_EQ(json["benchmarks"]["turn"]["runs"], 2);
  const auto& ratio = json["benchmarks"]["turn"]["figures"][2];
  EXPECT_EQ(ratio["median"], 1.0);
  EXPECT_EQ(ratio["highest"], 2.0);
  EXPECT_EQ(ratio["atMost"], 1.5);
  EXPECT_EQ(ratio["met"], true);
  EXPECT_EQ(json["benchmarks"]["arena"]["figures"][0]["median"], 3.0);
}

}  // namespace
}  // namespace bench
