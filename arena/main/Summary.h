#pragma once

/// What a match comes down to. The match fills it while it runs, the program shows it as text at
/// the end and writes it as JSON on request.

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

#include "arena/main/Places.h"
#include "arena/referee/PlayMode.h"
#include "arena/referee/Side.h"

namespace arena {

/// One player that had a body. A player that leaves and comes back has two of these.
struct PlayerSummary {
  std::string name{};  ///< "left 3", or "session 7" without a shirt
  std::optional<Shirt> shirt{};
  std::string team{};              ///< empty without a shirt
  double bodySince = 0;            ///< [s] of the match
  std::optional<double> leftAt{};  ///< [s] of the match; empty: was there at the end
  std::string whyLeft{};
  std::optional<TeamPlace> lastBeam{};  ///< the last one obeyed, as the player meant it
  TeamPlace lastPlace{};                ///< at the end or when it left; field frame without a shirt
  bool standing = true;                 ///< then
  int beams = 0;                        ///< obeyed
  int ignoredBeams = 0;                 ///< at the wrong time, off the field or onto another robot
  int falls = 0;
  int getUps = 0;
  int lateAnswers = 0;  ///< cycles that began with the last message unanswered
  int malformed = 0;    ///< effectors skipped
};

struct Summary {
  double seconds = 0;  ///< [s] simulated
  double clock = 0;    ///< [s] of the game's clock
  PlayMode mode = PlayMode::kBeforeKickOff;
  bool finished = false;                 ///< played to its end, not stopped
  std::vector<PlayerSummary> players{};  ///< by side and number, then in order of connection
  int sessionsWithoutBody = 0;           ///< ended before they had one
  int clockSlips = 0;  ///< times that real time was lost because a cycle came far too late
};

/// [m] from where a player was beamed to where it was last; empty if it never was beamed.
std::optional<double> metresOffBeam(const PlayerSummary& player);

/// A table of at most one screen, ending in a line feed.
std::string textOf(const Summary& summary);
nlohmann::json jsonOf(const Summary& summary);

}  // namespace arena
