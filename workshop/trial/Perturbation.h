#pragma once

/// The worlds that a motion has to stand up to: one seed draws everything that differs from the
/// nominal one. Trials draw once, before anything moves.

#include <array>
#include <cstdint>
#include <optional>

#include "arena/model/BodyTable.h"
#include "arena/world/World.h"

namespace workshop {

struct Perturbation {
  arena::WorldSettings world{};
  double readingNoiseDeg = 0;  ///< [deg] one sigma on every joint reading
  double lateShare = 0;        ///< share of the cycles whose commands come a cycle late
  /// [deg] by which the start pose is off. One foot's displacement is in it.
  std::array<double, arena::kJointCount> startOffsetDeg{};
  double pushImpulse = 0;       ///< [N s] on the torso, level
  double pushDirectionDeg = 0;  ///< [deg] in the field frame
  double pushMoment = 0;        ///< [0, 1) where in the trial's steps
  int clockOffset = 0;          ///< [cycles] of the player's clock: odd and even starts
  int headPhase = 0;            ///< entry at which the head's scan stands
  double ballShiftAhead = 0;    ///< -1 to 1, for jobs that place the ball within a range
  double ballShiftRight = 0;    ///< -1 to 1
  double tipDeg = 0;            ///< [deg] by which a tipping start is further over
  std::uint64_t noiseSeed = 0;  ///< of the cycle by cycle noise
};

/// Without a seed: the nominal world.
Perturbation drawPerturbation(std::optional<std::uint64_t> seed);

}  // namespace workshop
