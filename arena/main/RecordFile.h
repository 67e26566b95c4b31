#pragma once

/// A match record that the command line names, opened and read. Called by the commands that work
/// on records.

#include <fstream>
#include <optional>
#include <string>

#include "arena/record/RecordReader.h"

namespace arena {

class RecordFile {
 public:
  /// Throws UsageError that names COMMAND when FILE can't be opened, RecordError when it is none.
  RecordFile(const std::string& command, const std::string& file);

  /// The next cycle; none at the end of the file or of its good part.
  std::optional<CycleRecord> next() { return reader_.next(); }
  /// After the last: tells on standard error what is wrong with the file, if anything. The
  /// command's exit status: 1 when something is.
  [[nodiscard]] int close() const;

 private:
  std::string name_;
  std::ifstream file_;
  RecordReader reader_;
};

}  // namespace arena
