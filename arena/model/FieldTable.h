#pragma once

/// The field, its goals and the ball: the rules' numbers and the physics model's, in one place.
/// Read by the model, the senses and the referee. Constant throughout.
///
/// Field frame: origin at the centre, x towards the right team's goal, y to the left of the left
/// team's attack, z up; metres.

namespace arena {

// The playing area and the goals [rules of the league].
inline constexpr double kFieldLength = 18.0;  ///< [m] along x
inline constexpr double kFieldWidth = 12.0;   ///< [m] along y
inline constexpr double kGoalWidth = 2.1;     ///< [m] between the posts' inner sides
inline constexpr double kGoalHeight = 0.8;    ///< [m] from the ground to the crossbar's lower side

// The ball [rules of the league].
inline constexpr double kBallRadius = 0.042;  ///< [m]
inline constexpr double kBallMass = 0.026;    ///< [kg]

/// [m] posts and crossbar, our own choice: thin enough not to narrow the goal for a robot, thick
/// enough that a ball at 10 m/s, which moves 0.04 m in a step, can't jump through.
inline constexpr double kGoalPostRadius = 0.025;

inline constexpr double kGravity = 9.81;  ///< [m/s^2] downward

}  // namespace arena
