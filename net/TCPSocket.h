#pragma once

/// A stream socket. The constructors drop every failure: a socket that could not be opened, bound
/// or connected merely stays so, and says so when asked.

#include "net/Socket.h"

namespace rcss::net {

class TCPSocket : public Socket {
 public:
  TCPSocket();
  explicit TCPSocket(const Addr& local);
  TCPSocket(const Addr& local, const Addr& remote);
  /// Adopts a descriptor.
  explicit TCPSocket(int& fd);

 protected:
  bool doOpen(int& fd) override;
};

}  // namespace rcss::net
