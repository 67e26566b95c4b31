/// The player's two readers of motion scripts, and the playback of what they read.
///
/// Input: a byte, of which bit 0 says whether the script is one of poses or of an action and bit 1
/// whether the file's name begins with the letter that brings the firm gains; then the script.

#include <stdlib.h>
#include <unistd.h>

#include <fstream>
#include <string>

#include "behaviour/Agent.h"
#include "fuzz/Input.h"
#include "fuzz/StagedPlayer.h"
#include "perception/WorldModel.h"

namespace {

/// Beyond the rest that the player takes after a pose script.
constexpr int kFirstCycle = 100;
constexpr int kMostCycles = 120;

/// An action script is read a block at a time, every other cycle; a pose script at once.
void playScript(Agent& agent, WorldModel& world, bool pose, const char* file) {
  if (pose) {
    agent.loadMoveFromFile(file);
  } else {
    agent.actionName = "script";
    agent.actionFileOpen = true;
    agent.myACtionFile.open(file);
  }
  for (int i = 0; i < kMostCycles && (agent.actionFileOpen || agent.moveCyclesLeft > 0); ++i) {
    ++world.cycle;
    if (agent.actionFileOpen && world.cycle % 2 != 0) agent.loadMoveFromFile();
    agent.move();
  }
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
  playScript(*Agent::getSingleton(), *WorldModel::getSingleton(), (form & 1U) != 0, file);
  fuzz::StagedPlayer::sent();
  return 0;
}
