#pragma once

/// The player's own localisation against the truth. A simulated robot is carried upright along
/// known paths, the training ground's senses say what it sees, the player's decoders and
/// localisation work on that text, and each sight is compared with where the robot really is. No
/// sockets but the player's own link, no clock, and no physics: the robot is put where it should
/// be.
///
/// Called by bench_localisation and by its test. One trial at a time: the player is one per
/// process.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "arena/referee/Side.h"

namespace bench {

/// What a player can have in view, as far as its localisation makes a difference.
enum class View {
  kNothing,
  kOne,
  kTwoAtOneEnd,
  kThreeAtOneEnd,
  kFourAtOneEnd,
  kBesideTheirLine,  ///< two or more at one end, the player within half a metre of the goal line
  kOneAtEachEnd,
  kMoreOverBothEnds,
};

/// Order of View. Beside the line through its landmarks a player can't tell its place from the
/// mirrored one behind the line, which then lies within reach as well.
inline constexpr std::array<std::string_view, 8> kViewNames{
    "no landmark",     "one landmark",         "two at one end",  "three at one end",
    "four at one end", "beside the goal line", "one at each end", "three+ over both ends",
};
static_assert(kViewNames.size() == static_cast<std::size_t>(View::kMoreOverBothEnds) + 1);

constexpr std::string_view nameOf(View view) {
  return kViewNames[static_cast<std::size_t>(view)];
}

/// One sight and what the player made of it.
struct Sight {
  View view = View::kNothing;
  bool filtered = false;  ///< after the player's first 20 cycles, through its cloud of particles
  bool noise = false;
  arena::Side side = arena::Side::kLeft;
  double headYawDeg = 0;       ///< [deg] to the left
  double positionError = 0;    ///< [m] in the plane
  double headingErrorDeg = 0;  ///< [deg] 0 to 180
  bool updated = false;        ///< a new position was taken over
};

struct TrialSettings {
  std::uint64_t seed = 1;          ///< of the noise of sight and of the player's particles
  double startEverySeconds = 1.0;  ///< [s] along a path, new players for the first cycles; above 0
};

/// Every path, on both sides, with the head straight and turned either way, without and with noise.
/// Throws std::invalid_argument for a start spacing that is not above zero.
std::vector<Sight> runTrial(const TrialSettings& settings);

}  // namespace bench
