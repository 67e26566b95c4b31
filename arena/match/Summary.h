#pragma once

/// What a match comes down to. The statistics fill it, the program shows it as text at the end and
/// writes it as JSON on request; docs/summary.schema.json tells what the JSON's fields mean.

#include <array>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

#include "arena/match/Places.h"
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
  int goals = 0;                        ///< for its own side; see BallPlay.h, for shots too
  int shots = 0;
  double possessionSeconds = 0;  ///< [s] that it was the last to have touched the ball in play
  double metresWalked = 0;       ///< [m] see Walk.h
  int beams = 0;                 ///< obeyed
  long ignoredBeams = 0;         ///< at the wrong time, off the field or onto another robot
  int falls = 0;
  int getUps = 0;
  int lateAnswers = 0;  ///< cycles that began with the last message unanswered
  long malformed = 0;   ///< effectors skipped
};

/// One side. Goals, shots and possession are the side's own, the rest are sums over
/// its players, those who have left too.
struct TeamSummary {
  std::string name{};  ///< empty while nobody came
  int goals = 0;       ///< the score, own goals of the others too
  int shots = 0;
  double possessionSeconds = 0;  ///< [s]
  double possessionPercent = 0;  ///< of the time that it was anybody's; 0 when it never was
  double metresWalked = 0;       ///< [m]
  int beams = 0;
  long ignoredBeams = 0;
  int falls = 0;
  int getUps = 0;
  int lateAnswers = 0;
  long malformed = 0;
};

struct Summary {
  double seconds = 0;  ///< [s] simulated
  double clock = 0;    ///< [s] of the game's clock
  int half = 1;        ///< the one it got to
  PlayMode mode = PlayMode::kBeforeKickOff;
  bool finished = false;                 ///< played to its end, not stopped
  std::array<TeamSummary, 2> teams{};    ///< order of Side
  std::vector<PlayerSummary> players{};  ///< by side and number, then in order of connection
  int droppedBalls = 0;                  ///< because nobody touched the ball
  long sessionsWithoutBody = 0;          ///< ended before they had one, or refused as they got it
  long clockSlips = 0;  ///< times that real time was lost because a cycle came far too late
};

/// [m] from where a player was beamed to where it was last; empty if it never was beamed.
std::optional<double> metresOffBeam(const PlayerSummary& player);

/// A table of at most one screen, ending in a line feed.
std::string textOf(const Summary& summary);
nlohmann::json jsonOf(const Summary& summary);
/// The same as text. A record may hold names in any bytes: what is no UTF-8 is replaced.
std::string jsonTextOf(const Summary& summary);

}  // namespace arena
