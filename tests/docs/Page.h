#pragma once

/// One Markdown page of the project, as far as tests need it: its code blocks by their label and
/// its tables by the first heading of their columns. Read by the tests that hold pages against the
/// code.

#include <string>
#include <string_view>
#include <vector>

namespace docs {

struct CodeBlock {
  std::string label{};  ///< what stands behind the opening fence: "perception", "script turnL9.txt"
  std::string text{};   ///< each line with its end
};

/// A row of a table: its cells, without blanks round them and without back quotes.
using Row = std::vector<std::string>;

class Page {
 public:
  /// PATH is relative to the project's folder. Throws std::runtime_error if it can't be read.
  explicit Page(std::string_view path);

  [[nodiscard]] const std::string& text() const { return text_; }
  /// The blocks whose label begins with LABEL.
  [[nodiscard]] std::vector<CodeBlock> blocks(std::string_view label) const;
  /// The rows of the table whose first column is headed HEADING; none if there is no such table.
  [[nodiscard]] std::vector<Row> table(std::string_view heading) const;

 private:
  std::string text_;
};

std::vector<std::string> linesOf(std::string_view text);

}  // namespace docs
