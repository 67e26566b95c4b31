#include "viewer/server/Reports.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace arena::view {
namespace {

constexpr std::size_t kMostFields = 4;
constexpr int kTeam = 6;  ///< the talk counts opponents from here on

struct Fields {
  std::array<double, kMostFields> values{};
  std::size_t count = 0;
};

/// The comma-separated numbers of TEXT; empty when anything else is in it.
std::optional<Fields> fieldsOf(std::string_view text) {
  Fields fields;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (fields.count < kMostFields) {
    const auto [next, error] = std::from_chars(at, end, fields.values[fields.count]);
    if (error != std::errc{} || !std::isfinite(fields.values[fields.count])) return std::nullopt;
    ++fields.count;
    if (next == end) return fields;
    if (*next != ',') return std::nullopt;
    at = next + 1;
  }
  return std::nullopt;
}

bool isWhole(double value, int low, int high) {
  return value >= low && value <= high && value == std::floor(value);
}

}  // namespace

std::optional<Report> reportIn(std::string_view said) {
  if (said.size() < 2 || said[1] != ',') return std::nullopt;
  const auto fields = fieldsOf(said.substr(2));
  if (!fields) return std::nullopt;
  const auto& [v, count] = *fields;
  switch (said[0]) {
    case 'P':
      if (count == 3 && isWhole(v[0], 1, kTeam)) return OwnPlace{{v[1], v[2]}};
      break;
    case '|':
      if (count == 4 && isWhole(v[0], 1, kTeam)) return BallPlace{{v[1], v[2]}, v[3]};
      break;
    case '~':
      if (count == 3 && isWhole(v[0], kTeam + 1, 2 * kTeam)) {
        return OpponentPlace{static_cast<int>(v[0]) - kTeam, {v[1], v[2]}};
      }
      break;
    default:
      break;
  }
  return std::nullopt;
}

Spot inField(const Spot& spot, Side side) {
  return side == Side::kLeft ? spot : Spot{-spot.x, -spot.y};
}

}  // namespace arena::view
