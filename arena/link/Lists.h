#pragma once

/// Splitting of parenthesised text, one level at a time. The effector reader calls it for a frame
/// and again for each list in it. Never recurses: a frame of nothing but parentheses costs one
/// pass. Lists go by their parentheses alone; what stands in between is the caller's to judge.

#include <string_view>
#include <vector>

namespace arena {

/// PARTS becomes the parts of TEXT at its outermost level: each "(...)" with its parentheses, and
/// each run of other non-blank characters. False if the parentheses don't balance; then PARTS is of
/// no use. The views look into TEXT. A caller that hands in the same PARTS again spares the memory.
bool splitLevel(std::string_view text, std::vector<std::string_view>& parts);

/// What stands between the parentheses of LIST, a part that begins with one.
std::string_view insideOf(std::string_view list);

}  // namespace arena
