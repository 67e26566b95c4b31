#pragma once

/// Numbers and texts as bytes, for the match file: whole numbers in as few bytes as they need,
/// seven bits in each, the lowest first, the top bit set in all but the last.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace arena {

/// Appends to a string that its owner takes away.
class ByteWriter {
 public:
  void byte(std::uint8_t value) { bytes_.push_back(static_cast<char>(value)); }
  void number(std::uint64_t value);
  /// Small either way is short: 0, -1, 1, -2, 2 ... become 0, 1, 2, 3, 4 ...
  void difference(std::int64_t value);
  void text(std::string_view value);

  [[nodiscard]] const std::string& bytes() const { return bytes_; }
  void clear() { bytes_.clear(); }

 private:
  std::string bytes_{};
};

/// Reads what a ByteWriter wrote, or anything else. After a first failure everything reads as zero
/// and failed() stays true, so a caller may read on and ask once.
class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes) : rest_(bytes) {}

  std::uint8_t byte();
  /// Fails for more than MOST.
  std::uint64_t number(std::uint64_t most);
  std::int64_t difference();
  /// Fails for more than MOST bytes.
  std::string text(std::size_t most);

  /// What was read made no sense to the caller either.
  void fail() { failed_ = true; }
  [[nodiscard]] bool failed() const { return failed_; }
  [[nodiscard]] bool atEnd() const { return rest_.empty(); }

 private:
  std::uint64_t anyNumber();

  std::string_view rest_;
  bool failed_ = false;
};

}  // namespace arena
