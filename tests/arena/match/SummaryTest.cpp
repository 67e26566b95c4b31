#include "arena/match/Summary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "arena/record/Event.h"
#include "tests/arena/match/Schema.h"

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
  player.goals = 1;
  player.shots = 3;
  player.possessionSeconds = 12.5;
  player.metresWalked = 7.25;
  summary.players.push_back(player);
  summary.half = 2;
  TeamSummary& team = summary.teams[0];
  team.name = "Foo";
  team.goals = 2;
  team.shots = 4;
  team.possessionSeconds = 14.5;
  team.possessionPercent = 100;
  team.metresWalked = 8;
  team.falls = 3;
  team.getUps = 1;
  team.lateAnswers = 5;
  team.malformed = 6;
  team.beams = 501;
  team.ignoredBeams = 13;
  return summary;
}

// A record may hold any bytes as a name.
TEST(Summary, NameThatIsNoUtf8IsReplacedInJson) {
  Summary summary = aMatch();
  summary.teams[0].name =
      "F\xff"
      "o";
  const std::string text = jsonTextOf(summary);
  EXPECT_EQ(nlohmann::json::parse(text)["teams"][0]["name"],
            "F\xEF\xBF\xBD"
            "o");
  EXPECT_TRUE(text.ends_with("}\n"));
}

TEST(Summary, LongNamesBreakNoLine) {
  Summary summary = aMatch();
  summary.teams[0].name = std::string(240, 'a');
  summary.teams[1].name = std::string(240, 'b');
  std::istringstream lines(textOf(summary));
  std::string line;
  std::getline(lines, line);
  std::getline(lines, line);
  EXPECT_EQ(line,
            "score: 2:0 (left " + summary.teams[0].name + ", right " + summary.teams[1].name + ")");
  std::getline(lines, line);
  EXPECT_TRUE(line.starts_with("player ")) << line;
}

TEST(Event, LineHasTheTimeInFront) {
  EXPECT_EQ(lineOf({12.34, "left 3 connected"}), "12.34 s  left 3 connected");
  EXPECT_EQ(lineOf({0, "x"}), "0.00 s  x");
}

TEST(Summary, DistanceFromTheBeamIsPlane) {
  EXPECT_NEAR(metresOffBeam(aMatch().players[0]).value_or(-1), 0.05, 1e-12);  // 3, 4, 5
  EXPECT_FALSE(metresOffBeam(PlayerSummary{}));
}

TEST(Summary, TextHasARowPerTeamAndPlayer) {
  EXPECT_EQ(textOf(aMatch()),
            "summary: 35.00 s simulated, game clock 20.00 s, GameOver, played to the end\n"
            "score: 2:0 (left Foo, right nobody)\n"
            "player     goals shots     ball   walked fell  up  late malformed bad beams off beam  "
            "at the end\n"
            "left           2     4    100 %    8.0 m    3   1     5         6        13\n"
            "left 3         1     3   12.5 s    7.2 m    2   1     4         5        12   0.05 m  "
            "lies\n");
}

TEST(Summary, TextSaysWhoLeftAndWhatWentWrong) {
  Summary summary = aMatch();
  summary.players[0].leftAt = 7.6;
  summary.sessionsWithoutBody = 3;
  summary.clockSlips = 2;
  summary.droppedBalls = 5;
  const std::string text = textOf(summary);
  EXPECT_NE(text.find("  left at 8 s\n"), std::string::npos);
  EXPECT_NE(text.find("3 sessions ended without a body\n"), std::string::npos);
  EXPECT_NE(text.find("too slow 2 times"), std::string::npos);
  EXPECT_NE(text.find("dropped 5 times"), std::string::npos);
}

TEST(Summary, TextFitsOnAScreenHoweverManyCameAndWent) {
  Summary summary = aMatch();
  summary.players.resize(100, summary.players[0]);
  summary.teams[1] = summary.teams[0];
  summary.sessionsWithoutBody = summary.clockSlips = summary.droppedBalls = 9;
  const std::string text = textOf(summary);
  EXPECT_LE(std::count(text.begin(), text.end(), '\n'), 22) << "two are for the pace";
  EXPECT_NE(text.find("and 87 more\n"), std::string::npos);
}

/// As large as the figures of a match of two halves of an hour get.
TEST(Summary, TextIsNoWiderThanAHundredColumns) {
  Summary summary = aMatch();
  summary.seconds = summary.clock = 7220;
  TeamSummary& team = summary.teams[0];
  team.name = std::string(32, 'W');
  team.goals = team.shots = 99;
  team.metresWalked = 9999.9;
  team.falls = team.getUps = 999;
  team.malformed = team.ignoredBeams = team.lateAnswers = 99'999;
  summary.teams[1] = team;
  PlayerSummary& player = summary.players[0];
  player.name = "right 6";
  player.leftAt = 7199.9;
  player.possessionSeconds = 7199.9;
  player.metresWalked = 9999.9;
  player.falls = player.getUps = 999;
  player.malformed = player.ignoredBeams = player.lateAnswers = 99'999;
  player.lastPlace.x = -10;
  player.lastBeam->x = 10;
  summary.sessionsWithoutBody = summary.clockSlips = summary.droppedBalls = 99'999;
  std::istringstream text(textOf(summary));
  for (std::string line; std::getline(text, line);) EXPECT_LE(line.size(), 100U) << line;
}

