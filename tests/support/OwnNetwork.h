#pragma once

/// A network for one test process alone. The server's port is fixed, so two tests that run at once
/// would meet on it; each one that plays the server therefore calls EnterOwnNetwork() first, before
/// it opens any socket or starts any process. What is started afterwards lives in the same network.

#include <string>

struct NetworkPlace {
  bool isolated = false;  ///< a network namespace of its own, with nothing in it but loopback
  std::string address;  ///< where to listen: 127.0.0.1, or a loopback address derived from the pid
  std::string reason;   ///< why it isn't isolated; empty when it is
};

/// Moves the calling process into a network of its own, once; later calls tell the same place.
/// Where that isn't permitted the process stays and gets a loopback address that no other has.
/// To be called while the process has one thread. Throws std::system_error when the new network's
/// loopback interface can't be brought up.
const NetworkPlace& EnterOwnNetwork();
