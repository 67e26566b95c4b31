#pragma once

/// One player process and the server's side of its link, played message by message: what most
/// black-box tests of the player stand on.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/PlayerProcess.h"
#include "tests/support/ServerLink.h"

/// "(time (now T))" and ELEMENTS, with the T at which a player that has heard every cycle before
/// counts CYCLE: 0.02 seconds each.
[[nodiscard]] std::string MessageOfCycle(int cycle, std::string_view elements = {});

class PlayerSession {
 public:
  /// Enters a network of the test's own, listens, starts PROGRAM there and takes its call. Where no
  /// network of its own is to be had, a --host argument is put in front of the given ones.
  /// The player's first frame must be FIRSTFRAME, unless that is empty: then it is left unread.
  PlayerSession(const std::string& program, std::vector<std::string> arguments,
                const std::filesystem::path& directory, std::string_view firstFrame = {});

  /// Sends one message; hands back all that the player sends until it waits for the next one.
  std::vector<std::string> Turn(std::string_view message);
  /// The same for bytes as they are.
  std::vector<std::string> TurnOfBytes(std::string_view bytes);
  /// Plays cycles FIRST to LAST with ELEMENTS in each; the frames of all of them in order.
  std::vector<std::string> Turns(int first, int last, std::string_view elements = {});
  /// Waits until the player has taken all that was sent and waits for more.
  void AwaitWaiting();
  /// AwaitWaiting, then the frames that have come.
  std::vector<std::string> Frames();

  Listener listener;
  PlayerProcess player;
  ServerLink link;
};
