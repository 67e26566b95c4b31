#include "math/Algebra.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kUntouched = -77.0;

/// What one call of the quadratic formula gives, roots that it doesn't write included.
struct Roots {
  double first = kUntouched;
  double second = kUntouched;
  int count = -1;

  Roots(double a, double b, double c) { count = Algebra::abcFormula(a, b, c, &first, &second); }
};

TEST(Factorial, StartsAtOne) {
  EXPECT_EQ(Algebra::fact(0), 1);
  EXPECT_EQ(Algebra::fact(1), 1);
}

TEST(Factorial, EachIsTheOneBeforeTimesItsNumber) {
  for (unsigned int n = 1; n <= 20; ++n) {
    EXPECT_EQ(Algebra::fact(n), n * Algebra::fact(n - 1)) << n;
  }
  EXPECT_EQ(Algebra::fact(20), 2432902008176640000.0);
}

TEST(Factorial, StaysAtTwentyForLargerNumbers) {
  EXPECT_EQ(Algebra::fact(21), 2432902008176640000.0);
  EXPECT_EQ(Algebra::fact(std::numeric_limits<unsigned int>::max()), 2432902008176640000.0);
}

TEST(QuadraticFormula, LargerRootComesFirstForAPositiveLead) {
  const Roots roots(1, -3, 2);
  EXPECT_EQ(roots.count, 2);
  EXPECT_EQ(roots.first, 2);
  EXPECT_EQ(roots.second, 1);
}

TEST(QuadraticFormula, SmallerRootComesFirstForANegativeLead) {
  const Roots roots(-1, 3, -2);
  EXPECT_EQ(roots.count, 2);
  EXPECT_EQ(roots.first, 1);
  EXPECT_EQ(roots.second, 2);
}

TEST(QuadraticFormula, LeadDividesTheRoots) {
  const Roots roots(2, 2, -12);  // 2 (t - 2)(t + 3)
  EXPECT_EQ(roots.count, 2);
  EXPECT_EQ(roots.first, 2);
  EXPECT_EQ(roots.second, -3);
}

TEST(QuadraticFormula, DoubleRootLeavesTheSecondUnwritten) {
  const Roots roots(2, -12, 18);  // 2 (t - 3)^2
  EXPECT_EQ(roots.count, 1);
  EXPECT_EQ(roots.first, 3);
  EXPECT_EQ(roots.second, kUntouched);
}

TEST(QuadraticFormula, DiscriminantJustBelowZeroIsOneRoot) {
  const Roots roots(1, 0, 0.00001);
  EXPECT_EQ(roots.count, 1);
  EXPECT_EQ(roots.first, 0);
  EXPECT_EQ(roots.second, kUntouched);
}

TEST(QuadraticFormula, DiscriminantJustAboveZeroIsOneRoot) {
  const Roots roots(1, -4, 3.99999);  // the true roots lie 0.006 apart
  EXPECT_EQ(roots.count, 1);
  EXPECT_EQ(roots.first, 2);
  EXPECT_EQ(roots.second, kUntouched);
}

TEST(QuadraticFormula, ToleranceItselfIsNotNothing) {
  const Roots apart(1, 0, -0.000025);  // four times this is the tolerance to the last bit
  EXPECT_EQ(apart.count, 2);
  EXPECT_NEAR(apart.first, 0.005, 1e-15);
  EXPECT_NEAR(apart.second, -0.005, 1e-15);
  EXPECT_EQ(Roots(1, 0, 0.000025).count, 0);
}

TEST(QuadraticFormula, WithoutRootsNothingIsWritten) {
  const Roots roots(1, 0, 1);
  EXPECT_EQ(roots.count, 0);
  EXPECT_EQ(roots.first, kUntouched);
  EXPECT_EQ(roots.second, kUntouched);
}

TEST(QuadraticFormula, LeadOfZeroIsNotGuarded) {
  const Roots roots(0, 2, 4);
  EXPECT_EQ(roots.count, 2);
  EXPECT_TRUE(std::isnan(roots.first));
  EXPECT_EQ(roots.second, -std::numeric_limits<double>::infinity());
}

TEST(QuadraticFormula, RootsSolveTheEquation) {
  for (const double a : {-3.0, 0.5, 1.0}) {
    for (const double b : {-7.0, 0.25, 4.0}) {
      for (const double c : {-2.0, 0.125, 1.0}) {
        SCOPED_TRACE(testing::Message() << a << " t^2 + " << b << " t + " << c);
        const Roots roots(a, b, c);
        if (roots.count == 0) {
          EXPECT_GT(4 * a * c, b * b);
          continue;
        }
        EXPECT_EQ(roots.count, 2);
        EXPECT_NEAR(a * roots.first * roots.first + b * roots.first + c, 0, 1e-12);
        EXPECT_NEAR(a * roots.second * roots.second + b * roots.second + c, 0, 1e-12);
        EXPECT_NEAR(roots.first + roots.second, -b / a, 1e-12);
      }
    }
  }
}

}  // namespace
