#include "arena/match/Statistics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace arena {
namespace {

/// A match told cycle by cycle; what was noted is forgotten after each.
class CountedMatch {
 public:
  explicit CountedMatch(double wait = 0) {
    now_.mode = wait > 0 ? PlayMode::kBeforeKickOff : PlayMode::kPlayOn;
  }

  CycleRecord& now() { return now_; }
  PlayerRecord& join(std::uint32_t session, std::optional<Shirt> shirt) {
    PlayerRecord player;
    player.session = session;
    player.shirt = shirt;
    now_.players.push_back(player);
    return now_.players.back();
  }
  PlayerRecord& player(std::uint32_t session) {
    return *std::find_if(now_.players.begin(), now_.players.end(),
                         [=](const PlayerRecord& one) { return one.session == session; });
  }
  void leave(std::uint32_t session, const std::string& why) {
    std::erase_if(now_.players, [=](const PlayerRecord& one) { return one.session == session; });
    now_.left.push_back({session, why});
  }
  void next(int cycles = 1) {
    for (int i = 0; i < cycles; ++i) {
      ++now_.cycle;
      statistics_.add(now_);
      now_.left.clear();
      now_.events.clear();
      now_.clockSlips = 0;
      for (PlayerRecord& one : now_.players) {
        one.touchedBall = one.fell = one.gotUp = one.moved = one.lateAnswer = false;
        one.beam.reset();
        one.ignoredBeams = one.malformed = 0;
      }
    }
  }
  [[nodiscard]] Summary summary() const { return statistics_.summary(); }
  [[nodiscard]] PlayerSummary row(const std::string& name) const {
    for (const PlayerSummary& player : summary().players) {
      if (player.name == name) return player;
    }
    ADD_FAILURE() << "no row " << name;
    return {};
  }

