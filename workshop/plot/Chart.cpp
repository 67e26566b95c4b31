#include "workshop/plot/Chart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

namespace workshop {
namespace {

constexpr double kLeft = 44;  ///< [px] room for the numbers of the upright axis
constexpr double kTop = 18;
constexpr double kBottom = 16;
constexpr double kLegendWidth = 78;

template <typename... Values>
void add(std::string& text, const char* format, Values... values) {
  std::array<char, 400> buffer{};
  std::snprintf(buffer.data(), buffer.size(), format, values...);
  text += buffer.data();
}

/// From what is shown to where it is drawn.
struct Scale {
  double low, high;  ///< shown
  double from, to;   ///< [px]
  [[nodiscard]] double operator()(double value) const {
    return from + (value - low) / (high - low) * (to - from);
  }
};

Scale uprightScale(const Chart& chart, double bottom, double top) {
  double low = std::numeric_limits<double>::infinity();
  double high = -low;
  for (const Curve& curve : chart.curves) {
    for (const double value : curve.values) {
      low = std::min(low, value);
      high = std::max(high, value);
    }
  }
  if (!(low <= high)) low = high = 0;
  const double margin = std::max((high - low) * 0.05, 1e-3);
  return {low - margin, high + margin, bottom, top};
}

/// The multiples of STEP from LOW to HIGH.
std::vector<double> gridValues(double low, double high, double step) {
  std::vector<double> values;
  const long last = std::lround(std::floor(high / step + 1e-9));
  for (long i = std::lround(std::ceil(low / step - 1e-9)); i <= last; ++i) {
    values.push_back(static_cast<double>(i) * step);
  }
  return values;
}

void drawGrid(std::string& svg, const Scale& x, const Scale& y) {
  for (const double value : gridValues(y.low, y.high, gridStep(y.high - y.low))) {
    add(svg, "<path class='grid' d='M%.1f %.1fH%.1f'/>", x.from, y(value), x.to);
    add(svg, "<text class='tick' text-anchor='end' x='%.1f' y='%.1f'>%g</text>\n", x.from - 4,
        y(value) + 3, value);
  }
  for (const double value : gridValues(x.low, x.high, gridStep(x.high - x.low))) {
    add(svg, "<path class='grid' d='M%.1f %.1fV%.1f'/>", x(value), y.from, y.to);
    add(svg, "<text class='tick' text-anchor='middle' x='%.1f' y='%.1f'>%g</text>\n", x(value),
        y.from + 11, value);
  }
}

void drawCurve(std::string& svg, const Curve& curve, std::span<const double> times, const Scale& x,
               const Scale& y) {
  add(svg, "<polyline class='%s' stroke='%s' points='", curve.dashed ? "asked" : "line",
      curve.colour.c_str());
  const std::size_t count = std::min(times.size(), curve.values.size());
  for (std::size_t i = 0; i < count; ++i) {
    add(svg, "%.1f,%.1f ", x(times[i]), y(curve.values[i]));
  }
  svg += "'/>\n";
}

}  // namespace

double gridStep(double range) {
  const double power = std::pow(10.0, std::floor(std::log10(range / 4)));
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (range / (factor * power) <= 8) return factor * power;
  }
  return 10 * power;
}

std::string drawn(const Chart& chart, std::span<const double> times, const Box& box) {
  const double right = box.x + box.width - kLegendWidth;
  const double bottom = box.y + box.height - kBottom;
  const double last = times.empty() ? 1 : std::max(times.back(), times.front() + 1e-3);
  const Scale x{times.empty() ? 0 : times.front(), last, box.x + kLeft, right};
  const Scale y = uprightScale(chart, bottom, box.y + kTop);
  std::string svg;
  add(svg, "<text class='title' x='%.1f' y='%.1f'>%s [%s]</text>\n", box.x + kLeft, box.y + 12,
      chart.title.c_str(), chart.unit.c_str());
  drawGrid(svg, x, y);
  double line = box.y + kTop + 8;
  for (const Curve& curve : chart.curves) {
    drawCurve(svg, curve, times, x, y);
    if (curve.name.empty()) continue;
    add(svg, "<text class='tick' fill='%s' x='%.1f' y='%.1f'>%s</text>\n", curve.colour.c_str(),
        right + 6, line, curve.name.c_str());
    line += 12;
  }
  return svg;
}

}  // namespace workshop
