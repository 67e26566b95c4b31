#pragma once

/// The players' perception messages. At the end of every cycle the match makes one Perception of
/// the world as it is then, asks it for every player's message and hands the texts to the link.
///
/// Elements, in this order, all numbers with two decimals:
///   (time ..)(GS ..)(GYR ..)(ACC ..)(HJ ..) x 22 (FRP ..) per touching foot
///   (See ..) in every third cycle, (hear ..) per speaker in earshot

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

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

class Perception {
 public:
  /// Makes what the messages of all players share. SHOT and SETTINGS must outlive it.
  Perception(const Snapshot& shot, const SenseSettings& settings);

  /// The message of the player who is actor VIEWER of the shot. Never longer than kMaxMessageBytes:
  /// what doesn't fit is left out, whole players and whole texts from the end.
  [[nodiscard]] std::string messageTo(std::size_t viewer) const;

 private:
  void appendGameState(std::string& text, const Actor& self) const;
  void appendSight(std::string& text, std::size_t viewer) const;
  void appendHearing(std::string& text, std::size_t viewer) const;

  const Snapshot& shot_;
  const SenseSettings& settings_;
  std::string time_{};  ///< the first element
  std::string game_{};  ///< the end of the game state
  /// How each actor begins in a See element, for viewers of either side; empty without a shirt.
  std::vector<std::array<std::string, 2>> names_{};
  std::string heard_{};  ///< the beginning of a hear element
};

/// The message of one player alone.
std::string perceive(const Snapshot& shot, std::size_t viewer, const SenseSettings& settings);

}  // namespace arena
