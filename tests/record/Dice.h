#pragma once

/// The chance in the recorded match: the same numbers in every build. The standard library's
/// distributions may differ from one to the next, so only integers are drawn here.

#include <cstdint>

class Dice {
 public:
  explicit Dice(std::uint64_t seed) : state_(seed) {}

  /// From 0 to LIMIT - 1; LIMIT at least 1. The bias of the remainder doesn't matter here.
  int Below(int limit) { return static_cast<int>(Next() % static_cast<std::uint64_t>(limit)); }
  /// From FIRST to LAST.
  int Between(int first, int last) { return first + Below(last - first + 1); }

 private:
  /// SplitMix64: Steele, Lea, Flood, "Fast splittable pseudorandom number generators", 2014.
  std::uint64_t Next() {
    std::uint64_t bits = (state_ += 0x9E3779B97F4A7C15U);
    bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
    return bits ^ (bits >> 31U);
  }

  std::uint64_t state_;
};
