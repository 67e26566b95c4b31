#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "math/Algebra.h"
#include "tests/math/Constants.h"
#include "tests/support/OutputCapture.h"

namespace {

/// What GeomSeries says on standard error meanwhile.
template <typename Call>
std::string complaintsOf(Call call) {
  OutputCapture errors(OutputCapture::Stream::Error);
  call();
  return errors.text();
}

// 1 + 2 + 4 = 7.
TEST(GeomSeries, FirstSumAndLengthAgree) {
  EXPECT_NEAR(GeomSeries::getFirst(7, 2, 3), 1, kTiny);
  EXPECT_NEAR(GeomSeries::getSum(1, 2, 3), 7, kTiny);
  EXPECT_NEAR(GeomSeries::getLength(1, 2, 7), 3, kTiny);
}

// 8 + 4 + 2 + 1 = 15.
TEST(GeomSeries, FallingSeriesAgreesToo) {
  EXPECT_NEAR(GeomSeries::getFirst(15, 0.5, 4), 8, kTiny);
  EXPECT_NEAR(GeomSeries::getSum(8, 0.5, 4), 15, kTiny);
  EXPECT_NEAR(GeomSeries::getLength(8, 0.5, 15), 4, kTiny);
}

TEST(GeomSeries, SumBeyondReachHasNoLength) {
  EXPECT_EQ(GeomSeries::getLength(1, 0.5, 3), -1);
  EXPECT_EQ(GeomSeries::getLength(1, 0.5, 2), -1);  // reached in the limit only
}

TEST(GeomSeries, NegativeRatioOfALengthIsReportedAndComputed) {
  double length = 0;
  const std::string report = "(Geometry:getLengthGeomSeries): negative ratio\n";
  EXPECT_EQ(complaintsOf([&] { length = GeomSeries::getLength(1, -2, 3); }), report);
  EXPECT_EQ(length, -1);
  EXPECT_EQ(complaintsOf([&] { length = GeomSeries::getLength(1, -2, 0); }), report);
  EXPECT_TRUE(std::isnan(length));
  EXPECT_EQ(complaintsOf([] { GeomSeries::getLength(1, 0.0, 0.5); }), "");
}

TEST(GeomSeries, EndlessSeriesConverges) {
  double first = 0;
  double sum = 0;
  const std::string errors = complaintsOf([&] {
    first = GeomSeries::getFirstInf(2, 0.5);
    sum = GeomSeries::getSumInf(1, 0.5);
  });
  EXPECT_NEAR(first, 1, kTiny);
  EXPECT_NEAR(sum, 2, kTiny);
  EXPECT_EQ(errors, "");
}

TEST(GeomSeries, DivergingSeriesIsReportedAndComputed) {
  double first = 0;
  double sum = 0;
  EXPECT_EQ(complaintsOf([&] { first = GeomSeries::getFirstInf(2, 1.5); }),
            "(Geometry:getFirstInfGeomSeries):series does not converge\n");
  EXPECT_EQ(first, -1);
  EXPECT_EQ(complaintsOf([&] { sum = GeomSeries::getSumInf(1, 1.5); }),
            "(Geometry:CalcLengthGeomSeries): series does not converge\n");
  EXPECT_EQ(sum, -2);
}

TEST(GeomSeries, RatioOfOneGoesUnreported) {
  double first = -7;
  double sum = 0;
  EXPECT_EQ(complaintsOf([&] {
              first = GeomSeries::getFirstInf(2, 1);
              sum = GeomSeries::getSumInf(1, 1);
            }),
            "");
  EXPECT_EQ(first, 0);
  EXPECT_EQ(sum, std::numeric_limits<double>::infinity());
}

}  // namespace
