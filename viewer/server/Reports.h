#pragma once

/// What players tell each other, read back into numbers: the only account of what they believe.
/// Called for each text that a player said; what isn't a report is left alone.
///
///   P,3,1.5,-0.25        own position: shirt number, x, y
///   |,3,1.50,-0.25,3.00  ball: shirt number, x, y, distance from the speaker
///   ~,9,1.5,-0.25        opponent: its shirt number and 6 more, x, y
///
/// Places are in the team's own frame: it attacks towards +x, and y is to the left of its attack.

#include <optional>
#include <string_view>
#include <variant>

#include "arena/referee/Side.h"

namespace arena::view {

/// A point on the ground.
struct Spot {
  double x = 0;  ///< [m]
  double y = 0;  ///< [m]
};

struct OwnPlace {
  Spot at{};
};

struct BallPlace {
  Spot at{};
  double distance = 0;  ///< [m] from the speaker
};

struct OpponentPlace {
  int number = 0;  ///< 1 to 6
  Spot at{};
};

using Report = std::variant<OwnPlace, BallPlace, OpponentPlace>;

/// Empty for any other text, and for numbers that are not finite.
std::optional<Report> reportIn(std::string_view said);

/// A spot of SIDE's team frame in the field frame.
Spot inField(const Spot& spot, Side side);

}  // namespace arena::view
