#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "behaviour/Agent.h"
#include "perception/SLangParser.h"
#include "perception/WorldModel.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/Places.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PlayerSight : public testing::Test {
 protected:
  void SetUp() override {
    world.cycle = 40;
    world.teamName = "Foo";
  }
  static int decode(const std::string& element) { return SLangParser::parsePlayerInfo(element); }
  static int decode(const std::string& team, const std::string& id) {
    return decode("(P (team " + team + ") (id " + id + ") (head (pol 0 0 0)))");
  }
  [[nodiscard]] std::vector<std::size_t> seenRecords() const {
    std::vector<std::size_t> result;
    for (std::size_t i = 0; i < world.vision.players.size(); ++i) {
      if (world.vision.players.at(i).polar.seen) {
        result.push_back(i);
      }
    }
    return result;
  }

  FreshPlayer player{2};
  Agent& agent = player.agent();
  WorldModel& world = player.world();
};

TEST_F(PlayerSight, TeamMateIsStoredAndNeverReported) {
  agent.myPos = VecPosition(1, 2, 5);
  EXPECT_EQ(decode("(P (team Foo) (id 3) (head (pol 4.0 90 0)))"), 0);
  const seenPlayer& seen = world.vision.players[2];
  EXPECT_EQ(seen.isOpponent, 0);
  EXPECT_EQ(seen.unum, 3);
  EXPECT_EQ(seen.polar.distance, 4);
  EXPECT_EQ(seen.polar.angle, 90);
  EXPECT_EQ(seen.polar.elevation, 0);
  EXPECT_TRUE(seen.polar.seen);
  EXPECT_EQ(seen.polar.lastSeenCycle, 40);
  EXPECT_THAT(seen.polar.position, IsPlaceNear(1, 6, 0));
  EXPECT_THAT(seenRecords(), ElementsAre(2));
  EXPECT_THAT(player.link.commands(), IsEmpty());
}

TEST_F(PlayerSight, OpponentIsStoredSixFurtherOnAndReported) {
  agent.myPos = VecPosition(1.5, -0.25, 0);
  EXPECT_EQ(decode("(P (team Bar) (id 3) (head (pol 0 0 0)))"), 0);
  EXPECT_EQ(world.vision.players[8].isOpponent, 1);
  EXPECT_EQ(world.vision.players[8].unum, 3);
  EXPECT_THAT(seenRecords(), ElementsAre(8));
  EXPECT_THAT(player.link.commands(), ElementsAre("(say ~,9,1.5,-0.25)"));
}

TEST_F(PlayerSight, OpponentIsReportedAtEverySight) {
  for (const int cycle : {0, 21, 40, 40, 42, 43}) {
    world.cycle = cycle;
    decode("Bar", "1");
    EXPECT_THAT(player.link.commands(), ElementsAre("(say ~,7,0,0)"));
  }
}

TEST_F(PlayerSight, ReportHasSixSignificantDigits) {
  agent.myPos = VecPosition(1.23456789, -1234567.0, 0);
  decode("Bar", "6");
  agent.myPos = VecPosition(0.00001, 100000, 0);
  decode("Bar", "6");
  EXPECT_THAT(player.link.commands(),
              ElementsAre("(say ~,12,1.23457,-1.23457e+06)", "(say ~,12,1e-05,100000)"));
}

TEST_F(PlayerSight, EveryNumberOfBothTeamsHasItsRecord) {
  for (std::size_t number = 1; number <= 6; ++number) {
    SCOPED_TRACE(number);
    world.vision.players = {};
    decode("Foo", std::to_string(number));
    EXPECT_THAT(seenRecords(), ElementsAre(number - 1));
    world.vision.players = {};
    decode("Bar", std::to_string(number));
    EXPECT_THAT(seenRecords(), ElementsAre(number + 5));
  }
}

TEST_F(PlayerSight, TiltOfTheHeadCounts) {
  agent.findJoint("hj2")->angle = 10;
  decode("(P (team Foo) (id 1) (head (pol 4 0 50)))");
  const PolarInfo& polar = world.vision.players[0].polar;
  EXPECT_EQ(polar.elevation, 60);
  EXPECT_THAT(polar.position, IsPlaceNear(2, 0, 0));
}

TEST_F(PlayerSight, PlaceAddsSightNeckAndHeading) {
  agent.myDegree = 350;
  agent.findJoint("hj1")->angle = 90;
  decode("(P (team Foo) (id 1) (head (pol 4 10 0)))");  // 450 degrees
  EXPECT_THAT(world.vision.players[0].polar.position, IsPlaceNear(0, 4, 0));
  EXPECT_EQ(world.vision.players[0].polar.angle, 10);
}

TEST_F(PlayerSight, OnlyTheFirstBodyPartIsUsed) {
  decode("(P (team Foo) (id 1) (rlowerarm (pol 1 2 3)) (head (pol 7 8 9)))");
  EXPECT_EQ(world.vision.players[0].polar.distance, 1);
  EXPECT_EQ(world.vision.players[0].polar.angle, 2);
}

