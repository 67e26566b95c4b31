#pragma once

/// The training ground's end of the link: listens, keeps one session per player, gathers what they
/// ask for and sends what they perceive. The match server calls it in turn with the match: one of
/// the serve functions while a cycle waits, then takeLost() and takeCommands(), then send() for
/// each player. Nothing comes in outside the serve functions; there is one thread.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "arena/link/Intake.h"
#include "arena/link/LinkSettings.h"

namespace arena {

/// The link can't be opened; what() is one line for a person.
struct LinkError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class Hub {
 public:
  using Clock = std::chrono::steady_clock;

  /// Listens. Throws LinkError when that fails: port in use, no such address.
  explicit Hub(const LinkSettings& settings);
  ~Hub();
  Hub(const Hub&) = delete;
  Hub& operator=(const Hub&) = delete;

  [[nodiscard]] std::uint16_t port() const;

  /// Serves the sessions until DEADLINE.
  void serveUntil(Clock::time_point deadline);
  /// Serves until every session has answered the last message sent to it and then for QUIET no
  /// frame has come from anyone, at the longest until DEADLINE. The quiet is there because an
  /// answer is one frame or several, and nothing on the link says which is the last.
  void serveUntilAnswered(Clock::duration quiet, Clock::time_point deadline);
  /// Sends what still waits, at the longest until DEADLINE, and ends all sessions.
  void finish(Clock::time_point deadline);

  /// Who has gone since the last call, in order of id. Ends the sessions that are silent.
  std::vector<Lost> takeLost();
  /// What the open sessions have sent since the last call, in order of id; only those that sent a
  /// whole frame.
  std::vector<Received> takeCommands();
  /// Queues a message of at most kMaxPayloadBytes. A session that has gone is left alone.
  void send(SessionId id, std::string_view text);
  /// Ends a session that the match won't have. It isn't reported as lost.
  void close(SessionId id);

  /// Sessions that have asked for a body and are still there.
  [[nodiscard]] std::size_t bodiesAskedFor() const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace arena
