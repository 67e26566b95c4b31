#pragma once

/// The referee: play mode and clock of a match, from where ball and players are and who touched
/// the ball. The match calls observe() once in each cycle, after the world's step and before the
/// senses; between two calls nothing changes. It never touches the world itself: a ruling says
/// where the ball is to lie, the match puts it there.
///
/// This referee plays one half: waiting time, left team's kick-off, play, end.

#include <optional>
#include <vector>

#include "arena/model/BodyTable.h"
#include "arena/referee/PlayMode.h"
#include "arena/referee/Side.h"

namespace arena {

/// [s] between two calls of observe(); the match checks that the world agrees.
inline constexpr double kRefereeCycleSeconds = 0.02;

/// What a match may vary. All in seconds, none negative.
struct RefereeSettings {
  double waitSeconds = 10;      ///< [s] of BeforeKickOff
  double halfSeconds = 300;     ///< [s] of game clock
  double kickOffSeconds = 15;   ///< [s] an untaken kick-off becomes PlayOn after this
  double beamGraceSeconds = 1;  ///< [s] of a kick-off in which beams are still obeyed
  double gameOverSeconds = 1;   ///< [s] that players see GameOver before the match ends
};

/// One player as the rules see it.
struct PlayerView {
  Side side = Side::kLeft;
  Vec3 position{};           ///< [m] field frame
  bool touchedBall = false;  ///< during the cycle that has just ended
};

/// What the referee looks at in a cycle. Players without a shirt aren't in it.
struct FieldView {
  Vec3 ball{};  ///< [m] field frame
  std::vector<PlayerView> players{};
};

/// What the referee decided in a cycle.
struct Ruling {
  std::optional<PlayMode> newMode{};  ///< set in the cycle in which the mode changed
  std::optional<Vec3> placeBallAt{};  ///< [m] field frame; the ball lies there at rest
};

class Referee {
 public:
  explicit Referee(const RefereeSettings& settings);

  /// One cycle has passed and left the field as VIEW shows it.
  Ruling observe(const FieldView& view);

  [[nodiscard]] PlayMode mode() const { return mode_; }
  /// [s] the game's own clock.
  [[nodiscard]] double clock() const;
  /// Whether a beam that arrives now is obeyed.
  [[nodiscard]] bool beamsAllowed() const;
  /// The match is over and GameOver has been shown long enough.
  [[nodiscard]] bool finished() const;

 private:
  [[nodiscard]] std::optional<PlayMode> nextMode(const FieldView& view) const;

  RefereeSettings settings_;
  PlayMode mode_ = PlayMode::kBeforeKickOff;
  // Whole cycles, not seconds: sums of 0.02 would drift off the borders.
  long cyclesInMode_ = 0;
  long cyclesOnClock_ = 0;
};

}  // namespace arena
