#include <gtest/gtest.h>

#include <array>
#include <string>

#include "net/UDPSocket.h"
#include "tests/net/Loopback.h"

namespace {

using rcss::net::Addr;
using rcss::net::UDPSocket;

TEST(Datagram, ReceiverLearnsTheSender) {
  UDPSocket sender(Addr(0, kLoopback));
  UDPSocket receiver(Addr(0, kLoopback));
  EXPECT_EQ(sender.send("ball", 4, receiver.getName()), 4);
  std::array<char, 16> buffer{};
  Addr from(0, 0U);
  EXPECT_EQ(receiver.recv(buffer.data(), 16, from), 4);
  EXPECT_EQ(std::string(buffer.data(), 4), "ball");
  EXPECT_EQ(from, sender.getName());
}

TEST(Datagram, ConnectedAtConstructionSendsWithoutAnAddress) {
  UDPSocket receiver(Addr(0, kLoopback));
  UDPSocket sender(Addr(0, kLoopback), receiver.getName());
  EXPECT_TRUE(sender.isConnected());
  EXPECT_EQ(sender.send("goal", 4), 4);
  std::array<char, 16> buffer{};
  EXPECT_EQ(receiver.recv(buffer.data(), 16), 4);
  EXPECT_EQ(std::string(buffer.data(), 4), "goal");
}

TEST(Datagram, ClosedSocketNeitherSendsNorReceives) {
  UDPSocket socket;
  socket.close();
  std::array<char, 4> buffer{};
  Addr from(0, 0U);
  EXPECT_EQ(socket.send("x", 1, Addr(9, kLoopback)), -1);
  EXPECT_EQ(socket.recv(buffer.data(), 4, from), -1);
}

}  // namespace
