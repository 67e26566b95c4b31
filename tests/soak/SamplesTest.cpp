#include "soak/Samples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

namespace soak {
namespace {

using testing::HasSubstr;

TEST(Samples, OneLineIsOneLookAtOneProcess) {
  std::istringstream file("12.5\tleft-3\t5400 851 540\n13.5\tplay\t3520 709 492\n");
  const auto samples = samplesIn(file, "x");
  ASSERT_EQ(samples.size(), 2U);
  EXPECT_EQ(samples[0].time, 12.5);
  EXPECT_EQ(samples[0].process, "left-3");
  EXPECT_EQ(samples[0].residentKb, 5400);
  EXPECT_EQ(samples[0].sharedOutKb, 851);
  EXPECT_EQ(samples[0].ownKb, 540);
  EXPECT_EQ(samples[1].process, "play");
}

TEST(Samples, BrokenLineIsNamedWithItsPlace) {
  std::istringstream file("12.5\tleft-3\t5400 851 540\n13.5\tplay\t3520\n");
  try {
    (void)samplesIn(file, "long.samples");
    FAIL() << "nothing thrown";
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), HasSubstr("long.samples:2: "));
  }
}

TEST(Lines, KeepTheirTextAsItIs) {
  std::istringstream file("7.25\t1.00 s  left 3 fell\n8\t\n");
  const auto lines = linesIn(file, "x");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].time, 7.25);
  EXPECT_EQ(lines[0].text, "1.00 s  left 3 fell");
  EXPECT_EQ(lines[1].text, "");
}

TEST(Lines, WithoutATimeAreRefused) {
  std::istringstream file("left 3 fell\n");
  EXPECT_THROW((void)linesIn(file, "x"), std::runtime_error);
}

TEST(Lines, EventTellsItsCycle) {
  EXPECT_EQ(cycleOf("12.34 s  left 3 fell"), 617);
  EXPECT_EQ(cycleOf("0.00 s  play mode BeforeKickOff"), 0);
  EXPECT_EQ(cycleOf("play: left 3 is started again"), std::nullopt);
  EXPECT_EQ(cycleOf("left 1         0     0    0.0 s"), std::nullopt);
  EXPECT_EQ(cycleOf(""), std::nullopt);
}

// 100 cycles in the first 10 s, none seen for a while, then 300 in 10 s.
TEST(Progress, LiesBetweenEventsInProportionToTheTime) {
  const Progress progress({{5, "listening on 127.0.0.1:3100"},
                           {10, "0.00 s  a"},
                           {20, "2.00 s  b"},
                           {20.5, "2.00 s  c"},
                           {30, "8.00 s  d"}});
  EXPECT_EQ(progress.cycleAt(4), 0);
  EXPECT_EQ(progress.cycleAt(15), 50);
  EXPECT_EQ(progress.cycleAt(20), 100);
  EXPECT_EQ(progress.cycleAt(25), 250);
  EXPECT_EQ(progress.cycleAt(99), 400);
  EXPECT_EQ(progress.last(), 400);
}

TEST(Progress, WithoutEventsIsNone) {
  const Progress progress({{5, "listening on 127.0.0.1:3100"}});
  EXPECT_EQ(progress.cycleAt(7), 0);
  EXPECT_EQ(progress.last(), 0);
}

}  // namespace
}  // namespace soak
