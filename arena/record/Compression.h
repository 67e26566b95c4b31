#pragma once

/// Zstandard as the match file uses it: one stream over the whole match, flushed after each piece,
/// so that every piece can be read as soon as it is there and yet profits from all before it.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace arena {

class Compressor {
 public:
  Compressor();
  ~Compressor();
  Compressor(Compressor&&) noexcept;
  Compressor& operator=(Compressor&&) noexcept;

  /// The next piece of the stream, whole.
  std::string piece(std::string_view payload);

 private:
  struct Stream;
  std::unique_ptr<Stream> stream_;
};

class Decompressor {
 public:
  Decompressor();
  ~Decompressor();
  Decompressor(Decompressor&&) noexcept;
  Decompressor& operator=(Decompressor&&) noexcept;

  /// What went into the next piece; none when PIECE is no such thing, or holds more than MOST
  /// bytes. Then the decompressor is of no further use.
  std::optional<std::string> payload(std::string_view piece, std::size_t most);

 private:
  struct Stream;
  std::unique_ptr<Stream> stream_;
};

}  // namespace arena
