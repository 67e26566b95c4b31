// How fast are motion scripts read? The shipped ones by the player's two readers: an action script
// block by block to its end, a pose script at one go. Beside them the same files read line by line,
// and word by word with nothing done about the words.
//
//   scripts [folder of scripts, default scripts] [passes, default 41] [--json FILE]

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "behaviour/Agent.h"
#include "bench/Report.h"
#include "perception/WorldModel.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::array kActions{"walkstart.txt", "walkloop1.txt", "walkend.txt", "turnL60.txt",
                              "sideR.txt"};
constexpr std::array kPoses{"initialstate.txt", "back2.txt", "front3.txt", "kickR5.txt",
                            "JumpL1.txt"};

/// Takes what the player says about the end of a script while it lives.
class Quiet {
 public:
  Quiet() : before_(std::cout.rdbuf(heard_.rdbuf())) {}
  ~Quiet() { std::cout.rdbuf(before_); }
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;

 private:
  std::ostringstream heard_{};
  std::streambuf* before_;
};

void playAction(const char* script) {
  Agent* const player = Agent::getSingleton();
  player->myACtionFile.open(script);
  player->actionFileOpen = true;
  while (player->actionFileOpen) player->loadMoveFromFile();
}

void playPose(const char* script) {
  Agent::getSingleton()->loadMoveFromFile(script);
}

volatile std::size_t sink = 0;  // keeps the words from being left out

void readLines(const char* script) {
  std::ifstream file(script);
  std::size_t size = 0;
  for (std::string line; std::getline(file, line);) size += line.size();
  sink = size;
}

void readWords(const char* script) {
  std::ifstream file(script);
  std::size_t size = 0;
  double number = 0;
  for (std::string word; file >> word >> number;) size += word.size();
  sink = size;
}

struct Way {
  std::string name;
  std::function<void(const char*)> read;
  std::vector<double> figures{};
};

/// MB/s of each way over all SCRIPTS, the ways by turns.
template <std::size_t N>
void measure(bench::Report& report, const std::string& kind, void (*play)(const char*),
             const std::array<const char*, N>& scripts, int passes) {
  double bytes = 0;
  for (const char* script : scripts) {
    bytes += static_cast<double>(std::filesystem::file_size(script));
  }
  std::array<Way, 3> ways{Way{"player, " + kind, play}, Way{"getline, " + kind, readLines},
                          Way{"words and numbers, " + kind, readWords}};
  for (int pass = 0; pass < passes; ++pass) {
    for (Way& way : ways) {
      const Clock::time_point start = Clock::now();
      for (const char* script : scripts) way.read(script);
      const std::chrono::duration<double, std::micro> took = Clock::now() - start;
      way.figures.push_back(bytes / took.count());
    }
  }
  for (Way& way : ways) {
    bench::Figure figure = bench::figureOf(way.name, "MB/s", std::move(way.figures));
    figure.p99.reset();  // the fast end says nothing
    figure.max.reset();
    report.add(std::move(figure));
  }
  report.addRatio(ways[0].name, ways[1].name);
  report.addRatio(ways[0].name, ways[2].name);
}

int run(int argc, char** argv) {
  const std::string file = bench::takeJsonFile(argc, argv);
  const std::string json = file.empty() ? file : std::filesystem::absolute(file).string();
  // The readers take names as they stand, as the player does in its working directory.
  std::filesystem::current_path(argc > 1 ? argv[1] : "scripts");
  const int passes = argc > 2 ? std::max(1, std::atoi(argv[2])) : 41;
  bench::Report report("scripts");
  {
    const Quiet quiet;
    // Late enough for the rest that follows each pose.
    WorldModel::getSingleton()->cycle = 1000;
    measure(report, "action scripts", playAction, kActions, passes);
    measure(report, "pose scripts", playPose, kPoses, passes);
  }
  Agent::freeSingleton();
  WorldModel::freeSingleton();
  std::cout << report.asTable();
  if (!json.empty()) report.save(json);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "scripts: " << error.what() << '\n';
    return 1;
  }
}
