#include "math/NumberText.h"

#include <array>
#include <charconv>

namespace {

/// Of a stream that nobody has told otherwise.
constexpr int kSignificantDigits = 6;
/// The greatest number has 309 digits before the point.
constexpr std::size_t kLongest = 400;

void append(std::string& text, double value, std::chars_format format, int precision) {
  std::array<char, kLongest> digits;
  const std::to_chars_result end =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, format, precision);
  text.append(digits.data(), end.ptr);
}

}  // namespace

void appendShort(std::string& text, double value) {
  append(text, value, std::chars_format::general, kSignificantDigits);
}

void appendFixed(std::string& text, double value, int decimals) {
  append(text, value, std::chars_format::fixed, decimals);
}
