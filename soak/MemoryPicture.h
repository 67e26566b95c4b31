#pragma once

/// Memory over the cycles of the long match as one SVG: the training ground above, the players and
/// ./play below. Written by soak_report beside the page.

#include <string>
#include <vector>

#include "soak/Memory.h"

namespace soak {

/// A whole document that asks for nothing else: no script, no font, no other file.
std::string pictureOf(const std::vector<ProcessMemory>& memory);

}  // namespace soak
