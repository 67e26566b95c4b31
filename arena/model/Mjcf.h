#pragma once

/// The text of the physics model: field, ball and some robots, in the physics engine's XML. A world
/// asks for it whenever the number of robots on the field is new to it. Pure: equal arguments give
/// equal text.

#include <string>
#include <string_view>

namespace arena {

/// What of the physics a caller may vary.
struct ModelSettings {
  double stepSeconds = 0.004;         ///< [s]
  double motorTorqueLimit = 20.0;     ///< [N m]
  double groundFriction = 1.0;        ///< sliding friction coefficient
  double contactTimeConstant = 0.02;  ///< [s]
  double massFactor = 1.0;            ///< on every link
};

inline constexpr std::string_view kBallName = "ball";
inline constexpr std::string_view kGroundName = "ground";

/// Name in the model of LINK of the ROBOT-th robot, counted from 0. The link's body and its shape
/// bear it, and so does the joint by which it hangs on its parent.
std::string nameInModel(int robot, std::string_view link);

/// The model with ROBOTS robots. The ball comes first in the state vectors, then robot by robot the
/// free torso and the joints in the order of the links' tree.
/// Throws std::invalid_argument for settings that no model can have (not finite, or not above 0).
std::string mjcf(int robots, const ModelSettings& settings);

}  // namespace arena
