#include "math/Quaternion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>

#include "math/Algebra.h"
#include "tests/support/OutputCapture.h"
#include "tests/support/Places.h"

namespace {

/// A third of a turn: x to y, y to z, z to x.
const Quaternion kThird(0.5, 0.5, 0.5, 0.5);

void expectNear(const Quaternion& q, double w, double x, double y, double z) {
  EXPECT_NEAR(q.w, w, 1e-12);
  EXPECT_NEAR(q.x, x, 1e-12);
  EXPECT_NEAR(q.y, y, 1e-12);
  EXPECT_NEAR(q.z, z, 1e-12);
}

TEST(Quaternion, IsAPlainValueOfFourNumbers) {
  EXPECT_FALSE(std::is_polymorphic_v<Quaternion>);
  EXPECT_EQ(sizeof(Quaternion), 4 * sizeof(double));
}

TEST(Quaternion, StartsAsTheIdentityNotZero) {
  EXPECT_TRUE(Quaternion() == Quaternion(1, 0, 0, 0));
  EXPECT_TRUE(Quaternion::identity == Quaternion());
  EXPECT_TRUE(Quaternion::zero == Quaternion(0, 0, 0, 0));
}

TEST(Quaternion, VectorHasNoRealPart) {
  EXPECT_TRUE(Quaternion(VecPosition(2, 3, 4)) == Quaternion(0, 2, 3, 4));
  Quaternion q;
  q = VecPosition(2, 3, 4);
  EXPECT_TRUE(q == Quaternion(0, 2, 3, 4));
}

TEST(Quaternion, AngleAndAxisHalveTheAngleAndScaleTheAxis) {
  expectNear(Quaternion(60, VecPosition(0, 0, 5)), std::sqrt(3.0) / 2, 0, 0, 0.5);
  expectNear(Quaternion(120, VecPosition(1, 1, 1)), 0.5, 0.5, 0.5, 0.5);
  Quaternion q;
  q.fromAngleAxis(180, VecPosition(0, -2, 0));
  expectNear(q, 0, 0, -1, 0);
}

TEST(Quaternion, AxisKeepsItsLengthWithTheCaller) {
  const VecPosition axis(0, 0, 5);
  const Quaternion q(60, axis);
  EXPECT_NEAR(q.z, 0.5, 1e-12);
  EXPECT_THAT(axis, IsPlace(0, 0, 5));
}

TEST(QuaternionIndex, ReadsAndWritesTheFourMembers) {
  Quaternion q(1, 2, 3, 4);
  const Quaternion& constant = q;
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(constant[i], i + 1);
    q[i] = 10 * i;
  }
  EXPECT_TRUE(q == Quaternion(0, 10, 20, 30));
}

TEST(QuaternionIndex, OutOfRangeIsReportedAndReadsZero) {
  for (const int index : {4, -1}) {
    Quaternion q(1, 2, 3, 4);
    const Quaternion& constant = q;
    OutputCapture errors(OutputCapture::Stream::Error);
    const double value = constant[index];
    q[index] = 7;
    const double kept = q[index];
    q[index] = 0;
    const std::string once =
        "(Quaternion::operator []) index out of range: " + std::to_string(index) + "\n";
    EXPECT_EQ(errors.text(), once + once + once + once);
    EXPECT_EQ(value, 0);
    EXPECT_EQ(kept, 7);  // in the stand-in
    EXPECT_TRUE(q == Quaternion(1, 2, 3, 4));
  }
}

TEST(QuaternionArithmetic, SumsGoMemberByMember) {
  const Quaternion p(1, 2, 3, 4);
  const Quaternion q(10, 30, 50, 70);
  EXPECT_TRUE(p + q == Quaternion(11, 32, 53, 74));
  EXPECT_TRUE(q - p == Quaternion(9, 28, 47, 66));
  EXPECT_TRUE(-p == Quaternion(-1, -2, -3, -4));
  EXPECT_TRUE(p * 2.0 == Quaternion(2, 4, 6, 8));
  Quaternion sum = p;
  sum += q;
  EXPECT_TRUE(sum == p + q);
  sum -= q;
  EXPECT_TRUE(sum == p);
  EXPECT_TRUE(sum != q);
  EXPECT_FALSE(sum != p);
}

