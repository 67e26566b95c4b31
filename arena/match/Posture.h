#pragma once

/// Whether a robot stands or has fallen, by the tilt of its torso. One per player in a match,
/// shown every cycle's torso.

#include "arena/world/State.h"

namespace arena {

enum class PostureChange { kNone, kFell, kGotUp };

class Posture {
 public:
  PostureChange observe(const Frame& torso);
  /// A beam has put the robot on its feet: no getting up of its own.
  void setUpright() { standing_ = true; }
  [[nodiscard]] bool standing() const { return standing_; }

 private:
  bool standing_ = true;
};

/// [deg] between the torso's up axis and the vertical.
double tiltDeg(const Frame& torso);

/// [deg] Fallen above the one, standing again below the other: a robot that rocks about the border
/// falls once.
inline constexpr double kFallenAboveDeg = 60.0;
inline constexpr double kStandingBelowDeg = 30.0;

}  // namespace arena
