#include "arena/record/RecordEncoder.h"

#include "arena/record/Recordable.h"

namespace arena {

std::string RecordEncoder::begin(const RecordSettings& settings) {
  ByteWriter data;
  data.number(settings.size());
  for (const RecordSetting& setting : settings) {
    data.text(setting.name);
    data.text(setting.value);
  }
  return std::string(kRecordMagic) + fourBytes(kRecordVersion) +
         chunkOf(ChunkKind::kSettings, data.bytes());
}

std::string RecordEncoder::cycle(const CycleRecord& record) {
  payload_.clear();
  encoder_.encode(recordable(record), payload_);
  return chunkOf(ChunkKind::kCycle, compressor_.piece(payload_.bytes()));
}

std::string RecordEncoder::end() {
  return chunkOf(ChunkKind::kEnd, {});
}

}  // namespace arena
