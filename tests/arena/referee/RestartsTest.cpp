// Goals, kick-ins, corners, goal kicks, dropped balls: one case each, cycle by cycle.

#include <gtest/gtest.h>

#include <cmath>

#include "arena/referee/Referee.h"

namespace arena {
namespace {

constexpr Shirt kLeft4{Side::kLeft, 4};
constexpr Shirt kRight2{Side::kRight, 2};

/// A referee in the middle of play, with the ball at the centre, touched by nobody.
class Play : public testing::Test {
 protected:
  Play() : referee_(settings()) { startPlay(); }

  static RefereeSettings settings() {
    RefereeSettings settings;
    settings.waitSeconds = 0;
    settings.halfSeconds = 1000;
    settings.kickOffSeconds = 0;
    return settings;
  }

  void startPlay() {
    see({0, 0, 0.042});
    see({0, 0, 0.042});
    ASSERT_EQ(referee_.mode(), PlayMode::kPlayOn);
  }

  /// One cycle that leaves the ball at BALL, touched by WHO.
  Ruling see(const Vec3& ball, std::vector<Shirt> who = {}) {
    FieldView view{ball, {}};
    for (const Shirt& shirt : who) view.players.push_back({shirt, ball, true});
    return referee_.observe(view);
  }
  /// Left kicks it over the side line at x = 3.
  void kickOut() {
    see({3, 6, 0.042}, {kLeft4});
    see({3, 6.1, 0.042});
  }
  Ruling wait(double seconds, const Vec3& ball) {
    Ruling last;
    for (int i = 0; i < std::lround(seconds / 0.02); ++i) last = see(ball);
    return last;
  }

