#include "workshop/tune/Space.h"

#include <algorithm>
#include <cmath>

namespace workshop {
namespace {

/// Six digits are plenty, and keep the files readable.
double rounded(double value) {
  if (value == 0) return 0;
  const double scale = std::pow(10.0, 5 - std::floor(std::log10(std::abs(value))));
  return std::round(value * scale) / scale;
}

ParameterError wrong(const std::string& pointer, const std::string& where, const char* what) {
  return ParameterError(where + "/tune/" + pointer + ": " + what);
}

}  // namespace

Space spaceOf(const Json& description, const std::string& where) {
  const Json& object = objectIn(description, "tune", where);
  if (!object.is_object() || object.empty()) {
    throw ParameterError(where + ": \"tune\" must name numbers");
  }
  Space space;
  for (const auto& [pointer, bounds] : object.items()) {
    const bool pair = bounds.is_array() && bounds.size() == 2 && bounds[0].is_number() &&
                      bounds[1].is_number() && bounds[0] < bounds[1];
    if (!pair) throw wrong(pointer, where, "must be a lower and an upper bound");
    if (pointer.empty() || pointer.front() != '/' ||
        !description.contains(Json::json_pointer(pointer)) ||
        !description.at(Json::json_pointer(pointer)).is_number()) {
      throw wrong(pointer, where, "no such number");
    }
    space.push_back({pointer, bounds[0].get<double>(), bounds[1].get<double>()});
  }
  return space;
}

std::vector<double> pointOf(const Json& description, const Space& space) {
  std::vector<double> point;
  for (const Dimension& d : space) {
    const double value = description.at(Json::json_pointer(d.pointer)).get<double>();
    point.push_back(std::clamp((value - d.low) / (d.high - d.low), 0.0, 1.0));
  }
  return point;
}

Json movedTo(Json description, const Space& space, const std::vector<double>& point) {
  for (std::size_t i = 0; i < space.size(); ++i) {
    const double inside = std::abs(std::remainder(point.at(i), 2.0));
    description[Json::json_pointer(space[i].pointer)] =
        rounded(space[i].low + inside * (space[i].high - space[i].low));
  }
  return description;
}

}  // namespace workshop
