#include "net/Addr.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netdb.h>

#include <sstream>
#include <string>
#include <vector>

#include "net/Exceptions.h"

namespace {

using rcss::net::Addr;

TEST(Addr, ConstantsAreAllOnesAndZero) {
  EXPECT_EQ(Addr::BROADCAST, 4294967295U);
  EXPECT_EQ(Addr::ANY, 0U);
}

TEST(Addr, KeepsNetworkOrderAndAnswersInHostOrder) {
  const Addr addr(0x0c1c, 0x7f000001);
  EXPECT_EQ(addr.getPort(), 0x0c1c);
  EXPECT_EQ(addr.getHost(), 0x7f000001U);
  EXPECT_EQ(addr.getAddr()->sin_family, AF_INET);
  const auto* port = reinterpret_cast<const unsigned char*>(&addr.getAddr()->sin_port);
  EXPECT_EQ(port[0], 0x0c);
  EXPECT_EQ(port[1], 0x1c);
  const auto* host = reinterpret_cast<const unsigned char*>(&addr.getAddr()->sin_addr);
  EXPECT_EQ(host[0], 127);
  EXPECT_EQ(host[3], 1);
}

TEST(Addr, TakesASystemAddressAsItIs) {
  sockaddr_in system{};
  system.sin_family = AF_INET;
  system.sin_port = htons(3100);
  ASSERT_EQ(inet_pton(AF_INET, "127.0.0.5", &system.sin_addr), 1);
  const Addr addr(system);
  EXPECT_EQ(addr.getPort(), 3100);
  EXPECT_EQ(addr.getHost(), 0x7f000005U);
  EXPECT_EQ(addr.getHostStr(), "127.0.0.5");
}

TEST(Addr, HostTextIsTheDottedFormUnlessGiven) {
  EXPECT_EQ(Addr(0, 0x7f000102).getHostStr(), "127.0.1.2");
  EXPECT_EQ(Addr(0, Addr::ANY).getHostStr(), "0.0.0.0");
  EXPECT_EQ(Addr(0, Addr::BROADCAST).getHostStr(), "255.255.255.255");
}

TEST(Addr, DottedNameIsResolvedWithoutANameServer) {
  const Addr addr(3100, "127.0.0.1");
  EXPECT_EQ(addr.getHost(), 0x7f000001U);
  EXPECT_EQ(addr.getHostStr(), "127.0.0.1");
}

TEST(Addr, NameThatCannotBeOneIsThrown) {
  // Longer than any host name may be, so no name server is asked.
  const std::string impossible(300, 'x');
  try {
    const Addr addr(3100, impossible);
    FAIL() << "an address was made of it";
  } catch (const rcss::net::HostNotFound& error) {
    EXPECT_EQ(error.err(), h_errno);
    EXPECT_NE(error.err(), 0);
  }
}

TEST(Addr, NumbersCanBeReplaced) {
  Addr addr(1, 2U);
  EXPECT_TRUE(addr.setHost(0x7f000003U));
  EXPECT_TRUE(addr.setPort(3100));
  EXPECT_EQ(addr.getHost(), 0x7f000003U);
  EXPECT_EQ(addr.getPort(), 3100);
  EXPECT_EQ(ntohs(addr.getAddr()->sin_port), 3100);
}

TEST(Addr, CopiesShareTheirData) {
  Addr first(1, 0x7f000001);
  const Addr second = first;
  first.setPort(9);
  first.setHost(0x7f000009U);
  EXPECT_EQ(second.getPort(), 9);
  EXPECT_EQ(second.getHost(), 0x7f000009U);
}

TEST(Addr, EqualityNeedsPortAndHost) {
  const Addr addr(3100, 0x7f000001);
  EXPECT_TRUE(addr == Addr(3100, 0x7f000001));
  EXPECT_FALSE(addr != Addr(3100, 0x7f000001));
  EXPECT_FALSE(addr == Addr(3101, 0x7f000001));
  EXPECT_TRUE(addr != Addr(3101, 0x7f000001));
  EXPECT_FALSE(addr == Addr(3100, 0x7f000002));
  EXPECT_TRUE(addr != Addr(3100, 0x7f000002));
}

TEST(Addr, OrderGoesByHostThenByPortInHostByteOrder) {
  // In network order on a little-endian machine both steps would come out the other way.
  const std::vector<Addr> ascending{Addr(512, 0x00000002), Addr(1, 0x01000000),
                                    Addr(256, 0x01000000), Addr(3, 0xff000000)};
  for (std::size_t i = 0; i < ascending.size(); ++i) {
    for (std::size_t j = 0; j < ascending.size(); ++j) {
      EXPECT_EQ(ascending.at(i) < ascending.at(j), i < j) << i << " and " << j;
    }
  }
}

TEST(Addr, StreamFormIsPortAndHost) {
  std::ostringstream out;
  out << Addr(3100, 0x7f000001);
  EXPECT_EQ(out.str(), "(3100:127.0.0.1)");
}

}  // namespace
