#include "arena/link/Lists.h"

#include <cstddef>

namespace arena {
namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

}  // namespace

bool splitLevel(std::string_view text, std::vector<std::string_view>& parts) {
  parts.clear();
  std::size_t depth = 0;
  std::size_t begin = 0;  // of the part that is being read
  bool inWord = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (depth == 0 && inWord && (isBlank(c) || c == '(' || c == ')')) {
      parts.push_back(text.substr(begin, i - begin));
      inWord = false;
    }
    if (c == '(') {
      if (depth == 0) begin = i;
      ++depth;
    } else if (c == ')') {
      if (depth == 0) return false;
      --depth;
      if (depth == 0) parts.push_back(text.substr(begin, i - begin + 1));
    } else if (depth == 0 && !inWord && !isBlank(c)) {
      begin = i;
      inWord = true;
    }
  }
  if (depth != 0) return false;
  if (inWord) parts.push_back(text.substr(begin));
  return true;
}

std::string_view insideOf(std::string_view list) {
  return list.substr(1, list.size() - 2);
}

}  // namespace arena
