#pragma once

/// The texts of the two script formats. The last step of every generator; nothing reads them here.

#include <string>
#include <vector>

#include "workshop/generate/ScriptJoints.h"

namespace workshop {

/// An action script: per posture a block that names every joint that the format knows, so that none
/// stands still for lack of a word.
std::string actionScript(const std::vector<Posture>& targets);

/// A pose script for the joints of which NAMED holds: a step of SECONDS.
std::string poseScript(const Posture& posture, const std::array<bool, kScriptJointCount>& named,
                       double seconds);
/// A pose script that names all its joints.
std::string poseScript(const Posture& posture, double seconds);

}  // namespace workshop
