#pragma once

/// What `pitcharena picture FILE -o PICTURE` does: draws a recorded match from above. Called by
/// main().

#include "arena/main/Options.h"

namespace arena {

/// Writes the picture as far as the record goes. The program's exit status: 1 when the record isn't
/// whole, which is told on standard error. Throws UsageError, RecordError, std::runtime_error.
int drawPicture(const PictureOptions& options);

}  // namespace arena
