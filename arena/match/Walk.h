#pragma once

/// How far a player has walked: the length of its way over the ground, with a corner wherever it
/// has come 0.1 m from the last one. So neither the torso's swaying nor rounding adds up to a walk.
/// One per player in the statistics, shown every cycle's place or told to lift.

#include <cmath>
#include <optional>

#include "arena/model/BodyTable.h"

namespace arena {

class Walk {
 public:
  /// [m] farther than the torso sways in a gait, shorter than any way worth telling.
  static constexpr double kCorner = 0.1;

  /// Its torso is over PLACE, on its own feet since the last time.
  void add(const Vec3& place) {
    if (!corner_) corner_ = place;
    const double way = std::hypot(place[0] - (*corner_)[0], place[1] - (*corner_)[1]);
    if (way < kCorner) return;
    metres_ += way;
    corner_ = place;
  }
  /// It lies, or something else moves it: the walk goes on where it next is.
  void lift() { corner_.reset(); }

  [[nodiscard]] double metres() const { return metres_; }

 private:
  std::optional<Vec3> corner_{};
  double metres_ = 0;
};

}  // namespace arena
