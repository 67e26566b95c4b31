#include "arena/record/Attitude.h"

#include <gtest/gtest.h>

#include <Eigen/Geometry>
#include <cmath>

#include "tests/arena/record/Records.h"

namespace arena {
namespace {

Eigen::Matrix3d matrixOf(const Mat3& axes) {
  return Eigen::Map<const Eigen::Matrix<double, 3, 3, Eigen::RowMajor>>(axes.data());
}

Mat3 theirAxesOf(const Eigen::Quaterniond& turn) {
  Mat3 axes{};
  Eigen::Map<Eigen::Matrix<double, 3, 3, Eigen::RowMajor>>(axes.data()) = turn.toRotationMatrix();
  return axes;
}

TEST(Attitude, AQuarterTurnToTheLeftIsHalfOfItAboutUp) {
  // Forward (y) looks along -x, right (x) along y.
  const Quaternion q = attitudeOf({0, -1, 0, 1, 0, 0, 0, 0, 1});
  EXPECT_NEAR(q[0], std::sqrt(0.5), 1e-12);
  EXPECT_NEAR(q[3], std::sqrt(0.5), 1e-12);
  EXPECT_NEAR(std::hypot(q[1], q[2]), 0, 1e-12);
}

TEST(Attitude, AgreesWithAnotherLibraryAllAround) {
  test::Random random(4);
  std::normal_distribution<> part;
  for (int i = 0; i < 10'000; ++i) {
    Eigen::Quaterniond turn(part(random), part(random), part(random), part(random));
    // Every few a half turn about something: the trace's worst case.
    if (i % 5 == 0) turn.w() = 0;
    turn.normalize();
    const Quaternion ours = attitudeOf(theirAxesOf(turn));
    EXPECT_GE(ours[0], 0);
    const Eigen::Quaterniond same(ours[0], ours[1], ours[2], ours[3]);
    EXPECT_NEAR(std::abs(same.dot(turn)), 1, 1e-12);
    EXPECT_TRUE(matrixOf(arena::axesOf(ours)).isApprox(turn.toRotationMatrix(), 1e-9));
  }
}

TEST(Attitude, LengthDoesNotMatterOnTheWayBack) {
  EXPECT_EQ(axesOf(Quaternion{0.5, 0, 0, 0}), Frame{}.axes);
  EXPECT_EQ(axesOf(Quaternion{0, 0, 0, 0}), Frame{}.axes);
}

}  // namespace
}  // namespace arena
