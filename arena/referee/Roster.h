#pragma once

/// Who plays for whom. The match asks once for each player's `init`, and gives the shirt back
/// when the player's session ends.
///
/// The first team name to come in is left, the second right. A shirt number that its team has
/// given out already goes to the other side under the same name, if that side is free for it:
/// that is how a team plays itself.

#include <array>
#include <string>
#include <string_view>
#include <variant>

#include "arena/referee/Side.h"

namespace arena {

inline constexpr int kTeamSize = 6;

/// A player that can't be taken, in words for the log.
struct Refusal {
  std::string why;
};

class Roster {
 public:
  /// A shirt for a player of TEAM, or why there is none.
  std::variant<Shirt, Refusal> join(std::string_view team, int number);
  /// The shirt is free again; the side keeps its name.
  void release(const Shirt& shirt);

  /// Empty until a side has a team.
  [[nodiscard]] const std::string& teamName(Side side) const;

 private:
  struct Team {
    std::string name{};
    std::array<bool, kTeamSize> taken{};
  };
  [[nodiscard]] Team& team(Side side);

  std::array<Team, 2> teams_{};
};

}  // namespace arena
