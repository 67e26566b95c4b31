#include "runtime/Options.h"

#include <cstdlib>
#include <iostream>
#include <string>

#include "behaviour/Agent.h"
#include "runtime/Connection.h"

namespace {

constexpr std::size_t kNameLength = 6;  ///< of "--host" and "--unum"
/// The character between name and value is skipped unread.
constexpr std::size_t kValueStart = 7;
constexpr std::size_t kShortest = kValueStart + 1;
constexpr long kFirstShirt = 1;
constexpr long kLastShirt = 6;

bool hasName(const std::string& argument, const char* name) {
  return argument.compare(0, kNameLength, name) == 0;
}

[[noreturn]] void helpAndExit() {
  PrintHelp();
  std::exit(0);
}

std::string valueOf(const std::string& argument) {
  if (argument.size() < kShortest) {
    helpAndExit();
  }
  return argument.substr(kValueStart);
}

}  // namespace

void PrintHelp() {
  std::cout << "\nusage: pitchagent [options]" << std::endl;
  std::cout << "\noptions:" << std::endl;
  std::cout << " --help      prints this message." << std::endl;
  std::cout << " --host=IP   IP of the server." << std::endl;
  std::cout << " --unum=ID   ID of the player from 1 to 5." << std::endl;
  std::cout << "\n";
}

void ReadOptions(int argc, char** argv) {
  if (argc < 1) {
    return;
  }
  for (int i = 0; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument == "--help") {
      helpAndExit();
    } else if (hasName(argument, "--host")) {
      const std::string address = valueOf(argument);
      Connection::getSingleton()->SetHostAdd(address);
    } else if (hasName(argument, "--unum")) {
      const long number = std::strtol(valueOf(argument).c_str(), nullptr, 10);
      if (number < kFirstShirt || number > kLastShirt) {
        helpAndExit();
      }
      Agent::getSingleton()->uNum = static_cast<int>(number);
    } else {
      Agent::getSingleton()->uNum = 1;
    }
  }
}
