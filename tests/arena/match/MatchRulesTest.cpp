// The rules in a whole match: what the referee decides reaches the world, the players' messages
// and the people who read the events.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "tests/arena/match/Stage.h"

namespace arena {
namespace {

using test::contains;
using test::exactMatch;
using test::Stage;

constexpr double kLow = 0.042;

/// No waiting but for a cycle, kick-offs that become play at once.
MatchSettings atPlay() {
  MatchSettings settings = exactMatch(0, 100);
  settings.referee.kickOffSeconds = 0;
  return settings;
}

const PlayerRecord& playerOf(const Stage& stage, SessionId session) {
  const auto& players = stage.last().record.players;
  return *std::find_if(players.begin(), players.end(),
                       [&](const PlayerRecord& player) { return player.session == session; });
}

std::string beamTo(double x, double y) {
  return "(beam " + std::to_string(x) + " " + std::to_string(y) + " 0)";
}

TEST(MatchRules, ABallShotIntoTheGoalIsAGoalForAllToSee) {
  Stage stage(atPlay());
  stage.join(1, 1, "Foo");
  stage.join(2, 1, "Bar");
  stage.play(2);
  stage.match().putBall({8.9, 0.3, kLow}, {5, 0, 0});
  stage.play(2);
  EXPECT_TRUE(contains(stage.message(1), "(pm Goal_Left)")) << stage.message(1);
  EXPECT_TRUE(contains(stage.message(2), "(pm Goal_Left)"));
  EXPECT_TRUE(stage.happened("0.08 s  goal for left (Foo), 1:0"));
  EXPECT_EQ(stage.last().record.score, (std::array{1, 0}));
  stage.play(149);
  EXPECT_TRUE(contains(stage.message(1), "(pm Goal_Left)"));
  stage.play();
  EXPECT_TRUE(contains(stage.message(1), "(pm KickOff_Right)"));
  EXPECT_NEAR(stage.last().record.ball[0], 0, 1e-3);
  EXPECT_NEAR(stage.last().record.ball[1], 0, 1e-3);
  stage.play(50);
  EXPECT_EQ(stage.last().record.score, (std::array{1, 0}));
}

TEST(MatchRules, ABallOverTheBarOrBesideThePostIsNone) {
  for (const Vec3& from : {Vec3{8.9, 0, 0.95}, Vec3{8.9, 1.3, kLow}, Vec3{8.9, -1.3, kLow}}) {
    Stage stage(atPlay());
    stage.join(1, 1, "Foo");
    stage.play(2);
    stage.match().putBall(from, {8, 0, 0});
    stage.play(3);
    EXPECT_TRUE(contains(stage.message(1), "(pm goal_kick_right)")) << stage.message(1);
    EXPECT_NEAR(stage.last().record.ball[0], 8, 1e-3);
    EXPECT_EQ(stage.last().record.score, (std::array{0, 0}));
  }
}

TEST(MatchRules, ABallThatHitsThePostComesBack) {
  Stage stage(atPlay());
  stage.join(1, 1, "Foo");
  stage.play(2);
  // The post stands from 1.05 to 1.10 m, its front on the line.
  stage.match().putBall({8.8, 1.075, kLow}, {5, 0, 0});
  stage.play(25);
  EXPECT_TRUE(contains(stage.message(1), "(pm PlayOn)")) << stage.message(1);
  EXPECT_LT(stage.last().record.ball[0], 8.95);
}

TEST(MatchRules, AKickInIsToldAndTheBallLiesOnTheLine) {
  Stage stage(atPlay());
  stage.join(1, 1, "Foo");
  stage.play(2);
  stage.match().putBall({-2.5, -5.9, kLow}, {0, -4, 0});
  stage.play(4);
  EXPECT_TRUE(contains(stage.message(1), "(pm KickIn_Left)"));
  EXPECT_TRUE(stage.happened("0.08 s  kick-in for left (Foo) at (-2.50, -6.00)"));
  EXPECT_NEAR(stage.last().record.ball[1], -6, 1e-3);
  EXPECT_NEAR(stage.last().record.ballVelocity[1], 0, 1e-3);
}

TEST(MatchRules, OpponentsLeaveTheTakersSpaceAndTeamMatesStay) {
  Stage stage(exactMatch(0.1, 100));
  stage.join(1, 2, "Foo");
  stage.join(2, 2, "Bar");
  stage.join(3, 3, "Bar");
  stage.play();
  stage.say(1, "(beam -1 0 0)");
  stage.say(2, "(beam -1 0 0)");  // at (1, 0), looking back at the centre
  stage.say(3, "(beam -5 3 0)");
  stage.play(3);
  EXPECT_NEAR(playerOf(stage, 2).position[0], 1, 0.01)
      << "before the kick-off they may stand there";
  stage.play();
  ASSERT_EQ(stage.last().record.mode, PlayMode::kKickOffLeft);
  EXPECT_TRUE(playerOf(stage, 2).moved);
  EXPECT_NEAR(playerOf(stage, 2).position[0], 2, 0.01);
  EXPECT_TRUE(playerOf(stage, 2).standing);
  EXPECT_FALSE(playerOf(stage, 1).moved);
  EXPECT_FALSE(playerOf(stage, 3).moved);
  stage.play(100);
  EXPECT_TRUE(playerOf(stage, 2).standing);
  EXPECT_FALSE(playerOf(stage, 2).moved);
  EXPECT_EQ(stage.row("right 2").falls, 0);
}

TEST(MatchRules, AnOpponentWhoBeamsIntoTheCircleAtTheKickOffIsOutAgainInTheSameCycle) {
  Stage stage(exactMatch(0, 100));
  stage.join(1, 6, "Foo");
  stage.join(2, 6, "Bar");
  stage.play();
  ASSERT_EQ(stage.last().record.mode, PlayMode::kKickOffLeft);
  stage.say(1, "(beam -.15 0.05 -0)");
  stage.say(2, "(beam -.15 0.05 -0)");
  stage.play();
  EXPECT_NEAR(playerOf(stage, 1).position[0], -0.15, 0.01);
  EXPECT_GT(std::hypot(playerOf(stage, 2).position[0], playerOf(stage, 2).position[1]), 1.8);
  EXPECT_EQ(stage.last().record.mode, PlayMode::kKickOffLeft);
  EXPECT_NEAR(stage.last().record.ball[0], 0, 1e-3);
}

TEST(MatchRules, ALyingOpponentIsMovedLying) {
  Stage stage(exactMatch(3.5, 100));
  stage.join(1, 2, "Foo");
  stage.join(2, 2, "Bar");
  stage.play();
  stage.say(2, "(beam -1 0 0)");
  stage.play();
  stage.say(2, "(lle3 7)(rle3 7)(lle5 3)(rle5 3)");
  stage.play(160);
  ASSERT_FALSE(playerOf(stage, 2).standing);
  stage.play(20);
  ASSERT_EQ(stage.last().record.mode, PlayMode::kKickOffLeft);
  EXPECT_GT(std::hypot(playerOf(stage, 2).position[0], playerOf(stage, 2).position[1]), 1.8);
  EXPECT_FALSE(playerOf(stage, 2).standing);
  EXPECT_EQ(stage.row("right 2").getUps, 0);
}

TEST(MatchRules, BeamsAreObeyedInAGoalAndIgnoredInARestart) {
  Stage stage(atPlay());
  stage.join(1, 1, "Foo");
  stage.play(2);
  stage.say(1, "(beam -5 0 0)");
  stage.play();
  EXPECT_EQ(stage.row("left 1").ignoredBeams, 1) << "in play";
  stage.match().putBall({-2.5, -5.99, kLow}, {0, -4, 0});
  stage.play(2);
  ASSERT_EQ(stage.last().record.mode, PlayMode::kKickInLeft);
  stage.say(1, "(beam -5 0 0)");
  stage.play();
  EXPECT_EQ(stage.row("left 1").ignoredBeams, 2) << "in a kick-in";
  stage.play(750);
  ASSERT_EQ(stage.last().record.mode, PlayMode::kPlayOn);
  stage.match().putBall({-9, 0, kLow}, {-4, 0, 0});
  stage.play();
  ASSERT_EQ(stage.last().record.mode, PlayMode::kGoalRight);
  stage.say(1, "(beam -5 0 0)");
  stage.play();
  EXPECT_EQ(stage.row("left 1").beams, 1) << "in a goal";
  EXPECT_EQ(stage.row("left 1").ignoredBeams, 2);
}

TEST(MatchRules, PlayersWhoStandInEachOthersPlacesAllComeHomeAtHalfTime) {
  MatchSettings settings = exactMatch(0.1, 1);
  Stage stage(settings);
  stage.join(1, 2, "Foo");
  stage.join(2, 3, "Foo");
  stage.play();
  stage.say(1, beamTo(-6.15, 0.5));
  stage.say(2, beamTo(-6.15, -0.5));
  stage.play(4 + 50);
  ASSERT_EQ(stage.last().record.mode, PlayMode::kBeforeKickOff);
  ASSERT_EQ(stage.last().record.half, 2);
  stage.say(1, beamTo(-6.15, -0.5));
  stage.say(2, beamTo(-6.15, 0.5));
  stage.play(3);
  EXPECT_NEAR(playerOf(stage, 1).position[1], -0.5, 0.01);
  EXPECT_NEAR(playerOf(stage, 2).position[1], 0.5, 0.01);
  EXPECT_EQ(stage.row("left 2").ignoredBeams + stage.row("left 3").ignoredBeams, 0);
}

TEST(MatchRules, BothHalvesArePlayedAndPlayersSeeThem) {
  Stage stage(exactMatch(0.1, 0.2));
  stage.join(1, 1, "Foo");
  stage.play(5 + 9);
  EXPECT_TRUE(contains(stage.message(1), "(t 0.18) (pm KickOff_Left)"));
  stage.play();
  EXPECT_TRUE(contains(stage.message(1), "(t 0.20) (pm BeforeKickOff)"));
  stage.play(4);
  EXPECT_TRUE(contains(stage.message(1), "(t 0.20) (pm BeforeKickOff)"));
  stage.play();
  EXPECT_TRUE(contains(stage.message(1), "(t 0.20) (pm KickOff_Right)"));
  EXPECT_TRUE(contains(stage.message(1), "(team left)")) << "the sides keep their names";
  stage.play();
  EXPECT_TRUE(contains(stage.message(1), "(t 0.22) (pm KickOff_Right)"));
}

TEST(MatchRules, AnUntouchedBallIsDroppedAndPlayersMakeRoom) {
  MatchSettings settings = atPlay();
  settings.referee.stallSeconds = 1;
  Stage stage(settings);
  stage.say(1, "(scene rsg/agent/nao/nao.rsg)(init (unum 1)(teamname Foo))(beam -3.3 2 0)");
  stage.play(3);
  stage.match().putBall({-3, 2, kLow}, {0, 0, 0});
  stage.play(60);
  EXPECT_EQ(stage.last().record.droppedBalls, 1);
  EXPECT_EQ(stage.last().record.mode, PlayMode::kPlayOn);
  EXPECT_NEAR(stage.last().record.ball[0], -3, 1e-3);
  EXPECT_NEAR(playerOf(stage, 1).position[0], -3.9, 0.01);
  EXPECT_TRUE(playerOf(stage, 1).standing);
  const auto told =
      std::count_if(stage.events().begin(), stage.events().end(), [](const auto& line) {
        return contains(line, "dropped ball at (-3.00, 2.00), nobody played it");
      });
  EXPECT_EQ(told, 1);
}

TEST(MatchRules, EachSideOfATeamThatPlaysItselfSeesTheOtherAsAway) {
  Stage stage(exactMatch(10, 10));
  stage.join(1, 1, "Foo");
  stage.join(2, 2, "Foo");
  stage.join(3, 1, "Foo");
  stage.join(4, 2, "Foo");
  stage.play();
  // In a row along the field's middle: each looks at the other side's, the second at its mate too.
  stage.say(1, "(beam -3 0 0)");
  stage.say(2, "(beam -4 0.5 0)");
  stage.say(3, "(beam -3 0 0)");
  stage.say(4, "(beam -4 0.5 0)");
  stage.play(2);
  EXPECT_TRUE(contains(stage.message(1), "(GS (unum 1) (team left)"));
  EXPECT_TRUE(contains(stage.message(3), "(GS (unum 1) (team right)"));
  for (const SessionId second : {2U, 4U}) {
    const std::string seen = stage.message(second);
    EXPECT_TRUE(contains(seen, "(P (team Foo) (id 1) ")) << seen;
    EXPECT_TRUE(contains(seen, "(P (team Foo_away) (id 1) "));
    EXPECT_TRUE(contains(seen, "(P (team Foo_away) (id 2) "));
    EXPECT_FALSE(contains(seen, "(P (team Foo) (id 2) ")) << "not itself";
  }
}

TEST(MatchRules, TwoTeamsSeeEachOtherByTheirNames) {
  Stage stage(exactMatch(10, 10));
  stage.join(1, 1, "Foo");
  stage.join(2, 1, "Bar");
  stage.play();
  stage.say(1, "(beam -3 0 0)");
  stage.say(2, "(beam -3 0 0)");
  stage.play(2);
  EXPECT_TRUE(contains(stage.message(1), "(P (team Bar) (id 1) "));
  EXPECT_TRUE(contains(stage.message(2), "(P (team Foo) (id 1) "));
}

TEST(MatchRules, APlayerThatComesBackPlaysInItsShirtOnItsSide) {
  Stage stage(exactMatch(10, 10));
  stage.join(1, 3, "Foo");
  stage.join(2, 3, "Foo");
  stage.play();
  EXPECT_TRUE(contains(stage.message(2), "(unum 3) (team right)"));
  stage.drop(2, "the player closed the connection");
  stage.play();
  stage.join(5, 3, "Foo");
  stage.play();
  EXPECT_TRUE(contains(stage.message(5), "(unum 3) (team right)"));
  stage.drop(1, "the player closed the connection");
  stage.play();
  stage.join(6, 3, "Foo");
  stage.play();
  EXPECT_TRUE(contains(stage.message(6), "(unum 3) (team left)"));
}

TEST(MatchRules, AMatchWithoutPlayersOnEitherSideIsPlayedToItsEnd) {
  Stage stage(exactMatch(0.1, 0.5));
  stage.join(1, 1, "Foo");
  stage.play();
  stage.drop(1, "the player closed the connection");
  stage.play(4 + 25 + 5 + 25 + 50);
  EXPECT_TRUE(stage.match().finished());
}

/// Twelve who throw their limbs about around the ball, for twelve seconds of many restarts.
TEST(MatchRules, WhateverPlayersDoTheBallIsBackInPlayInsideTheLines) {
  MatchSettings settings = exactMatch(0.2, 6);
  settings.referee.restartSeconds = 0.5;
  settings.referee.kickOffSeconds = 0.5;
  settings.referee.stallSeconds = 1;
  Stage stage(settings);
  std::mt19937 random(3);
  std::uniform_real_distribution<double> any(-1, 1);
  for (SessionId id = 1; id <= 12; ++id) stage.join(id, static_cast<int>((id - 1) % 6 + 1), "Foo");
  stage.play();
  bool playing = false;
  while (!stage.match().finished()) {
    const long cycle = stage.last().record.cycle;
    for (SessionId id = 1; id <= 12; ++id) {
      if (stage.last().record.mode == PlayMode::kBeforeKickOff) {
        stage.say(id, beamTo(-0.4 - 0.5 * ((id - 1) % 6 / 2), 0.6 * ((id - 1) % 2) - 0.3));
      } else if (cycle % 10 == 0) {
        for (const char* joint : {"lle3", "rle3", "lle4", "rle4", "lle2", "rle2", "lae1", "rae1"}) {
          stage.say(id, "(" + std::string(joint) + " " + std::to_string(7 * any(random)) + ")");
        }
      }
    }
    // Now and then somebody from outside makes it livelier.
    if (cycle % 25 == 0 && playing) {
      stage.match().putBall({8 * any(random), 5 * any(random), 0.3},
                            {15 * any(random), 10 * any(random), 4});
    }
    stage.play();
    const CycleRecord& record = stage.last().record;
    playing = record.mode == PlayMode::kPlayOn;
    for (const double number : record.ball) ASSERT_TRUE(std::isfinite(number));
    if (playing || takerOf(record.mode)) {
      ASSERT_LT(std::abs(record.ball[0]), 9.45) << cycle;  // at most a cycle's way beyond the line
      ASSERT_LT(std::abs(record.ball[1]), 6.45) << cycle;
    }
    ASSERT_GT(record.ball[2], -0.1);
  }
  const auto restarts =
      std::count_if(stage.events().begin(), stage.events().end(), [](const auto& line) {
        return contains(line, "kick-in") || contains(line, "corner kick") ||
               contains(line, "goal kick") || contains(line, "goal for");
      });
  EXPECT_GE(restarts, 3);
}

}  // namespace
}  // namespace arena
