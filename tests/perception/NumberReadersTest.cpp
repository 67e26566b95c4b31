#include "perception/NumberReaders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "perception/SLangParser.h"

namespace {

std::uint64_t bitsOf(double value) {
  return std::bit_cast<std::uint64_t>(value);
}

double byTheLibrary(const std::string& text) {
  return std::strtod(text.c_str(), nullptr);
}

TEST(DecimalAtFront, ReadsWhatStrtodReads) {
  for (const std::string& text : std::vector<std::string>{"",
                                                          "-",
                                                          ".",
                                                          "-.",
                                                          "0",
                                                          "-0",
                                                          "-0.00",
                                                          "00012.5",
                                                          "5.",
                                                          ".5",
                                                          "-.5",
                                                          "1.15))",
                                                          "12)",
                                                          "1.2.3",
                                                          "1e5",
                                                          "1e+2",
                                                          "1E-2",
                                                          "0x1p3",
                                                          "inf",
                                                          "-inf",
                                                          " 7",
                                                          "\t7",
                                                          "+7",
                                                          "--7",
                                                          "7 8",
                                                          "7(8",
                                                          "x7",
                                                          "123456789012345",
                                                          "1234567890123456",
                                                          "0.000000000000001",
                                                          "9007199254740993",
                                                          "0.1234567890123456789",
                                                          "179769313486231570000",
                                                          "1e400",
                                                          "4.9e-324",
                                                          std::string("1\0002", 3)}) {
    EXPECT_EQ(bitsOf(decimalAtFront(text)), bitsOf(byTheLibrary(text))) << '"' << text << '"';
  }
}

TEST(DecimalAtFront, EveryNumberOfTwoDecimalsIsExact) {
  for (int hundredths = -36'000; hundredths <= 36'000; ++hundredths) {
    char text[32];
    std::snprintf(text, sizeof(text), "%s%d.%02d", hundredths < 0 ? "-" : "",
                  std::abs(hundredths) / 100, std::abs(hundredths) % 100);
    ASSERT_EQ(bitsOf(decimalAtFront(text)), bitsOf(byTheLibrary(text))) << text;
  }
}

TEST(DecimalAtFront, RandomTextsReadAsStrtodReadsThem) {
  const std::string characters = "00123456789...-+eE) xn";
  std::mt19937 random(19);
  for (int i = 0; i < 300'000; ++i) {
    std::string text(random() % 22, ' ');
    const std::size_t kinds = i % 2 == 0 ? 14 : characters.size();
    std::generate(text.begin(), text.end(), [&] { return characters[random() % kinds]; });
    ASSERT_EQ(bitsOf(decimalAtFront(text)), bitsOf(byTheLibrary(text))) << '"' << text << '"';
  }
}

TEST(NumberReaders, NeverReadBehindTheView) {
  const std::string_view text = "1234567890.1234567890";
  EXPECT_EQ(decimalAtFront(text.substr(0, 2)), 12);
  EXPECT_EQ(decimalAtFront(text.substr(8, 4)), 90.1);
  EXPECT_EQ(integerAtFront(text.substr(0, 3)), 123);
  EXPECT_EQ(firstDouble(text.substr(0, 4)), 1234);
  EXPECT_EQ(firstInt(text.substr(0, 5), 1), 2345);
  EXPECT_EQ(firstDouble(std::string_view("nan))").substr(0, 4)), 0);
}

TEST(IntegerAtFront, ReadsWhatStrtolReads) {
  for (const std::string& text : std::vector<std::string>{
           "", "0", "3", "007", "12", "-3", "+3", " 3", "3)", "3.7", "x", "999999999", "1234567890",
           "4294967297", "99999999999999999999", "-99999999999999999999", "1e3"}) {
    EXPECT_EQ(integerAtFront(text), static_cast<int>(std::strtol(text.c_str(), nullptr, 10)))
        << '"' << text << '"';
  }
}

}  // namespace
