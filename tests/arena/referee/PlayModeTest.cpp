#include "arena/referee/PlayMode.h"

#include <gtest/gtest.h>

namespace arena {
namespace {

TEST(PlayMode, NamesAreSpelledAsPlayersCompareThem) {
  EXPECT_EQ(nameOf(PlayMode::kBeforeKickOff), "BeforeKickOff");
  EXPECT_EQ(nameOf(PlayMode::kKickOffLeft), "KickOff_Left");
  EXPECT_EQ(nameOf(PlayMode::kKickOffRight), "KickOff_Right");
  EXPECT_EQ(nameOf(PlayMode::kPlayOn), "PlayOn");
  EXPECT_EQ(nameOf(PlayMode::kKickInLeft), "KickIn_Left");
  EXPECT_EQ(nameOf(PlayMode::kKickInRight), "KickIn_Right");
  EXPECT_EQ(nameOf(PlayMode::kCornerKickLeft), "corner_kick_left");
  EXPECT_EQ(nameOf(PlayMode::kCornerKickRight), "corner_kick_right");
  EXPECT_EQ(nameOf(PlayMode::kGoalKickLeft), "goal_kick_left");
  EXPECT_EQ(nameOf(PlayMode::kGoalKickRight), "goal_kick_right");
  EXPECT_EQ(nameOf(PlayMode::kOffsideLeft), "offside_left");
  EXPECT_EQ(nameOf(PlayMode::kOffsideRight), "offside_right");
  EXPECT_EQ(nameOf(PlayMode::kFreeKickLeft), "free_kick_left");
  EXPECT_EQ(nameOf(PlayMode::kFreeKickRight), "free_kick_right");
  EXPECT_EQ(nameOf(PlayMode::kGoalLeft), "Goal_Left");
  EXPECT_EQ(nameOf(PlayMode::kGoalRight), "Goal_Right");
  EXPECT_EQ(nameOf(PlayMode::kGameOver), "GameOver");
}

TEST(PlayMode, EachRestartHasItsTaker) {
  EXPECT_EQ(takerOf(PlayMode::kKickOffLeft), Side::kLeft);
  EXPECT_EQ(takerOf(PlayMode::kKickOffRight), Side::kRight);
  EXPECT_EQ(takerOf(PlayMode::kKickInLeft), Side::kLeft);
  EXPECT_EQ(takerOf(PlayMode::kKickInRight), Side::kRight);
  EXPECT_EQ(takerOf(PlayMode::kCornerKickLeft), Side::kLeft);
  EXPECT_EQ(takerOf(PlayMode::kCornerKickRight), Side::kRight);
  EXPECT_EQ(takerOf(PlayMode::kGoalKickLeft), Side::kLeft);
  EXPECT_EQ(takerOf(PlayMode::kGoalKickRight), Side::kRight);
}

TEST(PlayMode, OtherModesHaveNoTaker) {
  for (const PlayMode mode : {PlayMode::kBeforeKickOff, PlayMode::kPlayOn, PlayMode::kGoalLeft,
                              PlayMode::kGoalRight, PlayMode::kGameOver}) {
    EXPECT_FALSE(takerOf(mode)) << nameOf(mode);
  }
}

TEST(PlayMode, TheClockStandsBeforeTheGameAfterItAndInAGoal) {
  EXPECT_FALSE(clockRuns(PlayMode::kBeforeKickOff));
  EXPECT_FALSE(clockRuns(PlayMode::kGoalLeft));
  EXPECT_FALSE(clockRuns(PlayMode::kGoalRight));
  EXPECT_FALSE(clockRuns(PlayMode::kGameOver));
  EXPECT_TRUE(clockRuns(PlayMode::kKickOffLeft));
  EXPECT_TRUE(clockRuns(PlayMode::kPlayOn));
  EXPECT_TRUE(clockRuns(PlayMode::kKickInRight));
}

}  // namespace
}  // namespace arena
