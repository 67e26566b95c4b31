#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>

#include "math/VecPosition.h"
#include "tests/support/OutputCapture.h"

namespace {

TEST(VecPositionText, CartesianHasTwoFixedDecimals) {
  EXPECT_EQ(VecPosition(1, -2.5, 3.456).str(CARTESIAN), "(1.00 -2.50 3.46)");
  EXPECT_EQ(VecPosition(0, 0, 0).str(CARTESIAN), "(0.00 0.00 0.00)");
  EXPECT_EQ(VecPosition(12345678, 0.001, 0).str(CARTESIAN), "(12345678.00 0.00 0.00)");
}

TEST(VecPositionText, PolarNamesItself) {
  EXPECT_EQ(VecPosition(0, 2, 0).str(POLAR), "spheric(2.00 90.00 0.00)");
  EXPECT_EQ(VecPosition(-3, 0, 4).str(POLAR), "spheric(5.00 180.00 53.13)");
}

TEST(VecPositionText, StreamFormKeepsTheStreamsFormat) {
  std::ostringstream plain;
  plain << VecPosition(1, -2.5, 0.123456789);
  EXPECT_EQ(plain.str(), "(1, -2.5, 0.123457)");
  std::ostringstream fixed;
  fixed << std::fixed << std::setprecision(1) << VecPosition(1, -2.5, 0.16);
  EXPECT_EQ(fixed.str(), "(1.0, -2.5, 0.2)");
}

TEST(VecPositionText, ShowCartesianIsTheStreamFormAndALineEnd) {
  OutputCapture output;
  VecPosition(1, -2.5, 3).show(CARTESIAN);
  EXPECT_EQ(output.text(), "(1, -2.5, 3)\n");
}

TEST(VecPositionText, ShowPolarHasNoLineEnd) {
  OutputCapture output;
  VecPosition(0, 2, 0).show(POLAR);
  EXPECT_EQ(output.text(), "(R:2, theta:90, phi:0)");
}

}  // namespace
