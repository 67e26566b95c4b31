#pragma once

/// Motions set by hand, angle by angle: pose scripts, and action scripts through keyframes. The
/// texts come from parameter files of the kinds "poses" and "keyframes":
///
///     {"kind": "poses", "poses": [
///       {"file": "kickR1.txt", "mirror": "kickL1.txt", "seconds": 0.5,
///        "degrees": {"lj3": 30, "raj2": -40}}]}
///     {"kind": "keyframes", "file": "shoot.txt", "frames": [
///       {"blocks": 8, "degrees": {"rlj3": 45}}]}
///
/// Angles are degrees in the server's sign by the perceptor's name. A name without its first letter
/// means both sides alike: its number is the left joint's, the right one's is mirrored. A pose
/// names only what it moves, unless it says "base": "standing" and so begins from the standing
/// posture's angles. Keyframes start from standing; each is reached in so many blocks by a smooth
/// curve, and what it doesn't name stays where it was.

#include "workshop/generate/Parameters.h"
#include "workshop/generate/Shelf.h"

namespace workshop {

/// Both throw ParameterError; WHERE names the file.
Scripts posesFrom(const Json& file, const Posture& standing, const std::string& where);
Scripts keyframesFrom(const Json& file, const Posture& standing, const std::string& where);

}  // namespace workshop
