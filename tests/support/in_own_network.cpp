/// Runs a command line in a network of its own, for tests written as shell scripts:
///   in_own_network command [argument ...]
/// The command finds the address to use in PITCH_TEST_HOST: 127.0.0.1, or, where no namespace is
/// permitted, a loopback address of its own, which is then said on standard error. The exit status
/// is the command's; 127 when it can't be run, 2 without a command.

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>

#include "tests/support/OwnNetwork.h"

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("usage: in_own_network command [argument ...]\n", stderr);
    return 2;
  }
  try {
    const NetworkPlace& place = EnterOwnNetwork();
    if (!place.isolated) std::fprintf(stderr, "in_own_network: %s\n", place.reason.c_str());
    setenv("PITCH_TEST_HOST", place.address.c_str(), 1);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "in_own_network: %s\n", error.what());
    return 127;
  }
  execvp(argv[1], argv + 1);
  std::perror(argv[1]);
  return 127;
}
