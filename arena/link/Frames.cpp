#include "arena/link/Frames.h"

namespace arena {
namespace {

constexpr std::size_t kHeaderBytes = 4;

}  // namespace

std::string framed(std::string_view text) {
  const auto length = static_cast<std::uint32_t>(text.size());
  std::string frame;
  frame.reserve(kHeaderBytes + text.size());
  for (const unsigned shift : {24U, 16U, 8U, 0U}) {
    frame += static_cast<char>((length >> shift) & 0xffU);
  }
  frame += text;
  return frame;
}

void FrameReader::feed(std::string_view bytes) {
  bytes_.erase(0, taken_);
  taken_ = 0;
  bytes_ += bytes;
}

std::optional<std::string> FrameReader::next() {
  if (tooLong_ || bytes_.size() - taken_ < kHeaderBytes) return std::nullopt;
  std::uint32_t length = 0;
  for (std::size_t i = 0; i < kHeaderBytes; ++i) {
    length = (length << 8U) | static_cast<unsigned char>(bytes_[taken_ + i]);
  }
  if (length > kMaxPayloadBytes) {
    tooLong_ = length;
    return std::nullopt;
  }
  if (bytes_.size() - taken_ - kHeaderBytes < length) return std::nullopt;
  std::string text = bytes_.substr(taken_ + kHeaderBytes, length);
  taken_ += kHeaderBytes + length;
  return text;
}

}  // namespace arena
