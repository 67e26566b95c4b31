#include "tests/support/SocketQueues.h"

#include <linux/inet_diag.h>
#include <linux/netlink.h>
#include <linux/sock_diag.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>

namespace {

/// Asks for this one socket; nothing when the kernel has no such service, or no such socket.
std::optional<SocketQueues> FromKernel(const sockaddr_in& own, const sockaddr_in& peer) {
  struct {
    nlmsghdr header;
    inet_diag_req_v2 question;
  } request{};
  request.header.nlmsg_len = sizeof(request);
  request.header.nlmsg_type = SOCK_DIAG_BY_FAMILY;
  request.header.nlmsg_flags = NLM_F_REQUEST;
  request.question.sdiag_family = AF_INET;
  request.question.sdiag_protocol = IPPROTO_TCP;
  request.question.idiag_states = ~0U;
  // The kernel looks at it as the answer to a packet: its source is the socket's own address.
  request.question.id.idiag_sport = own.sin_port;
  request.question.id.idiag_dport = peer.sin_port;
  request.question.id.idiag_src[0] = own.sin_addr.s_addr;
  request.question.id.idiag_dst[0] = peer.sin_addr.s_addr;
  request.question.id.idiag_cookie[0] = INET_DIAG_NOCOOKIE;
  request.question.id.idiag_cookie[1] = INET_DIAG_NOCOOKIE;

  const int handle = socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_SOCK_DIAG);
  if (handle < 0) return std::nullopt;
  alignas(nlmsghdr) std::array<char, 4096> answer{};
  ssize_t size = send(handle, &request, sizeof(request), 0);
  if (size >= 0) size = recv(handle, answer.data(), answer.size(), 0);
  close(handle);
  nlmsghdr header{};
  inet_diag_msg message{};
  if (size < static_cast<ssize_t>(sizeof(header) + sizeof(message))) return std::nullopt;
  std::memcpy(&header, answer.data(), sizeof(header));
  if (header.nlmsg_type != SOCK_DIAG_BY_FAMILY) return std::nullopt;
  std::memcpy(&message, answer.data() + NLMSG_HDRLEN, sizeof(message));
  return SocketQueues{message.idiag_rqueue, message.idiag_wqueue};
}

/// "0100007F:0C1C": the address as one number in memory order, and the port.
std::string TableText(const sockaddr_in& address) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "%08X:%04X", address.sin_addr.s_addr,
                static_cast<unsigned>(ntohs(address.sin_port)));
  return text.data();
}

/// The same from the table of all sockets, which takes the kernel milliseconds to write.
SocketQueues FromTable(const sockaddr_in& own, const sockaddr_in& peer) {
  const std::string key = TableText(own) + " " + TableText(peer) + " ";
  std::ifstream table("/proc/net/tcp");
  for (std::string line; std::getline(table, line);) {
    const std::size_t at = line.find(key);
    SocketQueues queues;
    // Behind the addresses stand the state and the two queues.
    if (at != std::string::npos && std::sscanf(line.c_str() + at + key.size(), "%*x %x:%x",
                                               &queues.unacknowledged, &queues.unread) == 2) {
      return queues;
    }
  }
  throw std::runtime_error("the player's end of the link has gone");
}

}  // namespace

SocketQueues LookIntoSocket(const sockaddr_in& own, const sockaddr_in& peer) {
  if (const std::optional<SocketQueues> queues = FromKernel(own, peer)) return *queues;
  return FromTable(own, peer);
}
