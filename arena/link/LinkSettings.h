#pragma once

/// What may be varied about the link. Filled by the match server from the options, and by tests,
/// which can't wait a minute for a silent session.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace arena {

struct LinkSettings {
  std::string listen = "127.0.0.1";             ///< numeric address
  std::uint16_t port = 3100;                    ///< 0: any free one, see Hub::port
  std::chrono::milliseconds silence{60'000};    ///< that owes a frame: the session ends
  std::size_t maxWaitingBytes = 1024UL * 1024;  ///< waiting to be read by a player: cut off
  std::size_t maxSessions = 64;                 ///< open at once, with a body or without
  std::chrono::milliseconds timeToAsk{1'000};   ///< for a body, before it may have to make room
};

}  // namespace arena
