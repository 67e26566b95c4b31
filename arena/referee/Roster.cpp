#include "arena/referee/Roster.h"

namespace arena {

Roster::Team& Roster::team(Side side) {
  return teams_[static_cast<std::size_t>(side)];
}

std::variant<Shirt, Refusal> Roster::join(std::string_view name, int number) {
  if (number < 1 || number > kTeamSize) {
    return Refusal{"shirt number " + std::to_string(number) + " is outside 1 to " +
                   std::to_string(kTeamSize)};
  }
  const auto index = static_cast<std::size_t>(number - 1);

  bool known = false;
  for (const Side side : {Side::kLeft, Side::kRight}) {
    Team& candidate = team(side);
    if (candidate.name.empty()) candidate.name = name;
    if (candidate.name != name) continue;
    known = true;
    if (!candidate.taken[index]) {
      candidate.taken[index] = true;
      return Shirt{side, number};
    }
  }
  if (!known) return Refusal{"a third team, " + std::string(name)};
  return Refusal{"number " + std::to_string(number) + " of " + std::string(name) +
                 " is already playing"};
}

void Roster::release(const Shirt& shirt) {
  team(shirt.side).taken[static_cast<std::size_t>(shirt.number - 1)] = false;
}

const std::string& Roster::teamName(Side side) const {
  return teams_[static_cast<std::size_t>(side)].name;
}

}  // namespace arena
