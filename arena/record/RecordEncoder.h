#pragma once

/// A match as the bytes of a match file, in pieces that are to be appended one after the other:
/// begin() once, cycle() for each cycle, end() once. After each piece the file is readable up to
/// there. No file in here; Recorder writes the pieces.

#include <string>

#include "arena/record/Compression.h"
#include "arena/record/CycleCodec.h"
#include "arena/record/FileFormat.h"

namespace arena {

class RecordEncoder {
 public:
  [[nodiscard]] static std::string begin(const RecordSettings& settings);
  /// RECORD must be of a later cycle than the one before; it is made recordable if it isn't.
  [[nodiscard]] std::string cycle(const CycleRecord& record);
  [[nodiscard]] static std::string end();

 private:
  CycleEncoder encoder_{};
  Compressor compressor_{};
  ByteWriter payload_{};
};

}  // namespace arena
