#include "net/Exceptions.h"

#include <gtest/gtest.h>
#include <netdb.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "net/Handler.h"

namespace {

template <typename Error>
class NetErrors : public testing::Test {};

using AllErrors = testing::Types<rcss::net::HostNotFound, rcss::net::OpenErr, rcss::net::BindErr,
                                 rcss::net::ListenErr, rcss::net::AcceptErr, rcss::net::GetNameErr,
                                 rcss::net::ConnectErr>;
TYPED_TEST_SUITE(NetErrors, AllErrors);

TYPED_TEST(NetErrors, CarryTheErrorAndItsText) {
  const TypeParam error(ECONNREFUSED);
  EXPECT_EQ(error.err(), ECONNREFUSED);
  EXPECT_STREQ(error.what(), "Connection refused");
}

TYPED_TEST(NetErrors, AreCaughtAsStandardExceptions) {
  try {
    throw TypeParam(EADDRINUSE);
  } catch (const std::exception& error) {
    EXPECT_STREQ(error.what(), "Address already in use");
  }
}

TEST(HostNotFound, TextIsThatOfTheSystemErrorWithTheSameNumber) {
  const rcss::net::HostNotFound error(HOST_NOT_FOUND);
  EXPECT_EQ(std::string(error.what()), std::strerror(HOST_NOT_FOUND));
  EXPECT_STREQ(error.what(), "Operation not permitted");
  EXPECT_STRNE(error.what(), hstrerror(HOST_NOT_FOUND));
}

TEST(Handler, ThereIsOneAndItIsReady) {
  rcss::net::Handler& handler = rcss::net::Handler::instance();
  EXPECT_EQ(&handler, &rcss::net::Handler::instance());
  EXPECT_TRUE(handler.ready());
}

}  // namespace
