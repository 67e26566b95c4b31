#pragma once

/// When a ball is over a line of the field, over which one and where. Called by the referee for
/// the path that the ball has taken in a cycle.
///
/// A ball is out, or in the goal, once the whole of it is beyond the line's outer edge, on the
/// ground or in the air: with its centre more than a radius behind the line.

#include <optional>

#include "arena/model/BodyTable.h"
#include "arena/referee/Side.h"

namespace arena {

enum class Line { kSideLine, kGoalLine, kGoal };

/// Where a ball left the field.
struct Crossing {
  Line line = Line::kSideLine;
  Side end = Side::kLeft;  ///< whose goal line or goal; on the side line, whose half
  Vec3 place{};            ///< [m] field frame, the ball's centre as the whole of it was over
};

/// Whether the whole ball is beyond a line. All [m], field frame, of its centre.
bool isOut(const Vec3& ball);

/// How a ball that went straight from FROM to TO left the field; empty while it is on it. A ball
/// that was out at FROM already left there.
std::optional<Crossing> crossing(const Vec3& from, const Vec3& to);

}  // namespace arena
