#pragma once

/// What pitcharena does without a command: plays one match. Called by main().

#include "arena/main/Options.h"

namespace arena {

/// Prints what happens and what came of it. The program's exit status. Throws UsageError,
/// LinkError, std::runtime_error.
int play(const PlayOptions& options);

}  // namespace arena
