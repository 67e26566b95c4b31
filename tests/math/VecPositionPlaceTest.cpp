#include <gtest/gtest.h>

#include "math/VecPosition.h"
#include "tests/math/Constants.h"

namespace {

TEST(VecPositionPlace, InFrontIsAGreaterX) {
  EXPECT_TRUE(VecPosition(1, 0, 0).isInFrontOf(kOrigin));
  EXPECT_FALSE(VecPosition(-1, 9, 9).isInFrontOf(kOrigin));
  EXPECT_FALSE(kOrigin.isInFrontOf(kOrigin));
  EXPECT_TRUE(VecPosition(1, 0, 0).isInFrontOf(0.5));
  EXPECT_FALSE(VecPosition(1, 0, 0).isInFrontOf(1.0));
}

TEST(VecPositionPlace, BehindIsASmallerX) {
  EXPECT_TRUE(VecPosition(-1, 0, 0).isBehindOf(kOrigin));
  EXPECT_FALSE(VecPosition(1, -9, -9).isBehindOf(kOrigin));
  EXPECT_FALSE(kOrigin.isBehindOf(kOrigin));
  EXPECT_TRUE(VecPosition(-1, 0, 0).isBehindOf(-0.5));
  EXPECT_FALSE(VecPosition(-1, 0, 0).isBehindOf(-1.0));
}

TEST(VecPositionPlace, LeftIsASmallerY) {
  EXPECT_TRUE(VecPosition(0, -1, 0).isLeftOf(kOrigin));
  EXPECT_FALSE(VecPosition(-9, 1, -9).isLeftOf(kOrigin));
  EXPECT_FALSE(kOrigin.isLeftOf(kOrigin));
  EXPECT_TRUE(VecPosition(0, -1, 0).isLeftOf(-0.5));
  EXPECT_FALSE(VecPosition(0, -1, 0).isLeftOf(-1.0));
}

TEST(VecPositionPlace, RightIsAGreaterY) {
  EXPECT_TRUE(VecPosition(0, 1, 0).isRightOf(kOrigin));
  EXPECT_FALSE(VecPosition(9, -1, 9).isRightOf(kOrigin));
  EXPECT_FALSE(kOrigin.isRightOf(kOrigin));
  EXPECT_TRUE(VecPosition(0, 1, 0).isRightOf(0.5));
  EXPECT_FALSE(VecPosition(0, 1, 0).isRightOf(1.0));
}

TEST(VecPositionPlace, UpIsAGreaterZ) {
  EXPECT_TRUE(VecPosition(0, 0, 1).isUpOf(kOrigin));
  EXPECT_FALSE(VecPosition(9, 9, -1).isUpOf(kOrigin));
  EXPECT_FALSE(kOrigin.isUpOf(kOrigin));
  EXPECT_TRUE(VecPosition(0, 0, 1).isUpOf(0.5));
  EXPECT_FALSE(VecPosition(0, 0, 1).isUpOf(1.0));
}

TEST(VecPositionPlace, DownIsASmallerZ) {
  EXPECT_TRUE(VecPosition(0, 0, -1).isDownOf(kOrigin));
  EXPECT_FALSE(VecPosition(-9, -9, 1).isDownOf(kOrigin));
  EXPECT_FALSE(kOrigin.isDownOf(kOrigin));
  EXPECT_TRUE(VecPosition(0, 0, -1).isDownOf(-0.5));
  EXPECT_FALSE(VecPosition(0, 0, -1).isDownOf(-1.0));
}

TEST(VecPositionPlace, BetweenIsStrictOnEachAxis) {
  const VecPosition low(1, 10, 100);
  const VecPosition high(3, 30, 300);
  const VecPosition middle(2, 20, 200);
  EXPECT_TRUE(middle.isBetweenX(low, high));
  EXPECT_TRUE(middle.isBetweenY(low, high));
  EXPECT_TRUE(middle.isBetweenZ(low, high));
  for (const VecPosition& bound : {low, high}) {
    EXPECT_FALSE(bound.isBetweenX(low, high));
    EXPECT_FALSE(bound.isBetweenY(low, high));
    EXPECT_FALSE(bound.isBetweenZ(low, high));
  }
  EXPECT_TRUE(middle.isBetweenX(1.0, 3.0));
  EXPECT_TRUE(middle.isBetweenY(10.0, 30.0));
  EXPECT_TRUE(middle.isBetweenZ(100.0, 300.0));
  EXPECT_FALSE(middle.isBetweenX(2.0, 3.0));
  EXPECT_FALSE(middle.isBetweenX(1.0, 2.0));
  EXPECT_FALSE(middle.isBetweenY(20.0, 30.0));
  EXPECT_FALSE(middle.isBetweenZ(100.0, 200.0));
}

TEST(VecPositionPlace, BoundsOfBetweenAreNotSorted) {
  const VecPosition low(1, 10, 100);
  const VecPosition high(3, 30, 300);
  const VecPosition middle(2, 20, 200);
  EXPECT_FALSE(middle.isBetweenX(high, low));
  EXPECT_FALSE(middle.isBetweenY(high, low));
  EXPECT_FALSE(middle.isBetweenZ(high, low));
  EXPECT_FALSE(middle.isBetweenX(3.0, 1.0));
  EXPECT_FALSE(middle.isBetweenY(30.0, 10.0));
  EXPECT_FALSE(middle.isBetweenZ(300.0, 100.0));
}

}  // namespace
