#include "arena/match/Commentary.h"

#include <gtest/gtest.h>

namespace arena {
namespace {

using Kind = Incident::Kind;

const Scoreboard kBoard{{"Foo", "Bar"}, {2, 1}};
const Shirt kLeft6{Side::kLeft, 6};

TEST(Commentary, AGoalSaysForWhomTheScoreAndWho) {
  EXPECT_EQ(words({Kind::kGoal, Side::kLeft, kLeft6, {9.1, 0, 0}}, kBoard),
            "goal for left (Foo), 2:1, by left 6");
}

TEST(Commentary, AnOwnGoalSaysSo) {
  EXPECT_EQ(words({Kind::kGoal, Side::kRight, kLeft6, {-9.1, 0, 0}}, kBoard),
            "goal for right (Bar), 2:1, own goal by left 6");
}

TEST(Commentary, AGoalThatNobodyTouchedNamesNobody) {
  EXPECT_EQ(words({Kind::kGoal, Side::kRight, {}, {-9.1, 0, 0}}, kBoard),
            "goal for right (Bar), 2:1");
}

TEST(Commentary, RestartsSayWhoseTheyAreAndWhere) {
  EXPECT_EQ(words({Kind::kKickIn, Side::kRight, {}, {3.204, 6, 0.042}}, kBoard),
            "kick-in for right (Bar) at (3.20, 6.00)");
  EXPECT_EQ(words({Kind::kCornerKick, Side::kLeft, {}, {9, -6, 0.042}}, kBoard),
            "corner kick for left (Foo) at (9.00, -6.00)");
  EXPECT_EQ(words({Kind::kGoalKick, Side::kLeft, {}, {-8, -0.001, 0.042}}, kBoard),
            "goal kick for left (Foo) at (-8.00, 0.00)");
  EXPECT_EQ(words({Kind::kNotTaken, Side::kLeft, {}, {}}, kBoard),
            "not taken by left (Foo), play goes on");
}

TEST(Commentary, ASideWithoutATeamIsJustASide) {
  EXPECT_EQ(words({Kind::kNotTaken, Side::kRight, {}, {}}, {{"Foo", ""}, {}}),
            "not taken by right, play goes on");
}

TEST(Commentary, DroppedBallAndTheEndsOfTheHalves) {
  EXPECT_EQ(words({Kind::kDroppedBall, {}, {}, {1.5, -2, 0.042}}, kBoard),
            "dropped ball at (1.50, -2.00), nobody played it");
  EXPECT_EQ(words({Kind::kHalfTime, {}, {}, {}}, kBoard), "half time, 2:1");
  EXPECT_EQ(words({Kind::kFullTime, {}, {}, {}}, kBoard), "full time, 2:1");
}

}  // namespace
}  // namespace arena
