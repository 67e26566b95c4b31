#include "viewer/server/Playhead.h"

#include <gtest/gtest.h>

#include <cmath>

namespace arena::view {
namespace {

constexpr Span kSpan{100, 1000};

TEST(Playhead, RecordPlaysFromItsStartAtRealTime) {
  Playhead head(/*grows=*/false);
  head.advance(0, kSpan);
  EXPECT_EQ(head.cycle(), 100);
  head.advance(2, kSpan);
  EXPECT_EQ(head.cycle(), 200);  // fifty cycles a second
}

TEST(Playhead, LiveFollowsTheEnd) {
  Playhead head(/*grows=*/true);
  head.advance(0.01, kSpan);
  EXPECT_EQ(head.cycle(), 1000);
  head.advance(0.01, {150, 1050});
  EXPECT_EQ(head.cycle(), 1050);
}

TEST(Playhead, SpeedScalesTime) {
  Playhead head(false);
  head.setSpeed(4);
  head.advance(1, kSpan);
  EXPECT_EQ(head.cycle(), 300);
  head.setSpeed(0.5);
  head.advance(2, kSpan);
  EXPECT_EQ(head.cycle(), 350);
}

TEST(Playhead, SpeedIsCutToWhatItMayBe) {
  Playhead head(false);
  head.setSpeed(1e9);
  EXPECT_EQ(head.speed(), kFastest);
  head.setSpeed(-1);
  EXPECT_EQ(head.speed(), kSlowest);
  head.setSpeed(std::nan(""));
  EXPECT_EQ(head.speed(), kSlowest);
}

TEST(Playhead, PausedStaysWhereItIs) {
  Playhead head(true);
  head.advance(0, kSpan);
  head.pause();
  head.advance(5, {100, 1250});
  EXPECT_EQ(head.cycle(), 1000);
}

TEST(Playhead, PausedIsPushedOnWhenItsMinuteIsForgotten) {
  Playhead head(true);
  head.advance(0, kSpan);
  head.pause();
  head.advance(1, {1200, 4200});
  EXPECT_EQ(head.cycle(), 1200);
}

TEST(Playhead, StepPausesAndGoesByCycles) {
  Playhead head(false);
  head.advance(1, kSpan);
  head.step(-3, kSpan);
  EXPECT_EQ(head.cycle(), 147);
  EXPECT_EQ(head.pace(), Pace::kPaused);
  head.step(5000, kSpan);
  EXPECT_EQ(head.cycle(), 1000);
}

TEST(Playhead, SeekInALiveMatchPlaysOnFromThereAndCatchesUp) {
  Playhead head(true);
  head.advance(0, kSpan);
  head.seek(900, kSpan);
  EXPECT_EQ(head.pace(), Pace::kPlays);
  head.setSpeed(2);
  head.advance(0.5, {100, 1025});
  EXPECT_EQ(head.cycle(), 950);
  head.advance(1, {100, 1050});
  EXPECT_EQ(head.cycle(), 1050);
  EXPECT_EQ(head.pace(), Pace::kLive);
}

TEST(Playhead, SeekIsKeptWithinTheSpan) {
  Playhead head(false);
  head.seek(-7, kSpan);
  EXPECT_EQ(head.cycle(), 100);
  head.seek(99'999, kSpan);
  EXPECT_EQ(head.cycle(), 1000);
}

TEST(Playhead, RecordStopsAtItsEndAndBeginsAnewOnPlay) {
  Playhead head(false);
  head.advance(1000, kSpan);
  EXPECT_EQ(head.cycle(), 1000);
  EXPECT_EQ(head.pace(), Pace::kPaused);
  head.play(kSpan);
  EXPECT_EQ(head.cycle(), 100);
  EXPECT_EQ(head.pace(), Pace::kPlays);
}

TEST(Playhead, LiveGoesToTheEndOfARecordAndStaysThere) {
  Playhead head(false);
  head.live(kSpan);
  EXPECT_EQ(head.cycle(), 1000);
  EXPECT_EQ(head.pace(), Pace::kPaused);
}

}  // namespace
}  // namespace arena::view
