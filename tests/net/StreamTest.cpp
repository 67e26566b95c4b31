#include <gtest/gtest.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <memory>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

#include "net/TCPSocket.h"
#include "tests/net/Loopback.h"

namespace {

using rcss::net::Addr;
using rcss::net::Socket;
using rcss::net::TCPSocket;

/// A listener on a loopback port that the system chose.
class Stream : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(listener.bind(Addr(0, kLoopback)));
    ASSERT_TRUE(listener.listen(4));
  }

  TCPSocket listener;
};

TEST_F(Stream, ConnectedSocketKnowsItsPeer) {
  TCPSocket client;
  EXPECT_TRUE(client.connect(listener.getName()));
  EXPECT_TRUE(client.isConnected());
  EXPECT_EQ(client.getPeer(), listener.getName());
  EXPECT_EQ(client.getDest(), listener.getName());
  client.close();
  EXPECT_FALSE(client.isConnected());
}

TEST_F(Stream, LocalAndRemoteAddressConnectAtConstruction) {
  const TCPSocket client(Addr(0, kLoopback), listener.getName());
  EXPECT_TRUE(client.isConnected());
  EXPECT_EQ(client.getName().getHost(), kLoopback);
}

TEST_F(Stream, AcceptGivesANewSocketAndItsPeersAddress) {
  TCPSocket client;
  ASSERT_TRUE(client.connect(listener.getName()));
  Addr from(0, 0U);
  const std::unique_ptr<TCPSocket> accepted(listener.accept(from));
  ASSERT_NE(accepted, nullptr);
  EXPECT_TRUE(accepted->isConnected());
  EXPECT_EQ(from, client.getName());
  EXPECT_EQ(accepted->getPeer(), client.getName());
}

TEST_F(Stream, AcceptHandsTheDescriptorToAGivenSocket) {
  TCPSocket client;
  ASSERT_TRUE(client.connect(listener.getName()));
  TCPSocket accepted;
  EXPECT_TRUE(listener.accept(static_cast<Socket&>(accepted)));
  EXPECT_EQ(accepted.getPeer(), client.getName());
}

TEST_F(Stream, AcceptFailsOnASocketThatDoesNotListen) {
  TCPSocket idle;
  TCPSocket closed;
  closed.close();
  Addr from(0, 0U);
  for (TCPSocket* socket : {&idle, &closed}) {
    EXPECT_EQ(std::unique_ptr<TCPSocket>(socket->accept(from)), nullptr);
    TCPSocket target;
    const int kept = target.getFD();
    EXPECT_FALSE(socket->accept(static_cast<Socket&>(target)));
    EXPECT_EQ(target.getFD(), kept);
  }
}

TEST_F(Stream, ListenFailsOnAClosedSocket) {
  TCPSocket closed;
  closed.close();
  EXPECT_FALSE(closed.listen(1));
}

TEST_F(Stream, BytesArriveInOrderAndTheEndReadsAsZero) {
  TCPSocket client;
  ASSERT_TRUE(client.connect(listener.getName()));
  TCPSocket server;
  ASSERT_TRUE(listener.accept(static_cast<Socket&>(server)));
  EXPECT_EQ(client.send("kick", 4), 4);
  std::array<char, 8> buffer{};
  EXPECT_EQ(server.recv(buffer.data(), 8), 4);
  EXPECT_EQ(std::string(buffer.data(), 4), "kick");
  client.close();
  EXPECT_EQ(server.recv(buffer.data(), 8, 0, Socket::RetryInterrupted), 0);
  EXPECT_EQ(server.recv(buffer.data(), 8, 0, Socket::SingleAttempt), 0);
}

TEST_F(Stream, LongSendGoesOutWholeHoweverTheSystemTakesIt) {
  TCPSocket client;
  ASSERT_TRUE(client.connect(listener.getName()));
  TCPSocket server;
  ASSERT_TRUE(listener.accept(static_cast<Socket&>(server)));
  // A non-blocking sender meets partial writes and a full buffer.
  ASSERT_EQ(client.setNonBlocking(true), 0);
  std::string text(4U << 20U, ' ');
  std::iota(text.begin(), text.end(), '\0');
  std::string received;
  std::thread reader([&] {
    std::vector<char> piece(65536);
    for (int got = 1; got > 0 && received.size() < text.size();) {
      got = server.recv(piece.data(), static_cast<unsigned>(piece.size()));
      if (got > 0) {
        received.append(piece.data(), static_cast<std::size_t>(got));
      }
    }
  });
  const int sent = client.send(text.data(), static_cast<unsigned>(text.size()));
  reader.join();
  EXPECT_EQ(sent, static_cast<int>(text.size()));
  EXPECT_TRUE(received == text);
}

TEST_F(Stream, SendOnAnUnconnectedSocketFails) {
  TCPSocket never;
  errno = 0;
  EXPECT_EQ(never.send("x", 1, MSG_NOSIGNAL), -1);
  EXPECT_EQ(errno, EPIPE);
}

}  // namespace
