#pragma once

/// One player's connection: reads its frames into Commands, sends it messages, and ends itself
/// with a reason when the player breaks the rules or leaves. The hub owns it and is the only one
/// to call it; everything happens inside the hub's serve functions, on one thread.

#include <array>
#include <boost/asio/ip/tcp.hpp>
#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "arena/link/Commands.h"
#include "arena/link/Frames.h"
#include "arena/link/LinkSettings.h"

namespace arena {

class Session : public std::enable_shared_from_this<Session> {
 public:
  using Clock = std::chrono::steady_clock;

  Session(boost::asio::ip::tcp::socket socket, const LinkSettings& settings);

  /// Begins to read. Apart from the constructor because it hands out shared_from_this().
  void start();
  /// Queues a message. A player that lets too much wait is cut off.
  void send(std::string_view text);
  /// What has come in since the last call.
  Commands takeCommands();
  /// Ends the session; the first reason stands.
  void close(std::string why);

  [[nodiscard]] bool isOpen() const { return open_; }
  [[nodiscard]] const std::string& whyClosed() const { return whyClosed_; }
  /// Whether a frame has come in since the last message went out.
  [[nodiscard]] bool hasAnswered() const { return !awaitingAnswer_; }
  [[nodiscard]] bool hasAskedForBody() const { return askedForBody_; }
  [[nodiscard]] Clock::time_point accepted() const { return accepted_; }
  /// Since when it owes a frame: an answer, or its request for a body. None while the match owes it
  /// a message, as before the first cycle, for which it may wait as long as the others make it.
  [[nodiscard]] std::optional<Clock::time_point> silentSince() const {
    if (askedForBody_ && !awaitingAnswer_) return std::nullopt;
    return silentSince_;
  }
  [[nodiscard]] unsigned long framesRead() const { return framesRead_; }
  [[nodiscard]] std::size_t bytesWaiting() const {
    return waiting_.size() + inFlight_.size() - written_;
  }

 private:
  void read();
  void take(std::string_view bytes);
  void write();

  boost::asio::ip::tcp::socket socket_;
  std::size_t maxWaitingBytes_;
  std::array<char, 16384> piece_{};
  FrameReader reader_{};
  Commands commands_{};
  std::size_t bytesSinceTaken_ = 0;
  bool readingPaused_ = false;

  std::string waiting_{};   ///< framed, not yet given to the socket
  std::string inFlight_{};  ///< being written, up to written_
  std::size_t written_ = 0;

  bool open_ = true;
  std::string whyClosed_{};
  bool awaitingAnswer_ = false;
  bool askedForBody_ = false;
  Clock::time_point accepted_ = Clock::now();
  Clock::time_point silentSince_ = accepted_;  ///< its last frame, or the message behind that
  unsigned long framesRead_ = 0;
};

}  // namespace arena
