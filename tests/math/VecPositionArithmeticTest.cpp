#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

#include "math/Geometry.h"
#include "tests/support/OutputCapture.h"

namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

void expectMembers(const VecPosition& v, double x, double y, double z) {
  EXPECT_DOUBLE_EQ(v.x, x);
  EXPECT_DOUBLE_EQ(v.y, y);
  EXPECT_DOUBLE_EQ(v.z, z);
}

TEST(VecPosition, IsAPlainValueOfThreeNumbers) {
  EXPECT_FALSE(std::is_polymorphic_v<VecPosition>);
  EXPECT_EQ(sizeof(VecPosition), 3 * sizeof(double));
  expectMembers(VecPosition(), 0, 0, 0);
  expectMembers(VecPosition(1, 2), 1, 2, 0);
  expectMembers(VecPosition(1, 2, 3, CARTESIAN), 1, 2, 3);
}

TEST(VecPosition, UnknownPositionIsAThousandBelowOnEachAxis) {
  expectMembers(UnknownPosition, -1000, -1000, -1000);
}

TEST(VecPosition, MembersAreSetOneByOne) {
  VecPosition v(1, 2, 3);
  EXPECT_TRUE(v.setX(4));
  EXPECT_TRUE(v.setY(5));
  EXPECT_TRUE(v.setZ(6));
  EXPECT_EQ(v.getX(), 4);
  EXPECT_EQ(v.getY(), 5);
  EXPECT_EQ(v.getZ(), 6);
  v.setVecPosition(7, 8, 9);
  expectMembers(v, 7, 8, 9);
}

TEST(VecPosition, ScalarAssignmentSetsAllMembers) {
  VecPosition v(1, 2, 3);
  VecPosition& result = (v = -2.5);
  EXPECT_EQ(&result, &v);
  expectMembers(v, -2.5, -2.5, -2.5);
}

TEST(VecPositionArithmetic, WorksMemberByMember) {
  const VecPosition a(6, -8, 10);
  const VecPosition b(2, 4, -5);
  expectMembers(a + b, 8, -4, 5);
  expectMembers(a - b, 4, -12, 15);
  expectMembers(a * b, 12, -32, -50);
  expectMembers(a / b, 3, -2, -2);
  expectMembers(-a, -6, 8, -10);
}

TEST(VecPositionArithmetic, ScalarAppliesToEachMember) {
  const VecPosition a(6, -8, 10);
  expectMembers(a + 2.0, 8, -6, 12);
  expectMembers(a - 2.0, 4, -10, 8);
  expectMembers(a * 2.0, 12, -16, 20);
  expectMembers(a / 2.0, 3, -4, 5);
}

TEST(VecPositionArithmetic, CompoundFormsChangeTheObject) {
  const VecPosition b(2, 4, -5);
  VecPosition v(6, -8, 10);
  v += b;
  expectMembers(v, 8, -4, 5);
  v -= b;
  expectMembers(v, 6, -8, 10);
  v *= b;
  expectMembers(v, 12, -32, -50);
  v /= b;
  expectMembers(v, 6, -8, 10);
  v += 1.0;
  expectMembers(v, 7, -7, 11);
  v -= 3.0;
  expectMembers(v, 4, -10, 8);
  v *= 0.5;
  expectMembers(v, 2, -5, 4);
  v /= 4.0;
  expectMembers(v, 0.5, -1.25, 1);
}

TEST(VecPositionArithmetic, DivisionByAScalarMultipliesByTheReciprocal) {
  // 49 times the double nearest 1/49 falls just short of 1, a true quotient wouldn't.
  const double short49 = std::nextafter(1.0, 0.0);
  EXPECT_EQ((VecPosition(49, 49, 49) / 49.0).x, short49);
  EXPECT_EQ((VecPosition(49, 49, 49) / 49.0).y, short49);
  EXPECT_EQ((VecPosition(49, 49, 49) / 49.0).z, short49);
  VecPosition v(49, 49, 49);
  v /= 49.0;
  EXPECT_EQ(v.x, short49);
  EXPECT_EQ(v.z, short49);
}

TEST(VecPositionArithmetic, DivisionByAVectorIsATrueQuotient) {
  EXPECT_EQ((VecPosition(49, 49, 49) / VecPosition(49, 49, 49)).x, 1.0);
}

