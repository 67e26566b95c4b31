// What a match puts into its records, and that a replay of them comes to the same.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "arena/record/RecordEncoder.h"
#include "arena/record/RecordReader.h"
#include "arena/record/Recordable.h"
#include "tests/arena/match/Stage.h"

namespace arena {
namespace {

using test::exactMatch;
using test::Stage;

const PlayerRecord& onlyPlayer(const Stage& stage) {
  return stage.last().record.players.at(0);
}

TEST(MatchRecord, SaysWhatTheCycleWas) {
  Stage stage(exactMatch(0.04, 10));
  stage.join(1, 3, "Foo");
  stage.play();
  const CycleRecord& record = stage.last().record;
  EXPECT_EQ(record.cycle, 1);
  EXPECT_EQ(record.mode, PlayMode::kBeforeKickOff);
  EXPECT_EQ(record.teamNames[0], "Foo");
  EXPECT_EQ(record.ball, (Vec3{0, 0, 0.042}));
  ASSERT_EQ(record.players.size(), 1U);
  EXPECT_EQ(record.players[0].session, 1U);
  EXPECT_EQ(record.players[0].shirt, (Shirt{Side::kLeft, 3}));
  EXPECT_EQ(record.events, (std::vector<Event>{{0, "play mode BeforeKickOff"},
                                               {0, "left 3 connected, team Foo"}}));
  stage.play(2);
  EXPECT_EQ(stage.last().record.mode, PlayMode::kKickOffLeft);
  EXPECT_EQ(stage.last().record.clock, 0.02);
}

TEST(MatchRecord, SaysWhereTheBodyIs) {
  Stage stage;
  stage.join(1, 3, "Foo");
  stage.play();
  stage.say(1, "(beam -3 1 90)(he1 5)");
  stage.play();
  EXPECT_EQ(onlyPlayer(stage).beam, (Pose{-3, 1, 90}));
  EXPECT_NEAR(onlyPlayer(stage).position[0], -3, 0.002);
  EXPECT_NEAR(onlyPlayer(stage).position[1], 1, 0.002);
  EXPECT_NEAR(onlyPlayer(stage).attitude[0], 1, 0.001) << "facing +y: torso axes as the field's";
  stage.play(5);
  EXPECT_FALSE(onlyPlayer(stage).beam);
  EXPECT_GT(onlyPlayer(stage).jointDeg[0], 10) << "hj1, six cycles at 5.7 degrees";
}

TEST(MatchRecord, NotesWhatAPlayerDidAndFailedToDo) {
  Stage stage;
  stage.say(1, "(nonsense)(he1 1)");  // before it has a body
  stage.play();
  EXPECT_TRUE(stage.last().record.players.empty());
  stage.join(1, 3, "Foo");
  stage.say(1, "(say hello)(beam 300 0 0)");
  stage.play();
  EXPECT_EQ(onlyPlayer(stage).malformed, 2);
  EXPECT_EQ(onlyPlayer(stage).said, "hello");
  EXPECT_EQ(onlyPlayer(stage).ignoredBeams, 1);
  EXPECT_FALSE(onlyPlayer(stage).lateAnswer);
  stage.play();
  EXPECT_TRUE(onlyPlayer(stage).lateAnswer);
  EXPECT_EQ(onlyPlayer(stage).malformed, 0);
  EXPECT_EQ(onlyPlayer(stage).said, "");
  stage.drop(1, "cut off");
  stage.play();
  EXPECT_EQ(stage.last().record.left, (std::vector<LeftRecord>{{1, "cut off"}}));
  EXPECT_EQ(stage.last().record.events, (std::vector<Event>{{0.06, "left 3 dropped: cut off"}}));
}

TEST(MatchRecord, SlipsOfTheClockAreNotedOnce) {
  Stage stage;
  stage.match().noteClockSlips(2);
  stage.play();
  EXPECT_EQ(stage.last().record.clockSlips, 2);
  stage.play();
  EXPECT_EQ(stage.last().record.clockSlips, 0);
  EXPECT_EQ(stage.match().summary().clockSlips, 2);
}

TEST(MatchRecord, AReplayComesToTheSameSummary) {
  Stage stage(exactMatch(0.3, 2));
  RecordEncoder encoder;
  std::string file = RecordEncoder::begin({});
  const auto play = [&](int cycles) {
    for (int i = 0; i < cycles; ++i) {
      stage.play();
      ASSERT_EQ(recordable(stage.last().record), stage.last().record);
      file += encoder.cycle(stage.last().record);
    }
  };
  for (SessionId id = 1; id <= 4; ++id)
    stage.join(id, static_cast<int>((id + 1) / 2), id % 2 == 0 ? "Foo" : "Bar");
  play(1);
  stage.say(1, "(beam -0.16 0.05 0)");
  stage.say(2, "(beam -3.333333 1.2345 17.123)");
  stage.say(3, "(beam -5 0 0)(nonsense)");
  play(30);
  stage.say(1, "(rle3 3)(lle3 3)");                         // against the ball
  stage.say(2, "(lle3 7)(rle3 7)(lle5 3)(rle5 3)(say x)");  // and over it goes
  play(50);
  stage.drop(3, "gone");
  stage.drop(9, "never there");
  play(50);
  stage.join(5, 2, "Bar");
  play(150);
  file += RecordEncoder::end();

  std::istringstream bytes(file);
  RecordReader reader(bytes);
  Statistics statistics;
  while (const auto record = reader.next()) statistics.add(*record);
  ASSERT_FALSE(reader.fault()) << *reader.fault();
  const Summary summary = stage.match().summary();
  EXPECT_EQ(jsonOf(statistics.summary()).dump(2), jsonOf(summary).dump(2));
  EXPECT_EQ(textOf(statistics.summary()), textOf(summary));
  EXPECT_EQ(summary.players.size(), 5U);
  EXPECT_EQ(summary.sessionsWithoutBody, 1);
  EXPECT_GE(summary.teams[0].falls + summary.teams[1].falls, 1);
}

}  // namespace
}  // namespace arena
