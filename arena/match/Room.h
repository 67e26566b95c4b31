#pragma once

/// Makes the room that a ruling asks for: robots are shifted as they are, standing or lying, in
/// the middle of a step or not. Called by the match after each ruling.

#include <vector>

#include "arena/referee/FreeSpace.h"
#include "arena/world/World.h"

namespace arena {

/// One robot that is on the field.
struct Occupant {
  int slot = 0;
  Side side = Side::kLeft;
};

/// Shifts every one of PLAYERS who is in the way out of SPACE. Slots of those that were moved.
std::vector<int> leaveFreeSpace(World& world, const FreeSpace& space,
                                const std::vector<Occupant>& players);

/// Shifts whoever the ball was put into. Slots of those that were moved.
std::vector<int> leaveBall(World& world, const std::vector<Occupant>& players);

}  // namespace arena
