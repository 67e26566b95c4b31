#include "workshop/plot/Plot.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "workshop/plot/Chart.h"

namespace workshop {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(Chart, GridStepsAreRound) {
  EXPECT_DOUBLE_EQ(gridStep(10), 2);
  EXPECT_DOUBLE_EQ(gridStep(1), 0.2);
  EXPECT_DOUBLE_EQ(gridStep(130), 20);
  EXPECT_DOUBLE_EQ(gridStep(0.012), 0.002);
  for (double range = 0.01; range < 1000; range *= 1.07) {
    const double pieces = range / gridStep(range);
    EXPECT_GE(pieces, 3.2) << range;
    EXPECT_LE(pieces, 8) << range;
  }
}

TEST(Chart, LineRunsFromCornerToCorner) {
  const Chart chart{"height", "m", {{"up", "#123456", false, {0, 1}}}};
  const std::vector<double> times{0, 2};
  const std::string svg = drawn(chart, times, {0, 0, 322, 134});
  // 44 px for numbers on the left, 78 for the legend, 18 and 16 above and below; 5 % margin.
  EXPECT_THAT(svg, HasSubstr("points='44.0,113.5 244.0,22.5 '"));
  EXPECT_THAT(svg, HasSubstr("height [m]"));
  EXPECT_THAT(svg, HasSubstr(">up</text>"));
}

TEST(Chart, ConstantLineHasAScaleToo) {
  const Chart chart{"tilt", "deg", {{"", "red", true, {5, 5, 5}}}};
  const std::vector<double> times{0, 1, 2};
  EXPECT_THAT(drawn(chart, times, {0, 0, 300, 100}), Not(HasSubstr("nan")));
}

std::vector<Sample> series(std::size_t count) {
  std::vector<Sample> samples(count);
  for (std::size_t i = 0; i < count; ++i) {
    samples[i].time = 0.02 * static_cast<double>(i);
    samples[i].step = i < 5 ? -1 : 0;
  }
  return samples;
}

std::size_t dashedIn(const std::string& svg) {
  std::size_t count = 0;
  for (std::size_t at = svg.find("class='asked'"); at != std::string::npos;
       at = svg.find("class='asked'", at + 1)) {
    ++count;
  }
  return count;
}

TEST(Plot, IsAWholeSvgFile) {
  const std::string svg = plotOf(series(60), "turnL15");
  EXPECT_TRUE(svg.starts_with("<svg "));
  EXPECT_TRUE(svg.ends_with("</svg>\n"));
  for (const char* text : {"turnL15", "left leg", "right leg", "torso height [m]", "torso tilt"}) {
    EXPECT_THAT(svg, HasSubstr(text));
  }
}

TEST(Plot, ShowsWhatWasAskedForWhereTheJointDidNotFollow) {
  auto samples = series(60);
  EXPECT_EQ(dashedIn(plotOf(samples, "x")), 0U);
  samples[30].askedDeg[arena::rowOfPerceptor("llj4")] = 3;
  EXPECT_EQ(dashedIn(plotOf(samples, "x")), 1U);
}

TEST(Plot, LeavesOutWhatComesLater) {
  auto samples = series(200);
  samples[199].tiltDeg = 77;
  EXPECT_THAT(plotOf(samples, "x"), HasSubstr(">60</text>"));
  EXPECT_THAT(plotOf(samples, "x", 2.0), Not(HasSubstr(">60</text>")));
}

TEST(Plot, LongTrialsMakeNoBiggerFiles) {
  EXPECT_LT(plotOf(series(3000), "x").size(), 2 * plotOf(series(300), "x").size());
}

TEST(Plot, NeedsAStep) {
  EXPECT_THROW((void)plotOf(series(4), "x"), std::invalid_argument);
}

}  // namespace
}  // namespace workshop
