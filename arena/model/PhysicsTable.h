#pragma once

/// Every number of contact, motor and solver, each with a word on why it is so. Read by the model's
/// text and by the servos; what a caller may vary stands in Mjcf.h's ModelSettings instead.

namespace arena {

// Contact. Softness otherwise as in the engine's defaults.
inline constexpr double kLinkFriction = 0.5;  ///< links against links and goals: smooth plastic

// Ball. Its contacts follow its own numbers, whatever it touches.
inline constexpr double kBallFriction = 0.8;  ///< foam on grass or plastic: it rolls, hardly slides
/// [m] resistance to rolling, the lever arm of the ground's push: a rolling ball slows by
/// g * lever / ((1 + inertia share) * radius), 0.15 m/s^2, a little less on this soft ground. So a
/// ball rolling at 1 m/s goes 3.5 m, one set off at 1 m/s without spin 2.2 m [measured: at steps of
/// 2, 4 and 5 ms].
inline constexpr double kBallRollingFriction = 0.00085;
/// Moment of inertia as a share of mass * radius^2: a foam ball (evenly filled: 0.4) whose heavy
/// part is its core, so that one set off without spin keeps 1 / 1.3 of its speed once it rolls.
inline constexpr double kBallInertiaShare = 0.3;

// Joints.
/// [kg m^2] a motor's rotor seen through its gear. Small against a leg, but it keeps the lightest
/// links (a shoulder is some 1e-5) from ruling the solver's conditioning.
inline constexpr double kRotorInertia = 0.001;
inline constexpr double kMaxJointSpeed = 7.0;  ///< [rad/s] commands are cut to it
/// [s] time constant of a servo's approach to its speed.
inline constexpr double kServoTimeConstant = 0.005;
/// [1/s] the holding term: speed added per radian that a joint lags behind its commanded motion.
inline constexpr double kServoHoldRate = 40.0;
/// [rad] lag beyond which the servo forgets: what it couldn't follow it doesn't catch up later.
inline constexpr double kServoMaxLag = 0.01;
/// Impedance of the servo's constraint, 0 to 1: the share of the wanted acceleration that it gets
/// against whatever load there is, as long as the torque suffices.
inline constexpr double kServoImpedance = 0.99;

// The stops at the ends of a joint's range. Stiffer than contacts: at the engine's defaults a pile
// of robots bends hips 16 degrees beyond their range, at these 2 degrees.
inline constexpr double kStopTimeConstant = 0.01;  ///< [s]
inline constexpr double kStopImpedance = 0.99;

// Solver.
/// The true round cone: the pyramid's corners would let a ball roll further along x than across.
inline constexpr const char* kFrictionCone = "elliptic";
inline constexpr double kImpratio = 1;  ///< friction as hard as the ground: the engine's default
/// Flailing heaps of twelve took 34 at most, standing robots 4 on average [measured, 16 s each].
inline constexpr int kSolverIterations = 50;
inline constexpr double kSolverTolerance = 1e-8;  ///< 1e-6 is no faster [measured: bench/world]
// Room for contacts in the engine's memory: one lying flat makes some 20, two standing in each
// other some 100.
inline constexpr int kContactsInCommon = 60;
inline constexpr int kContactsPerRobot = 25;

}  // namespace arena
