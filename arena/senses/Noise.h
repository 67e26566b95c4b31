#pragma once

/// Repeatable random numbers for one look of one player. Perception makes a stream per message
/// from the match's seed, the player and the cycle, so a player's noise depends on nobody else's
/// messages and not on the order in which players joined.

#include <cstdint>

namespace arena {

class NoiseStream {
 public:
  NoiseStream(std::uint64_t seed, std::uint64_t viewer, std::uint64_t cycle);

  /// Standard normal. Written out here, since the library's distributions are free to differ
  /// between compilers and a recorded match must replay.
  double gaussian();

 private:
  double uniform();

  std::uint64_t state_;
};

}  // namespace arena