TEST(QuaternionArithmetic, EqualityIsExactOnEveryMember) {
  for (int i = 0; i < 4; ++i) {
    Quaternion q(1, 2, 3, 4);
    q[i] = std::nextafter(q[i], 9);
    EXPECT_FALSE(q == Quaternion(1, 2, 3, 4));
    EXPECT_TRUE(q != Quaternion(1, 2, 3, 4));
  }
}

TEST(QuaternionProduct, IsHamiltons) {
  const Quaternion i(0, 1, 0, 0);
  const Quaternion j(0, 0, 1, 0);
  const Quaternion k(0, 0, 0, 1);
  EXPECT_TRUE(i * j == k);
  EXPECT_TRUE(j * k == i);
  EXPECT_TRUE(k * i == j);
  EXPECT_TRUE(j * i == -k);
  for (const Quaternion& unit : {i, j, k}) {
    EXPECT_TRUE(unit * unit == -Quaternion::identity);
  }
  EXPECT_TRUE(Quaternion(1, 2, 3, 4) * Quaternion(5, 6, 7, 8) == Quaternion(-60, 12, 30, 24));
  Quaternion q(1, 2, 3, 4);
  q *= Quaternion(5, 6, 7, 8);
  EXPECT_TRUE(q == Quaternion(-60, 12, 30, 24));
}

TEST(QuaternionProduct, QuotientIsWithTheInverse) {
  const Quaternion q(1, 1, 1, 1);
  EXPECT_TRUE(Quaternion(4, 8, 12, 16) / q ==
              Quaternion(4, 8, 12, 16) * Quaternion(1, -1, -1, -1) * 0.25);
  Quaternion quotient(4, 8, 12, 16);
  quotient /= q;
  EXPECT_TRUE(quotient == Quaternion(10, 2, 0, 4));
}

TEST(QuaternionProduct, VectorIsTurned) {
  EXPECT_THAT(kThird * VecPosition(1, 2, 3), IsPlace(3, 1, 2));
  EXPECT_THAT(Quaternion() * VecPosition(1, 2, 3), IsPlace(1, 2, 3));
}

TEST(QuaternionNorm, IsTheSumOfSquares) {
  const Quaternion q(1, 2, 2, 4);
  EXPECT_EQ(q.norm(), 25);
  EXPECT_EQ(q.dot(Quaternion(1, 10, 100, 1000)), 4221);
}

TEST(QuaternionNorm, NormalizeReturnsTheSumThatWas) {
  Quaternion q(1, 2, 2, 4);
  EXPECT_EQ(q.normalize(), 25);
  expectNear(q, 0.2, 0.4, 0.4, 0.8);
  Quaternion unit = kThird;
  EXPECT_EQ(unit.normalize(), 1);
  EXPECT_TRUE(unit == kThird);
}

TEST(QuaternionNorm, ZeroHasNoUnitQuaternion) {
  Quaternion q = Quaternion::zero;
  EXPECT_EQ(q.normalize(), 0);
  EXPECT_TRUE(std::isnan(q.w));
  EXPECT_TRUE(std::isnan(q.z));
  EXPECT_TRUE(std::isnan(Quaternion::zero.getConjugate().x));
}

TEST(QuaternionInverse, IsTheConjugateOverTheSumOfSquares) {
  EXPECT_TRUE(Quaternion(1, 1, 1, 1).getInverse() == Quaternion(0.25, -0.25, -0.25, -0.25));
  EXPECT_TRUE(Quaternion().getInverse() == Quaternion::identity);
}

