// What holds for any rotation, against Eigen's.

#include <gtest/gtest.h>

#include <cmath>

#include "tests/math/Constants.h"
#include "tests/math/EigenForms.h"
#include "tests/math/SeededValues.h"

namespace {

Eigen::AngleAxisd turn(double degrees, const VecPosition& axis) {
  return {degrees * std::acos(-1.0) / 180, eigen(axis)};
}

Matrix3 matrixOf(double degrees, const VecPosition& axis) {
  Matrix3 matrix;
  matrix.fromAxisAngle(axis, degrees);
  return matrix;
}

TEST(RotationProperties, MatrixAndQuaternionAgreeWithEachOtherAndWithEigen) {
  SeededValues values(41);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const VecPosition axis = values.direction();
    const double degrees = values.between(-400, 400);
    const VecPosition v = values.place();
    SCOPED_TRACE(testing::Message() << degrees << " about " << axis << " of " << v);
    const Matrix3 matrix = matrixOf(degrees, axis);
    const Quaternion q(degrees, axis * values.between(0.01, 100));
    const Eigen::Matrix3d expected = turn(degrees, axis).toRotationMatrix();
    ASSERT_LT(apart(eigen(matrix), expected), kTiny);
    ASSERT_LT(apart(eigen(q.toMatrix3()), expected), kTiny);
    ASSERT_LT(apart(eigen(matrix * v), expected * eigen(v)), 1e-11);
    ASSERT_LT(apart(eigen(q * v), expected * eigen(v)), 1e-11);
    ASSERT_LT(apart(eigen(v * matrix), expected.transpose() * eigen(v)), 1e-11);
    ASSERT_NEAR(matrix.getDeterminant(), 1, kTiny);
    // As a product: q v q*.
    const Quaternion product = q * Quaternion(v) * q.getConjugate();
    ASSERT_NEAR(product.w, 0, 1e-11);
    ASSERT_LT(apart(eigen(VecPosition(product.x, product.y, product.z)), expected * eigen(v)),
              1e-11);
  }
}

TEST(RotationProperties, AboutZIsTheTurnOfAPlace) {
  SeededValues values(42);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const double degrees = values.between(-400, 400);
    const VecPosition v = values.place();
    ASSERT_LT(apart(eigen(VecPosition(v).rotate(degrees)), turn(degrees, {0, 0, 1}) * eigen(v)),
              1e-11);
  }
}

TEST(RotationProperties, ProductOfRotationsIsOneAfterTheOther) {
  SeededValues values(43);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const VecPosition axis1 = values.direction();
    const VecPosition axis2 = values.direction();
    const double degrees1 = values.between(-180, 180);
    const double degrees2 = values.between(-180, 180);
    const Eigen::Quaterniond expected(turn(degrees1, axis1) * turn(degrees2, axis2));
    const Quaternion q = Quaternion(degrees1, axis1) * Quaternion(degrees2, axis2);
    ASSERT_LT(turnApart(eigen(q), expected), kTiny);
    ASSERT_LT(apart(eigen(matrixOf(degrees1, axis1) * matrixOf(degrees2, axis2)),
                    expected.toRotationMatrix()),
              kTiny);
  }
}

TEST(RotationProperties, MatrixGivesItsQuaternionBack) {
  SeededValues values(44);
  int largest[4] = {0, 0, 0, 0};
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const Quaternion q(values.between(-360, 360), values.direction());
    const Quaternion back(q.toMatrix3());
    ASSERT_LT(turnApart(eigen(back), eigen(q)), kTiny) << q.str();
    Eigen::Index which = 0;
    Eigen::Vector4d(q.w, q.x, q.y, q.z).cwiseAbs().maxCoeff(&which);
    ++largest[which];
    VecPosition axes[3];
    q.toAxes(axes);
    Quaternion fromAxes;
    fromAxes.fromAxes(axes);
    ASSERT_LT(turnApart(eigen(fromAxes), eigen(q)), kTiny);
    ASSERT_LT(turnApart(eigen(Matrix4(q).toQuaternion()), eigen(q)), kTiny);
  }
  for (const int count : largest) {
    EXPECT_GT(count, SeededValues::kTries / 10);  // all four ways of the formula were gone
  }
}

