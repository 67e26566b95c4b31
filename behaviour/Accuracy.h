#pragma once

/// The two values that Agent::walkdestAccuracy takes: the stopping distance of the approach, and
/// how far behind the ball its goal lies. They are compared exactly.

inline constexpr double kFarAccuracy = 0.4;    ///< [m] far from the ball
inline constexpr double kNearAccuracy = 0.12;  ///< [m] on the last stretch
