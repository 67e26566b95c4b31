#include "perception/NumberReaders.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "perception/SLangParser.h"

namespace {

constexpr double kUnknownNumber = -1000.0;
/// A "nan" counts only with this many characters behind its first letter, so a bare one is none.
constexpr std::size_t kTailOfNan = 4;

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

bool isNanAt(std::string_view text, std::size_t i) {
  return text.size() - i > kTailOfNan &&
         (text.compare(i, 3, "NaN") == 0 || text.compare(i, 3, "nan") == 0);
}

char at(std::string_view text, std::size_t i) {
  return i < text.size() ? text[i] : '\0';
}

double powerOfTen(std::string_view text, std::size_t start) {
  return std::pow(10.0, firstInt(text, static_cast<int>(start)));
}

/// The unsigned number at I.
double readMagnitude(std::string_view text, std::size_t i) {
  double value = 0.0;
  double scale = 1.0;
  bool inFraction = false;
  for (char c = at(text, i); c != '\0'; c = at(text, ++i)) {
    if (c == '.') {
      inFraction = true;  // a second point changes nothing
    } else if (isDigit(c) && !inFraction) {
      value = value * 10.0 + (c - '0');
    } else if (isDigit(c)) {
      scale = scale * 10.0;
      value = value + (c - '0') / scale;
    } else if (c == 'e' && at(text, i + 1) == '+') {
      return value * powerOfTen(text, i);
    } else if (c == 'e' && at(text, i + 1) == '-') {
      return value / powerOfTen(text, i + 2);
    } else {
      break;
    }
  }
  return value;
}

/// Up to so many digits a number is exact in a double, and so is any power of ten below.
constexpr int kExactDigits = 15;
constexpr std::array kPowersOfTen{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                  1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

}  // namespace

double firstDouble(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (isDigit(c) || c == '.') {
      return readMagnitude(text, i);
    }
    if (c == '-') {
      const double magnitude = readMagnitude(text, i + 1);
      return magnitude == 0.0 ? 0.0 : -magnitude;
    }
    if (isNanAt(text, i)) {
      return kUnknownNumber;
    }
  }
  return 0.0;
}

int firstInt(std::string_view text, int start) {
  if (text.compare(0, 3, "nan") == 0 || start < 0) {
    return 0;
  }
  auto i = static_cast<std::size_t>(start);
  while (i < text.size() && !isDigit(text[i]) && text[i] != '-') {
    ++i;
  }
  const bool negative = at(text, i) == '-';
  if (negative) {
    ++i;
  }
  // Unsigned, so that too many digits wrap round in a defined way.
  unsigned int value = 0;
  for (; isDigit(at(text, i)); ++i) {
    value = value * 10U + static_cast<unsigned int>(text[i] - '0');
  }
  return static_cast<int>(negative ? 0U - value : value);
}

double decimalAtFront(std::string_view text) {
  const bool negative = at(text, 0) == '-';
  std::size_t i = negative ? 1 : 0;
  std::uint64_t digits = 0;
  int count = 0;
  std::size_t decimals = 0;
  bool inFraction = false;
  for (char c = at(text, i); count <= kExactDigits; c = at(text, ++i)) {
    if (isDigit(c)) {
      digits = digits * 10U + static_cast<std::uint64_t>(c - '0');
      ++count;
      decimals += inFraction ? 1U : 0U;
    } else if (c == '.' && !inFraction) {
      inFraction = true;
    } else {
      break;
    }
  }
  // Two exact numbers: their quotient is rounded once, as strtod's result is. (Clinger, "How to
  // read floating point numbers accurately", 1990.)
  const bool ends = i >= text.size() || text[i] == ')';
  if (ends && count > 0 && count <= kExactDigits) {
    const double magnitude = static_cast<double>(digits) / kPowersOfTen[decimals];
    return negative ? -magnitude : magnitude;
  }
  return std::strtod(std::string(text).c_str(), nullptr);
}

int integerAtFront(std::string_view text) {
  constexpr std::size_t kSmall = 9;
  if (text.empty() || text.size() > kSmall) {
    return static_cast<int>(std::strtol(std::string(text).c_str(), nullptr, 10));
  }
  int value = 0;
  for (const char c : text) {
    if (!isDigit(c)) {
      return static_cast<int>(std::strtol(std::string(text).c_str(), nullptr, 10));
    }
    value = value * 10 + (c - '0');
  }
  return value;
}

double SLangParser::parseFirstDouble(const std::string& text) {
  return firstDouble(text);
}

int SLangParser::parseFirstInt(const std::string& text, const int& start) {
  return firstInt(text, start);
}
