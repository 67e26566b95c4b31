#pragma once

/// Small steps that the world's tests share.

#include <cmath>
#include <string_view>

#include "arena/world/World.h"

namespace arena {

/// SECONDS of simulated time, in whole cycles.
inline void run(World& world, double seconds) {
  const auto cycles = std::lround(seconds / kCycleSeconds);
  for (long i = 0; i < cycles; ++i) world.advance();
}

inline int rowOf(std::string_view perceptor) {
  return static_cast<int>(rowOfPerceptor(perceptor));
}

inline double distance(const Vec3& a, const Vec3& b) {
  return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

}  // namespace arena
