#include "runtime/Connection.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <vector>

#include "tests/support/LinkCapture.h"

namespace {

using Texts = std::vector<std::string>;

class ConnectionTest : public ::testing::Test {
 protected:
  static std::string Next() {
    std::string text = "left over";
    EXPECT_TRUE(Connection::getSingleton()->GetMSG(text));
    return text;
  }

  LinkCapture link;
};

TEST_F(ConnectionTest, IsMadeOpenAtFirstUseAndOnceOnly) {
  Connection::freeSingleton();
  EXPECT_EQ(Connection::m_Instance, nullptr);
  Connection* const first = Connection::getSingleton();
  EXPECT_EQ(Connection::getSingleton(), first);
  EXPECT_TRUE(first->isOpen());
  EXPECT_FALSE(first->isConnected());
  EXPECT_EQ(first->portNumber, 3100);
  EXPECT_EQ(first->hostAddress, "127.0.0.1");
  Connection::freeSingleton();
  EXPECT_EQ(Connection::m_Instance, nullptr);
}

TEST_F(ConnectionTest, AddressAndPortCanBeSet) {
  Connection::getSingleton()->SetHostAdd("127.0.0.9");
  Connection::getSingleton()->SetPortNum(4321);
  EXPECT_EQ(Connection::getSingleton()->hostAddress, "127.0.0.9");
  EXPECT_EQ(Connection::getSingleton()->portNumber, 4321);
}

TEST_F(ConnectionTest, EmptyTextWritesNotEvenALength) {
  Connection::getSingleton()->PutMSG("");
  EXPECT_EQ(link.bytes(), "");
}

TEST_F(ConnectionTest, SentLengthIsBigEndianAndCountsTheTextAlone) {
  Connection::getSingleton()->PutMSG("abc");
  EXPECT_EQ(link.bytes(), std::string("\0\0\0\3abc", 7));
  Connection::getSingleton()->PutMSG(std::string(0x10203, 'x'));
  EXPECT_EQ(link.bytes().substr(0, 5), std::string("\0\1\2\3x", 5)) << "no limit on what is sent";
}

TEST_F(ConnectionTest, ReceivedTextIsWrappedOnce) {
  link.deliver("(a)(b)");
  EXPECT_EQ(Next(), "((a)(b))");
}

TEST_F(ConnectionTest, EmptyFrameIsAPairOfParentheses) {
  link.deliver("");
  EXPECT_EQ(Next(), "()");
}

TEST_F(ConnectionTest, NothingIsReadAhead) {
  link.deliver("(a)");
  link.deliver("(b)");
  EXPECT_EQ(Next(), "((a))");
  EXPECT_EQ(Next(), "((b))");
}

TEST_F(ConnectionTest, ShorterFrameShowsNothingOfTheLongerOneBefore) {
  link.deliver("(long long long)");
  EXPECT_EQ(Next(), "((long long long))");
  link.deliver("(s)");
  EXPECT_EQ(Next(), "((s))");
}

TEST_F(ConnectionTest, LongestFrameFillsTheBuffer) {
  const std::string text = "(" + std::string(16378, 'x') + ")";
  link.deliver(text);
  EXPECT_EQ(Next(), "(" + text + ")");
  link.deliver("");
  EXPECT_EQ(Next(), "()");
}

TEST_F(ConnectionTest, ZeroByteCutsTheText) {
  link.deliver(std::string("(a)\0(b)", 7));
  EXPECT_EQ(Next(), "((a))");
  link.deliver(std::string("\0(b)", 4));
  EXPECT_EQ(Next(), "()");
  link.deliver("(c)");
  EXPECT_EQ(Next(), "((c))") << "the rest behind the zero is read all the same";
}

TEST_F(ConnectionTest, WrappingLengthsAreEmptyTexts) {
  link.deliver("(before)");
  EXPECT_EQ(Next(), "((before))");
  for (const char last : {'\xfc', '\xfd', '\xfe', '\xff'}) {
    link.deliverBytes(std::string("\xff\xff\xff") + last);
    EXPECT_EQ(Next(), "()");
  }
}

using ConnectionDeathTest = ConnectionTest;

TEST_F(ConnectionDeathTest, FrameOverTheLimitIsFatal) {
  for (const std::string& header :
       {std::string("\0\0\x3f\xfd", 4), std::string("\0\0\x40\0", 4),
        std::string("\x7f\xff\xff\xff", 4), std::string("\xff\xff\xff\xfb", 4)}) {
    EXPECT_EXIT(
        {
          link.deliverBytes(header);
          Next();
        },
        ::testing::KilledBySignal(SIGABRT), "^message too long; aborting\n$");
  }
}

}  // namespace
