#pragma once

/// The process-wide handle that addresses and sockets refer to. On platforms that must start their
/// socket library it would do so; here it only exists.

namespace rcss::net {

class Handler {
 public:
  static Handler& instance();
  [[nodiscard]] bool ready() const { return ready_; }

 private:
  Handler() : ready_(true) {}
  bool ready_;
};

}  // namespace rcss::net
