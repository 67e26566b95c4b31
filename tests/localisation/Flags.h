#pragma once

/// Sights of the eight landmarks as tests make them up, and names to tell them by.

#include <array>
#include <cmath>

#include "perception/VisionInfo.h"

struct FlagName {
  const char* name;
  PolarInfo visionInfo::*flag;
};

// In the order in which the two ends of the field list them.
inline constexpr std::array<FlagName, 4> kLeftFlags{{{"F1L", &visionInfo::F1L},
                                                     {"F2L", &visionInfo::F2L},
                                                     {"G1L", &visionInfo::G1L},
                                                     {"G2L", &visionInfo::G2L}}};
inline constexpr std::array<FlagName, 4> kRightFlags{{{"F1R", &visionInfo::F1R},
                                                      {"F2R", &visionInfo::F2R},
                                                      {"G1R", &visionInfo::G1R},
                                                      {"G2R", &visionInfo::G2R}}};

/// Puts the landmark in view. [m, deg]
inline void see(PolarInfo& flag, double distance, double elevation = 0) {
  flag.distance = distance;
  flag.elevation = elevation;
  flag.seen = true;
}

/// At DISTANCE, and so high or low that GROUND of it is left on the ground. [m]
inline void seeOverGround(PolarInfo& flag, double distance, double ground) {
  see(flag, distance, std::acos(ground / distance) * 180 / M_PI);
}

/// As a level camera at CAMERA sees it, without noise. The angle is left alone.
inline void seeFrom(PolarInfo& flag, const VecPosition& camera) {
  const double ground = std::hypot(flag.position.x - camera.x, flag.position.y - camera.y);
  const double rise = flag.position.z - camera.z;
  see(flag, std::hypot(ground, rise), std::atan2(rise, ground) * 180 / M_PI);
}
