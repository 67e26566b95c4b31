#include "arena/link/Effectors.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace arena {
namespace {

Commands read(std::string_view frame) {
  Commands commands;
  EXPECT_TRUE(readEffectors(frame, commands)) << frame;
  return commands;
}

std::optional<double> speedOf(const Commands& commands, std::string_view effector) {
  return commands.jointSpeeds[rowOfEffector(effector)];
}

TEST(Effectors, AllTwentyTwoJointsAreKnown) {
  const std::string_view names[] = {"he1",  "he2",  "lae1", "lae2", "lae3", "lae4", "rae1", "rae2",
                                    "rae3", "rae4", "lle1", "lle2", "lle3", "lle4", "lle5", "lle6",
                                    "rle1", "rle2", "rle3", "rle4", "rle5", "rle6"};
  std::string frame;
  double speed = 0.5;
  for (const auto name : names)
    frame += "(" + std::string(name) + " " + std::to_string(speed++) + ")";
  const Commands commands = read(frame);
  EXPECT_EQ(commands.malformed, 0);
  speed = 0.5;
  for (const auto name : names) EXPECT_EQ(speedOf(commands, name), speed++) << name;
}

TEST(Effectors, NumbersComeInEveryUsualForm) {
  const Commands commands =
      read("(he1 -.28)(he2 2.0)(lae1 -0)(lae2 1e-05)(lae3 -3)(lae4 +1.5)(rae1 5.)(rae2 -1.5E+2)");
  EXPECT_EQ(commands.malformed, 0);
  EXPECT_EQ(speedOf(commands, "he1"), -0.28);
  EXPECT_EQ(speedOf(commands, "he2"), 2);
  EXPECT_EQ(speedOf(commands, "lae1"), 0);
  EXPECT_EQ(speedOf(commands, "lae2"), 0.00001);
  EXPECT_EQ(speedOf(commands, "lae3"), -3);
  EXPECT_EQ(speedOf(commands, "lae4"), 1.5);
  EXPECT_EQ(speedOf(commands, "rae1"), 5);
  EXPECT_EQ(speedOf(commands, "rae2"), -150);
}

TEST(Effectors, TheLastValueOfAFrameAndOfSeveralFramesCounts) {
  Commands commands;
  EXPECT_TRUE(readEffectors("(lle3 0)(lle3 1.5)(rle3 2)", commands));
  EXPECT_TRUE(readEffectors("(rle3 0)", commands));
  EXPECT_EQ(speedOf(commands, "lle3"), 1.5);
  EXPECT_EQ(speedOf(commands, "rle3"), 0);
  EXPECT_FALSE(speedOf(commands, "he1"));
  EXPECT_EQ(commands.frames, 2);
}

TEST(Effectors, NonFiniteNumbersAreSkippedAndCounted) {
  const Commands commands = read(
      "(he1 nan)(he1 inf)(he1 -inf)(he1 1e999)(he1 infinity)(beam nan 0 0)(beam 0 0 1e999)(he2 1)");
  EXPECT_EQ(commands.malformed, 7);
  EXPECT_FALSE(speedOf(commands, "he1"));
  EXPECT_FALSE(commands.beam);
  EXPECT_EQ(speedOf(commands, "he2"), 1);
}

TEST(Effectors, AMalformedOneCostsOnlyItself) {
  const Commands commands = read(
      "(he1)(he1 )(he1 x)(he1 1 2)(he1 0x10)(he1 1,5)(he1 --1)(he1 +-1)(he9 1)(HE1 1)()(he1 (1))"
      "(unknown effector)loose(he2 0.25)");
  EXPECT_EQ(commands.malformed, 14);
  EXPECT_FALSE(speedOf(commands, "he1"));
  EXPECT_EQ(speedOf(commands, "he2"), 0.25);
}

TEST(Effectors, ABodyIsAskedForByItsName) {
  EXPECT_EQ(read("(scene rsg/agent/nao/nao.rsg)").scenes, 1);
  const Commands other = read("(scene rsg/agent/other.rsg)(scene)(scene rsg/agent/nao/nao.rsg 1)");
  EXPECT_EQ(other.scenes, 0);
  EXPECT_EQ(other.malformed, 3);
}

TEST(Effectors, InitHasNumberAndTeam) {
  const Commands commands = read("(init (unum 3)(teamname Kolu-Otters))");
  ASSERT_TRUE(commands.init);
  EXPECT_EQ(commands.init->number, 3);
  EXPECT_EQ(commands.init->team, "Kolu-Otters");
  EXPECT_EQ(commands.malformed, 0);
}

TEST(Effectors, InitMayBeSpacedAndOrderedOtherwise) {
  const Commands commands = read("( init  (teamname Foo) (unum 6) )");
  ASSERT_TRUE(commands.init);
  EXPECT_EQ(commands.init->number, 6);
  EXPECT_EQ(commands.init->team, "Foo");
}

TEST(Effectors, AnyWholeNumberIsPassedOnForTheRosterToJudge) {
  EXPECT_EQ(read("(init (unum 0)(teamname Foo))").init->number, 0);
  EXPECT_EQ(read("(init (unum -7)(teamname Foo))").init->number, -7);
}

TEST(Effectors, InitWithoutNumberOrTeamIsMalformed) {
  for (const auto* frame :
       {"(init (unum )(teamname Foo))", "(init (unum 1))", "(init (teamname Foo))", "(init)",
        "(init (unum 1.5)(teamname Foo))", "(init (unum 1)(teamname))", "(init 1 Foo)",
        "(init (unum 99999999999)(teamname Foo))", "(init (unum 1)(teamname two words))",
        "(init (unum 1)(teamname (a)))", "(init (unum 1)(teamname \x01))",
        "(init (unum 1)(teamname 123456789012345678901234567890123))"}) {
    const Commands commands = read(frame);
    EXPECT_FALSE(commands.init) << frame;
    EXPECT_EQ(commands.malformed, 1) << frame;
  }
}

TEST(Effectors, BeamHasThreeNumbers) {
  const Commands commands = read("(beam -.28 2.0 -0)");
  ASSERT_TRUE(commands.beam);
  EXPECT_EQ(commands.beam->x, -0.28);
  EXPECT_EQ(commands.beam->y, 2);
  EXPECT_EQ(commands.beam->angleDeg, 0);
}

TEST(Effectors, ABeamWithHolesIsMalformed) {
  EXPECT_EQ(read("(beam   -0)").malformed, 1);
  EXPECT_EQ(read("(beam 1 2)").malformed, 1);
  EXPECT_EQ(read("(beam 1 2 3 4)").malformed, 1);
}

TEST(Effectors, SayIsOneVisibleWord) {
  EXPECT_EQ(read("(say |,2,1.50,-0.25,3.00)").say, "|,2,1.50,-0.25,3.00");
  EXPECT_EQ(read("(say ~,9,1.5,-0.25)").say, "~,9,1.5,-0.25");
  EXPECT_EQ(read("(say a)(say b)").say, "b");
  EXPECT_EQ(read("(say " + std::string(64, 'x') + ")").say, std::string(64, 'x'));
}

TEST(Effectors, ASayThatCouldBreakAnothersMessageIsMalformed) {
  for (const std::string& frame :
       {std::string("(say )"), std::string("(say)"), std::string("(say two words)"),
        std::string("(say (o 1:2:3))"), std::string("(say a(b)c)"), std::string("(say \xc3\xa4)"),
        std::string("(say a\0b)", 9), "(say " + std::string(65, 'x') + ")"}) {
    const Commands commands = read(frame);
    EXPECT_FALSE(commands.say) << frame;
    EXPECT_EQ(commands.malformed, 1) << frame;
  }
}

TEST(Effectors, AnEmptyFrameIsAFrame) {
  const Commands commands = read("");
  EXPECT_EQ(commands.frames, 1);
  EXPECT_EQ(commands.malformed, 0);
}

TEST(Effectors, AFrameThatDoesNotBalanceChangesNothing) {
  for (const auto* frame : {"(he1 1", "(he1 1))", "he1 1)", "(he1 1)(", ")(he1 1)("}) {
    Commands commands;
    EXPECT_FALSE(readEffectors(frame, commands)) << frame;
    EXPECT_FALSE(speedOf(commands, "he1"));
    EXPECT_EQ(commands.frames, 0);
  }
}

TEST(Effectors, TheIdleMessageOfAPlayerIsUnderstood) {
  const Commands commands = read(
      "(he2 0)(rae1 0)(rae2 0)(rae3 0)(rae4 0)(lae1 0)(lae2 0)(lae3 0)(lae4 0)(rle1 0)(rle2 0)"
      "(rle3 0)(rle4 0)(rle5 0)(rle6 0)(lle1 0)(lle2 0)(lle3 0)(lle4 0)(lle5 0)(lle6 0)"
      "(init (unum 3)(teamname Kolu-Otters))");
  EXPECT_EQ(commands.malformed, 0);
  EXPECT_EQ(std::count(commands.jointSpeeds.begin(), commands.jointSpeeds.end(), 0.0), 21);
  EXPECT_FALSE(speedOf(commands, "he1"));
  EXPECT_TRUE(commands.init);
}

}  // namespace
}  // namespace arena
