#include "arena/referee/Referee.h"

#include <algorithm>
#include <cmath>

#include "arena/model/FieldTable.h"

namespace arena {
namespace {

constexpr Vec3 kKickOffSpot{0, 0, kBallRadius};

/// Is a span of SECONDS over after CYCLES? Compared in cycles, so that 0.06 s are three of them
/// although 0.06 / 0.02 is a little less than 3.
bool over(long cycles, double seconds) {
  return static_cast<double>(cycles) >= std::round(seconds / kRefereeCycleSeconds);
}

}  // namespace

Referee::Referee(const RefereeSettings& settings) : settings_(settings) {}

Ruling Referee::observe(const FieldView& view) {
  ++cyclesInMode_;
  if (clockRuns(mode_)) ++cyclesOnClock_;

  Ruling ruling;
  if (const auto next = nextMode(view)) {
    ruling.newMode = next;
    if (isKickOff(*next)) ruling.placeBallAt = kKickOffSpot;
    mode_ = *next;
    cyclesInMode_ = 0;
  }
  return ruling;
}

std::optional<PlayMode> Referee::nextMode(const FieldView& view) const {
  if (mode_ == PlayMode::kBeforeKickOff) {
    if (over(cyclesInMode_, settings_.waitSeconds)) return PlayMode::kKickOffLeft;
    return std::nullopt;
  }
  if (mode_ == PlayMode::kGameOver) return std::nullopt;
  if (over(cyclesOnClock_, settings_.halfSeconds)) return PlayMode::kGameOver;

  if (isKickOff(mode_)) {
    const bool taken = std::any_of(view.players.begin(), view.players.end(),
                                   [](const PlayerView& player) { return player.touchedBall; });
    if (taken || over(cyclesInMode_, settings_.kickOffSeconds)) return PlayMode::kPlayOn;
  }
  return std::nullopt;
}

double Referee::clock() const {
  return static_cast<double>(cyclesOnClock_) * kRefereeCycleSeconds;
}

bool Referee::beamsAllowed() const {
  if (mode_ == PlayMode::kBeforeKickOff || isGoal(mode_)) return true;
  return isKickOff(mode_) && !over(cyclesInMode_, settings_.beamGraceSeconds);
}

bool Referee::finished() const {
  return mode_ == PlayMode::kGameOver && over(cyclesInMode_, settings_.gameOverSeconds);
}

}  // namespace arena
