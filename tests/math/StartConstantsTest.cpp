#include <gtest/gtest.h>

#include "tests/math/BeforeMain.h"
#include "tests/support/Places.h"

namespace {

// Each is there before any code runs. A constant that must be run to be built doesn't compile here.
constinit const VecPosition kUnknown = UnknownPosition;
constinit const Plane kPlanes[] = {Plane::XY, Plane::YZ, Plane::XZ};
constinit const Matrix3 kMatrices3[] = {Matrix3::zero, Matrix3::identity};
constinit const Matrix4 kMatrices4[] = {Matrix4::zero, Matrix4::identity};
constinit const Quaternion kQuaternions[] = {Quaternion::zero, Quaternion::identity};

TEST(StartConstants, AreThereForTheCompiler) {
  EXPECT_THAT(kUnknown, IsPlace(-1000, -1000, -1000));
  EXPECT_THAT(kPlanes[0].normal, IsPlace(0, 0, 1));
  EXPECT_THAT(kPlanes[1].normal, IsPlace(1, 0, 0));
  EXPECT_THAT(kPlanes[2].normal, IsPlace(0, 1, 0));
  EXPECT_TRUE(kMatrices3[0] == Matrix3(0, 0, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_TRUE(kMatrices3[1] == Matrix3(1, 0, 0, 0, 1, 0, 0, 0, 1));
  EXPECT_EQ(kMatrices4[0].m[3][3], 0);
  EXPECT_EQ(kMatrices4[1].m[3][3], 1);
  EXPECT_TRUE(kQuaternions[0] == Quaternion(0, 0, 0, 0));
  EXPECT_TRUE(kQuaternions[1] == Quaternion(1, 0, 0, 0));
}

TEST(StartConstants, AreThereForTheStaticObjectsOfOtherFiles) {
  const BeforeMain& seen = beforeMain();
  EXPECT_THAT(seen.unknown, IsPlace(-1000, -1000, -1000));
  EXPECT_EQ(seen.centreOfACircle, -1000);
  EXPECT_THAT(seen.xy.normal, IsPlace(0, 0, 1));
  EXPECT_THAT(seen.yz.normal, IsPlace(1, 0, 0));
  EXPECT_THAT(seen.xz.normal, IsPlace(0, 1, 0));
  EXPECT_TRUE(seen.zero3 == Matrix3(0, 0, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_TRUE(seen.identity3 == Matrix3(1, 0, 0, 0, 1, 0, 0, 0, 1));
  EXPECT_TRUE(seen.zero4 == Matrix4(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_TRUE(seen.identity4 == Matrix4(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1));
  EXPECT_TRUE(seen.zeroTurn == Quaternion(0, 0, 0, 0));
  EXPECT_TRUE(seen.identityTurn == Quaternion(1, 0, 0, 0));
  EXPECT_EQ(seen.height, 3);
  EXPECT_EQ(seen.determinant, 8);
  EXPECT_THAT(seen.turned, IsPlace(4, 5, 6));
}

}  // namespace
