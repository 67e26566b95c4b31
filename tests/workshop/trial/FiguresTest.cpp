#include "workshop/trial/Figures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <stdexcept>
#include <vector>

namespace workshop {
namespace {

/// A robot that stands at X, Y and looks along HEADING, one second of it.
std::vector<Sample> standing(double x, double y, double heading) {
  std::vector<Sample> series(50);
  for (std::size_t i = 0; i < series.size(); ++i) {
    series[i].time = 0.02 * static_cast<double>(i + 1);
    series[i].torso = {x, y, 0.36};
    series[i].headingDeg = heading;
    series[i].step = 0;
  }
  return series;
}

TEST(Figures, AreSeenFromTheStart) {
  auto series = standing(2, 3, 90);
  series.back().torso = {1.9, 3.5, 0.36};
  series.back().headingDeg = 90 + 370;
  const Figures f = measure(series, 1);
  EXPECT_NEAR(f.forward, 0.5, 1e-12);
  EXPECT_NEAR(f.left, 0.1, 1e-12);
  EXPECT_NEAR(f.turnDeg, 370, 1e-12);
}

TEST(Figures, LeaveOutWhatCameBeforeTheFirstStep) {
  auto series = standing(2, 3, 0);
  for (std::size_t i = 0; i < 10; ++i) {
    series[i].step = -1;
    series[i].torso[0] = -5;
    series[i].tiltDeg = 80;
  }
  for (std::size_t i = 30; i < 50; ++i) series[i].step = 1;
  const Figures f = measure(series, 1);
  EXPECT_NEAR(f.forward, 0, 1e-12);
  EXPECT_EQ(f.maxTiltDeg, 0);
  EXPECT_NEAR(f.duration, 20 * 0.02, 1e-9);
}

TEST(Figures, RobotStandsIfItWasUprightThroughTheLastHalfSecond) {
  auto series = standing(0, 0, 0);
  EXPECT_TRUE(measure(series, 1).stands);
  auto tilted = series;
  tilted[24].tiltDeg = 40;
  EXPECT_TRUE(measure(tilted, 1).stands);
  tilted[25].tiltDeg = 40;
  EXPECT_FALSE(measure(tilted, 1).stands);
  auto low = series;
  low.back().torso[2] = 0.2;
  EXPECT_FALSE(measure(low, 1).stands);
  auto alarmed = series;
  alarmed.back().bodyState = 2;
  EXPECT_FALSE(measure(alarmed, 1).stands);
}

TEST(Figures, WalkIsMeasuredAlongTheHeadingOfEachMoment) {
  // A circle to the left, 10 degrees and 1 cm a cycle: no way at all from where it began.
  auto series = standing(0, 0, 0);
  series.resize(37);
  double x = 0;
  double y = 0;
  for (std::size_t i = 0; i < series.size(); ++i) {
    const double heading = 10 * static_cast<double>(i) * std::numbers::pi / 180;
    if (i > 0) {
      x += 0.01 * std::cos(heading);
      y += 0.01 * std::sin(heading);
    }
    series[i].torso = {x, y, 0.36};
    series[i].headingDeg = 10 * static_cast<double>(i);
    series[i].walking = true;
  }
  const Figures f = measure(series, 1);
  EXPECT_NEAR(f.walkSpeed, 0.5, 1e-9);
  EXPECT_NEAR(f.walkDriftDegPerSec, 500, 1e-6);
  EXPECT_NEAR(f.walkSeconds, 36 * 0.02, 1e-9);
  EXPECT_NEAR(f.forward, 0, 1e-9);
}

TEST(Figures, BallCountsOnceItHasLeftTheFoot) {
  auto series = standing(0, 0, 90);
  series[10].ballTouched = true;
  series[10].ballVelocity = {0, 9, 0};  // still pushed
  series[11].ballVelocity = {0, 3, 4};
  series[12].ballVelocity = {-2.5, 2.5, 0};
  series.back().ball = {0.3, 0.4, 0};
  const Figures f = measure(series, 1);
  EXPECT_NEAR(f.ballSpeed, std::hypot(2.5, 2.5), 1e-9);
  EXPECT_NEAR(f.ballDirectionDeg, 45, 1e-9);
  EXPECT_NEAR(f.ballDistance, 0.5, 1e-9);
}

TEST(Figures, BallThatRollsByItselfDoesNotCount) {
  auto series = standing(0, 0, 0);
  series[5].ballVelocity = {1, 0, 0};
  EXPECT_EQ(measure(series, 1).ballSpeed, 0);
}

TEST(Figures, ReachIsTakenWithinOneSecond) {
  auto series = standing(0, 0, 0);
  series.resize(80, series.back());
  for (std::size_t i = 0; i < series.size(); ++i) series[i].time = 0.02 * static_cast<double>(i);
  series[50].reachLeft = 0.4;
  series[51].reachLeft = 0.7;
  series[20].reachRight = 0.6;
  const Figures f = measure(series, 1);
  EXPECT_EQ(f.reachLeft, 0.4);
  EXPECT_EQ(f.reachRight, 0.6);
}

TEST(Figures, NeedAStep) {
  EXPECT_THROW((void)measure({}, 1), std::invalid_argument);
}

}  // namespace
}  // namespace workshop
