#pragma once

/// What `pitcharena replay FILE` does: tells a recorded match once more. Called by main().

#include "arena/main/Options.h"

namespace arena {

/// Prints the events and the summary as far as the record goes. The program's exit status: 1 when
/// the record isn't whole, which is told on standard error. Where asked for, it then serves the
/// page until it is stopped. Throws UsageError, RecordError, std::runtime_error.
int replay(const ReplayOptions& options);

}  // namespace arena
