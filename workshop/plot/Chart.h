#pragma once

/// One chart of an SVG picture: axes with round numbers, and lines over time. Pure.

#include <span>
#include <string>
#include <vector>

namespace workshop {

struct Curve {
  std::string name{};    ///< in the legend; empty: not listed
  std::string colour{};  ///< as SVG spells it
  bool dashed = false;
  std::vector<double> values{};  ///< one per time
};

struct Chart {
  std::string title{};
  std::string unit{};
  std::vector<Curve> curves{};
};

struct Box {
  double x = 0, y = 0, width = 0, height = 0;  ///< [px]
};

/// The SVG elements of CHART in BOX, over TIMES [s], which increase.
std::string drawn(const Chart& chart, std::span<const double> times, const Box& box);

/// The distance between grid lines that cuts RANGE > 0 into some 4 to 8 pieces: 1, 2 or 5 times a
/// power of ten.
double gridStep(double range);

}  // namespace workshop
