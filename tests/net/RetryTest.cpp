#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>

#include "net/TCPSocket.h"
#include "net/UDPSocket.h"
#include "tests/net/ScriptedCalls.h"

namespace {

using rcss::net::Addr;
using rcss::net::Socket;
using rcss::net::TCPSocket;

constexpr auto kRetry = Socket::RetryInterrupted;
constexpr auto kOnce = Socket::SingleAttempt;

class Retry : public testing::Test {
 protected:
  /// Expects the calls' ranges, as offset and length within the text or buffer.
  void expectRanges(const char* name, std::vector<std::pair<std::ptrdiff_t, std::size_t>> ranges,
                    const char* start) {
    ASSERT_EQ(scripted::calls().size(), ranges.size());
    for (std::size_t i = 0; i < ranges.size(); ++i) {
      SCOPED_TRACE(i);
      const scripted::Call& call = scripted::calls()[i];
      EXPECT_EQ(call.name, name);
      EXPECT_EQ(call.fd, socket.getFD());
      EXPECT_EQ(static_cast<const char*>(call.buffer) - start, ranges[i].first);
      EXPECT_EQ(call.length, ranges[i].second);
    }
  }

  TCPSocket socket;
  const std::array<char, 10> text{'0', '1', '2', '3', '4', '5', '6', '7', '8', '9'};
  std::array<char, 10> buffer{};
  Addr peer{3100, 0x7f000001};
};

TEST(CheckingType, RetryIsZeroAndSingleAttemptIsOne) {
  EXPECT_EQ(static_cast<int>(Socket::RetryInterrupted), 0);
  EXPECT_EQ(static_cast<int>(Socket::SingleAttempt), 1);
  EXPECT_EQ(Socket::INVALIDSOCKET, -1);
}

TEST_F(Retry, PartialWriteContinuesWhereTheSystemStopped) {
  scripted::plan({{3}, {4}, {3}});
  EXPECT_EQ(socket.send(text.data(), 10, 0, kRetry), 10);
  expectRanges("send", {{0, 10}, {3, 7}, {7, 3}}, text.data());
}

TEST_F(Retry, ZeroFromTheSystemIsRetriedOnTheSameRange) {
  scripted::plan({{4}, {0}, {0}, {6}});
  EXPECT_EQ(socket.send(text.data(), 10, 0, kRetry), 10);
  expectRanges("send", {{0, 10}, {4, 6}, {4, 6}, {4, 6}}, text.data());
}

TEST_F(Retry, InterruptedAndBusySendsAreRepeated) {
  scripted::plan({{-1, EINTR}, {2}, {-1, EAGAIN}, {-1, EINTR}, {8}});
  EXPECT_EQ(socket.send(text.data(), 10, 0, kRetry), 10);
  expectRanges("send", {{0, 10}, {0, 10}, {2, 8}, {2, 8}, {2, 8}}, text.data());
}

TEST_F(Retry, AnyOtherErrorEndsASendWhateverHasGone) {
  scripted::plan({{6}, {-1, ECONNRESET}, {4}});
  EXPECT_EQ(socket.send(text.data(), 10, 0, kRetry), -1);
  EXPECT_EQ(errno, ECONNRESET);
  expectRanges("send", {{0, 10}, {6, 4}}, text.data());
}

TEST_F(Retry, SingleAttemptSendsOnce) {
  scripted::plan({{3}, {7}});
  EXPECT_EQ(socket.send(text.data(), 10, 0, kOnce), 3);
  expectRanges("send", {{0, 10}}, text.data());
  for (const int error : {EINTR, EAGAIN}) {
    scripted::plan({{-1, error}, {10}});
    EXPECT_EQ(socket.send(text.data(), 10, 0, kOnce), -1);
    EXPECT_EQ(errno, error);
    expectRanges("send", {{0, 10}}, text.data());
  }
}

TEST_F(Retry, SendRetriesUnlessToldOtherwise) {
  scripted::plan({{9}, {1}});
  EXPECT_EQ(socket.send(text.data(), 10), 10);
}

TEST_F(Retry, FlagsReachTheSystem) {
  scripted::plan({{10}, {10}, {10}, {10}});
  socket.send(text.data(), 10, MSG_NOSIGNAL, kRetry);
  socket.send(text.data(), 10, peer, MSG_NOSIGNAL, kRetry);
  socket.recv(buffer.data(), 10, MSG_PEEK, kRetry);
  socket.recv(buffer.data(), 10, peer, MSG_PEEK, kRetry);
  ASSERT_EQ(scripted::calls().size(), 4U);
  EXPECT_EQ(scripted::calls()[0].flags, MSG_NOSIGNAL);
  EXPECT_EQ(scripted::calls()[1].flags, MSG_NOSIGNAL);
  EXPECT_EQ(scripted::calls()[2].flags, MSG_PEEK);
  EXPECT_EQ(scripted::calls()[3].flags, MSG_PEEK);
}

TEST_F(Retry, SendToGoesInOnePiece) {
  scripted::plan({{-1, EINTR}, {-1, EAGAIN}, {4}, {6}});
  EXPECT_EQ(socket.send(text.data(), 10, peer, 0, kRetry), 4);
  expectRanges("sendto", {{0, 10}, {0, 10}, {0, 10}}, text.data());
}

TEST_F(Retry, SendToStopsAtAnyOtherError) {
  scripted::plan({{-1, EMSGSIZE}, {10}});
  EXPECT_EQ(socket.send(text.data(), 10, peer, 0, kRetry), -1);
  expectRanges("sendto", {{0, 10}}, text.data());
}

TEST_F(Retry, SingleAttemptSendsToOnce) {
  scripted::plan({{-1, EINTR}, {10}});
  EXPECT_EQ(socket.send(text.data(), 10, peer, 0, kOnce), -1);
  expectRanges("sendto", {{0, 10}}, text.data());
}

TEST_F(Retry, InterruptedReceiveIsRepeated) {
  scripted::plan({{-1, EINTR}, {-1, EINTR}, {5}});
  EXPECT_EQ(socket.recv(buffer.data(), 10, 0, kRetry), 5);
  expectRanges("recv", {{0, 10}, {0, 10}, {0, 10}}, buffer.data());
}

TEST_F(Retry, ReceiveIsNotRepeatedForAnythingElse) {
  for (const int error : {EAGAIN, ECONNRESET}) {
    SCOPED_TRACE(error);
    scripted::plan({{-1, error}, {5}});
    EXPECT_EQ(socket.recv(buffer.data(), 10, 0, kRetry), -1);
    EXPECT_EQ(errno, error);
    expectRanges("recv", {{0, 10}}, buffer.data());
  }
}

TEST_F(Retry, EndOfTheStreamIsNoError) {
  scripted::plan({{0}, {5}});
  EXPECT_EQ(socket.recv(buffer.data(), 10, 0, kRetry), 0);
  expectRanges("recv", {{0, 10}}, buffer.data());
}

TEST_F(Retry, SingleAttemptReceivesOnce) {
  scripted::plan({{-1, EINTR}, {5}});
  EXPECT_EQ(socket.recv(buffer.data(), 10, 0, kOnce), -1);
  EXPECT_EQ(errno, EINTR);
  expectRanges("recv", {{0, 10}}, buffer.data());
}

TEST_F(Retry, ReceiveFromFollowsTheSameRule) {
  scripted::plan({{-1, EINTR}, {5}});
  EXPECT_EQ(socket.recv(buffer.data(), 10, peer, 0, kRetry), 5);
  expectRanges("recvfrom", {{0, 10}, {0, 10}}, buffer.data());
  scripted::plan({{-1, EAGAIN}, {5}});
  EXPECT_EQ(socket.recv(buffer.data(), 10, peer, 0, kRetry), -1);
  expectRanges("recvfrom", {{0, 10}}, buffer.data());
  scripted::plan({{-1, EINTR}, {5}});
  EXPECT_EQ(socket.recv(buffer.data(), 10, peer, 0, kOnce), -1);
  expectRanges("recvfrom", {{0, 10}}, buffer.data());
}

TEST_F(Retry, ClosedSocketCallsTheSystemOnNoDescriptor) {
  socket.close();
  scripted::plan({{-1, EBADF}});
  EXPECT_EQ(socket.recv(buffer.data(), 10, 0, kRetry), -1);
  ASSERT_EQ(scripted::calls().size(), 1U);
  EXPECT_EQ(scripted::calls()[0].fd, -1);
  scripted::plan({{-1, EBADF}});
  EXPECT_EQ(socket.send(text.data(), 10, 0, kRetry), -1);
  ASSERT_EQ(scripted::calls().size(), 1U);
  EXPECT_EQ(scripted::calls()[0].fd, -1);
}

TEST_F(Retry, ReceivingWithATimeLimitReachesNoSystemCall) {
  scripted::plan({{5}, {5}});
  errno = 0;
  EXPECT_EQ(socket.recv(10, buffer.data(), 10U, 0), -1);
  EXPECT_EQ(errno, 1);
  errno = 0;
  EXPECT_EQ(socket.recv(10, buffer.data(), 10U, peer, 0), -1);
  EXPECT_EQ(errno, 1);
  EXPECT_TRUE(scripted::calls().empty());
}

TEST(OpenSocket, StaysClosedWhenCloseOnExecIsRefused) {
  TCPSocket socket;
  const int before = socket.getFD();
  ASSERT_GE(before, 0);
  scripted::refuseCloseOnExec(true);
  EXPECT_FALSE(socket.open());
  const TCPSocket another;
  scripted::refuseCloseOnExec(false);
  EXPECT_FALSE(socket.isOpen());
  EXPECT_EQ(socket.getFD(), -1);
  EXPECT_FALSE(another.isOpen());
  EXPECT_EQ(::fcntl(before, F_GETFD), -1);  // nothing was left open
}

TEST(OpenSocket, StaysClosedInSilenceWhenNoDescriptorIsToBeHad) {
  TCPSocket reopened;
  scripted::refuseSockets(true);
  EXPECT_FALSE(reopened.open());
  const TCPSocket stream;
  const TCPSocket bound(Addr(0, 0x7f000001));
  const rcss::net::UDPSocket datagram;
  scripted::refuseSockets(false);
  EXPECT_FALSE(reopened.isOpen());
  EXPECT_FALSE(stream.isOpen());
  EXPECT_FALSE(bound.isOpen());
  EXPECT_FALSE(datagram.isOpen());
  EXPECT_TRUE(reopened.open());
  EXPECT_TRUE(reopened.isOpen());
}

}  // namespace
