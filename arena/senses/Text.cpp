#include "arena/senses/Text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace arena {
namespace {

/// Below this a product with 100 is off by less than kTooClose, and its digits fit into 32 bits.
constexpr double kFastBelow = 1e7;
/// [hundredths] So near to the middle between two of them only exact arithmetic can tell which is
/// the nearer one.
constexpr double kTooClose = 1e-6;

void appendSlowly(std::string& text, double value) {
  std::array<char, 512> buffer{};  // the largest double has 309 digits before the point
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                    std::chars_format::fixed, 2);
  std::string_view digits(buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data()));
  if (digits == "-0.00") digits.remove_prefix(1);
  text += digits;
}

}  // namespace

// Numbers are most of what the senses write: by whole hundredths that takes a fraction of the
// library's time [measured: bench/arena], and gives the same digits.
void appendNumber(std::string& text, double value) {
  const double hundredths = std::abs(value) * 100;
  if (!(hundredths < kFastBelow * 100)) return appendSlowly(text, value);
  const double below = std::floor(hundredths);
  const double rest = hundredths - below;
  if (std::abs(rest - 0.5) < kTooClose) return appendSlowly(text, value);

  const auto rounded = static_cast<std::uint32_t>(below) + (rest > 0.5 ? 1U : 0U);
  std::array<char, 16> buffer{};
  char* at = buffer.data() + buffer.size();
  *--at = static_cast<char>('0' + rounded % 10);
  *--at = static_cast<char>('0' + rounded / 10 % 10);
  *--at = '.';
  std::uint32_t whole = rounded / 100;
  do {
    *--at = static_cast<char>('0' + whole % 10);
    whole /= 10;
  } while (whole > 0);
  if (value < 0 && rounded > 0) *--at = '-';
  text.append(at, buffer.data() + buffer.size());
}

}  // namespace arena
