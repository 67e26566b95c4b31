#include "math/Circle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <iostream>
#include <limits>
#include <sstream>

#include "math/Geometry.h"
#include "tests/math/Constants.h"
#include "tests/support/OutputCapture.h"
#include "tests/support/Places.h"

namespace {

TEST(Circle, StartsAtNoKnownPlace) {
  const Circle circle;
  EXPECT_THAT(circle.getCenter(), IsPlace(-1000, -1000, -1000));
  EXPECT_EQ(circle.getRadius(), 0);
}

TEST(Circle, TakesCentreAndRadius) {
  const Circle circle(VecPosition(1, 2, 3), 4);
  EXPECT_THAT(circle.getCenter(), IsPlace(1, 2, 3));
  EXPECT_EQ(circle.getRadius(), 4);
}

TEST(Circle, RadiusNotAboveZeroBecomesZero) {
  EXPECT_EQ(Circle(VecPosition(1, 2, 3), -3).getRadius(), 0);
  EXPECT_EQ(Circle(VecPosition(1, 2, 3), 0).getRadius(), 0);
  EXPECT_EQ(Circle(kOrigin, std::nan("")).getRadius(), 0);
  EXPECT_THAT(Circle(VecPosition(1, 2, 3), -3).getCenter(), IsPlace(1, 2, 3));
}

TEST(Circle, SetterTellsWhetherTheRadiusWasTaken) {
  Circle circle(kOrigin, 7);
  EXPECT_FALSE(circle.setRadius(0));
  EXPECT_EQ(circle.getRadius(), 0);
  EXPECT_TRUE(circle.setRadius(2));
  EXPECT_EQ(circle.getRadius(), 2);
  EXPECT_FALSE(circle.setRadius(-1));
  EXPECT_EQ(circle.getRadius(), 0);
}

TEST(Circle, CentreIsSetEvenWhenTheRadiusIsNot) {
  Circle circle(kOrigin, 7);
  EXPECT_FALSE(circle.setCircle(VecPosition(1, 2, 3), 0));
  EXPECT_THAT(circle.getCenter(), IsPlace(1, 2, 3));
  EXPECT_EQ(circle.getRadius(), 0);
  EXPECT_TRUE(circle.setCircle(VecPosition(4, 5, 6), 0.5));
  EXPECT_THAT(circle.getCenter(), IsPlace(4, 5, 6));
  EXPECT_EQ(circle.getRadius(), 0.5);
  EXPECT_TRUE(circle.setCenter(VecPosition(-1, -2, -3)));
  EXPECT_THAT(circle.getCenter(), IsPlace(-1, -2, -3));
  EXPECT_EQ(circle.getRadius(), 0.5);
}

// 2 pi r, pi r^2 and 4/3 pi r^3 for r = 3: 6, 9 and 36 times pi.
TEST(Circle, MeasuresOfRadiusThree) {
  const Circle circle(kOrigin, 3);
  EXPECT_NEAR(circle.getCircumference(), 18.849555921538759, 1e-12);
  EXPECT_NEAR(circle.getArea(), 28.274333882308138, 1e-12);
  EXPECT_NEAR(circle.getVolume(), 113.09733552923255, 1e-12);
}

TEST(Circle, RimIsOutside) {
  const Circle circle(VecPosition(1, 1, 0), 5);
  EXPECT_FALSE(circle.isInside(VecPosition(4, 5, 0), true));
  EXPECT_FALSE(circle.isInside(VecPosition(4, 5, 0), false));
  EXPECT_TRUE(circle.isInside(VecPosition(3.99, 5, 0), true));
  EXPECT_TRUE(circle.isInside(VecPosition(3.99, 5, 0), false));
  EXPECT_FALSE(circle.isInside(VecPosition(4.01, 5, 0), true));
}

TEST(Circle, HeightCountsUnlessIgnored) {
  const Circle circle(VecPosition(0, 0, 1), 5);
  const VecPosition above(3, 0, 5);  // 3 on the ground, 4 above the centre
  EXPECT_TRUE(circle.isInside(above, true));
  EXPECT_FALSE(circle.isInside(above, false));
  EXPECT_TRUE(circle.isInside(VecPosition(3, 0, 4.9), false));
  EXPECT_TRUE(circle.isInside(VecPosition(0, 0, 1000), true));
}

TEST(Circle, PointOfRadiusZeroHoldsNothing) {
  EXPECT_FALSE(Circle(kOrigin, 0).isInside(kOrigin, true));
}

TEST(Circle, ShowNamesCentreAndRadius) {
  std::ostringstream os;
  Circle(VecPosition(1, -2.5, 0), 0.25).show(os);
  EXPECT_EQ(os.str(), "c:(1, -2.5, 0), r:0.25");
  OutputCapture output;
  Circle(VecPosition(1, -2.5, 0), 0.25).show();
  std::cout.flush();
  EXPECT_EQ(output.text(), "c:(1, -2.5, 0), r:0.25");
}

}  // namespace
