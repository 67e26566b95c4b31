#include "arena/main/Summary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "arena/main/Event.h"

namespace arena {
namespace {

Summary aMatch() {
  Summary summary;
  summary.seconds = 35;
  summary.clock = 20;
  summary.mode = PlayMode::kGameOver;
  summary.finished = true;
  PlayerSummary player;
  player.name = "left 3";
  player.shirt = Shirt{Side::kLeft, 3};
  player.team = "Foo";
  player.lastBeam = TeamPlace{-6.15, 0.5, 0};
  player.lastPlace = {-6.12, 0.54, 1};
  player.beams = 500;
  player.ignoredBeams = 12;
  player.falls = 2;
  player.getUps = 1;
  player.lateAnswers = 4;
  player.malformed = 5;
  player.standing = false;
  summary.players.push_back(player);
  return summary;
}

TEST(Event, LineHasTheTimeInFront) {
  EXPECT_EQ(lineOf({12.34, "left 3 connected"}), "12.34 s  left 3 connected");
  EXPECT_EQ(lineOf({0, "x"}), "0.00 s  x");
}

TEST(Summary, DistanceFromTheBeamIsPlane) {
  EXPECT_NEAR(metresOffBeam(aMatch().players[0]).value_or(-1), 0.05, 1e-12);  // 3, 4, 5
  EXPECT_FALSE(metresOffBeam(PlayerSummary{}));
}

TEST(Summary, TextHasARowPerPlayer) {
  EXPECT_EQ(textOf(aMatch()),
            "summary: 35.00 s simulated, game clock 20.00 s, GameOver, played to the end\n"
            "player      team             beamed to         off it  fell    up   late malformed "
            "beams ignored  at the end\n"
            "left 3      Foo              (-6.15, 0.50)     0.05 m     2     1      4         5 "
            "           12  lies\n");
}

TEST(Summary, TextSaysWhoLeftAndWhatWentWrong) {
  Summary summary = aMatch();
  summary.players[0].leftAt = 7.5;
  summary.players[0].standing = true;
  summary.sessionsWithoutBody = 3;
  summary.clockSlips = 2;
  const std::string text = textOf(summary);
  EXPECT_NE(text.find("stands, left at 7.50 s\n"), std::string::npos);
  EXPECT_NE(text.find("3 sessions ended without a body\n"), std::string::npos);
  EXPECT_NE(text.find("too slow 2 times"), std::string::npos);
}

TEST(Summary, TextFitsOnAScreenHoweverManyCameAndWent) {
  Summary summary = aMatch();
  summary.players.resize(100, summary.players[0]);
  const std::string text = textOf(summary);
  EXPECT_LE(std::count(text.begin(), text.end(), '\n'), 24);
  EXPECT_NE(text.find("and 80 more\n"), std::string::npos);
}

TEST(Summary, JsonHoldsTheSame) {
  const nlohmann::json json = jsonOf(aMatch());
  EXPECT_EQ(json["play_mode"], "GameOver");
  EXPECT_EQ(json["clock_s"], 20);
  EXPECT_EQ(json["finished"], true);
  const nlohmann::json& player = json["players"][0];
  EXPECT_EQ(player["name"], "left 3");
  EXPECT_EQ(player["side"], "left");
  EXPECT_EQ(player["number"], 3);
  EXPECT_EQ(player["last_beam"]["x"], -6.15);
  EXPECT_NEAR(player["metres_off_beam"].get<double>(), 0.05, 1e-12);
  EXPECT_EQ(player["falls"], 2);
  EXPECT_EQ(player["late_answers"], 4);
  EXPECT_EQ(player["malformed_effectors"], 5);
  EXPECT_EQ(player["ignored_beams"], 12);
  EXPECT_EQ(player["standing"], false);
  EXPECT_FALSE(player.contains("left_at_s"));
}

}  // namespace
}  // namespace arena
