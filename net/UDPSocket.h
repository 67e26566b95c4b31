#pragma once

/// A datagram socket. The constructors drop every failure: a socket that could not be opened, bound
/// or connected merely stays so, and says so when asked.

#include "net/Socket.h"

namespace rcss::net {

class UDPSocket : public Socket {
 public:
  UDPSocket();
  explicit UDPSocket(const Addr& local);
  UDPSocket(const Addr& local, const Addr& remote);
  /// Adopts a descriptor.
  explicit UDPSocket(int& fd);

 protected:
  bool doOpen(int& fd) override;
};

}  // namespace rcss::net
