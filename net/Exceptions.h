#pragma once

/// What callers of the socket layer may raise. Of these only HostNotFound is thrown by the layer
/// itself; the others stand ready for callers that would rather throw than test a result.

#include <exception>

namespace rcss::net {

/// An error value of the system with its strerror text.
class NetError : public std::exception {
 public:
  explicit NetError(int error) noexcept : error_(error) {}
  [[nodiscard]] int err() const noexcept { return error_; }
  [[nodiscard]] const char* what() const noexcept override;

 private:
  int error_;
};

/// Holds an h_errno value, yet what() gives the strerror text of that number like its siblings.
struct HostNotFound : NetError {
  using NetError::NetError;
};
struct OpenErr : NetError {
  using NetError::NetError;
};
struct BindErr : NetError {
  using NetError::NetError;
};
struct ListenErr : NetError {
  using NetError::NetError;
};
struct AcceptErr : NetError {
  using NetError::NetError;
};
struct GetNameErr : NetError {
  using NetError::NetError;
};
struct ConnectErr : NetError {
  using NetError::NetError;
};

}  // namespace rcss::net
