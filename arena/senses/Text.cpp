#include "arena/senses/Text.h"

#include <array>
#include <charconv>
#include <string_view>

namespace arena {

void appendNumber(std::string& text, double value) {
  std::array<char, 512> buffer{};  // the largest double has 309 digits before the point
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                    std::chars_format::fixed, 2);
  std::string_view digits(buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data()));
  if (digits == "-0.00") digits.remove_prefix(1);
  text += digits;
}

}  // namespace arena