TEST(RotationProperties, AxisAndAngleComeBackFromTheMatrix) {
  SeededValues values(45);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const VecPosition axis = values.direction();
    const double degrees = values.between(1, 179);
    VecPosition axisBack;
    double degreesBack = 0;
    matrixOf(degrees, axis).toAxisAngle(axisBack, degreesBack);
    ASSERT_NEAR(degreesBack, degrees, 1e-9);
    ASSERT_LT(apart(eigen(axisBack), eigen(axis)), 1e-9) << degrees;
  }
}

TEST(RotationProperties, HalfATurnComesBackAsTheSameTurn) {
  SeededValues values(46);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    // 2 axis axisT - I, with a trace that rounding must not carry below -1.
    const VecPosition axis = values.direction();
    Matrix3 matrix;
    for (int r = 0; r < 3; ++r) {
      for (int c = 0; c < 3; ++c) {
        matrix[r][c] = 2 * axis[r] * axis[c] - (r == c ? 1 : 0);
      }
    }
    if (0.5 * (matrix[0][0] + matrix[1][1] + matrix[2][2] - 1) != -1) {
      continue;
    }
    VecPosition back;
    double degrees = 0;
    matrix.toAxisAngle(back, degrees);
    ASSERT_EQ(degrees, 180);
    ASSERT_NEAR(std::fabs(back.dot(axis)), 1, kTiny);
  }
}

TEST(RotationProperties, AngleAndAxisOfAQuaternionComeBackButForY) {
  SeededValues values(47);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const VecPosition axis = values.direction();
    const double degrees = values.between(1, 359);
    const VecPosition before = values.place();
    VecPosition back = before;
    double degreesBack = 0;
    Quaternion(degrees, axis).toAngleAxis(degreesBack, back);
    ASSERT_NEAR(degreesBack, degrees, 1e-9);
    ASSERT_NEAR(back.x, axis.x, kTiny);
    ASSERT_EQ(back.y, before.y);
    ASSERT_NEAR(back.z, axis.z, kTiny);
  }
}

TEST(RotationProperties, OrthoNormalizeIsTheOrthogonalFactor) {
  SeededValues values(48);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    Matrix3 matrix;
    matrix.fromAxes(values.place(), values.place(), values.place());
    if (std::fabs(matrix.getDeterminant()) < 10) {
      continue;
    }
    Matrix3 ortho = matrix;
    ortho.orthoNormalize();
    const Eigen::Matrix3d q = eigen(ortho);
    ASSERT_LT(apart(q.transpose() * q, Eigen::Matrix3d::Identity()), 1e-10);
    // The rest is upper triangular with a positive diagonal, which makes it the only such factor.
    const Eigen::Matrix3d r = q.transpose() * eigen(matrix);
    ASSERT_LT(std::fabs(r(1, 0)) + std::fabs(r(2, 0)) + std::fabs(r(2, 1)), 1e-8);
    ASSERT_GT(r.diagonal().minCoeff(), 0);
  }
}

TEST(RotationProperties, PitchYawAndRollBuildTheRotation) {
  SeededValues values(49);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const Quaternion q(values.between(-360, 360), values.direction());
    if (std::fabs(q.toMatrix3().m[2][0]) > 0.999) {
      continue;
    }
    const Eigen::Quaterniond built(turn(q.getRoll(false), {0, 0, 1}) *
                                   turn(q.getYaw(false), {0, 1, 0}) *
                                   turn(q.getPitch(false), {1, 0, 0}));
    // The sine's inverse loses digits towards the poles, atan2Deg those of tiny arguments.
    if (std::hypot(q.toMatrix3().m[0][0], q.toMatrix3().m[1][0]) > 0.01) {
      ASSERT_LT(turnApart(built, eigen(q)), 1e-9) << q.str();
    }
    const Eigen::Matrix3d m = eigen(q).toRotationMatrix();
    ASSERT_NEAR(q.getPitch(true), atan2Deg(m(2, 1), m(1, 1)), 1e-7);
    ASSERT_NEAR(q.getRoll(true), atan2Deg(m(1, 0), m(0, 0)), 1e-7);
    ASSERT_NEAR(q.getYaw(true), atan2Deg(m(0, 2), m(2, 2)), 1e-7);
  }
}

}  // namespace
