#pragma once

/// The player: BasicAgent with the layer that decides on top. The run loop calls agentLoop once
/// per server message.

#include <string>

#include "body/BasicAgent.h"

class Agent : public BasicAgent {
 public:
  std::string lastPlayMode;  ///< play mode of the cycle before; empty at the start

  Agent();

  static Agent* m_Instance;
  static Agent* getSingleton();
  static void freeSingleton();

  /// One cycle: a beam on a new kick-off, or else the body's cycle and the position report.
  void agentLoop();
  /// Abandons every motion: upright, no script open, no kick, all stages pending.
  void restoreState();
};
