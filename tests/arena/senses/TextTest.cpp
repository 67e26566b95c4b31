#include "arena/senses/Text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>

namespace arena {
namespace {

std::string written(double value) {
  std::string text;
  appendNumber(text, value);
  return text;
}

TEST(Text, NumbersHaveTwoDecimals) {
  EXPECT_EQ(written(0), "0.00");
  EXPECT_EQ(written(1.234), "1.23");
  EXPECT_EQ(written(1.236), "1.24");
  EXPECT_EQ(written(-45), "-45.00");
  EXPECT_EQ(written(0.125), "0.12");  // exactly half way: to the even digit
  EXPECT_EQ(written(1234567.891), "1234567.89");
}

TEST(Text, WhatRoundsToZeroHasNoSign) {
  EXPECT_EQ(written(-0.0), "0.00");
  EXPECT_EQ(written(-0.004), "0.00");
  EXPECT_EQ(written(-0.006), "-0.01");
}

TEST(Text, TheLargestNumberIsWrittenInFull) {
  EXPECT_EQ(written(std::numeric_limits<double>::max()).size(), 309U + 3U);
}

TEST(Text, NumbersAreAppendedToWhatStandsThere) {
  std::string text = "x ";
  appendNumber(text, 2);
  EXPECT_EQ(text, "x 2.00");
}

}  // namespace
}  // namespace arena
