#include "math/Rect.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "tests/support/OutputCapture.h"
#include "tests/support/Places.h"

namespace {

Rect fieldAndMargin() {
  return {VecPosition(-9.5, 6.5, 0), VecPosition(9.5, -6.5, 0)};
}

TEST(Rect, StartsWithBothCornersAtTheOrigin) {
  const Rect rect;
  EXPECT_THAT(rect.getPosLeftTop(), IsPlace(0, 0, 0));
  EXPECT_THAT(rect.getPosRightBottom(), IsPlace(0, 0, 0));
  EXPECT_FALSE(rect.isInside(VecPosition(0, 0, 0)));
}

TEST(Rect, LeftTopHasTheGreatestXAndTheSmallestY) {
  const Rect rect = fieldAndMargin();
  EXPECT_THAT(rect.getPosLeftTop(), IsPlace(9.5, -6.5, 0));
  EXPECT_THAT(rect.getPosRightBottom(), IsPlace(-9.5, 6.5, 0));
  EXPECT_THAT(rect.posLeftTop, IsPlace(9.5, -6.5, 0));
  EXPECT_THAT(rect.posRightBottom, IsPlace(-9.5, 6.5, 0));
}

TEST(Rect, AnyOppositeCornersInAnyOrderWillDo) {
  const VecPosition corners[][2] = {
      {{1, 2}, {5, 3}}, {{5, 3}, {1, 2}}, {{1, 3}, {5, 2}}, {{5, 2}, {1, 3}}};
  for (const auto& pair : corners) {
    Rect set;
    set.setRectPoints(pair[0], pair[1]);
    for (const Rect& rect : {Rect(pair[0], pair[1]), set}) {
      EXPECT_THAT(rect.getPosLeftTop(), IsPlace(5, 2, 0));
      EXPECT_THAT(rect.getPosRightBottom(), IsPlace(1, 3, 0));
    }
  }
}

TEST(Rect, HeightsPlayNoPart) {
  const Rect rect(VecPosition(1, 2, 30), VecPosition(5, 3, -40));
  EXPECT_THAT(rect.getPosLeftTop(), IsPlace(5, 2, 0));
  EXPECT_THAT(rect.getPosRightBottom(), IsPlace(1, 3, 0));
  EXPECT_TRUE(rect.isInside(VecPosition(2, 2.5, 1000)));
}

TEST(Rect, CornersSetOneByOneAreNotSorted) {
  Rect rect = fieldAndMargin();
  EXPECT_TRUE(rect.setPosLeftTop(VecPosition(-1, 1, 2)));
  EXPECT_TRUE(rect.setPosRightBottom(VecPosition(3, -4, 5)));
  EXPECT_THAT(rect.getPosLeftTop(), IsPlace(-1, 1, 2));
  EXPECT_THAT(rect.getPosRightBottom(), IsPlace(3, -4, 5));
  EXPECT_FALSE(rect.isInside(VecPosition(0, 0, 0)));
}

TEST(Rect, BorderIsOutside) {
  const Rect rect = fieldAndMargin();
  for (const VecPosition& border : {VecPosition(9.5, 0), VecPosition(-9.5, 0), VecPosition(0, 6.5),
                                    VecPosition(0, -6.5), VecPosition(9.5, 6.5)}) {
    EXPECT_FALSE(rect.isInside(border)) << border;
  }
}

TEST(Rect, JustWithinTheBorderIsInside) {
  const Rect rect = fieldAndMargin();
  for (const VecPosition& within :
       {VecPosition(9.49, 0), VecPosition(-9.49, 0), VecPosition(0, 6.49), VecPosition(0, -6.49)}) {
    EXPECT_TRUE(rect.isInside(within)) << within;
  }
}

TEST(Rect, OneAxisOutsideIsOutside) {
  const Rect rect = fieldAndMargin();
  for (const VecPosition& beyond :
       {VecPosition(10, 0), VecPosition(-10, 0), VecPosition(0, 7), VecPosition(0, -7)}) {
    EXPECT_FALSE(rect.isInside(beyond)) << beyond;
  }
}

TEST(Rect, ShowNamesBothCorners) {
  std::ostringstream os;
  fieldAndMargin().show(os);
  EXPECT_EQ(os.str(), "rect((9.5, -6.5, 0) (-9.5, 6.5, 0))");
  OutputCapture output;
  fieldAndMargin().show();
  std::cout.flush();
  EXPECT_EQ(output.text(), "rect((9.5, -6.5, 0) (-9.5, 6.5, 0))");
}

}  // namespace
