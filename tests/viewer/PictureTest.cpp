#include <gtest/gtest.h>

#include <string>

#include "viewer/picture/MatchPicture.h"

namespace arena::picture {
namespace {

CycleRecord recordWithBall(long cycle, double ballX, PlayMode mode = PlayMode::kPlayOn) {
  CycleRecord record;
  record.cycle = cycle;
  record.mode = mode;
  record.teamNames = {"Otters", "He<rons"};
  record.ball = {ballX, 0.2, 0.042};
  PlayerRecord player;
  player.session = 3;
  player.shirt = Shirt{Side::kLeft, 5};
  player.position = {ballX / 2, 1, 0.385};
  record.players = {player};
  return record;
}

TEST(MatchPicture, FollowsBallAndPlayers) {
  MatchPicture picture;
  for (int i = 0; i <= 10; ++i) picture.add(recordWithBall(i + 1, 0.1 * i));
  const Drawing drawing = picture.drawing();
  ASSERT_EQ(drawing.ball.size(), 1U);
  EXPECT_DOUBLE_EQ(drawing.ball[0].back().x, 1.0);
  ASSERT_EQ(drawing.walkers.size(), 1U);
  EXPECT_EQ(drawing.walkers[0].shirt.number, 5);
  EXPECT_DOUBLE_EQ(drawing.walkers[0].last.x, 0.5);
}

TEST(MatchPicture, BallThatIsPutElsewhereLeavesNoLine) {
  MatchPicture picture;
  picture.add(recordWithBall(1, 0));
  picture.add(recordWithBall(2, 0.1));
  picture.add(recordWithBall(3, 6.0));
  picture.add(recordWithBall(4, 6.1));
  const Drawing drawing = picture.drawing();
  ASSERT_EQ(drawing.ball.size(), 2U);
  EXPECT_DOUBLE_EQ(drawing.ball[0].back().x, 0.1);
  EXPECT_DOUBLE_EQ(drawing.ball[1].front().x, 6.0);
}

TEST(MatchPicture, BeamedPlayerLeavesNoLine) {
  MatchPicture picture;
  picture.add(recordWithBall(1, 0));
  CycleRecord beamed = recordWithBall(2, 0.2);
  beamed.players[0].beam = Pose{};
  picture.add(beamed);
  EXPECT_EQ(picture.drawing().walkers[0].lines.size(), 2U);
}

/// Touched at x = 6, then on its way to the right goal, which it reaches.
TEST(MatchPicture, ShotThatGoesInIsOneGoal) {
  MatchPicture picture;
  CycleRecord touch = recordWithBall(1, 6.0);
  touch.players[0].touchedBall = true;
  picture.add(touch);
  long cycle = 2;
  for (double x = 6.1; x < 9.05; x += 0.1) {
    CycleRecord flies = recordWithBall(cycle++, x);
    flies.ballVelocity = {5, 0, 0};
    picture.add(flies);
  }
  CycleRecord goal = recordWithBall(cycle, 9.1, PlayMode::kGoalLeft);
  goal.score = {1, 0};
  picture.add(goal);
  const Drawing drawing = picture.drawing();
  ASSERT_EQ(drawing.marks.size(), 1U);
  EXPECT_TRUE(drawing.marks[0].goal);
  EXPECT_EQ(drawing.marks[0].number, 5);
  EXPECT_NEAR(drawing.marks[0].from.x, 6.1, 1e-9);
  EXPECT_NEAR(drawing.marks[0].to.x, 9.1, 1e-9);
}

TEST(MatchPicture, GoalThatNobodyShotIsStillDrawn) {
  MatchPicture picture;
  picture.add(recordWithBall(1, 9.0));
  CycleRecord goal = recordWithBall(2, 9.1, PlayMode::kGoalLeft);
  goal.score = {1, 0};
  picture.add(goal);
  const Drawing drawing = picture.drawing();
  ASSERT_EQ(drawing.marks.size(), 1U);
  EXPECT_TRUE(drawing.marks[0].goal);
  EXPECT_EQ(drawing.marks[0].number, 0);
}

TEST(Svg, IsOneDocumentWithNothingFromElsewhere) {
  MatchPicture picture;
  for (int i = 0; i <= 10; ++i) picture.add(recordWithBall(i + 1, 0.1 * i));
  const std::string svg = svgOf(picture.drawing());
  EXPECT_EQ(svg.rfind("<svg ", 0), 0U);
  EXPECT_EQ(svg.substr(svg.size() - 7), "</svg>\n");
  EXPECT_EQ(svg.find("<script"), std::string::npos);
  EXPECT_EQ(svg.find("href"), std::string::npos);
}

TEST(Svg, NamesAreEscaped) {
  MatchPicture picture;
  picture.add(recordWithBall(1, 0));
  const std::string svg = svgOf(picture.drawing());
  EXPECT_NE(svg.find("He&lt;rons"), std::string::npos);
  EXPECT_EQ(svg.find("He<rons"), std::string::npos);
}

// y points up on the field and down in the picture; 1 m is 100.
TEST(Svg, PlacesAreInCentimetresAndTheRightWayUp) {
  Drawing drawing;
  drawing.ball = {{{1, 2}, {-3.5, -4}}};
  EXPECT_NE(svgOf(drawing).find("points=\"100,-200 -350,400\""), std::string::npos);
}

}  // namespace
}  // namespace arena::picture
