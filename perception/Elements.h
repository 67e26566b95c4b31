#pragma once

/// What the list-based decoders share: walking the sub-elements of one element.

#include <cstddef>
#include <string>
#include <vector>

#include "perception/SLangParser.h"

/// Marks a number that an element didn't give.
inline constexpr double kMissingNumber = -1000.0;

/// Splits TEXT and tells whether it has exactly COUNT tokens.
inline bool splitInto(const std::string& text, std::size_t count,
                      std::vector<std::string>& tokens) {
  return SLangParser::parseSExpression(text, tokens) && tokens.size() == count;
}
