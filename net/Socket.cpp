#include "net/Socket.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>

#include "net/Handler.h"
#include "net/TCPSocket.h"

namespace rcss::net {

namespace {

constexpr int kNotOpen = 1;
constexpr int kNotSupported = 1;

/// The deleter of the shared descriptor.
void closeFD(int* fd) {
  ::close(*fd);
  delete fd;
}

const sockaddr* generic(const Addr& addr) {
  return reinterpret_cast<const sockaddr*>(addr.getAddr());
}

bool interrupted() {
  return errno == EINTR;
}
bool worthAnotherTry() {
  return errno == EINTR || errno == EAGAIN;
}

using NameCall = int (*)(int, sockaddr*, socklen_t*);

Addr askForName(NameCall call, int fd) {
  sockaddr_in name{};
  socklen_t length = sizeof(name);
  if (call(fd, reinterpret_cast<sockaddr*>(&name), &length) == -1) {
    return Addr(0, Addr::ANY);
  }
  return Addr(name);
}

}  // namespace

Socket::Socket() : handler_(Handler::instance()) {}

Socket::Socket(int fd) : handler_(Handler::instance()), socket_(new int(fd), closeFD) {}

Socket& Socket::operator=(const Socket& other) {
  socket_ = other.socket_;
  return *this;
}

Socket::~Socket() {
  socket_.reset();
}

bool Socket::open() {
  int fd = INVALIDSOCKET;
  if (!doOpen(fd)) {
    return false;
  }
  socket_ = boost::shared_ptr<int>(new int(fd), closeFD);
  if (::fcntl(getFD(), F_SETFD, 1) == -1) {
    close();
    return false;
  }
  return true;
}

void Socket::close() {
  socket_.reset();
}

bool Socket::isOpen() const {
  return static_cast<bool>(socket_);
}

int Socket::getFD() const {
  return socket_ ? *socket_ : INVALIDSOCKET;
}

bool Socket::bind(const Addr& addr) {
  return isOpen() && ::bind(getFD(), generic(addr), sizeof(sockaddr_in)) != -1;
}

bool Socket::connect(const Addr& addr) {
  return isOpen() && ::connect(getFD(), generic(addr), sizeof(sockaddr_in)) != -1;
}

bool Socket::listen(int backlog) {
  return ::listen(getFD(), backlog) == 0;
}

TCPSocket* Socket::accept(Addr& from) {
  sockaddr_in peer{};
  socklen_t length = sizeof(peer);
  int fd = ::accept(getFD(), reinterpret_cast<sockaddr*>(&peer), &length);
  if (fd == -1) {
    return nullptr;
  }
  from = Addr(peer);
  return new TCPSocket(fd);
}

bool Socket::accept(Socket& sock) {
  const int fd = ::accept(getFD(), nullptr, nullptr);
  if (fd == -1) {
    return false;
  }
  sock.socket_ = boost::shared_ptr<int>(new int(fd), closeFD);
  return true;
}

int Socket::recv(char* msg, unsigned int len, int flags, CheckingType check) {
  ssize_t got = 0;
  do {
    got = ::recv(getFD(), msg, len, flags);
  } while (check == RetryInterrupted && got == -1 && interrupted());
  return static_cast<int>(got);
}

int Socket::recv(char* msg, unsigned int len, Addr& from, int flags, CheckingType check) {
  sockaddr_in sender{};
  socklen_t length = sizeof(sender);
  ssize_t got = 0;
  do {
    length = sizeof(sender);
    got = ::recvfrom(getFD(), msg, len, flags, reinterpret_cast<sockaddr*>(&sender), &length);
  } while (check == RetryInterrupted && got == -1 && interrupted());
  if (got != -1) {
    from = Addr(sender);
  }
  return static_cast<int>(got);
}

int Socket::send(const char* msg, unsigned int len, int flags, CheckingType check) {
  if (check == SingleAttempt) {
    return static_cast<int>(::send(getFD(), msg, len, flags));
  }
  unsigned int sent = 0;
  while (sent < len) {
    const ssize_t step = ::send(getFD(), msg + sent, len - sent, flags);
    if (step != -1) {
      sent += static_cast<unsigned int>(step);
    } else if (!worthAnotherTry()) {
      return -1;
    }
  }
  return static_cast<int>(sent);
}

int Socket::send(const char* msg, unsigned int len, const Addr& to, int flags, CheckingType check) {
  ssize_t sent = 0;
  do {
    sent = ::sendto(getFD(), msg, len, flags, generic(to), sizeof(sockaddr_in));
  } while (check == RetryInterrupted && sent == -1 && worthAnotherTry());
  return static_cast<int>(sent);
}

int Socket::recv(int /*timeout*/, char* /*msg*/, unsigned int /*len*/, int /*flags*/) {
  errno = kNotSupported;
  return -1;
}

int Socket::recv(int /*timeout*/, char* /*msg*/, unsigned int /*len*/, Addr& /*from*/,
                 int /*flags*/) {
  errno = kNotSupported;
  return -1;
}

int Socket::setBroadcast(bool enable) {
  if (!isOpen()) {
    errno = kNotOpen;
    return -1;
  }
  const int value = enable ? 1 : 0;
  return ::setsockopt(getFD(), SOL_SOCKET, SO_BROADCAST, &value, sizeof(value));
}

int Socket::setNonBlocking(bool enable) {
  return setStatusFlag(O_NONBLOCK, enable);
}

int Socket::setAsync(bool enable) {
  return setStatusFlag(O_ASYNC, enable);
}

int Socket::setCloseOnExec(bool enable) {
  if (!isOpen()) {
    errno = kNotOpen;
    return -1;
  }
  return ::fcntl(getFD(), F_SETFD, enable ? 1 : 0);
}

bool Socket::isConnected() const {
  return getPeer() != Addr(0, Addr::ANY);
}

Addr Socket::getName() const {
  return askForName(::getsockname, getFD());
}

Addr Socket::getPeer() const {
  return askForName(::getpeername, getFD());
}

Addr Socket::getDest() const {
  return getPeer();
}

int Socket::setStatusFlag(int flag, bool enable) {
  if (!isOpen()) {
    errno = kNotOpen;
    return -1;
  }
  const int flags = ::fcntl(getFD(), F_GETFL);
  if (flags == -1) {
    return -1;
  }
  return ::fcntl(getFD(), F_SETFL, enable ? flags | flag : flags & ~flag);
}

}  // namespace rcss::net
