// What holds for any matrix and any quaternion, against Eigen's.

#include <gtest/gtest.h>

#include <cmath>

#include "tests/math/EigenForms.h"
#include "tests/math/SeededValues.h"

namespace {

Matrix3 any3(SeededValues& values) {
  Matrix3 matrix;
  for (auto& row : matrix.m) {
    for (double& element : row) {
      element = values.between(-5, 5);
    }
  }
  return matrix;
}

Matrix4 any4(SeededValues& values) {
  Matrix4 matrix;
  for (auto& row : matrix.m) {
    for (double& element : row) {
      element = values.between(-5, 5);
    }
  }
  return matrix;
}

Quaternion anyQuaternion(SeededValues& values) {
  const VecPosition v = values.place(3);
  return {values.between(-3, 3), v.x, v.y, v.z};
}

TEST(MatrixProperties, ArithmeticOfThreeRowsAgreesWithEigen) {
  SeededValues values(61);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const Matrix3 a = any3(values);
    const Matrix3 b = any3(values);
    const VecPosition v = values.place();
    const double d = values.between(1, 5);
    ASSERT_LT(apart(eigen(a + b), eigen(a) + eigen(b)), 1e-12);
    ASSERT_LT(apart(eigen(a - b), eigen(a) - eigen(b)), 1e-12);
    ASSERT_LT(apart(eigen(a * d), eigen(a) * d), 1e-12);
    ASSERT_LT(apart(eigen(a / d), eigen(a) / d), 1e-12);
    ASSERT_LT(apart(eigen(a * b), eigen(a) * eigen(b)), 1e-11);
    ASSERT_LT(apart(eigen(a * v), eigen(a) * eigen(v)), 1e-11);
    ASSERT_LT(apart(eigen(v * a).transpose(), eigen(v).transpose() * eigen(a)), 1e-11);
    ASSERT_LT(apart(eigen(a.getTranspose()), eigen(a).transpose()), 1e-15);
    ASSERT_NEAR(a.getDeterminant(), eigen(a).determinant(), 1e-10);
  }
}

TEST(MatrixProperties, ArithmeticOfFourRowsAgreesWithEigen) {
  SeededValues values(62);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const Matrix4 a = any4(values);
    const Matrix4 b = any4(values);
    const VecPosition v = values.place();
    const double d = values.between(1, 5);
    ASSERT_LT(apart(eigen(a + b), eigen(a) + eigen(b)), 1e-12);
    ASSERT_LT(apart(eigen(a - b), eigen(a) - eigen(b)), 1e-12);
    ASSERT_LT(apart(eigen(a * d), eigen(a) * d), 1e-12);
    ASSERT_LT(apart(eigen(a / d), eigen(a) / d), 1e-12);
    ASSERT_LT(apart(eigen(a * b), eigen(a) * eigen(b)), 1e-11);
    ASSERT_LT(apart(eigen(a.getTranspose()), eigen(a).transpose()), 1e-15);
    ASSERT_NEAR(a.getDeterminant(), (eigen(a).topLeftCorner<3, 3>().determinant()), 1e-10);
    const Eigen::Vector4d column = eigen(a) * eigen(v).homogeneous();
    const Eigen::Vector4d row = eigen(a).transpose() * eigen(v).homogeneous();
    if (std::fabs(column.w()) > 1) {
      ASSERT_LT(apart(eigen(a * v), column.hnormalized()), 1e-10);
    }
    if (std::fabs(row.w()) > 1) {
      ASSERT_LT(apart(eigen(v * a), row.hnormalized()), 1e-10);
    }
    ASSERT_LT(apart(eigen(a.transformAffine(v)), column.head<3>()), 1e-11);
  }
}

TEST(MatrixProperties, InversesUndo) {
  SeededValues values(63);
  int tried = 0;
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const Matrix3 small = any3(values);
    const Matrix4 large = any4(values);
    if (std::fabs(eigen(small).determinant()) < 1 || std::fabs(eigen(large).determinant()) < 1) {
      continue;
    }
    ++tried;
    ASSERT_LT(apart(eigen(small.getInverseMatrix()), eigen(small).inverse()), 1e-9);
    ASSERT_LT(apart(eigen(large.getInverseMatrix()), eigen(large).inverse()), 1e-9);
    ASSERT_LT(apart(eigen(small * small.getInverseMatrix()), Eigen::Matrix3d::Identity()), 1e-9);
    ASSERT_LT(apart(eigen(large.getInverseMatrix() * large), Eigen::Matrix4d::Identity()), 1e-9);
    ASSERT_LT(apart(eigen(small / small), Eigen::Matrix3d::Identity()), 1e-9);
    ASSERT_LT(apart(eigen(large / large), Eigen::Matrix4d::Identity()), 1e-9);
  }
  EXPECT_GT(tried, SeededValues::kTries / 2);
}

TEST(MatrixProperties, TransformIsStretchTurnAndMove) {
  SeededValues values(64);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const VecPosition pos = values.place();
    const VecPosition scale = values.place(3);
    const Quaternion turn(values.between(-360, 360), values.direction());
    const Matrix4 transform = Matrix4::createTransform(pos, scale, turn);
    const Eigen::Affine3d expected =
        Eigen::Translation3d(eigen(pos)) * eigen(turn) * Eigen::Scaling(eigen(scale));
    ASSERT_LT(apart(eigen(transform), expected.matrix()), 1e-12);
    ASSERT_TRUE(transform.isAffine());
    const VecPosition v = values.place();
    ASSERT_LT(apart(eigen(transform * v), expected * eigen(v)), 1e-10);
    ASSERT_LT(apart(eigen(transform.transformAffine(v)), expected * eigen(v)), 1e-10);
    // Its parts, one after the other.
    ASSERT_LT(apart(eigen(Matrix4::getTranslationMatrix(pos) * Matrix4(turn) *
                          Matrix4::getScaleMatrix(scale)),
                    expected.matrix()),
              1e-12);
  }
}

TEST(QuaternionProperties, ArithmeticAgreesWithEigen) {
  SeededValues values(65);
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const Quaternion p = anyQuaternion(values);
    const Quaternion q = anyQuaternion(values);
    ASSERT_LT(apart(eigen(p * q), eigen(p) * eigen(q)), 1e-11);
    ASSERT_NEAR(p.norm(), eigen(p).squaredNorm(), 1e-11);
    ASSERT_NEAR(p.dot(q), eigen(p).dot(eigen(q)), 1e-11);
    if (q.norm() < 0.1) {
      continue;
    }
    ASSERT_LT(apart(eigen(q.getInverse()), eigen(q).inverse()), 1e-11);
    ASSERT_LT(apart(eigen(q.getConjugate()), eigen(q).normalized().conjugate()), 1e-12);
    ASSERT_LT(apart(eigen(p / q), eigen(p) * eigen(q).inverse()), 1e-10);
    ASSERT_LT(apart(eigen(p / q * q), eigen(p)), 1e-10);
    Quaternion unit = q;
    ASSERT_EQ(unit.normalize(), q.norm());
    ASSERT_NEAR(unit.norm(), 1, 1e-14);
  }
}

}  // namespace
