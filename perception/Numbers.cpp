/// SLangParser: the forgiving number readers.

#include "perception/SLangParser.h"

#include <cmath>

namespace {

constexpr double kUnknownNumber = -1000.0;
/// A "nan" counts only with this many characters behind its first letter, so a bare one is none.
constexpr std::size_t kTailOfNan = 4;

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

bool isNanAt(const std::string& text, std::size_t i) {
  return text.size() - i > kTailOfNan &&
         (text.compare(i, 3, "NaN") == 0 || text.compare(i, 3, "nan") == 0);
}

char at(const std::string& text, std::size_t i) {
  return i < text.size() ? text[i] : '\0';
}

double powerOfTen(const std::string& text, std::size_t start) {
  return std::pow(10.0, SLangParser::parseFirstInt(text, static_cast<int>(start)));
}

/// The unsigned number at I.
double readMagnitude(const std::string& text, std::size_t i) {
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

}  // namespace

double SLangParser::parseFirstDouble(const std::string& text) {
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

int SLangParser::parseFirstInt(const std::string& text, const int& start) {
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
