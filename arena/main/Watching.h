#pragma once

/// The page to watch on, as the program's commands offer it: where it is served, and what is said
/// of it. Called by play and replay.

#include <functional>
#include <memory>
#include <string>

#include "arena/main/Options.h"
#include "arena/main/StopSignals.h"
#include "viewer/server/Viewer.h"

namespace arena {

/// The viewer of a live match; none when it isn't wanted. SAY gets the page's address, and what
/// keeps the page from working. Throws view::ViewError when a port that was asked for is taken.
std::unique_ptr<view::Viewer> viewerFor(const ViewOptions& options,
                                        const std::function<void(const std::string&)>& say);

/// Serves RECORD until SIGNALS says to stop; prints the address. Throws view::ViewError.
void watchRecord(const ViewOptions& options, view::Timeline record, StopSignals& signals);

}  // namespace arena
