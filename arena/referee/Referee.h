#pragma once

/// The referee: play mode, clock and score of a match, from where ball and players are and who
/// touched the ball. The match calls observe() once in each cycle, after the world's step and
/// before the senses; between two calls nothing changes. It never touches the world itself: a
/// ruling says where the ball is to lie and who has to make room, the match sees to it.
///
/// A match:  BeforeKickOff -> KickOff_Left -> PlayOn ... -> BeforeKickOff -> KickOff_Right ->
///           PlayOn ... -> GameOver. The clock runs on over both halves; the sides keep their ends.
/// A goal:   PlayOn -> Goal_x -> KickOff of the other side.
/// A restart (KickOff_x, KickIn_x, corner_kick_x, goal_kick_x) becomes PlayOn with the first touch
/// of x, or when its time is over. Until then the other side keeps away from the ball, and a ball
/// that somebody else moves is put back.
///
/// A ball that nobody touches for a while, or that has long been touched without moving, is dropped
/// where it is, and everybody near makes room.
///
/// Simpler than the game outdoors: a goal counts from every restart, and the taker may touch the
/// ball twice. There is no offside and no foul, so offside_x and free_kick_x never come.

#include <array>
#include <optional>

#include "arena/referee/Ruling.h"

namespace arena {

/// [s] between two calls of observe(); the match checks that the world agrees.
inline constexpr double kRefereeCycleSeconds = 0.02;

/// What a match may vary. All in seconds, none negative.
struct RefereeSettings {
  double waitSeconds = 10;      ///< [s] of BeforeKickOff, in both halves
  double halfSeconds = 300;     ///< [s] of game clock in one half
  double kickOffSeconds = 15;   ///< [s] an untaken kick-off becomes PlayOn after this
  double restartSeconds = 15;   ///< [s] the same for every other restart
  double goalSeconds = 3;       ///< [s] of Goal_x
  double stallSeconds = 30;     ///< [s] of play without a touch until the ball is dropped; 0: never
  double beamGraceSeconds = 1;  ///< [s] of a kick-off in which beams are still obeyed
  double gameOverSeconds = 1;   ///< [s] that players see GameOver before the match ends
};

// Distances of the rules, in proportion to the field.
inline constexpr double kFreeRadius = 1.8;      ///< [m] kept free around the taker's ball
inline constexpr double kDropRadius = 0.7;      ///< [m] kept free of all as the ball is dropped
inline constexpr double kGoalKickFromLine = 1;  ///< [m] before the middle of the goal

class Referee {
 public:
  explicit Referee(const RefereeSettings& settings);

  /// One cycle has passed and left the field as VIEW shows it.
  Ruling observe(const FieldView& view);

  [[nodiscard]] PlayMode mode() const { return mode_; }
  /// [s] the game's own clock.
  [[nodiscard]] double clock() const;
  /// 1 or 2; the wait before a half belongs to it.
  [[nodiscard]] int half() const { return half_; }
  /// Goals, in the order of Side.
  [[nodiscard]] const std::array<int, 2>& score() const { return score_; }
  /// How often the ball was dropped because nobody played it.
  [[nodiscard]] int droppedBalls() const { return droppedBalls_; }
  /// Whether a beam that arrives now is obeyed.
  [[nodiscard]] bool beamsAllowed() const;
  /// What a restart keeps free of the other side; empty in all other modes.
  [[nodiscard]] std::optional<FreeSpace> freeSpace() const;
  /// The match is over and GameOver has been shown long enough.
  [[nodiscard]] bool finished() const;

 private:
  /// Who has touched the ball in a cycle.
  struct Touches {
    std::optional<Shirt> last{};   ///< of several players the one nearest to it
    std::array<bool, 2> bySide{};  ///< order of Side
  };
  [[nodiscard]] static Touches touches(const FieldView& view);

  [[nodiscard]] bool halfIsUp() const;
  void enter(PlayMode mode, Ruling& ruling);
  void place(const Vec3& ball, Ruling& ruling);
  void kickOff(Side side, Ruling& ruling);
  void endHalf(Ruling& ruling);
  void watchRestart(Side taker, const Touches& now, const FieldView& view, Ruling& ruling);
  void watchPlay(const Touches& now, const FieldView& view, Ruling& ruling);
  void goal(Side conceded, const Vec3& ball, Ruling& ruling);
  void restart(Incident::Kind kind, Side side, PlayMode mode, const Vec3& ball, Ruling& ruling);
  [[nodiscard]] bool hasStalled() const;
  void dropBall(const Vec3& ball, Ruling& ruling);

  RefereeSettings settings_;
  PlayMode mode_ = PlayMode::kBeforeKickOff;
  int half_ = 1;
  std::array<int, 2> score_{};
  int droppedBalls_ = 0;
  // Whole cycles, not seconds: sums of 0.02 would drift off the borders.
  long cyclesInMode_ = 0;
  long cyclesOnClock_ = 0;
  long cyclesStill_ = 0;              ///< of play, with the ball about where it rested
  long cyclesUntouched_ = 0;          ///< of play
  Vec3 ball_;                         ///< [m] where it was, or was put, in the cycle before
  Vec3 spot_;                         ///< [m] where the last restart put it
  Vec3 restedAt_;                     ///< [m] where it began to count as lying still
  std::optional<Shirt> lastTouch_{};  ///< since it was put somewhere
};

}  // namespace arena