TEST(VecPositionArithmetic, DivisionByZeroFollowsTheFloatingPointRules) {
  const VecPosition byScalar = VecPosition(1, -1, 0) / 0.0;
  EXPECT_EQ(byScalar.x, std::numeric_limits<double>::infinity());
  EXPECT_EQ(byScalar.y, -std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::isnan(byScalar.z));
  const VecPosition byMember = VecPosition(1, -1, 0) / VecPosition(0, 0, 0);
  EXPECT_EQ(byMember.x, std::numeric_limits<double>::infinity());
  EXPECT_EQ(byMember.y, -std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::isnan(byMember.z));
}

TEST(VecPositionEquality, IsExactOnAllThreeMembers) {
  const VecPosition a(1, 2, 3);
  EXPECT_TRUE(a == VecPosition(1, 2, 3));
  EXPECT_FALSE(a != VecPosition(1, 2, 3));
  EXPECT_FALSE(a == VecPosition(std::nextafter(1.0, 2.0), 2, 3));
  EXPECT_FALSE(a == VecPosition(1, std::nextafter(2.0, 3.0), 3));
  EXPECT_TRUE(a != VecPosition(1, 2, std::nextafter(3.0, 4.0)));
  EXPECT_TRUE(VecPosition(0.0, 0.0, 0.0) == VecPosition(-0.0, -0.0, -0.0));
}

TEST(VecPositionEquality, NotANumberDiffersFromEverything) {
  const VecPosition v(1, kNotANumber, 3);
  EXPECT_FALSE(v == v);
  EXPECT_TRUE(v != v);
  EXPECT_FALSE(VecPosition(kNotANumber, kNotANumber, kNotANumber) == kNotANumber);
  EXPECT_TRUE(VecPosition(kNotANumber, kNotANumber, kNotANumber) != kNotANumber);
}

TEST(VecPositionEquality, ScalarStandsForEachMember) {
  EXPECT_TRUE(VecPosition(2, 2, 2) == 2.0);
  EXPECT_FALSE(VecPosition(2, 2, 2) != 2.0);
  EXPECT_FALSE(VecPosition(2, 2, 1) == 2.0);
  EXPECT_TRUE(VecPosition(2, 2, 1) != 2.0);
  EXPECT_TRUE(VecPosition(1, 2, 3) != 2.0);
}

TEST(VecPositionProducts, DotAndCross) {
  const VecPosition a(1, 2, 3);
  const VecPosition b(-4, 5, 6);
  EXPECT_EQ(a.dot(b), -4 + 10 + 18);
  expectMembers(a.cross(b), 2 * 6 - 3 * 5, 3 * -4 - 1 * 6, 1 * 5 - 2 * -4);
}

TEST(VecPositionProducts, CrossIsRightHanded) {
  expectMembers(VecPosition(1, 0, 0).cross(VecPosition(0, 1, 0)), 0, 0, 1);
  expectMembers(VecPosition(0, 1, 0).cross(VecPosition(0, 0, 1)), 1, 0, 0);
  expectMembers(VecPosition(0, 0, 1).cross(VecPosition(1, 0, 0)), 0, 1, 0);
}

TEST(VecPositionIndex, ReadsAndWritesTheThreeMembers) {
  VecPosition v(1, 2, 3);
  const VecPosition& constant = v;
  EXPECT_EQ(constant[0], 1);
  EXPECT_EQ(constant[1], 2);
  EXPECT_EQ(constant[2], 3);
  v[0] = 4;
  v[1] = 5;
  v[2] = 6;
  expectMembers(v, 4, 5, 6);
}

TEST(VecPositionIndex, OutOfRangeIsReportedAndReadsAThousandBelow) {
  const VecPosition v(1, 2, 3);
  for (const int index : {3, 17, -1}) {
    SCOPED_TRACE(index);
    OutputCapture errors(OutputCapture::Stream::Error);
    const double value = v[index];
    EXPECT_EQ(errors.text(),
              "(VecPosition::operator []) Index out of range: " + std::to_string(index) + "\n");
    EXPECT_EQ(value, -1000);
  }
}

TEST(VecPositionIndex, StandInOfTheNonConstFormIsResetAtTheNextBadAccess) {
  VecPosition v(1, 2, 3);
  OutputCapture errors(OutputCapture::Stream::Error);
  double& standIn = v[3];
  const double first = standIn;
  standIn = 55;
  const double kept = standIn;
  const double next = v[-7];
  EXPECT_EQ(errors.text(),
            "(VecPosition::operator []) Index out of range: 3\n"
            "(VecPosition::operator []) Index out of range: -7\n");
  EXPECT_EQ(first, -1000);
  EXPECT_EQ(kept, 55);
  EXPECT_EQ(next, -1000);
  EXPECT_EQ(standIn, -1000);  // one stand-in for all bad accesses
  expectMembers(v, 1, 2, 3);
}

}  // namespace
