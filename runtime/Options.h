#pragma once

/// The command line: the program's only configuration.

/// Writes the usage text to standard output.
void PrintHelp();

/// Reads the arguments from index 0 up, the program's own name included: like any argument that
/// names no option it sets the shirt number to 1, which is how the default comes about. So order
/// matters: a stray argument behind --unum=3 resets it. A bad option prints the help and ends the
/// process with status 0.
void ReadOptions(int argc, char** argv);
