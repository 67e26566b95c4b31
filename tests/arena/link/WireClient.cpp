#include "tests/arena/link/WireClient.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace arena::test {
namespace {

[[noreturn]] void fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

WireClient::WireClient(std::uint16_t port, bool noDelay, int receiveBytes)
    : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  if (socket_ < 0) fail("socket");
  const int on = noDelay ? 1 : 0;
  ::setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  if (receiveBytes > 0) {
    ::setsockopt(socket_, SOL_SOCKET, SO_RCVBUF, &receiveBytes, sizeof receiveBytes);
  }
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (::connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    hangUp();
    fail("connect");
  }
}

WireClient::~WireClient() {
  hangUp();
}

WireClient::WireClient(WireClient&& other) noexcept
    : socket_(std::exchange(other.socket_, -1)), received_(std::move(other.received_)) {}

void WireClient::hangUp() {
  if (socket_ >= 0) ::close(std::exchange(socket_, -1));
}

void WireClient::say(std::string_view text) {
  const std::uint32_t length = htonl(static_cast<std::uint32_t>(text.size()));
  std::string frame(reinterpret_cast<const char*>(&length), sizeof length);
  frame += text;
  if (!sendRaw(frame)) throw std::runtime_error("the other end has gone");
}

bool WireClient::sendRaw(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

bool WireClient::offer(std::string_view bytes) {
  const ssize_t sent = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
  return sent >= 0 || errno == EINTR || errno == EAGAIN || errno == EWOULDBLOCK;
}

void WireClient::reset() {
  const linger atOnce{1, 0};
  ::setsockopt(socket_, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
  hangUp();
}

bool WireClient::fill(std::size_t bytes, std::chrono::milliseconds patience) {
  std::array<char, 16384> piece{};
  while (received_.size() < bytes) {
    pollfd waiting{socket_, POLLIN, 0};
    const int ready = ::poll(&waiting, 1, static_cast<int>(patience.count()));
    if (ready == 0) throw std::runtime_error("nothing came");
    const ssize_t got = ::recv(socket_, piece.data(), piece.size(), 0);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return false;
    received_.append(piece.data(), static_cast<std::size_t>(got));
  }
  return true;
}

std::optional<std::string> WireClient::hear(std::chrono::milliseconds patience) {
  if (!fill(4, patience)) return std::nullopt;
  std::size_t length = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    length = length * 256 + static_cast<unsigned char>(received_[i]);
  }
  if (!fill(4 + length, patience)) return std::nullopt;
  std::string text = received_.substr(4, length);
  received_.erase(0, 4 + length);
  return text;
}

bool WireClient::isClosedWithin(std::chrono::milliseconds patience) {
  if (socket_ < 0) return true;
  const auto end = std::chrono::steady_clock::now() + patience;
  try {
    while (true) {
      const auto left =
          std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
      if (left.count() <= 0) return false;
      if (!hear(left)) return true;
    }
  } catch (const std::runtime_error&) {
    return false;
  }
}

}  // namespace arena::test
