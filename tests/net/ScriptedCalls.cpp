#include "tests/net/ScriptedCalls.h"

#include <fcntl.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <utility>

namespace {

struct State {
  std::vector<scripted::Outcome> outcomes;
  std::vector<scripted::Call> calls;
  bool refuseCloseOnExec = false;
  bool refuseSockets = false;
};

State& state() {
  static State instance;
  return instance;
}

ssize_t next(scripted::Call call) {
  const std::size_t index = state().calls.size();
  state().calls.push_back(std::move(call));
  const scripted::Outcome outcome =
      index < state().outcomes.size() ? state().outcomes[index] : scripted::Outcome{-1, EPIPE};
  if (outcome.result == -1) {
    errno = outcome.error;
  }
  return outcome.result;
}

}  // namespace

namespace scripted {

void plan(std::vector<Outcome> outcomes) {
  state().outcomes = std::move(outcomes);
  state().calls.clear();
}

const std::vector<Call>& calls() {
  return state().calls;
}

void refuseCloseOnExec(bool refuse) {
  state().refuseCloseOnExec = refuse;
}

void refuseSockets(bool refuse) {
  state().refuseSockets = refuse;
}

}  // namespace scripted

// The linker prescribes these names.
// NOLINTBEGIN(clang-diagnostic-reserved-identifier)
extern "C" {

ssize_t __wrap_send(int fd, const void* buffer, std::size_t length, int flags) {
  return next({"send", fd, buffer, length, flags});
}

ssize_t __wrap_sendto(int fd, const void* buffer, std::size_t length, int flags,
                      const sockaddr* /*to*/, socklen_t /*size*/) {
  return next({"sendto", fd, buffer, length, flags});
}

ssize_t __wrap_recv(int fd, void* buffer, std::size_t length, int flags) {
  return next({"recv", fd, buffer, length, flags});
}

ssize_t __wrap_recvfrom(int fd, void* buffer, std::size_t length, int flags, sockaddr* /*from*/,
                        socklen_t* /*size*/) {
  return next({"recvfrom", fd, buffer, length, flags});
}

int __real_socket(int domain, int type, int protocol);

int __wrap_socket(int domain, int type, int protocol) {
  if (state().refuseSockets) {
    errno = EMFILE;
    return -1;
  }
  return __real_socket(domain, type, protocol);
}

int __real_fcntl(int fd, int command, ...);

int __wrap_fcntl(int fd, int command, ...) {
  if (command == F_SETFD && state().refuseCloseOnExec) {
    errno = EBADF;
    return -1;
  }
  std::va_list arguments;
  va_start(arguments, command);
  const int argument = va_arg(arguments, int);
  va_end(arguments);
  return __real_fcntl(fd, command, argument);
}

}  // extern "C"
// NOLINTEND(clang-diagnostic-reserved-identifier)
