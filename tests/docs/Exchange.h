#pragma once

/// The session recorded in docs/exchange.txt, and the taking apart of its texts with the training
/// ground's splitter, which shares nothing with the player's reader. For the tests of the page.

#include <string>
#include <string_view>
#include <vector>

namespace docs {

using Words = std::vector<std::string_view>;

/// The texts behind MARK: '<' what the player perceived, '>' what it answered.
std::vector<std::string> recorded(char mark);

/// The lists and words of TEXT at its outermost level. Throws std::invalid_argument when the
/// parentheses don't match.
Words partsOf(std::string_view text);
/// The same of what stands inside LIST: its name, then the rest.
Words insideOf(std::string_view list);
/// The list of that NAME among PARTS, taken apart; empty if there is none.
Words find(const Words& parts, std::string_view name);

double number(std::string_view word);

}  // namespace docs
