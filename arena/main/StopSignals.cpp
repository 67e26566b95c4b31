#include "arena/main/StopSignals.h"

#include <sys/signalfd.h>
#include <unistd.h>
#include <cerrno>
#include <csignal>
#include <system_error>

namespace arena {

StopSignals::StopSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  descriptor_ = signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC);
  if (descriptor_ < 0) throw std::system_error(errno, std::generic_category(), "signalfd");
}

StopSignals::~StopSignals() {
  close(descriptor_);
}

bool StopSignals::requested() {
  signalfd_siginfo received{};
  requested_ = requested_ || read(descriptor_, &received, sizeof received) > 0;
  return requested_;
}

}  // namespace arena
