#pragma once

/// Files that the command line names. Called by the program's commands before and after a match.

#include <fstream>
#include <string>

#include "arena/match/Summary.h"

namespace arena {

/// Opens NAME for writing, at once: a file that can't be written is better known before a match.
/// Without a name it stays closed. Throws UsageError that names OPTION.
std::ofstream openedFor(const std::string& option, const std::string& name);

/// Writes SUMMARY as JSON if FILE is open. Throws std::runtime_error when it can't be written.
void writeSummary(std::ofstream& file, const Summary& summary);

}  // namespace arena
