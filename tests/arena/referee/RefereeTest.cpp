#include "arena/referee/Referee.h"

#include <gtest/gtest.h>

namespace arena {
namespace {

const FieldView kNobody{{0, 0, 0.042}, {}};

FieldView touchedBy(Side side) {
  return {{0, 0, 0.042}, {{{side, 4}, {-0.2, 0, 0.38}, true}}};
}

/// Shows VIEW for CYCLES; gives the last ruling.
Ruling watch(Referee& referee, int cycles, const FieldView& view = kNobody) {
  Ruling last;
  for (int i = 0; i < cycles; ++i) last = referee.observe(view);
  return last;
}

/// Half a second of waiting, 20 s a half.
RefereeSettings quick() {
  RefereeSettings settings;
  settings.waitSeconds = 0.5;
  settings.halfSeconds = 20;
  return settings;
}

TEST(Referee, WaitingTimeEndsWithTheLeftTeamsKickOff) {
  Referee referee(quick());
  EXPECT_FALSE(watch(referee, 24).newMode);
  EXPECT_EQ(referee.mode(), PlayMode::kBeforeKickOff);
  const Ruling ruling = watch(referee, 1);
  EXPECT_EQ(ruling.newMode, PlayMode::kKickOffLeft);
  EXPECT_EQ(referee.mode(), PlayMode::kKickOffLeft);
}

TEST(Referee, KickOffPutsTheBallInTheCentreOnce) {
  Referee referee(quick());
  EXPECT_FALSE(watch(referee, 24).placeBallAt);
  EXPECT_EQ(watch(referee, 1).placeBallAt, (Vec3{0, 0, 0.042}));
  EXPECT_FALSE(watch(referee, 1).placeBallAt);
}

TEST(Referee, TouchingTheBallInTheWaitingTimeIsNothing) {
  Referee referee(quick());
  watch(referee, 24, touchedBy(Side::kLeft));
  EXPECT_EQ(referee.mode(), PlayMode::kBeforeKickOff);
}

TEST(Referee, TheTakersFirstTouchStartsPlay) {
  Referee referee(quick());
  watch(referee, 25 + 10);
  EXPECT_FALSE(watch(referee, 10, touchedBy(Side::kRight)).newMode);
  EXPECT_EQ(watch(referee, 1, touchedBy(Side::kLeft)).newMode, PlayMode::kPlayOn);
}

TEST(Referee, APlayerBesideTheBallDoesNotStartPlay) {
  Referee referee(quick());
  watch(referee, 25);
  EXPECT_FALSE(
      watch(referee, 10, {{0, 0, 0.042}, {{{Side::kLeft, 4}, {-0.2, 0, 0.38}, false}}}).newMode);
}

TEST(Referee, AnUntakenKickOffBecomesPlayAfterFifteenSeconds) {
  Referee referee(quick());
  watch(referee, 25);
  EXPECT_FALSE(watch(referee, 749).newMode);
  EXPECT_EQ(watch(referee, 1).newMode, PlayMode::kPlayOn);
}

TEST(Referee, TheClockRunsFromTheKickOffOn) {
  Referee referee(quick());
  watch(referee, 25);
  EXPECT_EQ(referee.clock(), 0);
  watch(referee, 50);
  EXPECT_DOUBLE_EQ(referee.clock(), 1);
  watch(referee, 1, touchedBy(Side::kLeft));
  watch(referee, 49);
  EXPECT_DOUBLE_EQ(referee.clock(), 2);
}

TEST(Referee, TheFirstHalfEndsInAnotherWaitWithTheBallInTheCentre) {
  Referee referee(quick());
  watch(referee, 25 + 999);
  EXPECT_EQ(referee.half(), 1);
  const Ruling ruling = watch(referee, 1);
  EXPECT_EQ(ruling.newMode, PlayMode::kBeforeKickOff);
  EXPECT_EQ(ruling.placeBallAt, (Vec3{0, 0, 0.042}));
  ASSERT_TRUE(ruling.incident);
  EXPECT_EQ(ruling.incident->kind, Incident::Kind::kHalfTime);
  EXPECT_EQ(referee.half(), 2);
  EXPECT_TRUE(referee.beamsAllowed());
  watch(referee, 24);
  EXPECT_EQ(referee.mode(), PlayMode::kBeforeKickOff);
  EXPECT_DOUBLE_EQ(referee.clock(), 20);
}

TEST(Referee, TheRightTeamKicksOffTheSecondHalfAndTheClockRunsOn) {
  Referee referee(quick());
  watch(referee, 25 + 1000 + 24);
  EXPECT_EQ(watch(referee, 1).newMode, PlayMode::kKickOffRight);
  EXPECT_DOUBLE_EQ(referee.clock(), 20);
  watch(referee, 50);
  EXPECT_DOUBLE_EQ(referee.clock(), 21);
  EXPECT_EQ(watch(referee, 1, touchedBy(Side::kRight)).newMode, PlayMode::kPlayOn);
}

TEST(Referee, TheSecondHalfEndsTheGameAndStopsTheClock) {
  Referee referee(quick());
  watch(referee, 25 + 1000 + 25);
  EXPECT_NE(watch(referee, 999).newMode, PlayMode::kGameOver);
  const Ruling ruling = watch(referee, 1);
  EXPECT_EQ(ruling.newMode, PlayMode::kGameOver);
  ASSERT_TRUE(ruling.incident);
  EXPECT_EQ(ruling.incident->kind, Incident::Kind::kFullTime);
  watch(referee, 10);
  EXPECT_DOUBLE_EQ(referee.clock(), 40);
}

TEST(Referee, TheHalfEndsAnUntakenKickOffToo) {
  RefereeSettings settings = quick();
  settings.halfSeconds = 3;
  Referee referee(settings);
  watch(referee, 25 + 149);
  EXPECT_EQ(referee.mode(), PlayMode::kKickOffLeft);
  EXPECT_EQ(watch(referee, 1).newMode, PlayMode::kBeforeKickOff);
  watch(referee, 25 + 149);
  EXPECT_EQ(referee.mode(), PlayMode::kKickOffRight);
  EXPECT_EQ(watch(referee, 1).newMode, PlayMode::kGameOver);
}

TEST(Referee, GameOverIsShownForASecondBeforeTheEnd) {
  RefereeSettings settings = quick();
  settings.halfSeconds = 1;
  Referee referee(settings);
  watch(referee, 2 * (25 + 50) + 49);
  EXPECT_EQ(referee.mode(), PlayMode::kGameOver);
  EXPECT_FALSE(referee.finished());
  EXPECT_FALSE(watch(referee, 1).newMode);
  EXPECT_TRUE(referee.finished());
}

TEST(Referee, BeamsAreAllowedUntilOneSecondIntoTheKickOff) {
  Referee referee(quick());
  EXPECT_TRUE(referee.beamsAllowed());
  watch(referee, 25);
  EXPECT_TRUE(referee.beamsAllowed());
  watch(referee, 49);
  EXPECT_TRUE(referee.beamsAllowed());
  watch(referee, 1);
  EXPECT_EQ(referee.mode(), PlayMode::kKickOffLeft);
  EXPECT_FALSE(referee.beamsAllowed());
}

TEST(Referee, BeamsEndWithTheFirstTouch) {
  Referee referee(quick());
  watch(referee, 26, touchedBy(Side::kLeft));
  EXPECT_EQ(referee.mode(), PlayMode::kPlayOn);
  EXPECT_FALSE(referee.beamsAllowed());
}

TEST(Referee, ASpanOfNoLengthEndsWithTheCycleThatBeginsIt) {
  RefereeSettings settings;
  settings.waitSeconds = 0;
  settings.halfSeconds = 0;
  settings.gameOverSeconds = 0;
  Referee referee(settings);
  EXPECT_EQ(watch(referee, 1).newMode, PlayMode::kKickOffLeft);
  EXPECT_EQ(watch(referee, 1).newMode, PlayMode::kBeforeKickOff);
  EXPECT_EQ(watch(referee, 1).newMode, PlayMode::kKickOffRight);
  EXPECT_EQ(watch(referee, 1).newMode, PlayMode::kGameOver);
  EXPECT_TRUE(referee.finished());
}

TEST(Referee, SpansAreCountedInWholeCycles) {
  // 0.02 added up 5000 times is not 100; the kick-off must come in cycle 5000 all the same.
  RefereeSettings settings;
  settings.waitSeconds = 100;
  Referee referee(settings);
  EXPECT_FALSE(watch(referee, 4999).newMode);
  EXPECT_EQ(watch(referee, 1).newMode, PlayMode::kKickOffLeft);
}

}  // namespace
}  // namespace arena
