#include "arena/record/RecordReader.h"

#include <utility>

#include "arena/record/Recordable.h"

namespace arena {
namespace {

std::optional<RecordSettings> settingsIn(std::string_view data) {
  ByteReader in(data);
  RecordSettings settings(static_cast<std::size_t>(in.number(kMostSettings)));
  for (RecordSetting& setting : settings) {
    setting.name = in.text(kMostRecordedTextBytes);
    setting.value = in.text(kMostRecordedTextBytes);
    if (!isRecordable(setting.name) || !isRecordable(setting.value)) in.fail();
  }
  if (in.failed() || !in.atEnd()) return std::nullopt;
  return settings;
}

}  // namespace

RecordReader::RecordReader(std::istream& file) : file_(file) {
  if (bytes(kRecordMagic.size()) != kRecordMagic) throw RecordError("this is no match record");
  const std::string version = bytes(4);
  if (version.size() < 4) throw RecordError("the match record ends within its head");
  if (fourBytesAt(version, 0) != kRecordVersion) {
    throw RecordError("the match record is of version " + std::to_string(fourBytesAt(version, 0)) +
                      ", this program reads version " + std::to_string(kRecordVersion));
  }
  const auto first = chunk();
  if (!first) throw RecordError(fault_.value_or("the match record ends within its head"));
  auto settings = settingsIn(first->data);
  if (first->kind != ChunkKind::kSettings || !settings) {
    throw RecordError("the match record's head is damaged");
  }
  settings_ = std::move(*settings);
}

std::string RecordReader::bytes(std::size_t count) {
  std::string bytes(count, '\0');
  file_.read(bytes.data(), static_cast<std::streamsize>(count));
  bytes.resize(static_cast<std::size_t>(file_.gcount()));
  place_ += bytes.size();
  return bytes;
}

std::nullopt_t RecordReader::stop(const std::string& why) {
  over_ = true;
  const CycleRecord at{lastCycle_};
  fault_ = "the record " + why + ", after " + lineOf({at.now(), ""});
  // lineOf ends in the two blanks before its text.
  fault_->resize(fault_->size() - 2);
  return std::nullopt;
}

std::optional<RecordReader::Chunk> RecordReader::chunk() {
  const std::size_t start = place_;
  const auto damaged = [start] { return "is damaged at byte " + std::to_string(start); };
  std::string all = bytes(kChunkHeadBytes);
  if (all.empty()) return stop("has no end: the match was cut off");
  if (all.size() < kChunkHeadBytes) return stop("breaks off within a cycle");
  const std::size_t length = fourBytesAt(all, 0);
  if (length > kMostChunkBytes) return stop(damaged());
  all += bytes(length);
  if (all.size() < kChunkHeadBytes + length) return stop("breaks off within a cycle");
  if (storedChecksum(all) != trueChecksum(all)) return stop(damaged());
  return Chunk{static_cast<ChunkKind>(all[kChunkHeadBytes - 1]), all.substr(kChunkHeadBytes)};
}

std::optional<CycleRecord> RecordReader::next() {
  if (over_) return std::nullopt;
  const std::size_t start = place_;
  const auto found = chunk();
  if (!found) return std::nullopt;
  if (found->kind == ChunkKind::kEnd && found->data.empty()) {
    over_ = true;
    if (!bytes(1).empty()) return stop("goes on behind its end");
    return std::nullopt;
  }
  if (found->kind == ChunkKind::kCycle) {
    if (const auto payload = decompressor_.payload(found->data, kMostPayloadBytes)) {
      if (auto record = decoder_.decode(*payload)) {
        lastCycle_ = record->cycle;
        return record;
      }
    }
  }
  return stop("is damaged at byte " + std::to_string(start));
}

}  // namespace arena
