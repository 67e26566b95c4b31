#pragma once

/// A script's text taken apart as the player's readers take it: pairs of a word and a number, by
/// the same stream extraction, with the line of each. Pure.

#include <string>
#include <vector>

namespace workshop {

struct Pair {
  std::string word{};
  double number = 0;     ///< 0 where none could be read
  int line = 0;          ///< of the word
  bool readable = true;  ///< there was a number; without one the reader never gets further
};

/// All that a reader would get to.
std::vector<Pair> pairsOf(const std::string& text);

}  // namespace workshop
