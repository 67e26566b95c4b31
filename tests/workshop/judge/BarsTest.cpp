#include "workshop/judge/Bars.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace workshop {
namespace {

Figures turned(double degrees, bool stands = true, bool fell = false) {
  Figures figures;
  figures.turnDeg = degrees;
  figures.stands = stands;
  figures.fell = fell;
  return figures;
}

double turn(const Figures& figures) {
  return figures.turnDeg;
}

TEST(Bars, StandingMeansNeverFallenAndUpAtTheEnd) {
  const std::array trials{turned(10), turned(20), turned(900, false), turned(900, true, true)};
  EXPECT_EQ(only(trials, isStanding).size(), 2U);
}

TEST(Bars, MeanLiesBetweenItsBounds) {
  const std::array trials{turned(10), turned(20)};
  const Bar bar = meanWithin(trials, turn, 12, 18, 1, "deg");
  EXPECT_TRUE(bar.met);
  EXPECT_EQ(bar.measured, "15.0 deg");
  EXPECT_EQ(bar.wanted, "12.0 to 18.0 deg");
  EXPECT_FALSE(meanWithin(trials, turn, 15.1, 18, 1, "deg").met);
  EXPECT_FALSE(meanWithin(trials, turn, 12, 14.9, 1, "deg").met);
}

TEST(Bars, BoundsBelongToThem) {
  const std::array trials{turned(15)};
  EXPECT_TRUE(meanWithin(trials, turn, 15, 18, 1, "").met);
  EXPECT_TRUE(meanWithin(trials, turn, 12, 15, 1, "").met);
  EXPECT_TRUE(meanAtLeast(trials, turn, 15, 1, "").met);
  EXPECT_FALSE(meanAtLeast(trials, turn, 15.01, 1, "").met);
  EXPECT_TRUE(magnitudeAtMost(trials, turn, 15, 1, "").met);
}

TEST(Bars, MagnitudesDoNotCancel) {
  const std::array trials{turned(-10), turned(10)};
  EXPECT_EQ(magnitudeAtMost(trials, turn, 12, 1, "deg").measured, "10.0 deg");
  EXPECT_TRUE(magnitudeAtMost(trials, turn, 12, 1, "deg").met);
  EXPECT_FALSE(magnitudeAtMost(trials, turn, 9, 1, "deg").met);
}

TEST(Bars, OfNoTrialsNoBarIsMet) {
  EXPECT_FALSE(meanWithin({}, turn, 0, 90, 1, "").met);
  EXPECT_FALSE(meanAtLeast({}, turn, 0, 1, "").met);
  EXPECT_FALSE(magnitudeAtMost({}, turn, 90, 1, "").met);
  EXPECT_FALSE(spreadAtMost({}, turn, 90, 1, "").met);
}

TEST(Bars, SpreadIsThatOfASample) {
  // 5 times 8 and 5 times 12: the squares add up to 40, over 9 that is 4.44, its root 2.108.
  std::vector<Figures> trials(5, turned(8));
  trials.insert(trials.end(), 5, turned(12));
  const Bar bar = spreadAtMost(trials, turn, 2.2, 2, "deg");
  EXPECT_EQ(bar.measured, "spread 2.11 deg");
  EXPECT_TRUE(bar.met);
  EXPECT_FALSE(spreadAtMost(trials, turn, 2.1, 2, "deg").met);
}

TEST(Bars, FewTrialsSayNothingAboutASpread) {
  const std::vector trials{turned(-50), turned(50)};
  EXPECT_TRUE(spreadAtMost(trials, turn, 1, 1, "deg").met);
}

TEST(Bars, ShareIsOfAllTrialsRoundedDown) {
  std::vector<Figures> trials(18, turned(0));
  trials.insert(trials.end(), 2, turned(0, false));
  EXPECT_TRUE(shareOf(trials, isStanding, 0.9, "stands in").met);
  EXPECT_EQ(shareOf(trials, isStanding, 0.9, "stands in").measured, "stands in 18 of 20");
  EXPECT_FALSE(shareOf(trials, isStanding, 0.95, "").met);
  // 39 of 40, and so 3 of 4.
  std::vector<Figures> few(3, turned(0));
  few.push_back(turned(0, false));
  EXPECT_TRUE(shareOf(few, isStanding, 0.975, "").met);
  EXPECT_FALSE(shareOf(few, isStanding, 1, "").met);
  EXPECT_FALSE(shareOf({}, isStanding, 0, "").met);
}

}  // namespace
}  // namespace workshop
