#pragma once

/// Values for tests of properties, which must hold for any: the same ones in every run.

#include <cstdint>
#include <random>

#include "math/Geometry.h"

class SeededValues {
 public:
  /// How many values a property is tried on.
  static constexpr int kTries = 4000;

  explicit SeededValues(std::uint64_t seed) : generator_(seed) {}

  double between(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(generator_);
  }

  /// Anywhere in a cube about the origin. [m]
  VecPosition place(double reach = 10.0) {
    const double x = between(-reach, reach);
    const double y = between(-reach, reach);
    return {x, y, between(-reach, reach)};
  }

  /// A unit vector of any direction, poles no rarer than the rest.
  VecPosition direction() {
    VecPosition v;
    do {
      v = place(1.0);
    } while (v.getMagnitude() > 1.0 || v.getMagnitude() < 0.1);
    return v / v.getMagnitude();
  }

 private:
  std::mt19937_64 generator_;
};
