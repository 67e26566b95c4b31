#pragma once

/// The lines and points that the approach to the ball and the kick are judged by. Made afresh from
/// the positions of one cycle.
///
///     y
///     |     closestOnLine
///     |  me ----+
///     |         |            ball                       goal (9, 0)
///     +---- kickPoint ------- o ------ ballGoalLine -------- x
///
/// A ball on the goal's height or on its line makes a slope infinite; no case is made of it, and
/// comparisons with what is no number count as false.

#include "math/Line.h"
#include "math/VecPosition.h"

struct BallGeometry {
  BallGeometry(const VecPosition& ball, const VecPosition& me, double accuracy);

  double ballGoalAngle;       ///< [deg] 0 to 360, from the ball to the goal
  Line ballGoalLine;          ///< through goal and ball
  VecPosition kickPoint;      ///< [m] on that line, ACCURACY behind the ball
  double distToKickLine;      ///< [m] from the player to the perpendicular through kickPoint
  VecPosition closestOnLine;  ///< [m] the player's foot on ballGoalLine
  double offLineDist;         ///< [m] from the player to that foot
};

/// The line through the goal and the ball.
Line makeBallGoalLine(const VecPosition& ball);
