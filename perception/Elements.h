#pragma once

/// What the list-based decoders share: walking the sub-elements of one element.

#include <cstddef>
#include <string_view>

#include "perception/ListView.h"

/// Marks a number that an element didn't give.
inline constexpr double kMissingNumber = -1000.0;

/// Splits TEXT and tells whether it has exactly COUNT tokens.
inline bool splitInto(std::string_view text, std::size_t count, TokenViews& tokens) {
  return splitList(text, tokens) && tokens.size() == count;
}
