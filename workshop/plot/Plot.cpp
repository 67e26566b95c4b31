#include "workshop/plot/Plot.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include "arena/model/BodyTable.h"
#include "workshop/plot/Chart.h"

namespace workshop {
namespace {

constexpr double kWidth = 900;
constexpr double kChartHeight = 170;
constexpr double kHeader = 26;
/// More points than this make a file bigger and no line finer.
constexpr std::size_t kMostPoints = 300;
/// [deg] below which two lines look like one: what was asked for is then left out.
constexpr double kVisible = 0.5;
constexpr std::array kColours{"#1f77b4", "#d62728", "#2ca02c", "#9467bd", "#ff7f0e", "#8c564b"};

struct JointLabel {
  std::string_view perceptor;
  const char* name;
};

bool differs(const std::vector<double>& a, const std::vector<double>& b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (std::abs(a[i] - b[i]) > kVisible) return true;
  }
  return false;
}

/// Every so many cycles, so that few enough are left.
std::vector<Sample> thinned(std::span<const Sample> series) {
  const std::size_t stride = (series.size() + kMostPoints - 1) / kMostPoints;
  std::vector<Sample> few;
  for (std::size_t i = 0; i < series.size(); i += stride) few.push_back(series[i]);
  return few;
}

Chart jointChart(std::span<const Sample> series, const char* title,
                 std::initializer_list<JointLabel> joints) {
  Chart chart{title, "deg", {}};
  std::size_t colour = 0;
  for (const JointLabel& joint : joints) {
    const std::size_t row = arena::rowOfPerceptor(joint.perceptor);
    Curve reached{joint.name, kColours[colour % kColours.size()], false, {}};
    Curve asked{"", reached.colour, true, {}};
    for (const Sample& sample : series) {
      reached.values.push_back(static_cast<double>(sample.angleDeg[row]));
      asked.values.push_back(static_cast<double>(sample.askedDeg[row]));
    }
    if (differs(asked.values, reached.values)) chart.curves.push_back(std::move(asked));
    chart.curves.push_back(std::move(reached));
    ++colour;
  }
  return chart;
}

template <typename Value>
Chart torsoChart(std::span<const Sample> series, const char* title, const char* unit,
                 const Value& value) {
  Curve curve{"", kColours[0], false, {}};
  for (const Sample& sample : series) curve.values.push_back(value(sample));
  return {title, unit, {std::move(curve)}};
}

}  // namespace

std::string plotOf(std::span<const Sample> series, const std::string& title, double longest) {
  const auto first = std::find_if(series.begin(), series.end(),
                                  [](const Sample& sample) { return sample.step >= 0; });
  if (first == series.end()) throw std::invalid_argument("no step to plot");
  const auto last = std::find_if(first, series.end(), [&](const Sample& sample) {
    return sample.time - first->time > longest;
  });
  const std::vector<Sample> shown = thinned({first, last});
  std::vector<double> times;
  times.reserve(shown.size());
  for (const Sample& sample : shown) times.push_back(sample.time - shown.front().time);

  const std::array charts{
      jointChart(shown, "left leg",
                 {{"llj1", "hip yaw"},
                  {"llj2", "hip roll"},
                  {"llj3", "hip pitch"},
                  {"llj4", "knee"},
                  {"llj5", "ankle pitch"},
                  {"llj6", "ankle roll"}}),
      jointChart(shown, "right leg",
                 {{"rlj1", "hip yaw"},
                  {"rlj2", "hip roll"},
                  {"rlj3", "hip pitch"},
                  {"rlj4", "knee"},
                  {"rlj5", "ankle pitch"},
                  {"rlj6", "ankle roll"}}),
      jointChart(shown, "shoulders and elbows",
                 {{"laj1", "l. pitch"},
                  {"laj2", "l. roll"},
                  {"laj4", "l. elbow"},
                  {"raj1", "r. pitch"},
                  {"raj2", "r. roll"},
                  {"raj4", "r. elbow"}}),
      torsoChart(shown, "torso height", "m", [](const Sample& s) { return s.torso[2]; }),
      torsoChart(shown, "torso tilt", "deg", [](const Sample& s) { return s.tiltDeg; }),
  };
  const double height = kHeader + kChartHeight * static_cast<double>(charts.size());
  std::array<char, 900> head{};
  std::snprintf(head.data(), head.size(),
                "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 %.0f %.0f' width='%.0f' "
                "font-family='sans-serif'>\n<style>.grid{stroke:#ddd;fill:none}"
                ".line,.asked{fill:none;stroke-width:1.3}"
                ".asked{stroke-dasharray:3 2;opacity:.6}"
                ".tick{font-size:10px}.title{font-size:11px;font-weight:bold}</style>\n"
                "<rect width='100%%' height='100%%' fill='white'/>\n"
                "<text x='8' y='17' font-size='14'>%s</text>\n"
                "<text x='%.0f' y='17' font-size='10' text-anchor='end'>dashed: asked for; full: "
                "reached; time in seconds</text>\n",
                kWidth, height, kWidth, title.c_str(), kWidth - 8);
  std::string svg = head.data();
  double y = kHeader;
  for (const Chart& chart : charts) {
    svg += drawn(chart, times, {0, y, kWidth, kChartHeight});
    y += kChartHeight;
  }
  return svg + "</svg>\n";
}

}  // namespace workshop
