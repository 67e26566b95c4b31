#pragma once

/// A whole player, new for each input, whose link, clock and random generators are in memory. The
/// targets that drive the player stand on it; it needs the linker to wrap send, recv, select, time
/// and gsl_rng_alloc.
///
/// What can't be made new are the few static variables within the player's functions (the walk's
/// scripts, the head's place in its sweep, the place of the last turn): they go on from one input
/// to the next, as they do in a long match.

#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

class StagedPlayer {
 public:
  /// As it stands right after its making, or, for a CYCLE above 0, after so many quiet messages.
  StagedPlayer(int shirtNumber, int cycle);
  StagedPlayer(const StagedPlayer&) = delete;
  StagedPlayer& operator=(const StagedPlayer&) = delete;
  ~StagedPlayer();

  /// Gives it the messages one after the other, through its own run loop. False when it ended in
  /// an exception, which a short element of the kind (P ...) is known to cause.
  static bool play(const std::vector<std::string>& messages);
  /// The payloads of the frames that it has sent since the last call. Each is demanded to be a
  /// whole frame, to begin with the standing zeros and to be balanced.
  static std::vector<std::string> sent();
};

/// Whether TEXT holds a number that sends the player into loops that hardly ever end, or never:
/// it turns angles into their range by 360 degrees at a time, and does so by design. No server
/// says such numbers.
bool holdsHugeNumber(std::string_view text);

/// What the player prints goes nowhere from now on: formatting it is tested, writing it costs time.
void silencePlayer();

}  // namespace fuzz
