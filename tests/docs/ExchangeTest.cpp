// The session recorded in docs/exchange.txt: each end of the link takes in what the other one said.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "arena/link/Effectors.h"
#include "behaviour/Agent.h"
#include "perception/SLangParser.h"
#include "perception/WorldModel.h"
#include "tests/docs/Exchange.h"
#include "tests/support/FreshPlayer.h"

namespace {

using docs::find;
using docs::insideOf;
using docs::number;
using docs::partsOf;
using docs::recorded;
using docs::Words;
using testing::Contains;

TEST(Exchange, PlayerTakesInWhatTheRecordedPerceptionsSay) {
  const FreshPlayer player(6);
  const WorldModel& world = player.world();
  std::size_t sights = 0;
  std::size_t joints = 0;
  for (const std::string& text : recorded('<')) {
    SCOPED_TRACE(text.substr(0, 40));
    ASSERT_TRUE(SLangParser::updateFromServerMsg("(" + text + ")"));
    const Words elements = partsOf(text);
    EXPECT_DOUBLE_EQ(world.serverTime, number(insideOf(find(elements, "time")[1])[1]));
    const Words state = find(elements, "GS");
    EXPECT_DOUBLE_EQ(world.gameTime, number(find(state, "t")[1]));
    EXPECT_EQ(world.playMode, find(state, "pm")[1]);
    if (const Words shirt = find(state, "unum"); !shirt.empty()) {
      EXPECT_EQ(player.agent().uNum, number(shirt[1]));
      EXPECT_EQ(world.teamSide, find(state, "team")[1]);
    }
    const auto expectVector = [](const VecPosition& got, const Words& words) {
      ASSERT_EQ(words.size(), 4U);
      EXPECT_DOUBLE_EQ(got.x, number(words[1]));
      EXPECT_DOUBLE_EQ(got.y, number(words[2]));
      EXPECT_DOUBLE_EQ(got.z, number(words[3]));
    };
    expectVector(player.agent().gyroRate, find(find(elements, "GYR"), "rt"));
    expectVector(player.agent().accel, find(find(elements, "ACC"), "a"));
    for (const std::string_view element : elements) {
      const Words parts = insideOf(element);
      if (parts[0] == "HJ") {
        const HingJoint* joint = player.agent().findJoint(std::string(find(parts, "n")[1]));
        ASSERT_NE(joint, nullptr) << element;
        EXPECT_DOUBLE_EQ(joint->angle, number(find(parts, "ax")[1])) << element;
        ++joints;
      } else if (parts[0] == "FRP") {
        const bool left = find(parts, "n")[1] == "lf";
        const Agent& body = player.agent();
        expectVector(left ? body.leftFootForceCentre : body.rightFootForceCentre, find(parts, "c"));
        expectVector(left ? body.leftFootForce : body.rightFootForce, find(parts, "f"));
      } else if (parts[0] == "See") {
        ++sights;
        EXPECT_EQ(world.lastSeeCycle, world.cycle);
      }
    }
    EXPECT_EQ(world.vision.ball.seen, text.find("(B (pol") != std::string::npos);
  }
  EXPECT_EQ(joints, 22 * recorded('<').size());
  EXPECT_GE(sights, 1U);
}

TEST(Exchange, PlayerSeesWhatTheRecordedSightHolds) {
  const FreshPlayer player(6);
  player.world().teamName = "Kolu-Otters";
  const visionInfo& vision = player.world().vision;
  const std::map<std::string_view, const PolarInfo*> landmarks{
      {"F1L", &vision.F1L}, {"F2L", &vision.F2L}, {"F1R", &vision.F1R}, {"F2R", &vision.F2R},
      {"G1L", &vision.G1L}, {"G2L", &vision.G2L}, {"G1R", &vision.G1R}, {"G2R", &vision.G2R}};
  std::size_t seen = 0;
  for (const std::string& text : recorded('<')) {
    const Words sight = find(partsOf(text), "See");
    if (sight.empty()) continue;
    ASSERT_TRUE(SLangParser::updateFromServerMsg("(" + text + ")"));
    for (std::size_t i = 1; i < sight.size(); ++i) {
      const Words thing = insideOf(sight[i]);
      const Words polar = thing[0] == "P" ? insideOf(insideOf(thing[3])[1]) : insideOf(thing[1]);
      const PolarInfo* info = &vision.ball;
      if (thing[0] == "P") {
        // All others in the recorded sight are opponents: 6 places behind the team mates'.
        ASSERT_EQ(find(thing, "team")[1], "Kolu-Otters_away");
        info = &vision.players.at(static_cast<std::size_t>(number(find(thing, "id")[1])) + 5).polar;
      } else if (thing[0] != "B") {
        info = landmarks.at(thing[0]);
      }
      EXPECT_TRUE(info->seen) << sight[i];
      EXPECT_DOUBLE_EQ(info->distance, number(polar[1])) << sight[i];
      EXPECT_DOUBLE_EQ(info->angle, number(polar[2])) << sight[i];
      ++seen;
    }
  }
  EXPECT_GE(seen, 10U);
}

TEST(Exchange, PlayerHearsTheRecordedTexts) {
  for (const std::string& text : recorded('<')) {
    for (const std::string_view element : partsOf(text)) {
      const Words parts = insideOf(element);
      if (parts[0] != "hear") continue;
      const FreshPlayer player(6);
      SLangParser::updateFromServerMsg("(" + std::string(element) + ")");
      EXPECT_DOUBLE_EQ(player.world().hearTime, number(parts[1]));
      EXPECT_EQ(player.world().hearText, parts[3]);
      EXPECT_EQ(player.world().hearSelf, parts[2] == "self");
      if (parts[2] != "self") {
        EXPECT_DOUBLE_EQ(player.world().hearDirection, number(parts[2]));
      }
    }
  }
}

TEST(Exchange, TrainingGroundUnderstandsEveryRecordedAnswer) {
  arena::Commands all;
  std::vector<std::string> said;
  for (const std::string& text : recorded('>')) {
    arena::Commands one;
    ASSERT_TRUE(arena::readEffectors(text, one)) << text;
    EXPECT_EQ(one.malformed, 0) << text;
    if (one.say) said.push_back(*one.say);
    ASSERT_TRUE(arena::readEffectors(text, all));
  }
  EXPECT_EQ(all.scenes, 1);
  ASSERT_TRUE(all.init);
  EXPECT_EQ(all.init->number, 6);
  EXPECT_EQ(all.init->team, "Kolu-Otters");
  ASSERT_TRUE(all.beam);
  EXPECT_EQ(all.beam->x, -0.15);
  EXPECT_EQ(all.beam->y, 0.05);
  EXPECT_EQ(all.beam->angleDeg, 0);
  EXPECT_EQ(all.jointSpeeds[arena::rowOfEffector("he1")], 1.47714);
  EXPECT_THAT(said, Contains("|,6,3.56,-0.11,3.68"));
}

}  // namespace
