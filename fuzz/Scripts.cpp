/// The player's two readers of motion scripts, and the playback of what they read. How far they get
/// is compared with what the workshop's own reader says.
///
/// Input: a byte, of which bit 0 says whether the script is one of poses or of an action and bit 1
/// whether the file's name begins with the letter that brings the firm gains; then the script.

#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <string>

#include "behaviour/Agent.h"
#include "fuzz/Input.h"
#include "fuzz/StagedPlayer.h"
#include "perception/WorldModel.h"
#include "workshop/check/ScriptText.h"

namespace {

/// Beyond the rest that the player takes after a pose script.
constexpr int kFirstCycle = 100;
constexpr int kMostCycles = 120;

/// Whether a motion step has begun in this cycle.
bool hasBegun(const Agent& agent, const WorldModel& world) {
  return agent.lastMoveCycle == world.cycle - 1;
}

long countOf(const std::vector<workshop::Pair>& pairs, const char* word) {
  return std::count_if(pairs.begin(), pairs.end(),
                       [word](const workshop::Pair& pair) { return pair.word == word; });
}

void playOn(Agent& agent, WorldModel& world) {
  for (int i = 0; i < kMostCycles && agent.moveCyclesLeft > 0; ++i) {
    ++world.cycle;
    agent.move();
  }
}

/// All at once, up to the first MOVE.
void playPose(Agent& agent, WorldModel& world, const char* file, const std::string& text) {
  agent.loadMoveFromFile(file);
  fuzz::demand(hasBegun(agent, world) == (countOf(workshop::pairsOf(text), "MOVE") > 0),
               "a pose begins to move when its script says so");
  playOn(agent, world);
}

/// A block at a time, up to its move, every other cycle.
void playAction(Agent& agent, WorldModel& world, const char* file, const std::string& text) {
  agent.actionName = "script";
  agent.actionFileOpen = true;
  agent.myACtionFile.open(file);
  long blocks = 0;
  for (int i = 0; i < kMostCycles && agent.actionFileOpen; ++i) {
    ++world.cycle;
    if (world.cycle % 2 != 0) {
      agent.loadMoveFromFile();
      if (agent.actionFileOpen && hasBegun(agent, world)) ++blocks;
    }
    agent.move();
  }
  const long told = countOf(workshop::pairsOf(text), "move");
  fuzz::demand(agent.actionFileOpen ? blocks <= told : blocks == told,
               "an action has as many blocks as its script");
  playOn(agent, world);
}

}  // namespace

/// The scripts are files, so they lie in memory's own file system while they are read.
extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  fuzz::silencePlayer();
  static std::string folder = "/dev/shm/pitch-fuzz-XXXXXX";
  fuzz::demand(mkdtemp(folder.data()) != nullptr && chdir(folder.c_str()) == 0,
               "there is a place for scripts");
  std::atexit([] {
    unlink("b.txt");
    unlink("k.txt");
    rmdir(folder.c_str());
  });
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input in(data, size);
  const std::uint8_t form = in.byte();
  const char* const file = (form & 2U) != 0 ? "b.txt" : "k.txt";
  std::ofstream(file, std::ios::binary) << in.rest();

  const fuzz::StagedPlayer player(1, kFirstCycle);
  const auto play = (form & 1U) != 0 ? playPose : playAction;
  play(*Agent::getSingleton(), *WorldModel::getSingleton(), file, std::string(in.rest()));
  fuzz::StagedPlayer::sent();
  return 0;
}