  Referee referee_;
};

void expectRestart(const Ruling& ruling, PlayMode mode, const Vec3& spot) {
  EXPECT_EQ(ruling.newMode, mode);
  ASSERT_TRUE(ruling.placeBallAt);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR((*ruling.placeBallAt)[i], spot[i], 1e-9) << i;
  ASSERT_TRUE(ruling.freeSpace);
  EXPECT_NEAR(ruling.freeSpace->centre.x, spot[0], 1e-9);
  EXPECT_NEAR(ruling.freeSpace->centre.y, spot[1], 1e-9);
  EXPECT_EQ(ruling.freeSpace->radius, 1.8);
  EXPECT_EQ(ruling.freeSpace->exempt, takerOf(mode));
}

TEST_F(Play, ABallOverTheRightGoalLineIsAGoalForLeft) {
  see({8, 0.5, 0.042}, {kLeft4});
  EXPECT_FALSE(see({9.04, 0.5, 0.042}).newMode) << "not the whole ball";
  const Ruling ruling = see({9.06, 0.5, 0.042});
  EXPECT_EQ(ruling.newMode, PlayMode::kGoalLeft);
  EXPECT_FALSE(ruling.placeBallAt) << "it lies in the goal while it is celebrated";
  ASSERT_TRUE(ruling.incident);
  EXPECT_EQ(ruling.incident->kind, Incident::Kind::kGoal);
  EXPECT_EQ(ruling.incident->side, Side::kLeft);
  EXPECT_EQ(ruling.incident->by, kLeft4);
  EXPECT_EQ(referee_.score(), (std::array{1, 0}));
}

TEST_F(Play, ABallOverTheLeftGoalLineIsAGoalForRight) {
  see({-8, 0, 0.042}, {kRight2});
  EXPECT_EQ(see({-9.1, 0, 0.042}).newMode, PlayMode::kGoalRight);
  EXPECT_EQ(referee_.score(), (std::array{0, 1}));
}

TEST_F(Play, AnOwnGoalCountsForTheOthersAndNamesWhoTouchedLast) {
  see({-8, 0, 0.042}, {kLeft4});
  const Ruling ruling = see({-9.1, 0, 0.042});
  EXPECT_EQ(ruling.newMode, PlayMode::kGoalRight);
  EXPECT_EQ(ruling.incident->side, Side::kRight);
  EXPECT_EQ(ruling.incident->by, kLeft4);
}

TEST_F(Play, AGoalThatNobodyTouchedCountsAndNamesNobody) {
  const Ruling ruling = see({9.1, 0, 0.042});
  EXPECT_EQ(ruling.newMode, PlayMode::kGoalLeft);
  EXPECT_FALSE(ruling.incident->by);
}

TEST_F(Play, AfterAGoalTheOthersKickOffFromTheCentre) {
  see({9.1, 0, 0.042}, {kLeft4});
  EXPECT_EQ(referee_.mode(), PlayMode::kGoalLeft);
  const double clock = referee_.clock();
  EXPECT_FALSE(wait(2.98, {9.5, 3, 0.042}).newMode);
  EXPECT_EQ(referee_.clock(), clock);
  EXPECT_TRUE(referee_.beamsAllowed());
  expectRestart(see({9.5, 3, 0.042}), PlayMode::kKickOffRight, {0, 0, 0.042});
  EXPECT_TRUE(referee_.beamsAllowed());
}

TEST_F(Play, AGoalIsCountedOnceHoweverLongTheBallIsInIt) {
  see({9.1, 0, 0.042}, {kLeft4});
  wait(1, {9.2, 0, 0.042});
  wait(1, {8.9, 0, 0.042});  // rolls out and in again
  wait(0.9, {9.2, 0, 0.042});
  EXPECT_EQ(referee_.score(), (std::array{1, 0}));
}

TEST_F(Play, AHighBallIsNoGoal) {
  see({8, 0, 0.9}, {kLeft4});
  expectRestart(see({9.1, 0, 0.9}), PlayMode::kGoalKickRight, {8, 0, 0.042});
  EXPECT_EQ(referee_.score(), (std::array{0, 0}));
}

TEST_F(Play, AKickInIsOnTheLineWhereTheBallCrossedForThoseWhoDidNotTouchItLast) {
  see({3, 6.022, 0.042}, {kLeft4});
  expectRestart(see({3.3, 6.082, 0.042}), PlayMode::kKickInRight, {3.1, 6, 0.042});
}

TEST_F(Play, AKickInForLeftAtTheOtherLine) {
  see({-4, -6, 0.042}, {kRight2});
  const Ruling ruling = see({-4, -6.1, 0.3});
  expectRestart(ruling, PlayMode::kKickInLeft, {-4, -6, 0.042});
  ASSERT_TRUE(ruling.incident);
  EXPECT_EQ(ruling.incident->kind, Incident::Kind::kKickIn);
  EXPECT_EQ(ruling.incident->side, Side::kLeft);
}

TEST_F(Play, WithoutAnyTouchTheSideWhoseHalfItIsKicksIn) {
  expectRestart(see({-4, -6.1, 0.042}), PlayMode::kKickInLeft, {-4 * 6.042 / 6.1, -6, 0.042});
}

TEST_F(Play, ADefendersTouchOverTheGoalLineIsACornerKick) {
  see({8.9, 3, 0.042}, {kRight2});
  expectRestart(see({9.1, 3, 0.042}), PlayMode::kCornerKickLeft, {9, 6, 0.042});
}

TEST_F(Play, CornerKicksAreTakenAtTheNearerCorner) {
  see({-8.9, -2, 0.042}, {kLeft4});
  expectRestart(see({-9.1, -2, 0.042}), PlayMode::kCornerKickRight, {-9, -6, 0.042});
}

TEST_F(Play, AnAttackersTouchOverTheGoalLineIsAGoalKick) {
  see({8.9, 3, 0.042}, {kLeft4});
  expectRestart(see({9.1, 3, 0.042}), PlayMode::kGoalKickRight, {8, 0, 0.042});
}

TEST_F(Play, AGoalKickOnTheLeft) {
  see({-8.9, -1.5, 0.042}, {kRight2});
  expectRestart(see({-9.1, -1.5, 0.042}), PlayMode::kGoalKickLeft, {-8, 0, 0.042});
}

TEST_F(Play, WithoutAnyTouchItIsAGoalKickToo) {
  expectRestart(see({9.1, 3, 0.042}), PlayMode::kGoalKickRight, {8, 0, 0.042});
}

TEST_F(Play, OfTwoWhoTouchAtOnceTheNearerOneCounts) {
  FieldView view{{8.9, 3, 0.042}, {}};
  view.players.push_back({kLeft4, {8.5, 3, 0.38}, true});
  view.players.push_back({kRight2, {9.1, 3, 0.38}, true});
  referee_.observe(view);
  EXPECT_EQ(see({9.1, 3, 0.042}).newMode, PlayMode::kCornerKickLeft);
}

TEST_F(Play, ATouchBeforeTheLastRestartIsForgotten) {
  kickOut();
  ASSERT_EQ(referee_.mode(), PlayMode::kKickInRight);
  wait(15, {3, 6, 0.042});
  ASSERT_EQ(referee_.mode(), PlayMode::kPlayOn);
  EXPECT_FALSE(see({9.1, 0, 0.042}).incident->by);
}

TEST_F(Play, ARestartIsTakenByATouchOfItsSideOnly) {
  kickOut();
  ASSERT_EQ(referee_.mode(), PlayMode::kKickInRight);
  EXPECT_FALSE(see({3, 6, 0.042}, {kLeft4}).newMode);
  EXPECT_FALSE(referee_.beamsAllowed());
  EXPECT_EQ(see({3, 6, 0.042}, {kRight2}).newMode, PlayMode::kPlayOn);
  EXPECT_FALSE(referee_.freeSpace());
}

TEST_F(Play, WhoTakesARestartIsWhoTouchedLast) {
  kickOut();
  see({3, 6, 0.042}, {kRight2});
  EXPECT_EQ(see({3, 6.1, 0.042}).newMode, PlayMode::kKickInLeft);
}

TEST_F(Play, ABallThatAnotherMovesBeforeARestartIsPutBack) {
  kickOut();
  EXPECT_FALSE(see({3.04, 6, 0.042}, {kLeft4}).placeBallAt) << "settling of contacts";
  const Ruling ruling = see({3.1, 5.9, 0.042}, {kLeft4});
  ASSERT_TRUE(ruling.placeBallAt);
  EXPECT_EQ(*ruling.placeBallAt, (Vec3{3, 6, 0.042}));
  EXPECT_FALSE(ruling.newMode);
}

TEST_F(Play, NothingCrossedInARestartCounts) {
  see({8.9, 3, 0.042}, {kLeft4});
  see({9.1, 3, 0.042});
  ASSERT_EQ(referee_.mode(), PlayMode::kGoalKickRight);
  const Ruling ruling = see({9.1, 0, 0.042}, {kLeft4});
  EXPECT_EQ(ruling.placeBallAt, (Vec3{8, 0, 0.042}));
  EXPECT_EQ(referee_.score(), (std::array{0, 0}));
}

TEST_F(Play, ABallKickedStraightOutOfItsRestartIsJudgedInTheNextCycle) {
  kickOut();
  EXPECT_EQ(see({3.2, 6.1, 0.042}, {kRight2}).newMode, PlayMode::kPlayOn);
  expectRestart(see({3.4, 6.3, 0.042}), PlayMode::kKickInLeft, {3.2, 6, 0.042});
}

TEST_F(Play, ARestartThatNobodyTakesBecomesPlayAfterFifteenSeconds) {
  for (const Vec3& out : {Vec3{3, 6.1, 0.042}, Vec3{9.1, 3, 0.042}}) {
    see(out);
    ASSERT_TRUE(takerOf(referee_.mode()));
    const Vec3 spot{referee_.freeSpace()->centre.x, referee_.freeSpace()->centre.y, 0.042};
    EXPECT_FALSE(wait(14.98, spot).newMode);
    const Ruling ruling = see(spot);
    EXPECT_EQ(ruling.newMode, PlayMode::kPlayOn);
    ASSERT_TRUE(ruling.incident);
    EXPECT_EQ(ruling.incident->kind, Incident::Kind::kNotTaken);
    EXPECT_FALSE(ruling.freeSpace);
  }
}

TEST_F(Play, TheClockRunsDuringARestart) {
  kickOut();
  const double clock = referee_.clock();
  wait(5, {3, 6, 0.042});
  EXPECT_NEAR(referee_.clock() - clock, 5, 1e-9);
}

TEST_F(Play, AnUntouchedBallIsDroppedAfterThirtySecondsAtTheSamePlace) {
  see({2, -3, 0.3}, {kLeft4});
  EXPECT_FALSE(wait(29.98, {2, -3, 0.3}).placeBallAt);
  const Ruling ruling = see({2, -3, 0.3});
  EXPECT_EQ(ruling.placeBallAt, (Vec3{2, -3, 0.042}));
  EXPECT_FALSE(ruling.newMode) << "play goes on";
  ASSERT_TRUE(ruling.freeSpace);
  EXPECT_FALSE(ruling.freeSpace->exempt) << "everybody makes room";
  EXPECT_EQ(ruling.incident->kind, Incident::Kind::kDroppedBall);
  EXPECT_EQ(referee_.droppedBalls(), 1);
  EXPECT_FALSE(see({2, -3, 0.042}).freeSpace) << "once";
  EXPECT_FALSE(wait(29.96, {2, -3, 0.042}).placeBallAt);
  EXPECT_TRUE(see({2, -3, 0.042}).placeBallAt);
  EXPECT_EQ(referee_.droppedBalls(), 2);
}

TEST_F(Play, ATouchBeginsTheThirtySecondsAnew) {
  wait(29, {2, -3, 0.042});
  see({2, -3, 0.042}, {kLeft4});
  wait(29.98, {2, -3, 0.042});
  EXPECT_EQ(referee_.droppedBalls(), 0);
}

TEST_F(Play, ABallThatSomebodyLiesAgainstIsDroppedAfterTwiceTheTime) {
  see({2, -3, 0.042}, {kLeft4});
  for (int i = 0; i < 2999; ++i) {
    ASSERT_FALSE(see({2.05, -3, 0.042}, {kLeft4}).placeBallAt) << i;
  }
  EXPECT_EQ(see({2.05, -3, 0.042}, {kLeft4}).placeBallAt, (Vec3{2.05, -3, 0.042}));
  EXPECT_EQ(referee_.droppedBalls(), 1);
}

TEST_F(Play, ABallThatIsMovedOnIsPlayedHoweverSlowly) {
  // 1 mm in every cycle: 5 cm in a second.
  for (int i = 0; i < 6000; ++i) see({-3 + 0.001 * i, 0, 0.042}, {kLeft4});
  EXPECT_EQ(referee_.droppedBalls(), 0);
}

TEST_F(Play, ADroppedBallKeepsClearOfTheGoalPosts) {
  see({9.03, 1.0, 0.042}, {kLeft4});
  EXPECT_EQ(wait(30, {9.03, 1.0, 0.042}).placeBallAt, (Vec3{8.9, 1.0, 0.042}));
}

TEST_F(Play, WaitingForARestartIsNoStall) {
  kickOut();
  wait(15 + 29.9, {3, 6, 0.042});
  EXPECT_EQ(referee_.droppedBalls(), 0);
}

TEST(Rules, WithoutAStallTimeNoBallIsDropped) {
  RefereeSettings settings;
  settings.waitSeconds = settings.kickOffSeconds = settings.stallSeconds = 0;
  Referee referee(settings);
  for (int i = 0; i < 5000; ++i) referee.observe({{0, 0, 0.042}, {}});
  EXPECT_EQ(referee.droppedBalls(), 0);
}

TEST(Rules, AGoalInTheLastCycleOfAHalfCountsAndNoKickOffFollows) {
  RefereeSettings settings;
  settings.waitSeconds = settings.kickOffSeconds = 0;
  settings.halfSeconds = 1;
  Referee referee(settings);
  for (int i = 0; i < 1 + 49; ++i) referee.observe({{0, 0, 0.042}, {}});
  EXPECT_EQ(referee.observe({{9.1, 0, 0.042}, {}}).newMode, PlayMode::kGoalLeft);
  EXPECT_DOUBLE_EQ(referee.clock(), 1);
  for (int i = 0; i < 149; ++i) referee.observe({{9.1, 0, 0.042}, {}});
  EXPECT_EQ(referee.observe({{9.1, 0, 0.042}, {}}).newMode, PlayMode::kBeforeKickOff);
  EXPECT_EQ(referee.half(), 2);
  EXPECT_EQ(referee.score(), (std::array{1, 0}));
}

TEST(Rules, AnythingElseInTheLastCycleComesTooLate) {
  RefereeSettings settings;
  settings.waitSeconds = settings.kickOffSeconds = 0;
  settings.halfSeconds = 1;
  Referee referee(settings);
  for (int i = 0; i < 1 + 49; ++i) referee.observe({{0, 0, 0.042}, {}});
  EXPECT_EQ(referee.observe({{0, 6.1, 0.042}, {}}).newMode, PlayMode::kBeforeKickOff);
}

TEST(Rules, KickOffKeepsTheOthersOutOfTheCentre) {
  RefereeSettings settings;
  settings.waitSeconds = 0;
  Referee referee(settings);
  const Ruling ruling = referee.observe({{0.4, 0.2, 0.042}, {}});
  expectRestart(ruling, PlayMode::kKickOffLeft, {0, 0, 0.042});
  EXPECT_TRUE(referee.observe({{0, 0, 0.042}, {}}).freeSpace) << "in every cycle until it is taken";
}

TEST(Rules, BeforeKickOffTheBallMayGoWhereItLikes) {
  Referee referee{RefereeSettings{}};
  for (const Vec3& ball : {Vec3{9.5, 0, 0.042}, Vec3{0, 7, 0.042}, Vec3{-9.5, 0, 0.042}}) {
    const Ruling ruling = referee.observe({ball, {}});
    EXPECT_FALSE(ruling.newMode || ruling.placeBallAt || ruling.freeSpace || ruling.incident);
  }
  EXPECT_EQ(referee.score(), (std::array{0, 0}));
}

}  // namespace
}  // namespace arena
