#pragma once

/// The play modes of a match with their spellings on the link. The referee decides which one
/// holds; the senses write its name into every perception message.

#include <array>
#include <cstddef>
#include <string_view>

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

constexpr bool isKickOff(PlayMode mode) {
  return mode == PlayMode::kKickOffLeft || mode == PlayMode::kKickOffRight;
}

constexpr bool isGoal(PlayMode mode) {
  return mode == PlayMode::kGoalLeft || mode == PlayMode::kGoalRight;
}

/// The game's clock stands before the kick-off, while a goal is celebrated and after the end.
constexpr bool clockRuns(PlayMode mode) {
  return mode != PlayMode::kBeforeKickOff && !isGoal(mode) && mode != PlayMode::kGameOver;
}

}  // namespace arena