 private:
  CycleRecord now_{};
  Statistics statistics_{};
};

constexpr Shirt kLeft3{Side::kLeft, 3};
constexpr Shirt kRight1{Side::kRight, 1};

TEST(Statistics, NothingYetIsAnEmptySummary) {
  const Summary summary = Statistics{}.summary();
  EXPECT_EQ(summary.seconds, 0);
  EXPECT_FALSE(summary.finished);
  EXPECT_TRUE(summary.players.empty());
  EXPECT_EQ(summary.mode, PlayMode::kBeforeKickOff);
}

TEST(Statistics, TheMatchIsAsItsLastRecordSays) {
  CountedMatch story;
  story.next();
  story.now().clock = 12.5;
  story.now().half = 2;
  story.now().mode = PlayMode::kGameOver;
  story.now().score = {2, 3};
  story.now().droppedBalls = 4;
  story.now().teamNames = {"Foo", "Bar"};
  story.now().finished = true;
  story.now().clockSlips = 1;
  story.next();
  story.now().clockSlips = 2;
  story.next();
  const Summary summary = story.summary();
  EXPECT_EQ(summary.seconds, 0.06);
  EXPECT_EQ(summary.clock, 12.5);
  EXPECT_EQ(summary.half, 2);
  EXPECT_EQ(summary.mode, PlayMode::kGameOver);
  EXPECT_TRUE(summary.finished);
  EXPECT_EQ(summary.droppedBalls, 4);
  EXPECT_EQ(summary.clockSlips, 3);
  EXPECT_EQ(summary.teams[0].name, "Foo");
  EXPECT_EQ(summary.teams[0].goals, 2);
  EXPECT_EQ(summary.teams[1].name, "Bar");
  EXPECT_EQ(summary.teams[1].goals, 3);
}

// As many as a record may say of one cycle, for as long as it takes: 2^31 is passed.
TEST(Statistics, CountsOfAForgedRecordDontOverflow) {
  CountedMatch story;
  story.join(1, kLeft3);
  for (int i = 0; i < 2200; ++i) {
    story.now().clockSlips = 1'000'000;
    story.player(1).malformed = story.player(1).ignoredBeams = 1'000'000;
    story.next();
  }
  const Summary summary = story.summary();
  EXPECT_EQ(summary.clockSlips, 2'200'000'000);
  EXPECT_EQ(summary.teams[0].malformed, 2'200'000'000);
  EXPECT_EQ(summary.teams[0].ignoredBeams, 2'200'000'000);
}

TEST(Statistics, NotesAreCountedPerPlayerAndPerTeam) {
  CountedMatch story;
  story.now().teamNames = {"Foo", "Bar"};
  story.join(1, kLeft3);
  story.join(2, Shirt{Side::kLeft, 4});
  story.join(3, kRight1);
  for (int i = 0; i < 3; ++i) {
    PlayerRecord& player = story.player(1);
    player.fell = i < 2;
    player.gotUp = i == 2;
    player.lateAnswer = true;
    player.ignoredBeams = i;
    player.malformed = 10 * i;
    story.player(2).fell = true;
    story.player(3).lateAnswer = i == 0;
    story.next();
  }
  const PlayerSummary row = story.row("left 3");
  EXPECT_EQ(row.team, "Foo");
  EXPECT_EQ(row.falls, 2);
  EXPECT_EQ(row.getUps, 1);
  EXPECT_EQ(row.lateAnswers, 3);
  EXPECT_EQ(row.ignoredBeams, 3);
  EXPECT_EQ(row.malformed, 30);
  const auto& [left, right] = story.summary().teams;
  EXPECT_EQ(left.falls, 5);
  EXPECT_EQ(left.getUps, 1);
  EXPECT_EQ(left.lateAnswers, 3);
  EXPECT_EQ(left.malformed, 30);
  EXPECT_EQ(right.falls, 0);
  EXPECT_EQ(right.lateAnswers, 1);
}

TEST(Statistics, PossessionIsTimeAndShare) {
  CountedMatch story;
  story.join(1, kLeft3);
  story.join(2, kRight1);
  story.next(100);  // nobody's
  story.player(1).touchedBall = true;
  story.next(150);
  story.player(2).touchedBall = true;
  story.next(50);
  EXPECT_DOUBLE_EQ(story.row("left 3").possessionSeconds, 3);
  EXPECT_DOUBLE_EQ(story.row("right 1").possessionSeconds, 1);
  const auto& [left, right] = story.summary().teams;
  EXPECT_DOUBLE_EQ(left.possessionSeconds, 3);
  EXPECT_DOUBLE_EQ(left.possessionPercent, 75);
  EXPECT_DOUBLE_EQ(right.possessionPercent, 25);
}

TEST(Statistics, ShotsAndGoalsGoToPlayerAndTeam) {
  CountedMatch story;
  story.join(1, kLeft3);
  story.join(2, kRight1);
  story.player(1).touchedBall = true;
  story.next();
  story.now().score = {1, 0};
  story.next();
  EXPECT_EQ(story.row("left 3").goals, 1);
  EXPECT_EQ(story.row("left 3").shots, 1);
  EXPECT_EQ(story.summary().teams[0].shots, 1);
  EXPECT_EQ(story.row("right 1").goals, 0);
}

TEST(Statistics, WayIsMeasuredOnTheOwnFeetOnly) {
  CountedMatch story;
  story.join(1, kLeft3);
  const auto at = [&](double x, double y) { story.player(1).position = {x, y, 0.38}; };
  story.next();
  for (int i = 1; i <= 100; ++i) {  // 2 m in steps of 2 cm, swaying by 3 cm either way
    at(0.02 * i, i % 2 == 0 ? 0.03 : -0.03);
    story.next();
  }
  EXPECT_NEAR(story.row("left 3").metresWalked, 2, 0.35);
  const double walked = story.row("left 3").metresWalked;

  at(7, 0);
  story.player(1).beam = Pose{7, 0, 0};
  story.next();
  at(8, 0);
  story.player(1).moved = true;
  story.next();
  story.player(1).standing = false;
  for (const double x : {8.0, 8.5, 9.0}) {
    at(x, 0);
    story.next();
  }
  story.player(1).standing = true;
  story.next();
  EXPECT_EQ(story.row("left 3").metresWalked, walked);
  at(9, 0.5);
  story.next();
  EXPECT_NEAR(story.row("left 3").metresWalked, walked + 0.5, 1e-12);
  EXPECT_EQ(story.summary().teams[0].metresWalked, story.row("left 3").metresWalked);
}

TEST(Statistics, StandingAndSwayingIsNoWalk) {
  CountedMatch story;
  story.join(1, kLeft3);
  for (int i = 0; i < 3000; ++i) {
    story.player(1).position = {0.04 * std::sin(0.1 * i), 0.04 * std::cos(0.1 * i), 0.38};
    story.next();
  }
  EXPECT_EQ(story.row("left 3").metresWalked, 0);
}

TEST(Statistics, PlacesAreInTheTeamsOwnFrame) {
  CountedMatch story;
  PlayerRecord& player = story.join(1, kRight1);
  player.beam = Pose{3, -1, 180};
  // Turned by a quarter to the left from facing +y: it looks along -x, where the right side goes.
  player.position = {2.97, -0.96, 0.38};
  player.attitude = {std::sqrt(0.5), 0, 0, std::sqrt(0.5)};
  story.next();
  const PlayerSummary row = story.row("right 1");
  EXPECT_EQ(row.beams, 1);
  EXPECT_NEAR(row.lastBeam->x, -3, 1e-12);
  EXPECT_NEAR(row.lastBeam->y, 1, 1e-12);
  EXPECT_NEAR(row.lastBeam->headingDeg, 0, 1e-12);
  EXPECT_NEAR(row.lastPlace.x, -2.97, 1e-12);
  EXPECT_NEAR(row.lastPlace.headingDeg, 0, 1e-9);
  EXPECT_NEAR(*metresOffBeam(row), 0.05, 1e-9);
}

TEST(Statistics, WhoLeavesAndComesBackHasTwoRows) {
  CountedMatch story;
  story.now().teamNames[0] = "Foo";
  story.join(1, kLeft3);
  story.player(1).fell = true;
  story.next(10);
  story.leave(1, "gone for a drink");
  story.next(5);
  story.join(2, kLeft3);
  story.player(2).fell = true;
  story.next(5);
  const Summary summary = story.summary();
  ASSERT_EQ(summary.players.size(), 2U);
  EXPECT_EQ(summary.players[0].leftAt, 0.2);
  EXPECT_EQ(summary.players[0].whyLeft, "gone for a drink");
  EXPECT_EQ(summary.players[1].bodySince, 0.3);
  EXPECT_FALSE(summary.players[1].leftAt);
  EXPECT_EQ(summary.teams[0].falls, 2);
}

TEST(Statistics, SessionsThatWereNeverThereAreOnlyCounted) {
  CountedMatch story;
  story.leave(9, "a broken frame");
  story.next();
  EXPECT_EQ(story.summary().sessionsWithoutBody, 1);
  EXPECT_TRUE(story.summary().players.empty());
}

TEST(Statistics, RowsAreSortedBySideAndNumber) {
  CountedMatch story;
  story.join(1, Shirt{Side::kLeft, 5});
  story.join(2, Shirt{Side::kRight, 2});
  story.join(3, std::nullopt);
  story.join(4, kLeft3);
  story.next();
  std::string names;
  for (const PlayerSummary& player : story.summary().players) names += player.name + ";";
  EXPECT_EQ(names, "left 3;left 5;right 2;session 3;");
}

}  // namespace
}  // namespace arena
