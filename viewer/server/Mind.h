#pragma once

/// One player's mind at one cycle: what it has said of itself and the ball, what its log says of
/// its plan, and what it was shown. Put together from a timeline whenever a page asks.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "viewer/server/Reports.h"
#include "viewer/server/Timeline.h"

namespace arena::view {

/// Older words aren't looked at: a player reports its place every 20 cycles, and what it believed
/// long ago says nothing about now.
inline constexpr long kMemoryCycles = 500;
/// Own place and ball report must be this close for a heading to be worked out.
inline constexpr long kHeadingCycles = 25;
inline constexpr std::size_t kMostTraceLines = 8;

/// Something believed, and when it was told.
template <typename What>
struct Told {
  What what{};
  long cycle = 0;
};

struct Mind {
  std::size_t slot = 0;
  long cycle = 0;
  // Believed, by its own reports; field frame.
  std::optional<Told<Spot>> self{};
  std::optional<Told<Spot>> ball{};
  std::vector<Told<OpponentPlace>> opponents{};  ///< by number
  /// [deg] field frame, from +x towards +y. No report tells it: it is the heading with which the
  /// ball, shown where it was shown, lies where the player says.
  std::optional<Told<double>> headingDeg{};
  std::optional<Told<std::string>> words{};  ///< the last that it said
  // By its log.
  std::optional<Told<int>> action{};  ///< number of the action that it ran last
  std::vector<std::string> trace{};   ///< last lines, oldest first
  // By the arena: what it was shown at its last look.
  Shown shown{};
};

/// Empty when nobody is in SLOT at that time.
std::optional<Mind> mindAt(const Timeline& timeline, long cycle, std::size_t slot);

}  // namespace arena::view
