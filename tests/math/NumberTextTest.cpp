#include "math/NumberText.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <iomanip>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

std::string byStream(double value) {
  std::ostringstream stream;
  stream << value;
  return stream.str();
}

std::string byStream(double value, int decimals) {
  std::ostringstream stream;
  stream << std::fixed << std::setprecision(decimals) << value;
  return stream.str();
}

void expectAsByStream(double value) {
  std::string text;
  appendShort(text, value);
  ASSERT_EQ(text, byStream(value)) << std::bit_cast<std::uint64_t>(value);
  text.clear();
  appendFixed(text, value, 2);
  ASSERT_EQ(text, byStream(value, 2)) << std::bit_cast<std::uint64_t>(value);
}

TEST(NumberText, IsAppended) {
  std::string text = "(rae1 ";
  appendShort(text, -1.5);
  text += ',';
  appendFixed(text, 2, 2);
  EXPECT_EQ(text, "(rae1 -1.5,2.00");
}

TEST(NumberText, SpecialValuesAreWrittenAsAStreamWritesThem) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const double value : {0.0,
                             -0.0,
                             kNan,
                             -kNan,
                             kInfinity,
                             -kInfinity,
                             std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::lowest(),
                             std::numeric_limits<double>::min(),
                             std::numeric_limits<double>::denorm_min(),
                             999999.5,
                             999999.4999999999,
                             1e6,
                             100000.0,
                             0.0001,
                             0.00001,
                             0.00099999951,
                             123456.5,
                             1234567.0,
                             0.005,
                             0.015,
                             -0.004,
                             2.675,
                             1e-7}) {
    expectAsByStream(value);
  }
}

TEST(NumberText, AnyBitsAreWrittenAsAStreamWritesThem) {
  std::mt19937_64 random(21);
  for (int i = 0; i < 5000; ++i) expectAsByStream(std::bit_cast<double>(random()));
}

TEST(NumberText, SpeedsAndPlacesAreWrittenAsAStreamWritesThem) {
  std::mt19937_64 random(22);
  std::uniform_real_distribution<double> exponent(-8, 8);
  for (int i = 0; i < 20'000; ++i) {
    const double sign = i % 2 == 0 ? 1 : -1;
    expectAsByStream(sign * std::pow(10, exponent(random)));
    expectAsByStream(sign * static_cast<double>(i) / 1000);
  }
}

}  // namespace
