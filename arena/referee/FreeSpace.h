#pragma once

/// Room around a ball that players have to leave. The referee says where there is some, the match
/// moves the players; whereto is worked out here, by plane geometry.

#include <optional>
#include <vector>

#include "arena/referee/Side.h"

namespace arena {

/// A place on the ground.
struct Spot {
  double x = 0;  ///< [m] field frame
  double y = 0;  ///< [m] field frame
};

/// [m] on the ground.
double distance(const Spot& a, const Spot& b);

/// A circle that players have to leave.
struct FreeSpace {
  Spot centre{};
  double radius = 0;             ///< [m] for the middle of a player's torso
  std::optional<Side> exempt{};  ///< the side that may be in it; empty: nobody
};

/// Whether a player of SIDE at PLACE has to go.
bool isInTheWay(const FreeSpace& space, Side side, const Spot& place);

/// The place for a player who has to leave SPACE: within the lines, clear of OTHERS, a little
/// further out than it must be, and as straight away from the centre of where it is as that allows.
/// Straight away from the very centre is towards the player's own goal. Empty if all is taken.
std::optional<Spot> placeOutside(const FreeSpace& space, Side side, const Spot& place,
                                 const std::vector<Spot>& others);

}  // namespace arena
