#include "workshop/judge/Bars.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <numeric>
#include <vector>

namespace workshop {
namespace {

std::string number(double value, int digits) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.*f", digits, value);
  return text.data();
}

std::string withUnit(double value, int digits, const std::string& unit) {
  return number(value, digits) + (unit.empty() ? "" : " " + unit);
}

std::vector<double> valuesOf(Trials trials, const Measure& measure) {
  std::vector<double> values;
  for (const Figures& figures : trials) values.push_back(measure(figures));
  return values;
}

double mean(const std::vector<double>& values) {
  return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

Bar unmeasured(std::string wanted) {
  return {"none to measure", std::move(wanted), false};
}

}  // namespace

bool isStanding(const Figures& figures) {
  return !figures.fell && figures.stands;
}

std::vector<Figures> only(Trials trials, const Condition& condition) {
  std::vector<Figures> chosen;
  std::copy_if(trials.begin(), trials.end(), std::back_inserter(chosen), condition);
  return chosen;
}

Bar meanWithin(Trials trials, const Measure& measure, double low, double high, int digits,
               const std::string& unit) {
  const std::string wanted = number(low, digits) + " to " + withUnit(high, digits, unit);
  const std::vector<double> values = valuesOf(trials, measure);
  if (values.empty()) return unmeasured(wanted);
  const double value = mean(values);
  return {withUnit(value, digits, unit), wanted, value >= low && value <= high};
}

Bar meanAtLeast(Trials trials, const Measure& measure, double low, int digits,
                const std::string& unit) {
  const std::string wanted = withUnit(low, digits, unit) + " or more";
  const std::vector<double> values = valuesOf(trials, measure);
  if (values.empty()) return unmeasured(wanted);
  const double value = mean(values);
  return {withUnit(value, digits, unit), wanted, value >= low};
}

Bar magnitudeAtMost(Trials trials, const Measure& measure, double high, int digits,
                    const std::string& unit) {
  const std::string wanted = "at most " + withUnit(high, digits, unit);
  const std::vector<double> values =
      valuesOf(trials, [&](const Figures& figures) { return std::abs(measure(figures)); });
  if (values.empty()) return unmeasured(wanted);
  const double value = mean(values);
  return {withUnit(value, digits, unit), wanted, value <= high};
}

Bar spreadAtMost(Trials trials, const Measure& measure, double high, int digits,
                 const std::string& unit) {
  const std::string wanted = "spread at most " + withUnit(high, digits, unit);
  const std::vector<double> values = valuesOf(trials, measure);
  if (values.empty()) return unmeasured(wanted);
  if (values.size() < kFewest) return {"too few for a spread", wanted, true};
  const double middle = mean(values);
  double squares = 0;
  for (const double value : values) squares += (value - middle) * (value - middle);
  const double spread = std::sqrt(squares / static_cast<double>(values.size() - 1));
  return {"spread " + withUnit(spread, digits, unit), wanted, spread <= high};
}

Bar shareOf(Trials trials, const Condition& condition, double share, const std::string& what) {
  const auto count = std::count_if(trials.begin(), trials.end(), condition);
  const auto all = static_cast<double>(trials.size());
  const auto wanted = static_cast<long>(std::floor(share * all + 1e-9));
  const std::string total = std::to_string(trials.size());
  return {what + " " + std::to_string(count) + " of " + total,
          std::to_string(wanted) + " of " + total, !trials.empty() && count >= wanted};
}

}  // namespace workshop
