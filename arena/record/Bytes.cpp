#include "arena/record/Bytes.h"

namespace arena {

void ByteWriter::number(std::uint64_t value) {
  for (; value >= 0x80; value >>= 7U) byte(static_cast<std::uint8_t>(value | 0x80U));
  byte(static_cast<std::uint8_t>(value));
}

void ByteWriter::difference(std::int64_t value) {
  const auto bits = static_cast<std::uint64_t>(value);
  number(value < 0 ? ~(bits << 1U) : bits << 1U);
}

void ByteWriter::text(std::string_view value) {
  number(value.size());
  bytes_.append(value);
}

std::uint8_t ByteReader::byte() {
  if (failed_ || rest_.empty()) {
    failed_ = true;
    return 0;
  }
  const auto value = static_cast<std::uint8_t>(rest_.front());
  rest_.remove_prefix(1);
  return value;
}

std::uint64_t ByteReader::anyNumber() {
  std::uint64_t value = 0;
  for (unsigned shift = 0; shift < 64; shift += 7) {
    const std::uint8_t next = byte();
    const auto bits = static_cast<std::uint64_t>(next & 0x7fU);
    // The tenth byte has room for one bit; and a number has one spelling, so no zeros at its end.
    if ((shift == 63 && bits > 1) || (shift > 0 && next == 0)) failed_ = true;
    value |= bits << shift;
    if ((next & 0x80U) == 0) return failed_ ? 0 : value;
  }
  failed_ = true;
  return 0;
}

std::uint64_t ByteReader::number(std::uint64_t most) {
  const std::uint64_t value = anyNumber();
  if (value <= most) return value;
  failed_ = true;
  return 0;
}

std::int64_t ByteReader::difference() {
  const std::uint64_t bits = anyNumber();
  const std::uint64_t half = bits >> 1U;
  return static_cast<std::int64_t>((bits & 1U) != 0 ? ~half : half);
}

std::string ByteReader::text(std::size_t most) {
  const auto length = static_cast<std::size_t>(number(most));
  if (length > rest_.size()) failed_ = true;
  if (failed_) return {};
  std::string value(rest_.substr(0, length));
  rest_.remove_prefix(length);
  return value;
}

}  // namespace arena
