#pragma once

/// A player as it stands right after its making, with a captured link. The singletons are made new
/// and freed again, so that tests may share a process.

#include "tests/support/LinkCapture.h"

class Agent;
class WorldModel;

class FreshPlayer {
 public:
  /// Frees what another test may have left, then makes the player with this shirt number.
  explicit FreshPlayer(int shirtNumber = 1);
  FreshPlayer(const FreshPlayer&) = delete;
  FreshPlayer& operator=(const FreshPlayer&) = delete;
  ~FreshPlayer();

  // Non-const, so that tests set up what they need through the same public members as the player.
  [[nodiscard]] Agent& agent() const;
  [[nodiscard]] WorldModel& world() const;

  LinkCapture link;
};
