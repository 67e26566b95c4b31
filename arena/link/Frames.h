#pragma once

/// The framing of the link, both ways: four bytes of payload length, most significant first, then
/// the text. Sessions feed what the socket gives and take whole frames out.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace arena {

/// [bytes] of payload in one frame.
inline constexpr std::size_t kMaxPayloadBytes = 16380;

/// TEXT as it goes onto the link. TEXT is at most kMaxPayloadBytes long.
std::string framed(std::string_view text);

/// Puts frames together from pieces of any size.
class FrameReader {
 public:
  void feed(std::string_view bytes);
  /// The next whole frame's text; none while one is incomplete or the length is over the limit.
  std::optional<std::string> next();
  /// The length of a frame over the limit, once next() has met one. Nothing behind it can be
  /// found any more: the link is of no further use.
  [[nodiscard]] std::optional<std::uint32_t> tooLong() const { return tooLong_; }

 private:
  std::string bytes_{};
  std::size_t taken_ = 0;  ///< bytes of bytes_ that have been handed out
  std::optional<std::uint32_t> tooLong_{};
};

}  // namespace arena
