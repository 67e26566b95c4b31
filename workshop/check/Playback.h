#pragma once

/// Plays an action script with the player's own playback on a body that follows exactly, and says
/// where it asks for more than a joint or a motor can do.

#include <string>
#include <vector>

#include "workshop/check/ScriptNames.h"
#include "workshop/trial/Player.h"

namespace workshop {

struct Overreach {
  /// One line per joint that is driven out of its range: the motion gets stuck there.
  std::vector<std::string> ranges{};
  /// The joint that is asked most beyond its motor, and of how many; empty when none is. A fast
  /// gait may live with it: the controller catches up in the next block.
  std::string speed{};
};

/// What SCRIPT, one of kActionScripts, asks too much of. PLAYER stands in the folder of the script;
/// of the scripts that come before it, those that are there are played.
Overreach overreachOf(Player& player, const ActionScript& script);

}  // namespace workshop
