#include "net/UDPSocket.h"

#include <sys/socket.h>

namespace rcss::net {

namespace {
constexpr int kProtocol = 17;
}

UDPSocket::UDPSocket() {
  open();
}

UDPSocket::UDPSocket(const Addr& local) {
  open();
  bind(local);
}

UDPSocket::UDPSocket(const Addr& local, const Addr& remote) {
  open();
  bind(local);
  connect(remote);
}

UDPSocket::UDPSocket(int& fd) : Socket(fd) {}

bool UDPSocket::doOpen(int& fd) {
  close();
  fd = ::socket(AF_INET, SOCK_DGRAM, kProtocol);
  return fd != -1;
}

}  // namespace rcss::net
