#pragma once

/// What an object's record may hold from an earlier sight, for tests of what is kept of it.

#include "perception/VisionInfo.h"

/// Distance 3, angle 4, elevation 5, last seen in cycle 6, at no place.
inline PolarInfo oldSight(bool seen) {
  PolarInfo record;
  record.distance = 3;
  record.angle = 4;
  record.elevation = 5;
  record.lastSeenCycle = 6;
  record.seen = seen;
  return record;
}
