#include "tests/support/OwnNetwork.h"

#include <fcntl.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string_view>

#include "tests/support/SystemError.h"

namespace {

void WriteFile(const char* path, std::string_view text) {
  const int file = open(path, O_WRONLY | O_CLOEXEC);
  if (file < 0) throw SystemError(path);
  const ssize_t written = write(file, text.data(), text.size());
  const int error = errno;
  close(file);
  errno = error;
  if (written != static_cast<ssize_t>(text.size())) throw SystemError(path);
}

/// A new user namespace knows nobody: without these lines every file would belong to "nobody".
void MapOwnIds(uid_t user, gid_t group) {
  WriteFile("/proc/self/setgroups", "deny");
  WriteFile("/proc/self/uid_map", std::to_string(user) + " " + std::to_string(user) + " 1");
  WriteFile("/proc/self/gid_map", std::to_string(group) + " " + std::to_string(group) + " 1");
}

void BringLoopbackUp() {
  const int handle = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  if (handle < 0) throw SystemError("socket");
  ifreq request{};
  std::strncpy(request.ifr_name, "lo", IFNAMSIZ - 1);
  bool up = ioctl(handle, SIOCGIFFLAGS, &request) == 0;
  if (up) {
    request.ifr_flags = static_cast<short>(request.ifr_flags | IFF_UP | IFF_RUNNING);
    up = ioctl(handle, SIOCSIFFLAGS, &request) == 0;
  }
  const int error = errno;
  close(handle);
  errno = error;
  if (!up) throw SystemError("loopback interface");
}

[[nodiscard]] std::string AddressOfThisProcess() {
  // A pid has 22 bits at most; the second byte stays between 64 and 127, clear of 127.0.0.1.
  const auto pid = static_cast<unsigned>(getpid());
  return "127." + std::to_string(64U + ((pid >> 16U) & 63U)) + "." +
         std::to_string((pid >> 8U) & 255U) + "." + std::to_string(pid & 255U);
}

[[nodiscard]] NetworkPlace Enter() {
  const uid_t user = geteuid();
  const gid_t group = getegid();
  if (unshare(CLONE_NEWNET) != 0) {
    if (unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0) {
      return {false, AddressOfThisProcess(),
              std::string("no network namespace permitted: ") + std::strerror(errno)};
    }
    MapOwnIds(user, group);
  }
  BringLoopbackUp();
  return {true, "127.0.0.1", {}};
}

}  // namespace

const NetworkPlace& EnterOwnNetwork() {
  static const NetworkPlace place = Enter();
  return place;
}
