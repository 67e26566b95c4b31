#pragma once

/// Matchers for places, so that a wrong one shows all its three members.

#include <gmock/gmock.h>

#include <cmath>

#include "math/VecPosition.h"

/// The three members, exactly.
MATCHER_P3(IsPlace, x, y, z,
           "is (" + testing::PrintToString(x) + ", " + testing::PrintToString(y) + ", " +
               testing::PrintToString(z) + ")") {
  const VecPosition& place = arg;
  return place.x == x && place.y == y && place.z == z;
}

/// The three members up to rounding. [1e-9 of the unit]
MATCHER_P3(IsPlaceNear, x, y, z,
           "is near (" + testing::PrintToString(x) + ", " + testing::PrintToString(y) + ", " +
               testing::PrintToString(z) + ")") {
  const VecPosition& place = arg;
  const auto near = [](double a, double b) { return std::fabs(a - b) <= 1e-9; };
  return near(place.x, x) && near(place.y, y) && near(place.z, z);
}
