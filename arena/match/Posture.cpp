#include "arena/match/Posture.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace arena {

double tiltDeg(const Frame& torso) {
  const double upOnVertical = std::clamp(torso.axes[8], -1.0, 1.0);
  return std::acos(upOnVertical) * 180 / std::numbers::pi;
}

PostureChange Posture::observe(const Frame& torso) {
  const double tilt = tiltDeg(torso);
  if (standing_ && tilt > kFallenAboveDeg) {
    standing_ = false;
    return PostureChange::kFell;
  }
  if (!standing_ && tilt < kStandingBelowDeg) {
    standing_ = true;
    return PostureChange::kGotUp;
  }
  return PostureChange::kNone;
}

}  // namespace arena
