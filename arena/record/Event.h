#pragma once

/// Something in a match that a person wants to know at once. The match reports events in the order
/// in which they happen; the program prints them as lines, a record keeps them.

#include <string>

namespace arena {

struct Event {
  double seconds = 0;  ///< [s] simulated since the start of the match
  std::string text{};

  friend bool operator==(const Event&, const Event&) = default;
};

/// "12.34 s  left 3 connected, team Foo"
std::string lineOf(const Event& event);

}  // namespace arena
