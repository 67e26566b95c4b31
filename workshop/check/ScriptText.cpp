#include "workshop/check/ScriptText.h"

#include <algorithm>
#include <istream>
#include <sstream>

namespace workshop {

std::vector<Pair> pairsOf(const std::string& text) {
  std::istringstream in(text);
  std::vector<Pair> pairs;
  std::size_t counted = 0;
  int line = 1;
  while (in >> std::ws && !in.eof()) {
    const auto at = static_cast<std::size_t>(in.tellg());
    line += static_cast<int>(std::count(text.begin() + static_cast<std::ptrdiff_t>(counted),
                                        text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
    counted = at;
    Pair pair;
    pair.line = line;
    in >> pair.word;
    pair.readable = static_cast<bool>(in >> pair.number);
    if (!pair.readable) pair.number = 0;
    pairs.push_back(pair);
    if (!pair.readable) break;
  }
  return pairs;
}

}  // namespace workshop
