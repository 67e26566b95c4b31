#pragma once

/// Whose ball it is, who shoots and who scores, by rules that need nothing but the records of the
/// cycles, each shown once and in order. The statistics count with it; a picture of a match draws
/// its shots.
///
/// Touch       A player with a shirt touched the ball in the cycle; of several the one nearest to
///             it. Touches of one player less than half a second apart are one.
/// Possession  In PlayOn, the ball is that player's who touched it last. In every other mode it is
///             nobody's, and it stays nobody's until the next touch.
/// Shot        When the ball leaves a touch in PlayOn, and would, straight on and slowing down as
///             it rolls, get to the other side's goal line between the posts or at most half a
///             metre beside them. One shot for each touch.
/// Goal        The player's of the scoring side who touched the ball last, and a shot of his if his
///             last touch had none. When one of the other side touched it last, it is no player's.

#include <array>
#include <cstdint>
#include <optional>

#include "arena/record/CycleRecord.h"

namespace arena {

/// Who touched the ball.
struct Toucher {
  std::uint32_t session = 0;
  Shirt shirt{};

  friend bool operator==(const Toucher&, const Toucher&) = default;
};

/// What a cycle brought.
struct BallNews {
  std::optional<Toucher> possession{};  ///< whose ball it is in this cycle
  std::optional<Toucher> shot{};
  std::optional<Toucher> goal{};
};

class BallPlay {
 public:
  BallNews add(const CycleRecord& record);

 private:
  std::optional<Toucher> lastTouch_{};  ///< since the ball was last dead
  long lastTouchCycle_ = 0;
  bool shotCounted_ = false;  ///< for this touch
  std::array<int, 2> score_{};
};

/// Whether a ball at BALL with VELOCITY is on its way into the goal that SIDE attacks, or near it.
bool isShot(Side side, const Vec3& ball, const Vec3& velocity);

}  // namespace arena
