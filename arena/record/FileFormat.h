#pragma once

/// What the writer and the reader of match files agree on; docs/record.md tells the rest.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace arena {

inline constexpr std::string_view kRecordMagic = "PITCHREC";
inline constexpr std::uint32_t kRecordVersion = 1;

/// A chunk is its length (4 bytes), its checksum (4 bytes, CRC-32 over length, kind and data), its
/// kind (1 byte) and its data. Numbers have the lowest byte first.
inline constexpr std::size_t kChunkHeadBytes = 4 + 4 + 1;
/// More than the largest cycle takes, compressed or not.
inline constexpr std::size_t kMostChunkBytes = 512UL * 1024;

enum class ChunkKind : char {
  kSettings = 'S',  ///< the first one; once
  kCycle = 'C',
  kEnd = 'E',  ///< the last one, empty: the match was ended in order
};

/// How a match was set up, in words for a person.
struct RecordSetting {
  std::string name{};
  std::string value{};

  friend bool operator==(const RecordSetting&, const RecordSetting&) = default;
};
using RecordSettings = std::vector<RecordSetting>;

inline constexpr std::size_t kMostSettings = 100;

/// The chunk of KIND with DATA, ready for the file.
std::string chunkOf(ChunkKind kind, std::string_view data);
/// The checksum in CHUNK's head, and what it should be.
std::uint32_t storedChecksum(std::string_view chunk);
std::uint32_t trueChecksum(std::string_view chunk);

/// Four bytes, the lowest first.
std::string fourBytes(std::uint32_t value);
std::uint32_t fourBytesAt(std::string_view bytes, std::size_t place);

}  // namespace arena
