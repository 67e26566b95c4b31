#include "tests/support/ServerLink.h"

#include <arpa/inet.h>
#include <linux/sockios.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "tests/support/SocketQueues.h"
#include "tests/support/SystemError.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::size_t kLengthBytes = 4;

/// Waits for EVENT on the descriptor; false when the deadline passes first.
[[nodiscard]] bool WaitFor(int descriptor, short event, Clock::time_point deadline) {
  while (true) {
    const auto left =
        std::max(std::chrono::ceil<milliseconds>(deadline - Clock::now()), milliseconds::zero());
    pollfd source{descriptor, event, 0};
    const int ready = poll(&source, 1, static_cast<int>(left.count()));
    if (ready > 0) return true;
    if (ready == 0) return false;
    if (errno != EINTR) throw SystemError("poll");
  }
}

}  // namespace

std::string LengthField(std::uint32_t length) {
  std::string bytes;
  for (const unsigned shift : {24U, 16U, 8U, 0U}) {
    bytes.push_back(static_cast<char>((length >> shift) & 0xFFU));
  }
  return bytes;
}

ServerLink::ServerLink(int descriptor) : descriptor_(descriptor) {
  const int atOnce = 1;
  setsockopt(descriptor_, IPPROTO_TCP, TCP_NODELAY, &atOnce, sizeof(atOnce));
  socklen_t size = sizeof(own_);
  if (getsockname(descriptor_, reinterpret_cast<sockaddr*>(&own_), &size) != 0 ||
      getpeername(descriptor_, reinterpret_cast<sockaddr*>(&peer_), &size) != 0) {
    throw SystemError("link's addresses");
  }
}

ServerLink::ServerLink(ServerLink&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)),
      unread_(std::move(other.unread_)),
      own_(other.own_),
      peer_(other.peer_) {}

ServerLink::~ServerLink() {
  Close();
}

void ServerLink::Close() {
  if (descriptor_ >= 0) close(descriptor_);
  descriptor_ = -1;
}

void ServerLink::SendBytes(std::string_view bytes) {
  const auto deadline = Clock::now() + kPatience;
  while (!bytes.empty()) {
    const ssize_t sent = send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(sent));
    } else if (errno != EAGAIN) {
      throw SystemError("send");
    } else if (!WaitFor(descriptor_, POLLOUT, deadline)) {
      throw std::runtime_error("the player takes no more bytes");
    }
  }
}

void ServerLink::SendFrame(std::string_view text) {
  SendBytes(LengthField(static_cast<std::uint32_t>(text.size())).append(text));
}

bool ServerLink::Fill(Clock::time_point deadline) {
  if (!WaitFor(descriptor_, POLLIN, deadline)) {
    throw std::runtime_error("nothing came from the player in time");
  }
  std::array<char, 65536> buffer{};
  const ssize_t got = recv(descriptor_, buffer.data(), buffer.size(), 0);
  if (got < 0) throw SystemError("recv");
  unread_.append(buffer.data(), static_cast<std::size_t>(got));
  return got > 0;
}

std::string ServerLink::ReadBytes(std::size_t count, milliseconds patience) {
  const auto deadline = Clock::now() + patience;
  while (unread_.size() < count) {
    if (!Fill(deadline)) throw std::runtime_error("the player has closed the link");
  }
  std::string bytes = unread_.substr(0, count);
  unread_.erase(0, count);
  return bytes;
}

std::optional<std::string> ServerLink::TakeFrame() {
  if (unread_.size() < kLengthBytes) return std::nullopt;
  std::size_t length = 0;
  for (std::size_t i = 0; i < kLengthBytes; ++i) {
    length = length * 256 + static_cast<unsigned char>(unread_[i]);
  }
  if (unread_.size() - kLengthBytes < length) return std::nullopt;
  std::string text = unread_.substr(kLengthBytes, length);
  unread_.erase(0, kLengthBytes + length);
  return text;
}

std::string ServerLink::ReadFrame(milliseconds patience) {
  const auto deadline = Clock::now() + patience;
  while (true) {
    if (std::optional<std::string> frame = TakeFrame()) return *std::move(frame);
    if (!Fill(deadline)) throw std::runtime_error("the player has closed the link");
  }
}

void ServerLink::FillSoFar() {
  while (WaitFor(descriptor_, POLLIN, Clock::now()) && Fill(Clock::now())) {
  }
}

std::vector<std::string> ServerLink::FramesSoFar() {
  FillSoFar();
  std::vector<std::string> frames;
  while (std::optional<std::string> frame = TakeFrame()) frames.push_back(*std::move(frame));
  return frames;
}

bool ServerLink::AtEnd(milliseconds patience) {
  if (!WaitFor(descriptor_, POLLIN, Clock::now() + patience)) return false;
  char byte = 0;
  return unread_.empty() && recv(descriptor_, &byte, 1, MSG_PEEK) == 0;
}

bool ServerLink::IsDrained() {
  int notYetThere = 0;
  if (ioctl(descriptor_, SIOCOUTQ, &notYetThere) != 0) throw SystemError("SIOCOUTQ");
  if (notYetThere > 0) return false;
  // The player's bytes count as under way until acknowledged, which the kernel puts off unless
  // they have been read and it is told not to.
  FillSoFar();
  const int atOnce = 1;
  setsockopt(descriptor_, IPPROTO_TCP, TCP_QUICKACK, &atOnce, sizeof(atOnce));
  const SocketQueues queues = LookIntoSocket(peer_, own_);
  return queues.unread == 0 && queues.unacknowledged == 0;
}

Listener::Listener(const std::string& address, std::uint16_t port)
    : descriptor_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  const int again = 1;
  setsockopt(descriptor_, SOL_SOCKET, SO_REUSEADDR, &again, sizeof(again));
  sockaddr_in place{};
  place.sin_family = AF_INET;
  place.sin_port = htons(port);
  inet_pton(AF_INET, address.c_str(), &place.sin_addr);
  if (bind(descriptor_, reinterpret_cast<const sockaddr*>(&place), sizeof(place)) != 0 ||
      listen(descriptor_, 8) != 0) {
    const std::system_error failure = SystemError("listen");
    close(descriptor_);
    throw failure;
  }
}

Listener::~Listener() {
  close(descriptor_);
}

ServerLink Listener::Accept(milliseconds patience) const {
  if (!WaitFor(descriptor_, POLLIN, Clock::now() + patience)) {
    throw std::runtime_error("no player has called");
  }
  const int link = accept4(descriptor_, nullptr, nullptr, SOCK_CLOEXEC);
  if (link < 0) throw SystemError("accept");
  return ServerLink(link);
}
