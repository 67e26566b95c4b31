#include "arena/match/Room.h"

namespace arena {
namespace {

/// [m] a robot that lies reaches 0.4 m from its torso to its feet.
constexpr double kReach = 0.5;

Spot spotOf(const Vec3& place) {
  return {place[0], place[1]};
}

/// Whether ONE could be moved: with all places taken, it stays.
bool moveOut(World& world, const FreeSpace& space, const Occupant& one) {
  std::vector<Spot> others;
  for (int slot = 0; slot < kMaxRobots; ++slot) {
    if (slot == one.slot || !world.hasRobot(slot)) continue;
    others.push_back(spotOf(world.robot(slot).torso.position));
  }
  const Spot from = spotOf(world.robot(one.slot).torso.position);
  const auto to = placeOutside(space, one.side, from, others);
  if (to) world.shift(one.slot, to->x - from.x, to->y - from.y);
  return to.has_value();
}

}  // namespace

std::vector<int> leaveFreeSpace(World& world, const FreeSpace& space,
                                const std::vector<Occupant>& players) {
  std::vector<int> moved;
  for (const Occupant& player : players) {
    const Spot place = spotOf(world.robot(player.slot).torso.position);
    if (!isInTheWay(space, player.side, place)) continue;
    if (moveOut(world, space, player)) moved.push_back(player.slot);
  }
  return moved;
}

std::vector<int> leaveBall(World& world, const std::vector<Occupant>& players) {
  const FreeSpace space{spotOf(world.ball().position), kReach, {}};
  std::vector<int> moved;
  for (const Occupant& player : players) {
    if (!world.overlapsBall(player.slot)) continue;
    if (moveOut(world, space, player)) moved.push_back(player.slot);
  }
  return moved;
}

}  // namespace arena
