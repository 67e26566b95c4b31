// Rotations told as a matrix, by numbers worked out by hand.

#include <gtest/gtest.h>

#include <cmath>

#include "math/Geometry.h"
#include "math/Matrix3.h"
#include "tests/support/Places.h"

namespace {

constexpr double kQuarter = PI / 2;

void expectNear(const Matrix3& matrix, const Matrix3& expected) {
  for (int r = 0; r < 3; ++r) {
    for (int c = 0; c < 3; ++c) {
      EXPECT_NEAR(matrix.m[r][c], expected.m[r][c], 1e-12) << r << ", " << c;
    }
  }
}

TEST(Matrix3Axes, BecomeTheColumns) {
  Matrix3 matrix;
  matrix.fromAxes({1, 2, 3}, {4, 5, 6}, {7, 8, 9});
  EXPECT_TRUE(matrix == Matrix3(1, 4, 7, 2, 5, 8, 3, 6, 9));
}

TEST(Matrix3Points, RowsAreTheMembersOfOneAxis) {
  Matrix3 matrix;
  matrix.createFrom3Points({1, 2, 3}, {4, 5, 6}, {7, 8, 9});
  EXPECT_TRUE(matrix == Matrix3(1, 4, 7, 2, 5, 8, 3, 6, 9));
}

TEST(Matrix3AxisAngle, PositiveTurnsGoFromXToYToZToX) {
  Matrix3 matrix;
  matrix.fromAxisAngle({0, 0, 1}, 90);
  expectNear(matrix, Matrix3(0, -1, 0, 1, 0, 0, 0, 0, 1));
  matrix.fromAxisAngle({1, 0, 0}, 90);
  expectNear(matrix, Matrix3(1, 0, 0, 0, 0, -1, 0, 1, 0));
  matrix.fromAxisAngle({0, 1, 0}, 90);
  expectNear(matrix, Matrix3(0, 0, 1, 0, 1, 0, -1, 0, 0));
  const double third = 1 / std::sqrt(3.0);
  matrix.fromAxisAngle({third, third, third}, 120);
  expectNear(matrix, Matrix3(0, 0, 1, 1, 0, 0, 0, 1, 0));
}

TEST(Matrix3AxisAngle, NoTurnIsTakenAlongX) {
  VecPosition axis(7, 7, 7);
  double degrees = 7;
  Matrix3::identity.toAxisAngle(axis, degrees);
  EXPECT_THAT(axis, IsPlace(1, 0, 0));
  EXPECT_EQ(degrees, 0);
}

TEST(Matrix3AxisAngle, TraceBeyondThatOfTheIdentityHasNoAngle) {
  Matrix3 matrix;
  matrix[0][0] = 1 + 1e-15;
  VecPosition axis(7, 7, 7);
  double degrees = 7;
  matrix.toAxisAngle(axis, degrees);
  EXPECT_THAT(axis, IsPlace(1, 0, 0));
  EXPECT_TRUE(std::isnan(degrees));
}

TEST(Matrix3AxisAngle, AngleIsTakenUpwards) {
  VecPosition axis;
  double degrees = 0;
  Matrix3(0, 1, 0, -1, 0, 0, 0, 0, 1).toAxisAngle(axis, degrees);  // -90 about z
  EXPECT_THAT(axis, IsPlaceNear(0, 0, -1));
  EXPECT_NEAR(degrees, 90, 1e-12);
}

// 2 axis axisT - I for axes with another largest member each.
TEST(Matrix3AxisAngle, HalfATurnStartsAtTheLargestMember) {
  struct Row {
    Matrix3 matrix;
    VecPosition axis;
  };
  const double root = 2 * std::sqrt(0.2 * 0.8);
  const Row rows[] = {
      {{1, 0, 0, 0, -1, 0, 0, 0, -1}, {1, 0, 0}},
      {{-1, 0, 0, 0, 1, 0, 0, 0, -1}, {0, 1, 0}},
      {{-1, 0, 0, 0, -1, 0, 0, 0, 1}, {0, 0, 1}},
      {{0.6, root, 0, root, -0.6, 0, 0, 0, -1}, {std::sqrt(0.8), std::sqrt(0.2), 0}},
      {{-0.6, -root, 0, -root, 0.6, 0, 0, 0, -1}, {-std::sqrt(0.2), std::sqrt(0.8), 0}},
      {{-1, 0, 0, 0, -0.6, root, 0, root, 0.6}, {0, std::sqrt(0.2), std::sqrt(0.8)}},
      // Two equal members: the earlier one is positive.
      {{0, -1, 0, -1, 0, 0, 0, 0, -1}, {std::sqrt(0.5), -std::sqrt(0.5), 0}},
      {{0, 0, -1, 0, -1, 0, -1, 0, 0}, {std::sqrt(0.5), 0, -std::sqrt(0.5)}},
      {{-1, 0, 0, 0, 0, -1, 0, -1, 0}, {0, std::sqrt(0.5), -std::sqrt(0.5)}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.axis.str());
    VecPosition axis;
    double degrees = 0;
    row.matrix.toAxisAngle(axis, degrees);
    EXPECT_THAT(axis, IsPlaceNear(row.axis.x, row.axis.y, row.axis.z));
    EXPECT_EQ(degrees, 180);
  }
}

using FromEuler = void (Matrix3::*)(const double&, const double&, const double&);
using ToEuler = bool (Matrix3::*)(double&, double&, double&) const;

/// What the angles at the poles come to. Rotations by a and c about one axis: at one pole they add
/// up, at the other they subtract.
struct Order {
  const char* name;
  FromEuler from;
  ToEuler to;
  double a;       ///< [rad]
  double c;       ///< [rad]
  double atTop;   ///< a as told for b = a quarter turn
  double atFoot;  ///< a as told for b = minus a quarter turn
};

// XYZ, YZX, ZXY: Rx(a) Ry(quarter) Rz(c) = Rx(a + c) Ry(quarter), and a - c at the foot; these come
// back as they are. In XZY, YXZ and ZYX it is a - c at the top and a + c at the foot; the first two
// have the sign against it at both, and the last is half a turn further at the foot.
const Order kOrders[] = {
    {"XYZ", &Matrix3::fromEulerAnglesXYZ, &Matrix3::toEulerAnglesXYZ, 0.7, 0.4, 1.1, 0.3},
    {"YZX", &Matrix3::fromEulerAnglesYZX, &Matrix3::toEulerAnglesYZX, 0.7, 0.4, 1.1, 0.3},
    {"ZXY", &Matrix3::fromEulerAnglesZXY, &Matrix3::toEulerAnglesZXY, 0.7, 0.4, 1.1, 0.3},
    {"XZY", &Matrix3::fromEulerAnglesXZY, &Matrix3::toEulerAnglesXZY, 0.7, 0.4, -0.3, -1.1},
    {"YXZ", &Matrix3::fromEulerAnglesYXZ, &Matrix3::toEulerAnglesYXZ, 0.7, 0.4, -0.3, -1.1},
    {"ZYX", &Matrix3::fromEulerAnglesZYX, &Matrix3::toEulerAnglesZYX, 0.7, 0.4, 0.3, 1.1 - PI},
};

TEST(Matrix3Euler, FalseAtThePolesWhereTheLastAngleIsZero) {
  int found = 0;
  for (const Order& order : kOrders) {
    SCOPED_TRACE(order.name);
    for (const double pole : {kQuarter, -kQuarter}) {
      Matrix3 matrix;
      (matrix.*order.from)(order.a, pole, order.c);
      double a = 7;
      double b = 7;
      double c = 7;
      const bool unique = (matrix.*order.to)(a, b, c);
      EXPECT_FALSE(unique);
      EXPECT_EQ(b, pole);
      EXPECT_EQ(c, 0);
      EXPECT_NEAR(a, pole > 0 ? order.atTop : order.atFoot, 1e-12);
      ++found;
    }
  }
  EXPECT_EQ(found, 12);
}

TEST(Matrix3Euler, EntryBeyondOneHasNoMiddleAngle) {
  Matrix3 matrix;
  matrix[0][2] = 1 + 1e-15;
  double a = 7;
  double b = 7;
  double c = 7;
  EXPECT_TRUE(matrix.toEulerAnglesXYZ(a, b, c));
  EXPECT_TRUE(std::isnan(b));
}

TEST(Matrix3Euler, AnglesGoWithTheLettersOfTheName) {
  Matrix3 matrix;
  matrix.fromEulerAnglesZYX(kQuarter, 0, 0);  // about z
  expectNear(matrix, Matrix3(0, -1, 0, 1, 0, 0, 0, 0, 1));
  matrix.fromEulerAnglesZXY(0, kQuarter, 0);  // about x
  expectNear(matrix, Matrix3(1, 0, 0, 0, 0, -1, 0, 1, 0));
  matrix.fromEulerAnglesZXY(0, 0, kQuarter);  // about y
  expectNear(matrix, Matrix3(0, 0, 1, 0, 1, 0, -1, 0, 0));
  // x first then: y to z, z to -y; then about z: -y to x. So x to y, y to z, z to x.
  matrix.fromEulerAnglesZYX(kQuarter, 0, kQuarter);
  expectNear(matrix, Matrix3(0, 0, 1, 1, 0, 0, 0, 1, 0));
}

}  // namespace
