#pragma once

/// What tuning wants of kicks, get-ups and dives. Called by objectiveOf() for the motions that it
/// doesn't know itself. A description names them under "objective":
///
///     {"motion": "kick", "aim": 4}      the kick of either foot near and farther, and the kick-off
///     {"motion": "shoot", "aim": 1.5}   the action script
///     {"motion": "getUp", "from": ["front"]}   also "back", "left", "right"
///     {"motion": "dive", "reach": 0.6}  out to either side and up again
///
/// Costs are per trial and lie between 0 (all that is asked for) and kFallCost or a little above.

#include <optional>
#include <string>

#include "workshop/tune/Objective.h"

namespace workshop {

/// SPEC is the description's "objective". Empty for a motion of another kind. Throws
/// ParameterError; WHERE names the place.
std::optional<Objective> groundObjective(const std::string& motion, const Json& wanted,
                                         const std::string& where);

}  // namespace workshop
