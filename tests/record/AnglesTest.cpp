#include "tests/record/Angles.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(RecordAngles, AreThoseOfTheLibraryUpToRounding) {
  const double radians = std::acos(-1.0) / 180;
  for (int degrees = -720; degrees <= 720; degrees += 7) {
    EXPECT_NEAR(Sine(degrees), std::sin(degrees * radians), 1e-14) << degrees;
    EXPECT_NEAR(Cosine(degrees), std::cos(degrees * radians), 1e-14) << degrees;
    const double y = std::sin(degrees * radians);
    const double x = std::cos(degrees * radians);
    EXPECT_NEAR(Direction(3 * y, 3 * x), std::atan2(y, x) / radians, 1e-12) << degrees;
  }
  EXPECT_EQ(Direction(0, 0), 0);
  EXPECT_EQ(Normalised(180), -180);
  EXPECT_EQ(Normalised(-540), -180);
}

}  // namespace
