#pragma once

/// A player's end of the link for tests and benchmarks: plain sockets, its own framing. Written
/// apart from the arena's codec on purpose, so that the two check each other.

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace arena::test {

class WireClient {
 public:
  /// Connects to 127.0.0.1. RECEIVE_BYTES: what the system may keep for it unread; 0: as much as it
  /// likes, which is tens of megabytes. Throws std::system_error.
  explicit WireClient(std::uint16_t port, bool noDelay = true, int receiveBytes = 0);
  ~WireClient();
  WireClient(WireClient&& other) noexcept;
  WireClient& operator=(WireClient&&) = delete;

  /// Sends one frame.
  void say(std::string_view text);
  /// Sends bytes as they stand; false when the other end has gone.
  bool sendRaw(std::string_view bytes);
  /// The next frame; none when the other end has closed. Throws std::runtime_error when nothing
  /// comes for PATIENCE.
  std::optional<std::string> hear(std::chrono::milliseconds patience = std::chrono::seconds(20));
  /// Whether the other end closes within PATIENCE; frames that come before are thrown
  /// away. True at once when this end has hung up.
  bool isClosedWithin(std::chrono::milliseconds patience);
  /// Sends as much of BYTES as goes without waiting; false when the other end has gone.
  bool offer(std::string_view bytes);
  /// Closes without reading what has come in.
  void hangUp();
  /// Goes as a process on a machine does that loses its power and comes back: with a reset.
  void reset();

 private:
  /// False at the end of the stream.
  bool fill(std::size_t bytes, std::chrono::milliseconds patience);

  int socket_ = -1;
  std::string received_{};
};

}  // namespace arena::test
