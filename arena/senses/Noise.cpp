#include "arena/senses/Noise.h"

#include <cmath>
#include <numbers>

namespace arena {
namespace {

/// SplitMix64 (Steele, Lea, Flood 2014): a bijection that scatters neighbouring keys.
std::uint64_t scatter(std::uint64_t z) {
  z = (z ^ (z >> 30U)) * 0xbf58476d1ce4e5b9ULL;
  z = (z ^ (z >> 27U)) * 0x94d049bb133111ebULL;
  return z ^ (z >> 31U);
}

constexpr std::uint64_t kStride = 0x9e3779b97f4a7c15ULL;

}  // namespace

NoiseStream::NoiseStream(std::uint64_t seed, std::uint64_t viewer, std::uint64_t cycle)
    : state_(scatter(scatter(scatter(seed + kStride) + viewer + kStride) + cycle + kStride)) {}

double NoiseStream::uniform() {
  state_ += kStride;
  // 53 bits, moved off zero: the logarithm below must not see it.
  return (static_cast<double>(scatter(state_) >> 11U) + 0.5) * 0x1.0p-53;
}

double NoiseStream::gaussian() {
  // Box and Muller; the sine twin is thrown away, which keeps the stream without memory.
  const double radius = std::sqrt(-2 * std::log(uniform()));
  return radius * std::cos(2 * std::numbers::pi * uniform());
}

}  // namespace arena
