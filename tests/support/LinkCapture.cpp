#include "tests/support/LinkCapture.h"

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <stdexcept>

#include "net/TCPSocket.h"
#include "runtime/Connection.h"

namespace {

constexpr std::size_t kHeaderSize = 4;

std::size_t lengthAt(const std::string& bytes, std::size_t at) {
  std::size_t length = 0;
  for (std::size_t i = 0; i < kHeaderSize; ++i) {
    length = length * 256 + static_cast<unsigned char>(bytes.at(at + i));
  }
  return length;
}

}  // namespace

std::string frameOf(std::string_view payload) {
  const auto length = static_cast<std::uint32_t>(payload.size());
  std::string frame;
  for (const int shift : {24, 16, 8, 0}) {
    frame.push_back(static_cast<char>((length >> shift) & 0xffU));
  }
  return frame.append(payload);
}

LinkCapture::LinkCapture() {
  std::array<int, 2> ends{};
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    throw std::runtime_error("no socket pair");
  }
  fd_ = ends[0];
  // Only the descriptor changes hands: the singleton's host and port stay.
  static_cast<rcss::net::Socket&>(*Connection::getSingleton()) = rcss::net::TCPSocket(ends[1]);
}

LinkCapture::~LinkCapture() {
  Connection::freeSingleton();
  ::close(fd_);
}

std::string LinkCapture::bytes() {
  std::string result;
  std::array<char, 4096> piece{};
  for (;;) {
    const ssize_t got = ::recv(fd_, piece.data(), piece.size(), MSG_DONTWAIT);
    if (got <= 0) {
      return result;
    }
    result.append(piece.data(), static_cast<std::size_t>(got));
  }
}

std::vector<std::string> LinkCapture::frames() {
  const std::string all = bytes();
  std::vector<std::string> result;
  std::size_t at = 0;
  while (at < all.size()) {
    if (all.size() - at < kHeaderSize || all.size() - at - kHeaderSize < lengthAt(all, at)) {
      throw std::runtime_error("the bytes sent end within a frame");
    }
    const std::size_t length = lengthAt(all, at);
    result.push_back(all.substr(at + kHeaderSize, length));
    at += kHeaderSize + length;
  }
  return result;
}

std::vector<std::string> LinkCapture::commands() {
  std::vector<std::string> result;
  for (const std::string& frame : frames()) {
    if (frame.compare(0, kZeroSpeeds.size(), kZeroSpeeds) != 0) {
      throw std::runtime_error("no zero speeds in front of: " + frame);
    }
    result.push_back(frame.substr(kZeroSpeeds.size()));
  }
  return result;
}

void LinkCapture::deliver(std::string_view payload) {
  deliverBytes(frameOf(payload));
}

void LinkCapture::deliverBytes(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = ::send(fd_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent < 0) {
      throw std::runtime_error("the link takes no more bytes");
    }
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
}
