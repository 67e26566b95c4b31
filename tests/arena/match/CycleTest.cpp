// The contract of one cycle: commands act, the world moves by 0.02 s, the referee rules, messages
// are made from what is there then.

#include <gtest/gtest.h>

#include "tests/arena/match/Stage.h"

namespace arena {
namespace {

using test::contains;
using test::exactMatch;
using test::Stage;

TEST(Cycle, TheFirstMessageIsOfTheEndOfTheFirstCycle) {
  Stage stage;
  stage.say(1, "(scene rsg/agent/nao/nao.rsg)");
  stage.play();
  EXPECT_TRUE(contains(stage.message(1), "(time (now 0.02))"));
  stage.play(2);
  EXPECT_TRUE(contains(stage.message(1), "(time (now 0.06))"));
}

TEST(Cycle, ACommandShowsInTheMessageThatEndsItsCycle) {
  Stage stage;
  stage.join(1, 1, "Foo");
  stage.play();
  EXPECT_TRUE(contains(stage.message(1), "(HJ (n hj1) (ax 0.00))"));
  // 5 rad/s for 0.02 s is 5.73 degrees, less the time in which the servo takes up speed.
  stage.say(1, "(he1 5)");
  stage.play();
  const std::string message = stage.message(1);
  const double angle = std::stod(message.substr(message.find("(n hj1) (ax ") + 12));
  EXPECT_GT(angle, 2);
  EXPECT_LT(angle, 5.74);
}

TEST(Cycle, ASpeedIsKeptUntilTheNextOne) {
  Stage stage;
  stage.join(1, 1, "Foo");
  stage.say(1, "(he1 1)");
  stage.play(26);
  stage.say(1, "(he1 0)");
  stage.play(10);
  const std::string message = stage.message(1);
  // 26 cycles of 0.02 s at 1 rad/s are 29.8 degrees.
  EXPECT_NEAR(std::stod(message.substr(message.find("(n hj1) (ax ") + 12)), 29.8, 0.5);
}

TEST(Cycle, ABeamShowsInTheMessageThatEndsItsCycle) {
  // Cycle 3 is one for looking: from (-3, 0.5), looking along the attack, the left corner ahead
  // lies at atan(5.5 / 12) and the right one at -atan(6.5 / 12).
  Stage stage(exactMatch(10, 10));
  stage.join(1, 4, "Foo");
  stage.play(2);
  stage.say(1, "(beam -3 0.5 0)");
  stage.play();
  EXPECT_TRUE(contains(stage.message(1), "(F1R (pol 13.21 24.62 ")) << stage.message(1);
  EXPECT_TRUE(contains(stage.message(1), "(F2R (pol 13.66 -28.44 "));
}

TEST(Cycle, WhatIsSaidIsHeardAtItsEndAndOnlyThen) {
  Stage stage;
  stage.join(1, 1, "Foo");
  stage.join(2, 2, "Foo");
  stage.play();
  stage.say(1, "(say hello)");
  stage.play();
  EXPECT_TRUE(contains(stage.message(1), "(hear 0.04 self hello)"));
  EXPECT_TRUE(contains(stage.message(2), " hello)"));
  stage.play();
  EXPECT_FALSE(contains(stage.message(1), "hear"));
}

TEST(Cycle, AModeShowsInTheCycleThatBringsIt) {
  Stage stage(exactMatch(0.1, 10));
  stage.join(1, 1, "Foo");
  stage.play(4);
  EXPECT_TRUE(contains(stage.message(1), "(pm BeforeKickOff)"));
  stage.play();
  EXPECT_TRUE(contains(stage.message(1), "(t 0.00) (pm KickOff_Left)"));
  stage.play();
  EXPECT_TRUE(contains(stage.message(1), "(t 0.02) (pm KickOff_Left)"));
}

TEST(Cycle, SightComesInEveryThirdForAll) {
  Stage stage;
  stage.join(1, 1, "Foo");
  stage.play();
  stage.join(2, 2, "Foo");
  for (int cycle = 2; cycle <= 9; ++cycle) {
    stage.play();
    EXPECT_EQ(contains(stage.message(1), "(See"), cycle % 3 == 0) << cycle;
    EXPECT_EQ(contains(stage.message(2), "(See"), cycle % 3 == 0) << cycle;
  }
}

/// A lively match of 2 s: two robots that move, talk and fall. All messages of session 1.
std::vector<std::string> lively(std::uint64_t seed) {
  MatchSettings settings;
  settings.senses.seed = seed;
  settings.referee.waitSeconds = 0.5;
  Stage stage(settings);
  stage.join(1, 1, "Foo");
  stage.join(2, 5, "Bar");
  std::vector<std::string> messages;
  for (int cycle = 0; cycle < 100; ++cycle) {
    if (cycle < 20) stage.say(1, "(beam -0.5 0 0)");
    if (cycle < 20) stage.say(2, "(beam -0.6 0.1 0)");
    if (cycle > 20) stage.say(1, "(lle3 2)(rle3 2)(say a)");
    if (cycle > 30) stage.say(2, "(lle4 -1)(rle5 1)(he1 1)(say b)");
    stage.play();
    messages.push_back(stage.message(1));
  }
  return messages;
}

TEST(Cycle, EqualSeedsAndCommandsGiveEqualMessages) {
  EXPECT_EQ(lively(3), lively(3));
}

TEST(Cycle, AnotherSeedChangesWhatIsSeenAndNothingElse) {
  const auto a = lively(3);
  const auto b = lively(4);
  ASSERT_EQ(a.size(), b.size());
  for (std::size_t i = 0; i < a.size(); ++i) {
    const bool looks = (i + 1) % 3 == 0;
    EXPECT_EQ(a[i] == b[i], !looks) << i;
    EXPECT_EQ(a[i].substr(0, a[i].find("(See")), b[i].substr(0, b[i].find("(See"))) << i;
  }
}

}  // namespace
}  // namespace arena
