#include "arena/match/BallPlay.h"

#include <algorithm>
#include <cmath>

#include "arena/model/FieldTable.h"

namespace arena {
namespace {

constexpr long kOneTouchCycles = 25;    // half a second
constexpr double kBesideThePost = 0.5;  // [m]
/// [m] that a ball at 1 m/s rolls; at twice the speed four times as far, since rolling friction is
/// a constant force. [measured: tests/arena/world/BallTest asks for 2 to 4]
constexpr double kRollAtOneMetrePerSecond = 3.0;

const PlayerRecord* nearestToucher(const CycleRecord& record) {
  const PlayerRecord* nearest = nullptr;
  double least = 0;
  for (const PlayerRecord& player : record.players) {
    if (!player.touchedBall || !player.shirt) continue;
    const double distance =
        std::hypot(player.position[0] - record.ball[0], player.position[1] - record.ball[1]);
    if (nearest != nullptr && distance >= least) continue;
    nearest = &player;
    least = distance;
  }
  return nearest;
}

}  // namespace

bool isShot(Side side, const Vec3& ball, const Vec3& velocity) {
  const double goalLine = side == Side::kLeft ? kFieldLength / 2 : -kFieldLength / 2;
  const double toLine = goalLine - ball[0];
  if (toLine * velocity[0] <= 0) return false;
  const double sideways = toLine * velocity[1] / velocity[0];
  const double speed = std::hypot(velocity[0], velocity[1]);
  return std::hypot(toLine, sideways) <= kRollAtOneMetrePerSecond * speed * speed &&
         std::abs(ball[1] + sideways) <= kGoalWidth / 2 + kBesideThePost;
}

BallNews BallPlay::add(const CycleRecord& record) {
  BallNews news;
  if (const PlayerRecord* const player = nearestToucher(record)) {
    const Toucher toucher{player->session, *player->shirt};
    if (lastTouch_ != toucher || record.cycle - lastTouchCycle_ > kOneTouchCycles) {
      shotCounted_ = false;
    }
    lastTouch_ = toucher;
    lastTouchCycle_ = record.cycle;
  }

  const bool inPlay = record.mode == PlayMode::kPlayOn;
  const bool hasJustLeft = lastTouch_ && record.cycle == lastTouchCycle_ + 1;
  if (inPlay && hasJustLeft && !shotCounted_ &&
      isShot(lastTouch_->shirt.side, record.ball, record.ballVelocity)) {
    news.shot = lastTouch_;
    shotCounted_ = true;
  }
  for (const Side side : {Side::kLeft, Side::kRight}) {
    const auto row = static_cast<std::size_t>(side);
    if (record.score[row] <= score_[row] || !lastTouch_ || lastTouch_->shirt.side != side) continue;
    news.goal = lastTouch_;
    if (!shotCounted_) news.shot = lastTouch_;
  }
  score_ = record.score;

  if (!inPlay) lastTouch_.reset();
  news.possession = lastTouch_;
  return news;
}

}  // namespace arena