TEST(Summary, JsonHoldsTheSame) {
  const nlohmann::json json = jsonOf(aMatch());
  EXPECT_EQ(json["play_mode"], "GameOver");
  EXPECT_EQ(json["clock_s"], 20);
  EXPECT_EQ(json["finished"], true);
  EXPECT_EQ(json["half"], 2);
  EXPECT_EQ(json["score"]["left"], 2);
  EXPECT_EQ(json["score"]["right"], 0);
  const nlohmann::json& team = json["teams"][0];
  EXPECT_EQ(team["side"], "left");
  EXPECT_EQ(team["name"], "Foo");
  EXPECT_EQ(team["goals"], 2);
  EXPECT_EQ(team["shots"], 4);
  EXPECT_EQ(team["possession_s"], 14.5);
  EXPECT_EQ(team["possession_percent"], 100);
  EXPECT_EQ(team["metres_walked"], 8);
  EXPECT_EQ(team["beams"], 501);
  EXPECT_EQ(team["ignored_beams"], 13);
  EXPECT_EQ(team["falls"], 3);
  EXPECT_EQ(team["get_ups"], 1);
  EXPECT_EQ(team["late_answers"], 5);
  EXPECT_EQ(team["malformed_effectors"], 6);
  EXPECT_EQ(json["teams"][1]["side"], "right");
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
  EXPECT_EQ(player["goals"], 1);
  EXPECT_EQ(player["shots"], 3);
  EXPECT_EQ(player["possession_s"], 12.5);
  EXPECT_EQ(player["metres_walked"], 7.25);
  EXPECT_FALSE(player.contains("left_at_s"));
}

/// The schema that people are told of.
nlohmann::json publishedSchema() {
  std::ifstream file(PITCH_SOURCE_DIR "/docs/summary.schema.json");
  return nlohmann::json::parse(file);
}

TEST(Summary, JsonKeepsToItsSchema) {
  const nlohmann::json schema = publishedSchema();
  EXPECT_EQ(test::breaches(schema, jsonOf(Summary{})), "");
  EXPECT_EQ(test::breaches(schema, jsonOf(aMatch())), "");
  Summary summary = aMatch();
  summary.players[0].leftAt = 7.5;
  summary.players[0].whyLeft = "gone";
  summary.players.push_back({});  // no shirt, no beam
  EXPECT_EQ(test::breaches(schema, jsonOf(summary)), "");
}

TEST(Summary, EveryFieldOfTheSchemaIsThereInAFullSummary) {
  Summary summary = aMatch();
  summary.players[0].leftAt = 7.5;
  const nlohmann::json json = jsonOf(summary);
  const nlohmann::json schema = publishedSchema();
  const auto allThere = [](const nlohmann::json& described, const nlohmann::json& object) {
    for (const auto& [key, unused] : described["properties"].items()) {
      EXPECT_TRUE(object.contains(key)) << key;
    }
  };
  allThere(schema, json);
  allThere(schema["$defs"]["team"], json["teams"][0]);
  allThere(schema["$defs"]["player"], json["players"][0]);
}

TEST(Summary, TheSchemaCheckFindsWhatIsWrong) {
  const nlohmann::json schema = publishedSchema();
  const auto broken = [&](const std::function<void(nlohmann::json&)>& breakIt) {
    nlohmann::json json = jsonOf(aMatch());
    breakIt(json);
    return test::breaches(schema, json);
  };
  EXPECT_EQ(broken([](auto& json) { json.erase("half"); }), "/: half is missing\n");
  EXPECT_EQ(broken([](auto& json) { json["halves"] = 2; }), "/: halves is too much\n");
  EXPECT_EQ(broken([](auto& json) { json["half"] = 3; }), "/half: none of the choices\n");
  EXPECT_EQ(broken([](auto& json) { json["clock_s"] = "1"; }), "/clock_s: no number\n");
  EXPECT_EQ(broken([](auto& json) { json["clock_slips"] = 1.5; }), "/clock_slips: no integer\n");
  EXPECT_EQ(broken([](auto& json) { json["score"]["left"] = -1; }), "/score/left: below 0\n");
  EXPECT_EQ(broken([](auto& json) { json["teams"].erase(1); }), "/teams: fewer than 2\n");
  EXPECT_EQ(broken([](auto& json) { json["players"][0]["number"] = 7; }),
            "/players/0/number: above 6\n");
}

}  // namespace
}  // namespace arena
