#pragma once

/// What the link hands to the match: plain values, made by the hub or by a test that plays a match
/// without sockets.

#include <cstdint>
#include <string>

#include "arena/link/Commands.h"

namespace arena {

/// Counts up from 1 in the order of connection; never used twice.
using SessionId = std::uint32_t;

/// What a session sent since it was last asked.
struct Received {
  SessionId id = 0;
  Commands commands{};
};

/// A session that has ended by itself or by a fault of its player.
struct Lost {
  SessionId id = 0;
  std::string why{};
};

}  // namespace arena
