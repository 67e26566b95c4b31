#include "arena/record/FileFormat.h"

#include <boost/crc.hpp>

namespace arena {

std::string fourBytes(std::uint32_t value) {
  std::string bytes;
  for (unsigned shift = 0; shift < 32; shift += 8) {
    bytes.push_back(static_cast<char>(value >> shift & 0xffU));
  }
  return bytes;
}

std::uint32_t fourBytesAt(std::string_view bytes, std::size_t place) {
  std::uint32_t value = 0;
  for (unsigned i = 0; i < 4; ++i) {
    value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[place + i])) << 8 * i;
  }
  return value;
}

std::uint32_t trueChecksum(std::string_view chunk) {
  boost::crc_32_type crc;
  crc.process_bytes(chunk.data(), 4);
  crc.process_bytes(chunk.data() + 8, chunk.size() - 8);
  return crc.checksum();
}

std::uint32_t storedChecksum(std::string_view chunk) {
  return fourBytesAt(chunk, 4);
}

std::string chunkOf(ChunkKind kind, std::string_view data) {
  std::string chunk = fourBytes(static_cast<std::uint32_t>(data.size())) + fourBytes(0);
  chunk.push_back(static_cast<char>(kind));
  chunk.append(data);
  chunk.replace(4, 4, fourBytes(trueChecksum(chunk)));
  return chunk;
}

}  // namespace arena
