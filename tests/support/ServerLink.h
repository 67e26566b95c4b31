#pragma once

/// The server's side of the player's link, played by a test: it listens, takes one player and
/// exchanges raw bytes or whole frames with it. Nothing waits longer than its deadline; what isn't
/// there by then is an exception, so a test that goes wrong ends with a reason.

#include <netinet/in.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/PlayerProcess.h"

/// The port that every player calls.
inline constexpr std::uint16_t kServerPort = 3100;

/// Four bytes of length, most significant first.
[[nodiscard]] std::string LengthField(std::uint32_t length);

/// One connection. Throws std::runtime_error when a deadline passes, std::system_error when the
/// link breaks.
class ServerLink {
 public:
  explicit ServerLink(int descriptor);
  ServerLink(ServerLink&& other) noexcept;
  ServerLink& operator=(ServerLink&&) = delete;
  ServerLink(const ServerLink&) = delete;
  ServerLink& operator=(const ServerLink&) = delete;
  ~ServerLink();

  void SendBytes(std::string_view bytes);
  /// One frame: the length field and the text.
  void SendFrame(std::string_view text);
  /// Exactly COUNT bytes, as they come.
  std::string ReadBytes(std::size_t count, std::chrono::milliseconds patience = kPatience);
  /// The next frame's text.
  std::string ReadFrame(std::chrono::milliseconds patience = kPatience);
  /// The whole frames that have arrived, without waiting for any more.
  std::vector<std::string> FramesSoFar();
  /// Whether the player has closed its side within PATIENCE, with nothing left unread.
  bool AtEnd(std::chrono::milliseconds patience = kPatience);
  void Close();

  /// Whether the player has taken everything that was sent to it and everything that it sent has
  /// come in here.
  [[nodiscard]] bool IsDrained();

 private:
  /// Reads what is there, without waiting.
  void FillSoFar();
  /// Reads what is there; waits for it up to DEADLINE. False at the end of the stream.
  bool Fill(std::chrono::steady_clock::time_point deadline);
  std::optional<std::string> TakeFrame();

  int descriptor_;
  std::string unread_;
  sockaddr_in own_{};
  sockaddr_in peer_{};
};

/// A listening socket.
class Listener {
 public:
  explicit Listener(const std::string& address, std::uint16_t port = kServerPort);
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;
  ~Listener();

  /// The next caller.
  [[nodiscard]] ServerLink Accept(std::chrono::milliseconds patience = kPatience) const;

 private:
  int descriptor_;
};
