#include "net/TCPSocket.h"

#include <sys/socket.h>

namespace rcss::net {

namespace {
constexpr int kProtocol = 6;
}

TCPSocket::TCPSocket() {
  open();
}

TCPSocket::TCPSocket(const Addr& local) {
  open();
  bind(local);
}

TCPSocket::TCPSocket(const Addr& local, const Addr& remote) {
  open();
  bind(local);
  connect(remote);
}

TCPSocket::TCPSocket(int& fd) : Socket(fd) {}

bool TCPSocket::doOpen(int& fd) {
  close();
  fd = ::socket(AF_INET, SOCK_STREAM, kProtocol);
  return fd != -1;
}

}  // namespace rcss::net
