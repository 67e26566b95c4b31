/// The reader of match files, and what a replay makes of the cycles that it gives out: the summary,
/// the picture, the page's frames.
///
/// Input: a byte for the form, then
///   0  a file, as it is
///   1  a file's chunks, each two bytes of length, a byte of kind and data: they get the head and
///      the checksums that chance wouldn't find
///   2  cycles, each two bytes of length and a payload: compressed on the way into a file
///   3  the same, straight to the decoder below the file

#include <array>
#include <sstream>
#include <string>
#include <vector>

#include "arena/match/Statistics.h"
#include "arena/record/Compression.h"
#include "arena/record/CycleCodec.h"
#include "arena/record/FileFormat.h"
#include "arena/record/RecordReader.h"
#include "arena/record/Recordable.h"
#include "fuzz/Input.h"
#include "viewer/picture/MatchPicture.h"
#include "viewer/server/Mind.h"
#include "viewer/server/Protocol.h"
#include "viewer/server/Timeline.h"

namespace {

using fuzz::demand;

std::string_view pieceOf(fuzz::Input& in) {
  const std::size_t low = in.byte();
  return in.bytes(low | static_cast<std::size_t>(in.byte()) << 8U);
}

std::string fileHead() {
  arena::ByteWriter settings;
  settings.number(0);
  return std::string(arena::kRecordMagic) + arena::fourBytes(arena::kRecordVersion) +
         arena::chunkOf(arena::ChunkKind::kSettings, settings.bytes());
}

std::string fileOfChunks(fuzz::Input& in) {
  std::string file = std::string(arena::kRecordMagic) + arena::fourBytes(arena::kRecordVersion);
  while (!in.empty()) {
    constexpr std::array kKinds{arena::ChunkKind::kCycle, arena::ChunkKind::kSettings,
                                arena::ChunkKind::kEnd};
    const std::uint8_t kind = in.byte();
    file += arena::chunkOf(
        kind < kKinds.size() ? kKinds[kind] : static_cast<arena::ChunkKind>(kind), pieceOf(in));
  }
  return file;
}

std::string fileOfCycles(fuzz::Input& in) {
  std::string file = fileHead();
  arena::Compressor compressor;
  while (!in.empty()) {
    file += arena::chunkOf(arena::ChunkKind::kCycle, compressor.piece(pieceOf(in)));
  }
  return file + arena::chunkOf(arena::ChunkKind::kEnd, {});
}

/// Both ways once more: what a reader gives out is what a writer would have been given.
class Echo {
 public:
  void check(const arena::CycleRecord& record) {
    demand(record.cycle > last_, "cycles come in order");
    last_ = record.cycle;
    demand(arena::recordable(record) == record, "a record that was read can be recorded");
    arena::ByteWriter payload;
    encoder_.encode(record, payload);
    const auto again = decoder_.decode(payload.bytes());
    demand(again && *again == record, "a record comes back as it went");
  }

 private:
  long last_ = 0;
  arena::CycleEncoder encoder_{};
  arena::CycleDecoder decoder_{};
};

/// Whatever a file says, a replay of it can be summed up, drawn and watched.
class Replay {
 public:
  void add(const arena::CycleRecord& record) {
    echo_.check(record);
    statistics_.add(record);
    picture_.add(record);
    timeline_.add(record);
    for (const arena::Event& event : record.events) (void)arena::lineOf(event);
  }
  void finish() const {
    const arena::Summary summary = statistics_.summary();
    demand(arena::textOf(summary).find("\nplayer ") != std::string::npos &&
               arena::jsonTextOf(summary).ends_with("}\n"),
           "a match has a summary");
    demand(arena::picture::svgOf(picture_.drawing()).ends_with("</svg>\n"),
           "a match has a picture");
    if (timeline_.empty()) return;
    for (std::size_t slot = 0; slot < arena::kMostRecordedPlayers; ++slot) {
      const auto mind = arena::view::mindAt(timeline_, timeline_.last(), slot);
      if (mind) demand(!arena::view::mindText(*mind).empty(), "a mind can be told");
    }
  }

 private:
  Echo echo_{};
  arena::Statistics statistics_{};
  arena::picture::MatchPicture picture_{};
  arena::view::Timeline timeline_{};
};

void readFile(const std::string& content) {
  std::istringstream file(content);
  try {
    arena::RecordReader reader(file);
    Replay replay;
    while (const auto record = reader.next()) replay.add(*record);
    demand(!reader.next(), "the end stays the end");
    replay.finish();
  } catch (const arena::RecordError&) {
    // It is no record: said so, which is all that is asked.
  }
}

void decodeCycles(fuzz::Input& in) {
  arena::CycleDecoder decoder;
  Replay replay;
  while (!in.empty()) {
    const auto record = decoder.decode(pieceOf(in));
    if (!record) break;
    replay.add(*record);
  }
  replay.finish();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input in(data, size);
  switch (in.byte() % 4) {
    case 0:
      readFile(std::string(in.rest()));
      break;
    case 1:
      readFile(fileOfChunks(in));
      break;
    case 2:
      readFile(fileOfCycles(in));
      break;
    default:
      decodeCycles(in);
      break;
  }
  return 0;
}
