#pragma once

/// The system calls of net_system_test: each call of the socket layer takes the next planned
/// outcome and is recorded, in place of reaching the system.

#include <sys/types.h>

#include <string>
#include <vector>

namespace scripted {

struct Outcome {
  ssize_t result;
  int error = 0;  ///< errno, when the result is -1
};

struct Call {
  std::string name;  ///< send, sendto, recv or recvfrom
  int fd;
  const void* buffer;
  std::size_t length;
  int flags;
};

/// Forgets earlier calls and plans the next ones. A call beyond the plan fails with EPIPE, which
/// no retry rule covers.
void plan(std::vector<Outcome> outcomes);
const std::vector<Call>& calls();

/// While set, every change of the close-on-exec flag fails.
void refuseCloseOnExec(bool refuse);
/// While set, no new socket is to be had.
void refuseSockets(bool refuse);

}  // namespace scripted
