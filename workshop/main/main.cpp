/// pitchmotion: the workshop of the player's motion scripts.

#include <exception>
#include <iostream>

#include "workshop/main/Commands.h"

namespace {

constexpr int kUsageStatus = 2;

int run(int argc, char** argv) {
  CLI::App program{"Checks, plays, judges, writes and tunes the motion scripts of pitchagent.",
                   "pitchmotion"};
  program.require_subcommand(1);
  int status = 0;
  for (const auto add : workshop::kCommands) add(program, status);
  try {
    program.parse(argc, argv);
    return status;
  } catch (const CLI::Success& help) {
    return program.exit(help);
  } catch (const CLI::ParseError& error) {
    std::cerr << "pitchmotion: " << error.what() << '\n';
    return kUsageStatus;
  }
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "pitchmotion: " << error.what() << '\n';
    return 1;
  }
}
