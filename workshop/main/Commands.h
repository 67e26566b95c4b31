#pragma once

/// The commands of the program, one source file each: its options, and the call of the library that
/// does the work. main walks the list at the end; a new command is one function and one line there.

#include <CLI/CLI.hpp>
#include <array>

namespace workshop {

// Each adds its command to PROGRAM. When it is chosen it runs while the command line is read, and
// leaves the exit status in STATUS: 0 all well, 1 something found wanting.
void addCheck(CLI::App& program, int& status);
void addGenerate(CLI::App& program, int& status);
void addPlay(CLI::App& program, int& status);
void addJudge(CLI::App& program, int& status);
void addTune(CLI::App& program, int& status);

inline constexpr std::array kCommands{addCheck, addGenerate, addPlay, addTune, addJudge};

}  // namespace workshop
