#include "bench/LocalisationTable.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <numeric>
#include <vector>

namespace bench {
namespace {

Sight sightOf(View view, double metres, double degrees, bool updated, arena::Side side) {
  Sight sight;
  sight.view = view;
  sight.positionError = metres;
  sight.headingErrorDeg = degrees;
  sight.updated = updated;
  sight.side = side;
  return sight;
}

std::vector<Sight> threeSights() {
  return {sightOf(View::kOneAtEachEnd, 0.5, 4, true, arena::Side::kRight),
          sightOf(View::kOne, 2, 1, false, arena::Side::kLeft),
          sightOf(View::kOneAtEachEnd, 0.25, 8, false, arena::Side::kLeft)};
}

TEST(LocalisationTable, SpreadTakesTheNearestRank) {
  std::vector<double> values(20);
  std::iota(values.rbegin(), values.rend(), 1.0);
  const Spread spread = spreadOf(values);
  EXPECT_EQ(spread.median, 10);
  EXPECT_EQ(spread.p95, 19);
  EXPECT_EQ(spread.max, 20);
}

TEST(LocalisationTable, SpreadOfOneValueIsThatValue) {
  const Spread spread = spreadOf({3.5});
  EXPECT_EQ(spread.median, 3.5);
  EXPECT_EQ(spread.p95, 3.5);
  EXPECT_EQ(spread.max, 3.5);
}

TEST(LocalisationTable, SightsOfOneCaseShareARow) {
  const std::vector<CaseRow> rows = tableOf(threeSights(), false);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].view, View::kOne);
  EXPECT_EQ(rows[0].updates, 0U);
  EXPECT_EQ(rows[1].view, View::kOneAtEachEnd);
  EXPECT_EQ(rows[1].sights, 2U);
  EXPECT_EQ(rows[1].updates, 1U);
  EXPECT_EQ(rows[1].position.median, 0.25);
  EXPECT_EQ(rows[1].position.max, 0.5);
  EXPECT_EQ(rows[1].headingDeg.max, 8);
  EXPECT_FALSE(rows[1].side.has_value());
}

TEST(LocalisationTable, SplitKeepsTheSidesApart) {
  const std::vector<CaseRow> rows = tableOf(threeSights(), true);
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[1].side, arena::Side::kLeft);
  EXPECT_EQ(rows[1].position.max, 0.25);
  EXPECT_EQ(rows[2].side, arena::Side::kRight);
  EXPECT_EQ(rows[2].position.max, 0.5);
}

TEST(LocalisationTable, MarkdownHasOneLinePerRowUnderItsHead) {
  EXPECT_EQ(
      asMarkdown(tableOf({sightOf(View::kOne, 2, 1.25, false, arena::Side::kLeft)}, false)),
      "| in view | noise | filter | sights | updated % | pos p50 m | pos p95 m | pos max m "
      "| dir p50 deg | dir p95 deg | dir max deg |\n"
      "|---|---:|---:|---:|---:|---:|---:|---:|---:|---:|---:|\n"
      "| one landmark | off | off | 1 | 0.0 | 2.000 | 2.000 | 2.000 | 1.25 | 1.25 | 1.25 |\n");
}

TEST(LocalisationTable, TextLinesEndInOneColumn) {
  const std::string text = asText(tableOf(threeSights(), false));
  const std::size_t width = text.find('\n');
  ASSERT_NE(width, std::string::npos);
  ASSERT_EQ(text.size(), 3 * (width + 1));
  EXPECT_EQ(text[2 * width + 1], '\n');
}

TEST(LocalisationTable, JsonSaysWhatTheRowSays) {
  const auto json = nlohmann::json::parse(asJson(tableOf(threeSights(), true)));
  ASSERT_EQ(json.size(), 3U);
  EXPECT_EQ(json[2]["inView"], "one at each end");
  EXPECT_EQ(json[2]["side"], "right");
  EXPECT_EQ(json[2]["sights"], 1);
  EXPECT_EQ(json[2]["positionErrorMetres"]["median"], 0.5);
  EXPECT_EQ(json[2]["headingErrorDegrees"]["max"], 4.0);
}

}  // namespace
}  // namespace bench
