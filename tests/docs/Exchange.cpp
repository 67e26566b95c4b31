#include "tests/docs/Exchange.h"

#include <stdexcept>

#include "arena/link/Lists.h"
#include "tests/docs/Page.h"

namespace docs {

std::vector<std::string> recorded(char mark) {
  std::vector<std::string> texts;
  for (const std::string& line : linesOf(Page("docs/exchange.txt").text())) {
    if (line.starts_with(mark)) texts.push_back(line.substr(2));
  }
  return texts;
}

Words partsOf(std::string_view text) {
  Words parts;
  if (!arena::splitLevel(text, parts))
    throw std::invalid_argument("unbalanced: " + std::string(text));
  return parts;
}

Words insideOf(std::string_view list) {
  return partsOf(arena::insideOf(list));
}

Words find(const Words& parts, std::string_view name) {
  for (const std::string_view part : parts) {
    if (!part.starts_with('(')) continue;
    Words inside = insideOf(part);
    if (!inside.empty() && inside.front() == name) return inside;
  }
  return {};
}

double number(std::string_view word) {
  return std::stod(std::string(word));
}

}  // namespace docs
