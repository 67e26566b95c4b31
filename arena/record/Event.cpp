#include "arena/record/Event.h"

#include <array>
#include <charconv>

namespace arena {

std::string lineOf(const Event& event) {
  std::array<char, 512> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), event.seconds,
                                 std::chars_format::fixed, 2);
  return std::string(digits.data(), end.ptr) + " s  " + event.text;
}

}  // namespace arena
