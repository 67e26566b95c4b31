#pragma once

/// Says what the player would silently skip, cut or lose of a script. The player reports nothing of
/// the kind: a slip of the pen shows as a robot on its nose. Called by `pitchmotion check` and by
/// the test of the scripts that are shipped.

#include <filesystem>
#include <string>
#include <vector>

namespace workshop {

struct Finding {
  std::filesystem::path file{};
  int line = 0;  ///< 0: the file as a whole
  std::string what{};
  bool isFault = true;  ///< false: only worth knowing
};

/// "FILE:LINE: WHAT", with "note: " in front of what is no fault.
std::string textOf(const Finding& finding);

/// In the order of FILES and lines. Whether a file is an action or a pose script is told by its
/// name. The action scripts are played too, with a servo that follows exactly and with the scripts
/// beside them that come before: what leaves a joint's range is a fault, what asks too much of a
/// motor worth a note. To be called while the process has no player.
std::vector<Finding> checkScripts(const std::vector<std::filesystem::path>& files);

bool anyFault(const std::vector<Finding>& findings);

}  // namespace workshop
