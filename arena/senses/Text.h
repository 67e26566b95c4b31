#pragma once

/// Numbers as the perception message writes them. Called by Perception for every number.

#include <string>

namespace arena {

/// Appends VALUE with two decimals, whatever the locale; what rounds to zero is written without a
/// sign.
void appendNumber(std::string& text, double value);

}  // namespace arena
