#pragma once

/// The player itself, in this process: its own readers, playback and controller, with one end of a
/// socket pair as its link. A trial tells it what the body senses and gets back what it commands.
///
/// The player's objects are singletons and some of its memory is static, so that a process should
/// make one Player in its life; runTrials gives every trial a process of its own.

#include <filesystem>
#include <streambuf>
#include <string_view>

#include "arena/link/Commands.h"
#include "behaviour/Agent.h"

namespace workshop {

class Player {
 public:
  /// Enters the folder SCRIPTS, as a player is started in it, and silences std::cout, where the
  /// player's trace goes. Both are put back when the object goes. Throws std::system_error when
  /// there is no such folder or no socket pair.
  Player(const std::filesystem::path& scripts, int shirt);
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;
  ~Player();

  /// Takes the player's clock forward to CYCLE, past its introduction.
  void setClock(int cycle);
  /// Takes the head's scan forward by ENTRIES of its table; returns where the head then is. [deg]
  double skipScan(int entries);
  /// One perception message in, one low-level cycle, and a running kick's next step. True when the
  /// player may decide on something in this cycle.
  bool cycle(std::string_view message);
  /// What has been sent since the last call.
  arena::Commands takeCommands();

  [[nodiscard]] Agent& agent() const { return *Agent::getSingleton(); }

 private:
  std::filesystem::path before_;
  std::streambuf* output_;
  int link_ = -1;
};

}  // namespace workshop
