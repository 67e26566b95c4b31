#include "arena/referee/Referee.h"

#include <algorithm>
#include <cmath>

#include "arena/model/FieldTable.h"
#include "arena/referee/Lines.h"

namespace arena {
namespace {

constexpr Vec3 kCentreSpot{0, 0, kBallRadius};
/// [m] that a ball may creep from its spot, in the settling of contacts, without being put back.
constexpr double kCreep = 0.05;
/// [m] within which a ball counts as lying still, and how many times the span of a stall it may do
/// so although somebody touches it: one that lies against the ball would touch it for ever.
constexpr double kStill = 0.1;
constexpr double kStillStalls = 2;
/// [m] inside of the lines: where a dropped ball is clear of the goal posts.
constexpr double kDropInside = 0.1;

/// Is a span of SECONDS over after CYCLES? Compared in cycles, so that 0.06 s are three of them
/// although 0.06 / 0.02 is a little less than 3.
bool over(long cycles, double seconds) {
  return static_cast<double>(cycles) >= std::round(seconds / kRefereeCycleSeconds);
}

double onGround(const Vec3& a, const Vec3& b) {
  return std::hypot(a[0] - b[0], a[1] - b[1]);
}

std::size_t indexOf(Side side) {
  return static_cast<std::size_t>(side);
}

Vec3 kickInSpot(const Vec3& crossed) {
  const double x = std::clamp(crossed[0], -kFieldLength / 2, kFieldLength / 2);
  return {x, std::copysign(kFieldWidth / 2, crossed[1]), kBallRadius};
}

Vec3 cornerSpot(Side end, const Vec3& crossed) {
  return {ownEnd(end) * kFieldLength / 2, std::copysign(kFieldWidth / 2, crossed[1]), kBallRadius};
}

Vec3 goalKickSpot(Side end) {
  return {ownEnd(end) * (kFieldLength / 2 - kGoalKickFromLine), 0, kBallRadius};
}

Vec3 dropSpot(const Vec3& ball) {
  const double x = kFieldLength / 2 - kDropInside;
  const double y = kFieldWidth / 2 - kDropInside;
  return {std::clamp(ball[0], -x, x), std::clamp(ball[1], -y, y), kBallRadius};
}

}  // namespace

Referee::Referee(const RefereeSettings& settings)
    : settings_(settings), ball_(kCentreSpot), spot_(kCentreSpot), restedAt_(kCentreSpot) {}

Ruling Referee::observe(const FieldView& view) {
  ++cyclesInMode_;
  if (clockRuns(mode_)) ++cyclesOnClock_;
  const Touches now = touches(view);

  Ruling ruling;
  if (mode_ == PlayMode::kBeforeKickOff) {
    if (over(cyclesInMode_, settings_.waitSeconds)) {
      kickOff(half_ == 1 ? Side::kLeft : Side::kRight, ruling);
    }
  } else if (isGoal(mode_)) {
    if (over(cyclesInMode_, settings_.goalSeconds)) {
      const Side conceded = mode_ == goalOf(Side::kLeft) ? Side::kRight : Side::kLeft;
      if (halfIsUp()) {
        endHalf(ruling);
      } else {
        kickOff(conceded, ruling);
      }
    }
  } else if (const auto taker = takerOf(mode_)) {
    watchRestart(*taker, now, view, ruling);
  } else if (mode_ == PlayMode::kPlayOn) {
    watchPlay(now, view, ruling);
  }

  ball_ = ruling.placeBallAt.value_or(view.ball);
  if (!ruling.freeSpace) ruling.freeSpace = freeSpace();
  return ruling;
}

void Referee::watchRestart(Side taker, const Touches& now, const FieldView& view, Ruling& ruling) {
  const double patience = isKickOff(mode_) ? settings_.kickOffSeconds : settings_.restartSeconds;
  if (halfIsUp()) {
    endHalf(ruling);
  } else if (now.bySide[indexOf(taker)]) {
    lastTouch_ = now.last;
    enter(PlayMode::kPlayOn, ruling);
  } else if (over(cyclesInMode_, patience)) {
    ruling.incident = {Incident::Kind::kNotTaken, taker, {}, spot_};
    enter(PlayMode::kPlayOn, ruling);
  } else if (onGround(view.ball, spot_) > kCreep) {
    ruling.placeBallAt = spot_;
  }
}

void Referee::watchPlay(const Touches& now, const FieldView& view, Ruling& ruling) {
  ++cyclesUntouched_;
  ++cyclesStill_;
  if (now.last) {
    lastTouch_ = now.last;
    cyclesUntouched_ = 0;
  }
  if (onGround(view.ball, restedAt_) > kStill) {
    restedAt_ = view.ball;
    cyclesStill_ = 0;
  }
  const auto crossed = crossing(ball_, view.ball);
  // A ball that is in as the time runs out counts; every other way out comes too late then.
  if (crossed && crossed->line == Line::kGoal) {
    goal(crossed->end, crossed->place, ruling);
  } else if (halfIsUp()) {
    endHalf(ruling);
  } else if (crossed) {
    // A ball that nobody has touched since its restart counts as an attack on the end it left at.
    const Side touched = lastTouch_ ? lastTouch_->side : opposite(crossed->end);
    const Side other = opposite(touched);
    if (crossed->line == Line::kSideLine) {
      restart(Incident::Kind::kKickIn, other, kickInOf(other), kickInSpot(crossed->place), ruling);
    } else if (touched == crossed->end) {
      restart(Incident::Kind::kCornerKick, other, cornerKickOf(other),
              cornerSpot(crossed->end, crossed->place), ruling);
    } else {
      restart(Incident::Kind::kGoalKick, other, goalKickOf(other), goalKickSpot(crossed->end),
              ruling);
    }
  } else if (hasStalled()) {
    dropBall(view.ball, ruling);
  }
}

void Referee::goal(Side conceded, const Vec3& ball, Ruling& ruling) {
  const Side scored = opposite(conceded);
  ++score_[indexOf(scored)];
  ruling.incident = {Incident::Kind::kGoal, scored, lastTouch_, ball};
  enter(goalOf(scored), ruling);
}

void Referee::restart(Incident::Kind kind, Side side, PlayMode mode, const Vec3& ball,
                      Ruling& ruling) {
  ruling.incident = {kind, side, {}, ball};
  place(ball, ruling);
  enter(mode, ruling);
}

void Referee::kickOff(Side side, Ruling& ruling) {
  place(kCentreSpot, ruling);
  enter(kickOffOf(side), ruling);
}

void Referee::dropBall(const Vec3& ball, Ruling& ruling) {
  ++droppedBalls_;
  place(dropSpot(ball), ruling);
  ruling.freeSpace = FreeSpace{{spot_[0], spot_[1]}, kDropRadius, {}};
  ruling.incident = {Incident::Kind::kDroppedBall, {}, {}, spot_};
  cyclesUntouched_ = cyclesStill_ = 0;
}

bool Referee::hasStalled() const {
  const double span = settings_.stallSeconds;
  if (span == 0) return false;
  return over(cyclesUntouched_, span) || over(cyclesStill_, kStillStalls * span);
}

void Referee::endHalf(Ruling& ruling) {
  const bool isLast = half_ == 2;
  ruling.incident = {isLast ? Incident::Kind::kFullTime : Incident::Kind::kHalfTime, {}, {}, ball_};
  if (isLast) {
    enter(PlayMode::kGameOver, ruling);
    return;
  }
  half_ = 2;
  place(kCentreSpot, ruling);
  enter(PlayMode::kBeforeKickOff, ruling);
}

void Referee::enter(PlayMode mode, Ruling& ruling) {
  mode_ = mode;
  ruling.newMode = mode;
  cyclesInMode_ = cyclesUntouched_ = cyclesStill_ = 0;
}

void Referee::place(const Vec3& ball, Ruling& ruling) {
  spot_ = ball;
  lastTouch_.reset();
  ruling.placeBallAt = ball;
}

Referee::Touches Referee::touches(const FieldView& view) {
  Touches found;
  double nearest = 0;
  for (const PlayerView& player : view.players) {
    if (!player.touchedBall) continue;
    found.bySide[indexOf(player.shirt.side)] = true;
    const double away = onGround(player.position, view.ball);
    if (found.last && away >= nearest) continue;
    found.last = player.shirt;
    nearest = away;
  }
  return found;
}

bool Referee::halfIsUp() const {
  return over(cyclesOnClock_, half_ * settings_.halfSeconds);
}

double Referee::clock() const {
  return static_cast<double>(cyclesOnClock_) * kRefereeCycleSeconds;
}

bool Referee::beamsAllowed() const {
  if (mode_ == PlayMode::kBeforeKickOff || isGoal(mode_)) return true;
  return isKickOff(mode_) && !over(cyclesInMode_, settings_.beamGraceSeconds);
}

std::optional<FreeSpace> Referee::freeSpace() const {
  const auto taker = takerOf(mode_);
  if (!taker) return std::nullopt;
  return FreeSpace{{spot_[0], spot_[1]}, kFreeRadius, taker};
}

bool Referee::finished() const {
  return mode_ == PlayMode::kGameOver && over(cyclesInMode_, settings_.gameOverSeconds);
}

}  // namespace arena
