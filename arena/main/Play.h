#pragma once

/// What pitcharena does without a command: plays one match. Called by main().

#include "arena/main/Options.h"

namespace arena {

/// Prints what happens and what came of it. The program's exit status: 1 if the match broke off by
/// a fault of its own. Throws UsageError, LinkError, std::runtime_error.
int play(const PlayOptions& options);

}  // namespace arena
