#include "bench/LocalisationTrial.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/LocalisationTable.h"

namespace bench {
namespace {

/// Two circles crossed at an angle g, their radii wrong by r at most: the place is wrong by at most
/// r / sin(g / 2), for g up to a right angle. Distances come with two decimals, so r is 0.005 m.
/// Of all the two-landmark views the one of F2R and G2R from (5, 1.5) has the smallest angle:
/// atan(7.5 / 4) - atan(2.55 / 4) = 29.4 degrees. The rounded elevations move a radius by less than
/// a tenth of a millimetre.
const double kPlaceBound = 0.0051 / std::sin(29.4 / 2 * std::numbers::pi / 180);

/// That error across the line to the nearer landmark, which is 3.2 m away at least (a goal post,
/// seen from (6, 0)), and 0.005 degrees each for the sight's and the neck's own angle.
const double kHeadingBoundDeg = std::atan(kPlaceBound / 3.17) * 180 / std::numbers::pi + 0.011;

bool updatesPlace(View view) {
  return view != View::kNothing && view != View::kOne && view != View::kMoreOverBothEnds;
}

TEST(LocalisationTrial, EveryCaseOccursAndKeepsTheBoundsOfItsGeometry) {
  const std::vector<Sight> sights = runTrial({.seed = 7});
  const std::vector<CaseRow> rows = tableOf(sights, false);
  const std::string text = asText(rows);

  EXPECT_EQ(rows.size(), kViewNames.size() * 4);
  for (const CaseRow& row : rows) {
    SCOPED_TRACE(std::string(nameOf(row.view)) + (row.noise ? ", noise" : "") +
                 (row.filtered ? ", filtered" : ""));
    EXPECT_NE(text.find(std::string(nameOf(row.view)) + ' '), std::string::npos);
    EXPECT_GE(row.sights, 50U);
    if (!updatesPlace(row.view)) {
      EXPECT_EQ(row.updates, 0U);
    } else if (!row.filtered) {
      EXPECT_EQ(row.updates, row.sights);
    }
  }

  // On either side and with any turn of the head: both must cancel out.
  int compared = 0;
  for (const CaseRow& row : tableOf(sights, true)) {
    if (row.view != View::kTwoAtOneEnd || row.noise || row.filtered) continue;
    SCOPED_TRACE(std::string(arena::nameOf(*row.side)) + " " + std::to_string(*row.headYawDeg));
    ++compared;
    EXPECT_LT(row.position.max, kPlaceBound);
    EXPECT_LT(row.headingDeg.max, kHeadingBoundDeg);
    // Rounded numbers can't give the exact place everywhere.
    EXPECT_GT(row.position.median, 0.0005);
  }
  EXPECT_EQ(compared, 2 * 3);
}

TEST(LocalisationTrial, StartsWithoutSpacingAreRefused) {
  EXPECT_THROW(runTrial({.startEverySeconds = 0}), std::invalid_argument);
}

}  // namespace
}  // namespace bench