TEST(QuaternionInverse, OfZeroIsZeroWithoutAWord) {
  OutputCapture errors(OutputCapture::Stream::Error);
  EXPECT_TRUE(Quaternion::zero.getInverse() == Quaternion::zero);
  EXPECT_EQ(errors.text(), "");
}

TEST(QuaternionConjugate, IsOfTheUnitQuaternion) {
  const Quaternion q(1, 2, 2, 4);
  expectNear(q.getConjugate(), 0.2, -0.4, -0.4, -0.8);
  EXPECT_TRUE(q == Quaternion(1, 2, 2, 4));
  EXPECT_TRUE(kThird.getConjugate() == Quaternion(0.5, -0.5, -0.5, -0.5));
}

TEST(QuaternionAxes, AreWhereTheAxesGo) {
  EXPECT_THAT(kThird.getXAxis(), IsPlace(0, 1, 0));
  EXPECT_THAT(kThird.getYAxis(), IsPlace(0, 0, 1));
  EXPECT_THAT(kThird.getZAxis(), IsPlace(1, 0, 0));
}

TEST(QuaternionAxes, ThreeOfThemAreScaledToUnitLength) {
  VecPosition axes[3];
  // Twice a quarter turn about z: 1 - 2 * 4 * 0.5 = -3, 2 * 4 * 0.5 = 4.
  Quaternion(std::sqrt(2.0), 0, 0, std::sqrt(2.0)).toAxes(axes);
  EXPECT_THAT(axes[0], IsPlaceNear(-0.6, 0.8, 0));
  EXPECT_THAT(axes[1], IsPlaceNear(-0.8, -0.6, 0));
  EXPECT_THAT(axes[2], IsPlaceNear(0, 0, 1));
}

TEST(QuaternionAxes, GiveTheRotationBack) {
  const VecPosition axes[3] = {{0, 1, 0}, {0, 0, 1}, {1, 0, 0}};
  Quaternion q;
  q.fromAxes(axes);
  expectNear(q, 0.5, 0.5, 0.5, 0.5);
}

TEST(QuaternionOfMatrix, QuarterAndHalfTurns) {
  const double half = std::sqrt(0.5);
  expectNear(Quaternion(Matrix3(0, -1, 0, 1, 0, 0, 0, 0, 1)), half, 0, 0, half);
  expectNear(Quaternion(Matrix3(1, 0, 0, 0, -1, 0, 0, 0, -1)), 0, 1, 0, 0);
  expectNear(Quaternion(Matrix3(-1, 0, 0, 0, 1, 0, 0, 0, -1)), 0, 0, 1, 0);
  expectNear(Quaternion(Matrix3(-1, 0, 0, 0, -1, 0, 0, 0, 1)), 0, 0, 0, 1);
  // About (1, -1, 0), (1, 0, -1) and (0, 1, -1) / sqrt(2): of two equal members the earlier is
  // positive.
  expectNear(Quaternion(Matrix3(0, -1, 0, -1, 0, 0, 0, 0, -1)), 0, half, -half, 0);
  expectNear(Quaternion(Matrix3(0, 0, -1, 0, -1, 0, -1, 0, 0)), 0, half, 0, -half);
  expectNear(Quaternion(Matrix3(-1, 0, 0, 0, 0, -1, 0, -1, 0)), 0, 0, half, -half);
}

// Two thirds of a turn forwards about the space diagonal, not one third backwards: x is positive.
TEST(QuaternionOfMatrix, TraceOfZeroStartsAtTheLargestMember) {
  expectNear(Quaternion(Matrix3(0, 1, 0, 0, 0, 1, 1, 0, 0)), -0.5, 0.5, 0.5, 0.5);
}

TEST(QuaternionText, HasTwoFixedDecimals) {
  EXPECT_EQ(Quaternion(1, -2.5, 3.456, 0).str(), "(1.00 -2.50 3.46 0.00)");
}

}  // namespace
