#include "arena/match/Match.h"

#include <gtest/gtest.h>

#include "tests/arena/match/Stage.h"

namespace arena {
namespace {

using test::contains;
using test::exactMatch;
using test::Stage;

TEST(Match, OnlyPlayersWithABodyAreSentMessages) {
  Stage stage;
  stage.say(1, "(scene rsg/agent/nao/nao.rsg)");
  stage.say(2, "(he1 1)");
  stage.play();
  ASSERT_EQ(stage.last().messages.size(), 1U);
  EXPECT_EQ(stage.last().messages[0].to, 1U);
}

TEST(Match, EffectorsBeforeTheBodyAreCountedAsMalformed) {
  Stage stage;
  stage.say(1, "(he1 1)(he2 1)(beam 0 0 0)(init (unum 1)(teamname Foo))(say x)");
  stage.play();
  stage.say(1, "(scene rsg/agent/nao/nao.rsg)");
  stage.play();
  EXPECT_EQ(stage.row("session 1").malformed, 5);
}

TEST(Match, ASecondBodyIsMalformed) {
  Stage stage;
  stage.say(1, "(scene rsg/agent/nao/nao.rsg)(scene rsg/agent/nao/nao.rsg)");
  stage.play();
  stage.say(1, "(scene rsg/agent/nao/nao.rsg)");
  stage.play();
  EXPECT_EQ(stage.row("session 1").malformed, 2);
  EXPECT_EQ(stage.last().messages.size(), 1U);
}

TEST(Match, ASecondInitIsMalformedAndChangesNothing) {
  Stage stage;
  stage.join(1, 1, "Foo");
  stage.play();
  stage.say(1, "(init (unum 2)(teamname Bar))");
  stage.play();
  EXPECT_EQ(stage.row("left 1").malformed, 1);
  EXPECT_TRUE(contains(stage.message(1), "(GS (unum 1) (team left) "));
}

TEST(Match, SidesGoByTeamName) {
  Stage stage;
  stage.join(1, 1, "Foo");
  stage.join(2, 1, "Bar");
  stage.play();
  EXPECT_TRUE(contains(stage.message(1), "(unum 1) (team left)"));
  EXPECT_TRUE(contains(stage.message(2), "(unum 1) (team right)"));
  EXPECT_TRUE(stage.happened("0.00 s  left 1 connected, team Foo"));
  EXPECT_TRUE(stage.happened("0.00 s  right 1 connected, team Bar"));
}

TEST(Match, ARobotStandsBehindTheTouchlineBeforeItsBeam) {
  Stage stage;
  stage.join(1, 1, "Foo");
  stage.play(50);
  const PlayerSummary row = stage.row("left 1");
  EXPECT_NEAR(row.lastPlace.x, -8.25, 0.01);
  EXPECT_NEAR(row.lastPlace.y, 6.6, 0.01);
  EXPECT_NEAR(row.lastPlace.headingDeg, -90, 1);
  EXPECT_TRUE(row.standing);
}

TEST(Match, BeamsAreMirroredForTheRight) {
  Stage stage(exactMatch(10, 10));
  stage.join(1, 2, "Foo");
  stage.join(2, 2, "Bar");
  stage.play();
  stage.say(1, "(beam -6.15 -0.50 30)");
  stage.say(2, "(beam -6.15 -0.50 30)");
  stage.play(2);
  // Both see the same, by the names of the other half: a half turn maps F1R onto F2L.
  const std::string left = stage.message(1);
  const std::string right = stage.message(2);
  const auto place = [](const std::string& message, const std::string& name) {
    const auto at = message.find("(" + name + " (pol ");
    return at == std::string::npos ? "unseen"
                                   : message.substr(at + 5, message.find(')', at) - at - 5);
  };
  EXPECT_NE(place(left, "F1R"), "unseen");
  EXPECT_EQ(place(left, "F1R"), place(right, "F2L"));
  EXPECT_EQ(place(left, "G1R"), place(right, "G2L"));
  EXPECT_TRUE(stage.happened("0.02 s  left 2 beamed to (-6.15, -0.50), facing 30 deg"));
  EXPECT_TRUE(stage.happened("0.02 s  right 2 beamed to (-6.15, -0.50), facing 30 deg"));
  EXPECT_LT(*metresOffBeam(stage.row("right 2")), 0.01);
}

TEST(Match, ARepeatedBeamIsNewsOnce) {
  Stage stage;
  stage.join(1, 2, "Foo");
  for (int i = 0; i < 5; ++i) {
    stage.say(1, "(beam -6.15 -0.50 -0)");
    stage.play();
  }
  stage.say(1, "(beam -6 -0.50 -0)");
  stage.play();
  EXPECT_EQ(stage.events(),
            (std::vector<std::string>{"0.00 s  play mode BeforeKickOff",
                                      "0.00 s  left 2 connected, team Foo",
                                      "0.00 s  left 2 beamed to (-6.15, -0.50), facing 0 deg",
                                      "0.10 s  left 2 beamed to (-6.00, -0.50), facing 0 deg"}));
  EXPECT_EQ(stage.row("left 2").beams, 6);
}

TEST(Match, BeamsWithoutAShirtOrInPlayOrOffTheFieldAreIgnoredAndCounted) {
  Stage stage(exactMatch(0.1, 30));
  stage.say(1, "(scene rsg/agent/nao/nao.rsg)(beam -3 0 0)");
  stage.play();
  EXPECT_EQ(stage.row("session 1").ignoredBeams, 1);
  stage.say(1, "(init (unum 1)(teamname Foo))(beam -300 0 0)");
  stage.play();
  EXPECT_EQ(stage.row("left 1").ignoredBeams, 2);
  stage.say(1, "(beam -3 0 0)");
  stage.play(3);  // the kick-off comes with cycle 5
  stage.play(49);
  stage.say(1, "(beam -4 0 0)");
  stage.play();
  EXPECT_EQ(stage.row("left 1").beams, 2) << "still in the first second of the kick-off";
  stage.say(1, "(beam -5 0 0)");
  stage.play();
  const PlayerSummary row = stage.row("left 1");
  EXPECT_EQ(row.ignoredBeams, 3);
  EXPECT_EQ(row.beams, 2);
  EXPECT_EQ(row.lastBeam->x, -4);
}

TEST(Match, ABeamOntoAnotherRobotIsIgnored) {
  Stage stage;
  stage.join(1, 1, "Foo");
  stage.join(2, 2, "Foo");
  stage.play();
  stage.say(1, "(beam -3 0 0)");
  stage.say(2, "(beam -3 0.2 0)");
  stage.play();
  EXPECT_EQ(stage.row("left 1").beams, 1);
  EXPECT_EQ(stage.row("left 2").ignoredBeams, 1);
  stage.say(2, "(beam -3 0.3 0)");
  stage.play();
  EXPECT_EQ(stage.row("left 2").beams, 1);
}

TEST(Match, TheStartPlacesOfATeamThatPlaysItselfAreAllObeyed) {
  const std::string beams[] = {"(beam -8.6 0 -0)", "(beam -6.15 -0.50 -0)", "(beam -6.15 0.50 -0)",
                               "(beam -3 3 -0)",   "(beam -.28 2.0 -0)",    "(beam -.15 0.05 -0)"};
  Stage stage;
  for (SessionId id = 1; id <= 12; ++id) stage.join(id, static_cast<int>((id - 1) % 6 + 1), "Foo");
  stage.play();
  for (int repeat = 0; repeat < 20; ++repeat) {
    for (SessionId id = 1; id <= 12; ++id) stage.say(id, beams[(id - 1) % 6]);
    stage.play();
  }
  stage.play(100);
  const Summary summary = stage.match().summary();
  ASSERT_EQ(summary.players.size(), 12U);
  for (const PlayerSummary& player : summary.players) {
    EXPECT_EQ(player.beams, 20) << player.name;
    EXPECT_TRUE(player.standing) << player.name;
    EXPECT_LT(*metresOffBeam(player), 0.02) << player.name;
  }
}

TEST(Match, AThirdTeamIsRefusedAndLeavesTheField) {
  Stage stage;
  stage.join(1, 1, "Foo");
  stage.join(2, 1, "Bar");
  stage.join(3, 1, "Baz");
  stage.play();
  EXPECT_EQ(stage.last().refused, std::vector<SessionId>{3});
  EXPECT_TRUE(stage.happened("0.00 s  session 3 refused: a third team, Baz"));
  EXPECT_EQ(stage.last().messages.size(), 2U);
}

TEST(Match, ANumberOutsideOneToSixIsRefused) {
  Stage stage;
  stage.join(1, 7, "Foo");
  stage.play();
  EXPECT_EQ(stage.last().refused, std::vector<SessionId>{1});
  EXPECT_TRUE(stage.happened("0.00 s  session 1 refused: shirt number 7 is outside 1 to 6"));
}

TEST(Match, ASeventhOfASideIsRefused) {
  Stage stage;
  stage.join(20, 1, "Bar");
  stage.play();
  for (SessionId id = 1; id <= 6; ++id) stage.join(id, static_cast<int>(id), "Foo");
  stage.join(7, 6, "Foo");
  stage.play();
  EXPECT_EQ(stage.last().refused, std::vector<SessionId>{7});
  EXPECT_TRUE(stage.happened("0.02 s  session 7 refused: number 6 of Foo is already playing"));
}

TEST(Match, AThirteenthBodyIsRefused) {
  Stage stage;
  for (SessionId id = 1; id <= 13; ++id) stage.say(id, "(scene rsg/agent/nao/nao.rsg)");
  stage.play();
  EXPECT_EQ(stage.last().refused, std::vector<SessionId>{13});
  EXPECT_TRUE(stage.happened("0.00 s  session 13 refused: the field is full, 12 robots"));
  EXPECT_EQ(stage.last().messages.size(), 12U);
}

TEST(Match, TheBodyOfOneRefusedAtOnceIsFreeForTheNextInTheSameCycle) {
  Stage stage;
  for (SessionId id = 1; id <= 11; ++id) stage.say(id, "(scene rsg/agent/nao/nao.rsg)");
  stage.play();
  stage.join(20, 7, "Foo");
  stage.join(21, 1, "Foo");
  stage.play();
  EXPECT_EQ(stage.last().refused, std::vector<SessionId>{20});
  EXPECT_EQ(stage.last().messages.size(), 12U);
  EXPECT_TRUE(contains(stage.message(21), "(GS (unum 1) (team left) "));
}

TEST(Match, APlayerThatGoesTakesItsRobotAlongAndFreesItsShirt) {
  Stage stage(exactMatch(10, 10));
  stage.join(1, 1, "Foo");
  stage.join(2, 2, "Foo");
  stage.play();
  stage.say(1, "(beam -3 0 0)");
  stage.say(2, "(beam -5 0 0)");
  stage.play(2);
  EXPECT_TRUE(contains(stage.message(2), "(P (team Foo) (id 1) (head (pol 2.00 "));
  stage.drop(1, "the player closed the connection");
  stage.play(3);
  EXPECT_FALSE(contains(stage.message(2), "(P "));
  EXPECT_TRUE(stage.happened("0.06 s  left 1 dropped: the player closed the connection"));
  const PlayerSummary gone = stage.row("left 1");
  EXPECT_EQ(gone.leftAt, 0.06);
  EXPECT_EQ(gone.whyLeft, "the player closed the connection");
  stage.join(3, 1, "Foo");
  stage.play();
  EXPECT_TRUE(contains(stage.message(3), "(GS (unum 1) (team left) "));
}

TEST(Match, ASessionThatGoesWithoutABodyIsCounted) {
  Stage stage;
  stage.drop(4, "a broken frame");
  EXPECT_TRUE(stage.happened("0.00 s  session 4 dropped: a broken frame"));
  stage.play();  // the record of the next cycle has it
  EXPECT_EQ(stage.match().summary().sessionsWithoutBody, 1);
}

TEST(Match, AnUnansweredMessageIsALateAnswer) {
  Stage stage;
  stage.join(1, 1, "Foo");
  stage.play();  // nothing was asked before: not late
  for (int i = 0; i < 5; ++i) {
    stage.say(1, "");
    stage.play();
  }
  EXPECT_EQ(stage.row("left 1").lateAnswers, 0);
  stage.play(3);
  EXPECT_EQ(stage.row("left 1").lateAnswers, 3);
}

TEST(Match, AFallIsToldOnceAndABeamIsNoGettingUp) {
  MatchSettings settings;
  settings.referee.waitSeconds = 60;
  Stage stage(settings);
  stage.join(1, 1, "Foo");
  stage.play();
  // Both thighs forward at full speed: it sits down backwards within a second or two.
  stage.say(1, "(lle3 7)(rle3 7)(lle5 3)(rle5 3)");
  stage.play(150);
  EXPECT_EQ(stage.row("left 1").falls, 1);
  EXPECT_FALSE(stage.row("left 1").standing);
  const auto told = std::count_if(stage.events().begin(), stage.events().end(),
                                  [](const std::string& line) { return contains(line, "fell"); });
  EXPECT_EQ(told, 1);
  stage.say(1, "(beam -3 0 0)");
  stage.play(10);
  EXPECT_TRUE(stage.row("left 1").standing);
  EXPECT_EQ(stage.row("left 1").getUps, 0);
}

TEST(Match, TouchingTheBallStartsPlay) {
  Stage stage(exactMatch(0.2, 10));
  stage.join(1, 6, "Foo");
  stage.play();
  // The feet reach 0.13 m before the torso's origin: the ball lies against them.
  stage.say(1, "(beam -0.16 0.05 0)");
  stage.play(60);
  EXPECT_TRUE(contains(stage.message(1), "(pm KickOff_Left)"));
  stage.say(1, "(rle3 3)(lle3 3)");
  stage.play(60);
  EXPECT_TRUE(contains(stage.message(1), "(pm PlayOn)")) << stage.message(1);
}

TEST(Match, ThePlayIsToldFromBeginningToEnd) {
  Stage stage(exactMatch(0.1, 0.2));
  stage.join(1, 1, "Foo");
  stage.play(2 * (5 + 10) + 49);
  EXPECT_FALSE(stage.match().finished());
  stage.play();
  EXPECT_TRUE(stage.match().finished());
  EXPECT_EQ(stage.events(),
            (std::vector<std::string>{
                "0.00 s  play mode BeforeKickOff", "0.00 s  left 1 connected, team Foo",
                "0.10 s  play mode KickOff_Left", "0.30 s  half time, 0:0",
                "0.30 s  play mode BeforeKickOff", "0.40 s  play mode KickOff_Right",
                "0.60 s  full time, 0:0", "0.60 s  play mode GameOver"}));
  EXPECT_TRUE(contains(stage.message(1), "(t 0.40) (pm GameOver)"));
  EXPECT_TRUE(stage.match().summary().finished);
}

TEST(Match, TheSummaryIsSortedBySideAndNumber) {
  Stage stage;
  stage.join(1, 5, "Foo");
  stage.join(2, 2, "Bar");
  stage.say(3, "(scene rsg/agent/nao/nao.rsg)");
  stage.join(4, 3, "Foo");
  stage.play();
  std::vector<std::string> names;
  for (const PlayerSummary& player : stage.match().summary().players) names.push_back(player.name);
  EXPECT_EQ(names, (std::vector<std::string>{"left 3", "left 5", "right 2", "session 3"}));
}

}  // namespace
}  // namespace arena
