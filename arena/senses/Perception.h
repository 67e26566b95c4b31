#pragma once

/// One player's perception message. The match calls perceive() for every player at the end of
/// every cycle and hands the text to the link.
///
/// Elements, in this order, all numbers with two decimals:
///   (time ..)(GS ..)(GYR ..)(ACC ..)(HJ ..) x 22 (FRP ..) per touching foot
///   (See ..) in every third cycle, (hear ..) per speaker in earshot

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "arena/senses/Sight.h"
#include "arena/senses/Snapshot.h"

namespace arena {

/// [bytes] of text in one frame; a player takes more for a broken link and gives up.
inline constexpr std::size_t kMaxMessageBytes = 16380;
/// Sight comes in the cycles that this divides.
inline constexpr long kCyclesPerLook = 3;
/// [m] that a voice carries.
inline constexpr double kEarshot = 50.0;

struct SenseSettings {
  std::uint64_t seed = 1;                         ///< of a whole match's noise
  std::optional<SightNoise> noise{SightNoise{}};  ///< empty: exact sight
};

/// The message of the player who is actor VIEWER of SHOT. Never longer than kMaxMessageBytes:
/// what doesn't fit is left out, whole players and whole texts from the end.
std::string perceive(const Snapshot& shot, std::size_t viewer, const SenseSettings& settings);

}  // namespace arena
