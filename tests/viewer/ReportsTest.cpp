#include "viewer/server/Reports.h"

#include <gtest/gtest.h>

namespace arena::view {
namespace {

TEST(Reports, OwnPlace) {
  const auto report = reportIn("P,3,1.5,-0.25");
  ASSERT_TRUE(report);
  const auto& own = std::get<OwnPlace>(*report);
  EXPECT_DOUBLE_EQ(own.at.x, 1.5);
  EXPECT_DOUBLE_EQ(own.at.y, -0.25);
}

TEST(Reports, OwnPlaceInShortForm) {
  const auto report = reportIn("P,3,-1e-05,8.12345");
  ASSERT_TRUE(report);
  EXPECT_DOUBLE_EQ(std::get<OwnPlace>(*report).at.x, -1e-5);
}

TEST(Reports, Ball) {
  const auto report = reportIn("|,2,1.50,-0.25,3.00");
  ASSERT_TRUE(report);
  const auto& ball = std::get<BallPlace>(*report);
  EXPECT_DOUBLE_EQ(ball.at.x, 1.5);
  EXPECT_DOUBLE_EQ(ball.at.y, -0.25);
  EXPECT_DOUBLE_EQ(ball.distance, 3);
}

TEST(Reports, OpponentCountsFromSeven) {
  const auto report = reportIn("~,9,1.5,-0.25");
  ASSERT_TRUE(report);
  EXPECT_EQ(std::get<OpponentPlace>(*report).number, 3);
}

TEST(Reports, AnythingElseIsNone) {
  for (const char* text :
       {"",          "P",        "P,",        "P,3",     "P,3,1.5", "P,3,1.5,", "P,3,1.5,2,3",
        "P,7,1,2",   "P,0,1,2",  "P,2.5,1,2", "|,2,1,2", "~,6,1,2", "~,13,1,2", "P,3,nan,1",
        "P,3,inf,1", "P,3,1x,2", "(o 1:2:3)", "hello",   "Q,3,1,2", "P;3;1;2",  "P, 3,1,2"}) {
    EXPECT_FALSE(reportIn(text)) << text;
  }
}

TEST(Reports, RightTeamsFrameIsTurnedByHalfACircle) {
  const Spot spot = inField({1, -2}, Side::kRight);
  EXPECT_DOUBLE_EQ(spot.x, -1);
  EXPECT_DOUBLE_EQ(spot.y, 2);
  EXPECT_DOUBLE_EQ(inField({1, -2}, Side::kLeft).x, 1);
}

}  // namespace
}  // namespace arena::view
