#pragma once

/// A BSD socket that copies share: the last holder closes the descriptor. Failures are told by the
/// result, with errno as the system left it; nothing here throws.

#include <boost/shared_ptr.hpp>

#include "net/Addr.h"

namespace rcss::net {

class Handler;
class TCPSocket;

class Socket {
 public:
  static constexpr int INVALIDSOCKET = -1;

  enum CheckingType {
    RetryInterrupted = 0,  ///< repeat a call that a signal interrupted
    SingleAttempt = 1      ///< one plain system call
  };

  Socket();
  /// Adopts a descriptor.
  explicit Socket(int fd);
  Socket(const Socket&) = default;
  Socket& operator=(const Socket& other);
  virtual ~Socket();

  /// Opens by doOpen and sets close-on-exec.
  bool open();
  /// Gives up this holder's share of the descriptor.
  void close();
  [[nodiscard]] bool isOpen() const;
  /// The descriptor, or INVALIDSOCKET.
  [[nodiscard]] int getFD() const;

  // One system call each; bind and connect are false at once on a closed socket.
  bool bind(const Addr& addr);
  bool connect(const Addr& addr);
  bool listen(int backlog);
  /// A socket on the accepted descriptor, which the caller owns; null on failure.
  TCPSocket* accept(Addr& from);
  /// Hands the accepted descriptor to SOCK; true when one came.
  bool accept(Socket& sock);

  /// The system's count, 0 at the end of the stream, or -1.
  int recv(char* msg, unsigned int len, int flags = 0, CheckingType check = RetryInterrupted);
  int recv(char* msg, unsigned int len, Addr& from, int flags = 0,
           CheckingType check = RetryInterrupted);
  /// With RetryInterrupted all LEN bytes go, whatever pieces the system takes them in.
  int send(const char* msg, unsigned int len, int flags = 0, CheckingType check = RetryInterrupted);
  int send(const char* msg, unsigned int len, const Addr& to, int flags = 0,
           CheckingType check = RetryInterrupted);
  // Receiving with a time limit isn't supported: errno becomes 1 and the result is -1.
  int recv(int timeout, char* msg, unsigned int len, int flags);
  int recv(int timeout, char* msg, unsigned int len, Addr& from, int flags);

  // 0 on success; -1 otherwise, with errno 1 on a closed socket.
  int setBroadcast(bool enable);
  int setNonBlocking(bool enable);
  int setAsync(bool enable);
  int setCloseOnExec(bool enable);

  /// A remote address other than 0:0 is known.
  [[nodiscard]] bool isConnected() const;
  // The all-zero address on failure.
  [[nodiscard]] Addr getName() const;
  [[nodiscard]] Addr getPeer() const;
  [[nodiscard]] Addr getDest() const;

 protected:
  /// Makes the descriptor; false when the system gave none.
  virtual bool doOpen(int& fd) = 0;

 private:
  int setStatusFlag(int flag, bool enable);

  Handler& handler_;
  boost::shared_ptr<int> socket_;
};

}  // namespace rcss::net
