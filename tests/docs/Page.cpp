#include "tests/docs/Page.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace docs {
namespace {

constexpr std::string_view kFence = "```";

std::string trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

/// "| `a` | b\|c |" as "a", "b|c".
Row cellsOf(const std::string& line) {
  Row cells;
  std::string cell;
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (line[i] == '\\' && i + 1 < line.size() && line[i + 1] == '|') {
      cell += line[++i];
    } else if (line[i] == '|') {
      cells.push_back(trimmed(cell));
      cell.clear();
    } else if (line[i] != '`') {
      cell += line[i];
    }
  }
  return cells;
}

}  // namespace

std::vector<std::string> linesOf(std::string_view text) {
  std::istringstream in{std::string(text)};
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

Page::Page(std::string_view path) {
  const std::string full = std::string(PITCH_SOURCE_DIR) + "/" + std::string(path);
  std::ifstream in(full);
  if (!in) throw std::runtime_error("can't read " + full);
  text_.assign(std::istreambuf_iterator<char>(in), {});
}

std::vector<CodeBlock> Page::blocks(std::string_view label) const {
  std::vector<CodeBlock> found;
  bool inside = false;
  bool wanted = false;
  for (const std::string& line : linesOf(text_)) {
    if (line.starts_with(kFence)) {
      const std::string_view behind = std::string_view(line).substr(kFence.size());
      wanted = !inside && behind.starts_with(label);
      inside = !inside;
      if (wanted) found.push_back({std::string(behind), ""});
    } else if (inside && wanted) {
      found.back().text += line + '\n';
    }
  }
  return found;
}

std::vector<Row> Page::table(std::string_view heading) const {
  std::vector<Row> rows;
  bool inside = false;
  for (const std::string& line : linesOf(text_)) {
    if (!line.starts_with('|')) {
      if (inside) break;
      continue;
    }
    const Row row = cellsOf(line);
    if (inside) {
      rows.push_back(row);
    } else {
      inside = !row.empty() && row.front() == heading;
    }
  }
  if (!rows.empty()) rows.erase(rows.begin());  // the line of dashes
  return rows;
}

}  // namespace docs
