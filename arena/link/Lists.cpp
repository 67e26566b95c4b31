#include "arena/link/Lists.h"

#include <cstddef>

namespace arena {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool isBlank(char c) {
  return kBlanks.find(c) != std::string_view::npos;
}

}  // namespace

std::optional<std::vector<std::string_view>> splitLevel(std::string_view text) {
  std::vector<std::string_view> parts;
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
      if (depth == 0) return std::nullopt;
      --depth;
      if (depth == 0) parts.push_back(text.substr(begin, i - begin + 1));
    } else if (depth == 0 && !inWord && !isBlank(c)) {
      begin = i;
      inWord = true;
    }
  }
  if (depth != 0) return std::nullopt;
  if (inWord) parts.push_back(text.substr(begin));
  return parts;
}

std::string_view insideOf(std::string_view list) {
  return list.substr(1, list.size() - 2);
}

}  // namespace arena
