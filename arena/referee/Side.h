#pragma once

/// Which half a team defends, and how a player is named within a match. Plain values that the
/// roster hands out and the referee, the senses and the match read.

#include <string>
#include <string_view>

namespace arena {

enum class Side { kLeft, kRight };

/// As the perception message spells it.
constexpr std::string_view nameOf(Side side) {
  return side == Side::kLeft ? "left" : "right";
}

constexpr Side opposite(Side side) {
  return side == Side::kLeft ? Side::kRight : Side::kLeft;
}

/// -1 or 1: towards which end of the field's x axis a side's own goal lies.
constexpr double ownEnd(Side side) {
  return side == Side::kLeft ? -1.0 : 1.0;
}

/// One player of a match, for as long as its session lives.
struct Shirt {
  Side side = Side::kLeft;
  int number = 0;  ///< 1 to 6

  friend bool operator==(const Shirt&, const Shirt&) = default;
};

/// "left 3", for people.
inline std::string nameOf(const Shirt& shirt) {
  return std::string(nameOf(shirt.side)) + " " + std::to_string(shirt.number);
}

}  // namespace arena
