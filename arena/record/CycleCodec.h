#pragma once

/// One cycle's record to bytes and back. What changes slowly is written as the difference from the
/// cycle before, what moves as the difference from where it would be had it gone on as it went; so
/// an encoder and a decoder each go through a match from its first cycle on, in step.
/// docs/record.md has the layout. Called by RecordEncoder and RecordReader, cycle by cycle.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "arena/record/Bytes.h"
#include "arena/record/CycleRecord.h"

namespace arena {

/// More than the largest record takes.
inline constexpr std::size_t kMostPayloadBytes = 384UL * 1024;

/// N quantities, in steps, that go on as they went.
template <std::size_t N>
class Track {
 public:
  using Steps = std::array<std::int64_t, N>;
  [[nodiscard]] std::int64_t expected(std::size_t i) const { return 2 * last_[i] - before_[i]; }
  void add(const Steps& steps) {
    before_ = seen_ ? last_ : steps;
    last_ = steps;
    seen_ = true;
  }

 private:
  Steps last_{};
  Steps before_{};
  bool seen_ = false;
};

/// Place, attitude and joints of a body.
inline constexpr std::size_t kBodyQuantities = 3 + 4 + kJointCount;
/// Place and velocity of the ball.
inline constexpr std::size_t kBallQuantities = 3 + 3;

/// What both ends remember of the cycles so far.
class CycleMemory {
 public:
  struct Body {
    std::uint32_t session = 0;
    std::optional<Shirt> shirt{};
    Track<kBodyQuantities> track{};
  };

  /// RECORD was the next one.
  void add(const CycleRecord& record);

  [[nodiscard]] const CycleRecord& last() const { return last_; }
  [[nodiscard]] const Track<kBallQuantities>& ball() const { return ball_; }
  /// Who was in SLOT in the last cycle.
  [[nodiscard]] const std::optional<Body>& body(int slot) const {
    return bodies_[static_cast<std::size_t>(slot)];
  }

 private:
  CycleRecord last_{};
  Track<kBallQuantities> ball_{};
  std::array<std::optional<Body>, kMostRecordedPlayers> bodies_{};
};

class CycleEncoder {
 public:
  /// Appends RECORD, which must be recordable and of a later cycle than the one before.
  void encode(const CycleRecord& record, ByteWriter& out);

 private:
  CycleMemory memory_{};
};

class CycleDecoder {
 public:
  /// The record in PAYLOAD; none when it isn't one that follows those before it. Then the decoder
  /// is of no further use.
  std::optional<CycleRecord> decode(std::string_view payload);

 private:
  CycleMemory memory_{};
};

}  // namespace arena
