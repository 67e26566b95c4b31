#include "arena/referee/Lines.h"

#include <algorithm>
#include <cmath>

#include "arena/model/FieldTable.h"

namespace arena {
namespace {

constexpr double kOutX = kFieldLength / 2 + kBallRadius;
constexpr double kOutY = kFieldWidth / 2 + kBallRadius;

/// The share of the way from FROM to TO, 0 to 1, after which a coordinate is LIMIT away from the
/// centre; 1 if it never is.
double shareUntil(double limit, double from, double to) {
  if (std::abs(to) <= limit) return 1;
  if (std::abs(from) > limit) return 0;
  return (std::copysign(limit, to) - from) / (to - from);
}

bool betweenThePosts(const Vec3& ball) {
  return std::abs(ball[1]) < kGoalWidth / 2 && ball[2] < kGoalHeight;
}

}  // namespace

bool isOut(const Vec3& ball) {
  return std::abs(ball[0]) > kOutX || std::abs(ball[1]) > kOutY;
}

std::optional<Crossing> crossing(const Vec3& from, const Vec3& to) {
  if (!isOut(to)) return std::nullopt;
  const double untilX = shareUntil(kOutX, from[0], to[0]);
  const double untilY = shareUntil(kOutY, from[1], to[1]);
  const double share = std::min(untilX, untilY);

  Crossing out;
  for (std::size_t i = 0; i < 3; ++i) out.place[i] = from[i] + share * (to[i] - from[i]);
  out.end = out.place[0] < 0 ? Side::kLeft : Side::kRight;
  const bool overGoalLine = std::abs(to[0]) > kOutX && untilX <= untilY;
  if (overGoalLine) out.line = betweenThePosts(out.place) ? Line::kGoal : Line::kGoalLine;
  return out;
}

}  // namespace arena
