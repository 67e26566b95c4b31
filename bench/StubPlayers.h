#pragma once

/// Players that cost next to nothing, for benchmarks of the arena: each is a thread with a socket
/// that answers every message with one frame. They stand, nod, wave and talk, so that all of the
/// arena's work is asked for.

#include <cstdint>
#include <thread>
#include <vector>

namespace bench {

class StubPlayers {
 public:
  /// COUNT players, at most twelve: numbers 1 to 6 of the team Near, then of the team Far.
  StubPlayers(std::uint16_t port, int count);
  /// Waits until the server has closed all connections.
  ~StubPlayers();
  StubPlayers(const StubPlayers&) = delete;
  StubPlayers& operator=(const StubPlayers&) = delete;

 private:
  std::vector<std::thread> players_{};
};

/// Where stub PLAYER (0 to 11) stands, in its own team's frame.
struct StubPlace {
  double x;
  double y;
};
StubPlace stubPlace(int player);

}  // namespace bench