TEST_F(PlayerSight, WholeRecordIsReplaced) {
  world.vision.players[0].polar.position = VecPosition(7, 8, 9);
  decode("Foo", "1");
  EXPECT_THAT(world.vision.players[0].polar.position, IsPlace(0, 0, 0));
}

TEST_F(PlayerSight, NamesMustAgreeToTheLastLetter) {
  for (const std::string team : {"Fo", "Fop", "Fooo", "foo"}) {
    SCOPED_TRACE(team);
    world.vision.players = {};
    decode(team, "1");
    EXPECT_THAT(seenRecords(), ElementsAre(6));
  }
}

TEST_F(PlayerSight, WithoutABlankBehindTheTeamItsLastLetterIsLost) {
  const std::string element = "(P (team Foo)(id 1) (head (pol 0 0 0)))";
  decode(element);
  EXPECT_THAT(seenRecords(), ElementsAre(6));
  world.vision.players = {};
  world.teamName = "Fo";
  decode(element);
  EXPECT_THAT(seenRecords(), ElementsAre(0));
}

TEST_F(PlayerSight, NumberNeedsNoBlankBehindIt) {
  decode("(P (team Foo) (id 3)(head (pol 0 0 0)))");
  EXPECT_THAT(seenRecords(), ElementsAre(2));
}

TEST_F(PlayerSight, BeforeTheTeamsNameHasBeenSaidEverybodyIsAnOpponent) {
  world.teamName = "";
  decode("Foo", "1");
  EXPECT_THAT(seenRecords(), ElementsAre(6));
}

TEST_F(PlayerSight, GarbledValuesAreZeros) {
  decode("(P (team Foo) (id 1) (head (pol)))");
  decode("(P (team Foo) (id 2))");
  EXPECT_THAT(seenRecords(), ElementsAre(0, 1));
  EXPECT_EQ(world.vision.players[0].polar.distance, 0);
  EXPECT_EQ(world.vision.players[1].polar.distance, 0);
}

TEST_F(PlayerSight, GroupTooShortToCutEndsInOutOfRange) {
  for (const std::string element :
       {"(P)", "(P (tea", "xP", "", "(P (team Foo)", "(P (team Foo) (i", "(P (t) (id 1))"}) {
    SCOPED_TRACE(element);
    try {
      decode(element);
      FAIL() << "it was taken";
    } catch (const std::out_of_range& error) {
      EXPECT_THAT(error.what(), testing::HasSubstr("basic_string::substr"));
    }
  }
}

struct NumberRow {
  const char* team;
  const char* id;
  std::vector<std::size_t> records;
  std::vector<std::string> says;
};

TEST_F(PlayerSight, NumbersOutsideTheTeamWriteNoRecordOutsideTheArray) {
  for (const NumberRow& row : std::vector<NumberRow>{
           {"Foo", "0", {}, {}},
           {"Foo", "-3", {}, {}},
           {"Foo", "none", {}, {}},
           {"Foo", "7", {6}, {"(say ~,7,0,0)"}},
           {"Foo", "12", {11}, {"(say ~,12,0,0)"}},
           {"Foo", "13", {}, {"(say ~,13,0,0)"}},
           {"Bar", "0", {5}, {}},
           {"Bar", "-5", {0}, {}},
           {"Bar", "-6", {}, {}},
           {"Bar", "7", {}, {"(say ~,13,0,0)"}},
           {"Bar", "1000000", {}, {"(say ~,1000006,0,0)"}},
       }) {
    SCOPED_TRACE(testing::Message() << row.team << ' ' << row.id);
    world.vision.players = {};
    decode(row.team, row.id);
    EXPECT_EQ(seenRecords(), row.records);
    EXPECT_EQ(player.link.commands(), row.says);
  }
}

TEST_F(PlayerSight, NumberBeyondAllRangesWritesNoRecord) {
  for (const std::string id : {"2147483647", "-2147483648"}) {
    SCOPED_TRACE(id);
    decode("Bar", id);
    decode("Foo", id);
    EXPECT_THAT(seenRecords(), IsEmpty());
  }
}

TEST_F(PlayerSight, SeveralOpponentsAndTheBallAreSeveralFrames) {
  SLangParser::updateFromSeeMessage(
      "(See (P (team Bar) (id 1) (head (pol 0 0 0))) (P (team Foo) (id 1) (head (pol 0 0 0)))"
      " (P (team Bar) (id 2) (head (pol 0 0 0))) (B (pol 0 0 0))"
      " (P (team Bar) (id 5) (head (pol 0 0 0))))");
  EXPECT_THAT(player.link.commands(), ElementsAre("(say ~,7,0,0)", "(say ~,8,0,0)",
                                                  "(say |,2,0.00,0.00,0.00)", "(say ~,11,0,0)"));
}

}  // namespace
