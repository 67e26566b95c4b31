#include "arena/record/Bytes.h"

#include <gtest/gtest.h>

#include <limits>

namespace arena {
namespace {

using namespace std::string_literals;

std::string written(std::uint64_t value) {
  ByteWriter out;
  out.number(value);
  return out.bytes();
}

std::string writtenDifference(std::int64_t value) {
  ByteWriter out;
  out.difference(value);
  return out.bytes();
}

TEST(Bytes, NumbersTakeSevenBitsAByteLowestFirst) {
  EXPECT_EQ(written(0), "\x00"s);
  EXPECT_EQ(written(127), "\x7f"s);
  EXPECT_EQ(written(128), "\x80\x01"s);
  EXPECT_EQ(written(300), "\xac\x02"s);
  EXPECT_EQ(written(std::numeric_limits<std::uint64_t>::max()),
            "\xff\xff\xff\xff\xff\xff\xff\xff\xff\x01"s);
}

TEST(Bytes, SmallDifferencesAreShortEitherWay) {
  EXPECT_EQ(writtenDifference(0), "\x00"s);
  EXPECT_EQ(writtenDifference(-1), "\x01"s);
  EXPECT_EQ(writtenDifference(1), "\x02"s);
  EXPECT_EQ(writtenDifference(-64), "\x7f"s);
  EXPECT_EQ(writtenDifference(64), "\x80\x01"s);
}

TEST(Bytes, WhatWasWrittenIsReadAtTheBordersToo) {
  for (const std::int64_t value :
       {std::int64_t{0}, std::int64_t{-1}, std::int64_t{1} << 40U, -(std::int64_t{1} << 40U),
        std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
    const std::string bytes = writtenDifference(value);
    ByteReader in(bytes);
    EXPECT_EQ(in.difference(), value);
    EXPECT_TRUE(in.atEnd());
    EXPECT_FALSE(in.failed());
  }
}

TEST(Bytes, TextsCarryTheirLength) {
  ByteWriter out;
  out.text("ab");
  out.text("");
  EXPECT_EQ(out.bytes(), "\x02"s + "ab" + "\x00"s);
  ByteReader in(out.bytes());
  EXPECT_EQ(in.text(2), "ab");
  EXPECT_EQ(in.text(2), "");
  EXPECT_TRUE(in.atEnd());
}

class BadNumber : public testing::TestWithParam<std::string> {};

TEST_P(BadNumber, FailsAndReadsAsZeroFromThenOn) {
  ByteReader in(GetParam());
  EXPECT_EQ(in.number(1000), 0U);
  EXPECT_TRUE(in.failed());
  EXPECT_EQ(in.byte(), 0);
  EXPECT_EQ(in.text(10), "");
}

INSTANTIATE_TEST_SUITE_P(Bytes, BadNumber,
                         testing::Values(""s, "\x80"s,  // cut off
                                         "\xe9\x07"s,   // 1001: too large
                                         "\x81\x00"s,   // 1 with a needless byte
                                         "\xff\xff\xff\xff\xff\xff\xff\xff\xff\x02"s,  // 65 bits
                                         "\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff"s));

TEST(Bytes, ATextLongerThanTheBytesOrTheLimitFails) {
  ByteReader cut(
      "\x05"
      "abc");
  EXPECT_EQ(cut.text(10), "");
  EXPECT_TRUE(cut.failed());
  ByteReader longOne(
      "\x03"
      "abc");
  EXPECT_EQ(longOne.text(2), "");
  EXPECT_TRUE(longOne.failed());
}

}  // namespace
}  // namespace arena
