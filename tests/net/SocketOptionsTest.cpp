#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <cerrno>

#include "net/TCPSocket.h"
#include "net/UDPSocket.h"

namespace {

using rcss::net::Socket;
using rcss::net::TCPSocket;
using rcss::net::UDPSocket;

struct FlagRow {
  const char* name;
  int (Socket::*set)(bool);
  int read;  ///< fcntl command that shows the flag
  int flag;
};

void PrintTo(const FlagRow& row, std::ostream* os) {
  *os << row.name;
}

class StatusFlag : public testing::TestWithParam<FlagRow> {
 protected:
  [[nodiscard]] int flags() const { return ::fcntl(socket.getFD(), GetParam().read); }

  TCPSocket socket;
};

TEST_P(StatusFlag, IsSetAndClearedAndNothingElseChanges) {
  ASSERT_EQ(::fcntl(socket.getFD(), F_SETFL, O_APPEND), 0);
  const int others = flags() & ~GetParam().flag;
  EXPECT_EQ((socket.*GetParam().set)(true), 0);
  EXPECT_EQ(flags(), others | GetParam().flag);
  EXPECT_EQ((socket.*GetParam().set)(true), 0);
  EXPECT_EQ(flags(), others | GetParam().flag);
  EXPECT_EQ((socket.*GetParam().set)(false), 0);
  EXPECT_EQ(flags(), others);
}

TEST_P(StatusFlag, IsRefusedOnAClosedSocket) {
  socket.close();
  for (const bool enable : {true, false}) {
    errno = 0;
    EXPECT_EQ((socket.*GetParam().set)(enable), -1);
    EXPECT_EQ(errno, 1);
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, StatusFlag,
    testing::Values(FlagRow{"NonBlocking", &Socket::setNonBlocking, F_GETFL, O_NONBLOCK},
                    FlagRow{"Async", &Socket::setAsync, F_GETFL, O_ASYNC},
                    FlagRow{"CloseOnExec", &Socket::setCloseOnExec, F_GETFD, FD_CLOEXEC}),
    [](const testing::TestParamInfo<FlagRow>& row) { return std::string(row.param.name); });

int broadcast(const Socket& socket) {
  int value = -1;
  socklen_t size = sizeof value;
  EXPECT_EQ(::getsockopt(socket.getFD(), SOL_SOCKET, SO_BROADCAST, &value, &size), 0);
  return value;
}

TEST(Broadcast, IsSetAndCleared) {
  UDPSocket socket;
  EXPECT_EQ(broadcast(socket), 0);
  EXPECT_EQ(socket.setBroadcast(true), 0);
  EXPECT_NE(broadcast(socket), 0);
  EXPECT_EQ(socket.setBroadcast(false), 0);
  EXPECT_EQ(broadcast(socket), 0);
}

TEST(Broadcast, IsRefusedOnAClosedSocket) {
  UDPSocket socket;
  socket.close();
  errno = 0;
  EXPECT_EQ(socket.setBroadcast(true), -1);
  EXPECT_EQ(errno, 1);
}

}  // namespace
