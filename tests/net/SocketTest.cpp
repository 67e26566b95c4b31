#include "net/Socket.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <cerrno>

#include "net/TCPSocket.h"
#include "net/UDPSocket.h"
#include "tests/net/Loopback.h"

namespace {

using rcss::net::Addr;
using rcss::net::Socket;
using rcss::net::TCPSocket;
using rcss::net::UDPSocket;

bool isLive(int fd) {
  return ::fcntl(fd, F_GETFD) != -1;
}

int option(const Socket& socket, int name) {
  int value = -1;
  socklen_t size = sizeof value;
  EXPECT_EQ(::getsockopt(socket.getFD(), SOL_SOCKET, name, &value, &size), 0);
  return value;
}

TEST(TCPSocket, OpensAtConstruction) {
  const TCPSocket socket;
  EXPECT_TRUE(socket.isOpen());
  EXPECT_GE(socket.getFD(), 0);
  EXPECT_EQ(option(socket, SO_TYPE), SOCK_STREAM);
  EXPECT_EQ(option(socket, SO_PROTOCOL), 6);
  EXPECT_EQ(option(socket, SO_DOMAIN), AF_INET);
}

TEST(UDPSocket, OpensAtConstruction) {
  const UDPSocket socket;
  EXPECT_TRUE(socket.isOpen());
  EXPECT_EQ(option(socket, SO_TYPE), SOCK_DGRAM);
  EXPECT_EQ(option(socket, SO_PROTOCOL), 17);
}

TEST(Socket, OpenSetsCloseOnExec) {
  EXPECT_EQ(::fcntl(TCPSocket().getFD(), F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
  EXPECT_EQ(::fcntl(UDPSocket().getFD(), F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
}

TEST(Socket, CloseClosesTheLastHoldersDescriptor) {
  TCPSocket socket;
  const int fd = socket.getFD();
  socket.close();
  EXPECT_FALSE(socket.isOpen());
  EXPECT_EQ(socket.getFD(), Socket::INVALIDSOCKET);
  EXPECT_FALSE(isLive(fd));
  socket.close();
  EXPECT_FALSE(socket.isOpen());
}

TEST(Socket, CopiesShareTheDescriptor) {
  TCPSocket first;
  const int fd = first.getFD();
  {
    const TCPSocket second(first);
    EXPECT_EQ(second.getFD(), fd);
    first.close();
    EXPECT_TRUE(isLive(fd));
  }
  EXPECT_FALSE(isLive(fd));
}

TEST(Socket, AssignmentGivesUpTheFormerDescriptor) {
  TCPSocket first;
  TCPSocket second;
  const int former = first.getFD();
  const int shared = second.getFD();
  static_cast<Socket&>(first) = second;
  EXPECT_EQ(first.getFD(), shared);
  EXPECT_FALSE(isLive(former));
  second.close();
  EXPECT_TRUE(isLive(shared));
}

TEST(Socket, DestructionClosesLikeClose) {
  int fd = -1;
  {
    const TCPSocket socket;
    fd = socket.getFD();
  }
  EXPECT_FALSE(isLive(fd));
}

TEST(Socket, AdoptedDescriptorIsClosedByTheLastHolder) {
  int tcp = ::socket(AF_INET, SOCK_STREAM, 0);
  int udp = ::socket(AF_INET, SOCK_DGRAM, 0);
  {
    const TCPSocket stream(tcp);
    const UDPSocket datagram(udp);
    EXPECT_EQ(stream.getFD(), tcp);
    EXPECT_EQ(datagram.getFD(), udp);
  }
  EXPECT_FALSE(isLive(tcp));
  EXPECT_FALSE(isLive(udp));
}

TEST(Socket, OpeningAgainClosesFirst) {
  TCPSocket socket;
  ASSERT_TRUE(socket.bind(Addr(0, kLoopback)));
  ASSERT_NE(socket.getName(), Addr(0, 0U));
  EXPECT_TRUE(socket.open());
  EXPECT_TRUE(socket.isOpen());
  EXPECT_EQ(socket.getName(), Addr(0, 0U));  // a new one, bound to nothing
}

TEST(Socket, OpeningAgainLeavesACopysDescriptorAlone) {
  TCPSocket socket;
  const TCPSocket copy(socket);
  const int former = copy.getFD();
  EXPECT_TRUE(socket.open());
  EXPECT_NE(socket.getFD(), former);
  EXPECT_TRUE(isLive(former));
}

TEST(Socket, BindNeedsAnOpenSocket) {
  TCPSocket socket;
  socket.close();
  EXPECT_FALSE(socket.bind(Addr(0, 0U)));
  EXPECT_FALSE(socket.connect(Addr(0, 0U)));
}

TEST(Socket, BindFailsOnATakenAddressAndLeavesErrno) {
  TCPSocket holder;
  ASSERT_TRUE(holder.bind(Addr(0, kLoopback)));
  ASSERT_TRUE(holder.listen(1));
  TCPSocket socket;
  errno = 0;
  EXPECT_FALSE(socket.bind(holder.getName()));
  EXPECT_EQ(errno, EADDRINUSE);
}

TEST(Socket, ConnectFailsWhereNobodyListensAndLeavesErrno) {
  TCPSocket silent;
  ASSERT_TRUE(silent.bind(Addr(0, kLoopback)));
  TCPSocket socket;
  errno = 0;
  EXPECT_FALSE(socket.connect(silent.getName()));
  EXPECT_EQ(errno, ECONNREFUSED);
  EXPECT_FALSE(socket.isConnected());
}

TEST(Socket, LocalAddressBindsAtConstruction) {
  const TCPSocket stream(Addr(0, kLoopback));
  EXPECT_EQ(stream.getName().getHost(), kLoopback);
  EXPECT_NE(stream.getName().getPort(), 0);
  const UDPSocket datagram(Addr(0, kLoopback));
  EXPECT_EQ(datagram.getName().getHost(), kLoopback);
}

TEST(Socket, ConstructorDropsAFailedBind) {
  TCPSocket holder;
  ASSERT_TRUE(holder.bind(Addr(0, kLoopback)));
  ASSERT_TRUE(holder.listen(1));
  const TCPSocket socket(holder.getName());
  EXPECT_TRUE(socket.isOpen());
  EXPECT_EQ(socket.getName(), Addr(0, 0U));
}

TEST(Socket, ConstructorDropsAFailedConnect) {
  const TCPSocket silent(Addr(0, kLoopback));
  const TCPSocket socket(Addr(0, kLoopback), silent.getName());
  EXPECT_TRUE(socket.isOpen());
  EXPECT_FALSE(socket.isConnected());
}

TEST(Socket, UnconnectedPeerIsTheAllZeroAddress) {
  const TCPSocket socket;
  EXPECT_EQ(socket.getPeer(), Addr(0, 0U));
  EXPECT_EQ(socket.getDest(), Addr(0, 0U));
  EXPECT_FALSE(socket.isConnected());
}

TEST(Socket, ClosedSocketHasNoAddressesAndNoConnection) {
  TCPSocket socket;
  socket.close();
  EXPECT_EQ(socket.getName(), Addr(0, 0U));
  EXPECT_EQ(socket.getPeer(), Addr(0, 0U));
  EXPECT_EQ(socket.getDest(), Addr(0, 0U));
  EXPECT_FALSE(socket.isConnected());
}

}  // namespace
