#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netdb.h>

#include <cerrno>
#include <sstream>

#include "net/Addr.h"
#include "net/Exceptions.h"
#include "tests/net/FakeNames.h"

namespace {

using rcss::net::Addr;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr unsigned int kServer = 0x0a010203;  // 10.1.2.3
constexpr unsigned int kOther = 0x0a040506;   // 10.4.5.6

class AddrNames : public testing::Test {
 protected:
  void SetUp() override { fakenames::protocolsAsked(); }
};

TEST_F(AddrNames, ConstructorTakesTheFirstEntryAndKeepsTheName) {
  const Addr addr(3100, "server");
  EXPECT_EQ(addr.getHost(), kServer);
  EXPECT_EQ(addr.getPort(), 3100);
  EXPECT_EQ(addr.getHostStr(), "server");
}

TEST_F(AddrNames, UnknownHostIsThrownWithTheResolversError) {
  try {
    const Addr addr(3100, "nobody");
    FAIL() << "an address was made of it: " << addr.getHostStr();
  } catch (const rcss::net::HostNotFound& error) {
    EXPECT_EQ(error.err(), TRY_AGAIN);
  }
  try {
    const Addr addr(3100, "missing");
    FAIL() << "an address was made of it: " << addr.getHostStr();
  } catch (const rcss::net::HostNotFound& error) {
    EXPECT_EQ(error.err(), HOST_NOT_FOUND);
  }
}

TEST_F(AddrNames, SetHostByNameReplacesAddressAndText) {
  Addr addr(3100, "server");
  EXPECT_TRUE(addr.setHost("other"));
  EXPECT_EQ(addr.getHost(), kOther);
  EXPECT_EQ(addr.getHostStr(), "other");
  EXPECT_EQ(addr.getPort(), 3100);
}

TEST_F(AddrNames, SetHostByNameReplacesTheDottedTextToo) {
  Addr addr(3100, kOther);
  EXPECT_EQ(addr.getHostStr(), "10.4.5.6");
  EXPECT_TRUE(addr.setHost("server"));
  EXPECT_EQ(addr.getHostStr(), "server");
}

TEST_F(AddrNames, SetHostByNumberForgetsTheName) {
  Addr addr(3100, "server");
  EXPECT_TRUE(addr.setHost(kOther));
  EXPECT_EQ(addr.getHost(), kOther);
  EXPECT_EQ(addr.getHostStr(), "10.4.5.6");
}

TEST_F(AddrNames, UnknownHostLeavesTheAddressAlone) {
  Addr addr(3100, "server");
  EXPECT_FALSE(addr.setHost("missing"));
  EXPECT_EQ(addr.getHost(), kServer);
  EXPECT_EQ(addr.getHostStr(), "server");
}

TEST_F(AddrNames, EmptyHostNameIsRefused) {
  Addr addr(3100, "server");
  errno = 0;
  EXPECT_FALSE(addr.setHost(""));
  EXPECT_EQ(errno, 1);
  EXPECT_EQ(addr.getHost(), kServer);
}

TEST_F(AddrNames, EmptyServiceNameIsRefused) {
  Addr addr(3100, kServer);
  errno = 0;
  EXPECT_FALSE(addr.setPort("", "tcp"));
  EXPECT_EQ(errno, 1);
  EXPECT_EQ(addr.getPort(), 3100);
}

TEST_F(AddrNames, SetPortByNameFindsThePort) {
  Addr addr(1, kServer);
  EXPECT_TRUE(addr.setPort("soccer", "tcp"));
  EXPECT_EQ(addr.getPort(), 3100);
  EXPECT_EQ(addr.getPortStr("udp"), "soccer");  // the given name, not looked up again
  EXPECT_THAT(fakenames::protocolsAsked(), ElementsAre("tcp"));
  EXPECT_TRUE(addr.setPort("whistle", "udp"));
  EXPECT_EQ(addr.getPortStr("tcp"), "whistle");
}

TEST_F(AddrNames, UnknownServiceLeavesThePortAlone) {
  Addr addr(7, kServer);
  EXPECT_FALSE(addr.setPort("soccer", "udp"));
  EXPECT_EQ(addr.getPort(), 7);
}

TEST_F(AddrNames, ServiceNameIsLookedUpOnce) {
  const Addr addr(3100, kServer);
  EXPECT_EQ(addr.getPortStr("udp"), "whistle");
  EXPECT_EQ(addr.getPortStr("tcp"), "whistle");
  EXPECT_THAT(fakenames::protocolsAsked(), ElementsAre("udp"));
}

TEST_F(AddrNames, EmptyProtocolAsksForAny) {
  const Addr addr(3100, kServer);
  EXPECT_EQ(addr.getPortStr(""), "soccer");
  EXPECT_THAT(fakenames::protocolsAsked(), ElementsAre("null"));
}

TEST_F(AddrNames, UnknownPortHasNoServiceName) {
  const Addr addr(3101, kServer);
  EXPECT_THAT(addr.getPortStr("tcp"), IsEmpty());
}

TEST_F(AddrNames, SetPortByNumberForgetsTheServiceName) {
  Addr addr(3100, kServer);
  EXPECT_EQ(addr.getPortStr("tcp"), "soccer");
  EXPECT_TRUE(addr.setPort(3101));
  EXPECT_EQ(addr.getPort(), 3101);
  EXPECT_THAT(addr.getPortStr("tcp"), IsEmpty());
}

TEST_F(AddrNames, CopiesShareTheNames) {
  const Addr first(3100, kServer);
  // The copy is what this is about.
  const Addr second = first;  // NOLINT(performance-unnecessary-copy-initialization)
  EXPECT_EQ(first.getPortStr("tcp"), "soccer");
  fakenames::protocolsAsked();
  EXPECT_EQ(second.getPortStr("udp"), "soccer");
  EXPECT_THAT(fakenames::protocolsAsked(), IsEmpty());
}

TEST_F(AddrNames, ComparisonLooksAtNoText) {
  const Addr named(3100, "server");
  EXPECT_TRUE(named == Addr(3100, kServer));
  EXPECT_FALSE(named != Addr(3100, kServer));
}

TEST_F(AddrNames, StreamFormShowsTheGivenName) {
  std::ostringstream out;
  out << Addr(3100, "server");
  EXPECT_EQ(out.str(), "(3100:server)");
}

}  // namespace
