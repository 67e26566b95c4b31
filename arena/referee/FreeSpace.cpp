#include "arena/referee/FreeSpace.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "arena/model/FieldTable.h"

namespace arena {
namespace {

/// [m] further out than needed, so that a player who walks on isn't moved in every cycle.
constexpr double kMargin = 0.2;
/// [m] between torsos. One that lies reaches 0.4 m to its feet and must not be put into another.
constexpr double kRoomForOne = 0.7;
/// [m] inside of the lines: clear of goal posts too.
constexpr double kInside = 0.3;
constexpr int kRings = 6;
constexpr int kTurnDeg = 5;

bool isOnField(const Spot& place) {
  return std::abs(place.x) <= kFieldLength / 2 - kInside &&
         std::abs(place.y) <= kFieldWidth / 2 - kInside;
}

bool isClear(const Spot& place, const std::vector<Spot>& others) {
  return std::none_of(others.begin(), others.end(),
                      [&](const Spot& other) { return distance(place, other) < kRoomForOne; });
}

}  // namespace

double distance(const Spot& a, const Spot& b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

bool isInTheWay(const FreeSpace& space, Side side, const Spot& place) {
  return space.exempt != side && distance(place, space.centre) < space.radius;
}

std::optional<Spot> placeOutside(const FreeSpace& space, Side side, const Spot& place,
                                 const std::vector<Spot>& others) {
  const bool isAtCentre = distance(place, space.centre) < 1e-6;
  const double away = isAtCentre ? std::atan2(0.0, ownEnd(side))
                                 : std::atan2(place.y - space.centre.y, place.x - space.centre.x);
  for (int ring = 0; ring < kRings; ++ring) {
    const double radius = space.radius + kMargin + ring * kRoomForOne;
    for (int turn = 0; turn <= 180; turn += kTurnDeg) {
      for (const double sign : {1.0, -1.0}) {
        const double angle = away + sign * turn * std::numbers::pi / 180;
        const Spot candidate{space.centre.x + radius * std::cos(angle),
                             space.centre.y + radius * std::sin(angle)};
        if (isOnField(candidate) && isClear(candidate, others)) return candidate;
      }
    }
  }
  return std::nullopt;
}

}  // namespace arena
