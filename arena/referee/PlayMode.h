#pragma once

/// The play modes of a match with their spellings on the link. The referee decides which one
/// holds; the senses write its name into every perception message.

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "arena/referee/Side.h"

namespace arena {

enum class PlayMode {
  kBeforeKickOff,
  kKickOffLeft,
  kKickOffRight,
  kPlayOn,
  kKickInLeft,
  kKickInRight,
  kCornerKickLeft,
  kCornerKickRight,
  kGoalKickLeft,
  kGoalKickRight,
  kOffsideLeft,
  kOffsideRight,
  kFreeKickLeft,
  kFreeKickRight,
  kGoalLeft,
  kGoalRight,
  kGameOver,
};

/// Order of PlayMode. Players compare these texts letter by letter; the mixture of styles is part
/// of the protocol.
inline constexpr std::array<std::string_view, 17> kPlayModeNames{
    "BeforeKickOff", "KickOff_Left",     "KickOff_Right",     "PlayOn",          "KickIn_Left",
    "KickIn_Right",  "corner_kick_left", "corner_kick_right", "goal_kick_left",  "goal_kick_right",
    "offside_left",  "offside_right",    "free_kick_left",    "free_kick_right", "Goal_Left",
    "Goal_Right",    "GameOver",
};
static_assert(kPlayModeNames.size() == static_cast<std::size_t>(PlayMode::kGameOver) + 1);

constexpr std::string_view nameOf(PlayMode mode) {
  return kPlayModeNames[static_cast<std::size_t>(mode)];
}

constexpr PlayMode kickOffOf(Side side) {
  return side == Side::kLeft ? PlayMode::kKickOffLeft : PlayMode::kKickOffRight;
}

constexpr PlayMode kickInOf(Side side) {
  return side == Side::kLeft ? PlayMode::kKickInLeft : PlayMode::kKickInRight;
}

constexpr PlayMode cornerKickOf(Side side) {
  return side == Side::kLeft ? PlayMode::kCornerKickLeft : PlayMode::kCornerKickRight;
}

constexpr PlayMode goalKickOf(Side side) {
  return side == Side::kLeft ? PlayMode::kGoalKickLeft : PlayMode::kGoalKickRight;
}

constexpr PlayMode goalOf(Side side) {
  return side == Side::kLeft ? PlayMode::kGoalLeft : PlayMode::kGoalRight;
}

constexpr bool isKickOff(PlayMode mode) {
  return mode == PlayMode::kKickOffLeft || mode == PlayMode::kKickOffRight;
}

constexpr bool isGoal(PlayMode mode) {
  return mode == PlayMode::kGoalLeft || mode == PlayMode::kGoalRight;
}

/// Whose touch a mode waits for; empty if it is no restart.
constexpr std::optional<Side> takerOf(PlayMode mode) {
  for (const Side side : {Side::kLeft, Side::kRight}) {
    if (mode == kickOffOf(side) || mode == kickInOf(side) || mode == cornerKickOf(side) ||
        mode == goalKickOf(side)) {
      return side;
    }
  }
  return std::nullopt;
}

/// The game's clock stands before the kick-off, while a goal is celebrated and after the end.
constexpr bool clockRuns(PlayMode mode) {
  return mode != PlayMode::kBeforeKickOff && !isGoal(mode) && mode != PlayMode::kGameOver;
}

}  // namespace arena
