#pragma once

/// A match file, cycle by cycle, as far as it is whole: a file may have been cut off in mid-cycle
/// or damaged since. Whatever the bytes are, the cycles given out are ones that were written, in
/// order and without a gap from the first; after the first damage there are no more.

#include <istream>
#include <optional>
#include <stdexcept>
#include <string>

#include "arena/record/Compression.h"
#include "arena/record/CycleCodec.h"
#include "arena/record/FileFormat.h"

namespace arena {

/// There is no record to be read at all; what() is one line for a person.
struct RecordError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class RecordReader {
 public:
  /// FILE, opened in binary, must outlive the reader. Throws RecordError when it doesn't begin as a
  /// match file of a version that is known.
  explicit RecordReader(std::istream& file);

  [[nodiscard]] const RecordSettings& settings() const { return settings_; }

  /// The next cycle; none at the end of the file or of its good part.
  std::optional<CycleRecord> next();

  /// After the last cycle: why the record isn't whole, one line for a person. None: it is.
  [[nodiscard]] const std::optional<std::string>& fault() const { return fault_; }

 private:
  struct Chunk {
    ChunkKind kind{};
    std::string data{};
  };

  [[nodiscard]] std::string bytes(std::size_t count);
  [[nodiscard]] std::optional<Chunk> chunk();
  std::nullopt_t stop(const std::string& why);

  std::istream& file_;
  RecordSettings settings_{};
  CycleDecoder decoder_{};
  Decompressor decompressor_{};
  std::size_t place_ = 0;  ///< [byte] in the file, behind what has been read
  long lastCycle_ = 0;
  bool over_ = false;
  std::optional<std::string> fault_{};
};

}  // namespace arena
