#include "arena/senses/Text.h"

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

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

/// The digits are those of exact arithmetic, which the C library does in a way of its own: for
/// numbers of any size, and for those in the middle between two hundredths or next to it.
TEST(Text, DigitsAreThoseOfExactArithmetic) {
  const auto exact = [](double value) {
    std::array<char, 400> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.2f", value);
    const std::string text = buffer.data();
    return text == "-0.00" ? "0.00" : text;
  };
  std::mt19937 random(11);
  std::uniform_real_distribution<double> mantissa(-1, 1);
  for (int i = 0; i < 200'000; ++i) {
    const double any = std::ldexp(mantissa(random), static_cast<int>(random() % 80) - 20);
    ASSERT_EQ(written(any), exact(any)) << any;
    const double middle = (static_cast<double>(random() % 2'000'000) - 1e6 + 0.5) / 100;
    for (const double near : {middle, std::nextafter(middle, 1e9), std::nextafter(middle, -1e9)}) {
      ASSERT_EQ(written(near), exact(near)) << near;
    }
  }
  for (const double edge : {9'999'999.99, 9'999'999.994, 9'999'999.996, 1e7, 1e7 + 0.01, 1e15}) {
    ASSERT_EQ(written(edge), exact(edge)) << edge;
    ASSERT_EQ(written(-edge), exact(-edge)) << edge;
  }
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
