// What must hold whatever the ball and the players do: thousands of balls on random ways, touched
// at random, under the referee's eyes. Balls are put where a ruling says, as the match does.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <string_view>

#include "arena/referee/Lines.h"
#include "arena/referee/Referee.h"

namespace arena {
namespace {

/// Spellings written out once more: what players compare.
constexpr std::array<std::string_view, 17> kSpellings{
    "BeforeKickOff", "KickOff_Left",     "KickOff_Right",     "PlayOn",          "KickIn_Left",
    "KickIn_Right",  "corner_kick_left", "corner_kick_right", "goal_kick_left",  "goal_kick_right",
    "offside_left",  "offside_right",    "free_kick_left",    "free_kick_right", "Goal_Left",
    "Goal_Right",    "GameOver"};

/// Halves of 40 s; restarts, goals and stalls much shorter than in a match, so that there are many.
RefereeSettings eventful() {
  RefereeSettings settings;
  settings.waitSeconds = 0.5;
  settings.halfSeconds = 40;
  settings.kickOffSeconds = 1;
  settings.restartSeconds = 0.8;
  settings.goalSeconds = 0.3;
  settings.stallSeconds = 1.5;
  settings.gameOverSeconds = 0.2;
  return settings;
}

class RandomMatch {
 public:
  explicit RandomMatch(unsigned seed) : random_(seed) {}

  /// Moves the ball on; now and then somebody touches it, and then it flies anywhere.
  FieldView next() {
    for (std::size_t i = 0; i < 3; ++i) ball_[i] += 0.02 * velocity_[i];
    ball_[2] = std::abs(ball_[2]);
    if (chance(0.01)) velocity_ = {0, 0, 0};
    FieldView view{ball_, {}};
    for (const Side side : {Side::kLeft, Side::kRight}) {
      const bool touched = chance(quiet_ ? 0.001 : 0.03);
      view.players.push_back({{side, 1 + whole(5)}, {number(9), number(6), 0.38}, touched});
      if (touched) velocity_ = {number(12), number(9), number(3)};
      if (touched && chance(0.3)) velocity_[1] = number(0.5);  // along the field, for goals
    }
    if (chance(0.002)) quiet_ = !quiet_;
    return view;
  }
  void put(const Vec3& ball) {
    ball_ = ball;
    velocity_ = {};
  }

 private:
  double number(double most) {
    return std::uniform_real_distribution<double>(-most, most)(random_);
  }
  int whole(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }
  bool chance(double share) { return std::uniform_real_distribution<double>()(random_) < share; }

  std::mt19937 random_;
  Vec3 ball_{0, 0, 0.042};
  Vec3 velocity_{};
  bool quiet_ = false;
};

/// Which modes may follow MODE.
bool mayFollow(PlayMode mode, PlayMode next) {
  if (mode == PlayMode::kGameOver) return false;
  if (mode == PlayMode::kBeforeKickOff) return isKickOff(next);
  if (next == PlayMode::kBeforeKickOff || next == PlayMode::kGameOver) return true;
  if (isGoal(mode)) return isKickOff(next);
  if (mode == PlayMode::kPlayOn) return !isKickOff(next) && next != PlayMode::kPlayOn;
  return next == PlayMode::kPlayOn;
}

struct Tally {
  int goals = 0, kickIns = 0, corners = 0, goalKicks = 0, dropped = 0, untaken = 0, putBack = 0;
};

/// Plays a match of seed SEED to its end and checks every cycle of it.
void playAndCheck(unsigned seed, Tally& tally) {
  const RefereeSettings settings = eventful();
  Referee referee(settings);
  RandomMatch match(seed);
  long cyclesInMode = 0;
  int goalsCalled = 0;
  for (int cycle = 0; !referee.finished(); ++cycle) {
    // 2 * (0.5 + 40) s and the end, and 0.3 s for every goal: a match never lasts longer.
    ASSERT_LT(cycle, 50 * (2 * 40.5 + 1) + 15 * (goalsCalled + 1)) << "seed " << seed;
    const PlayMode before = referee.mode();
    const auto score = referee.score();
    const double clock = referee.clock();
    const int half = referee.half();
    const FieldView view = match.next();
    const Ruling ruling = referee.observe(view);
    SCOPED_TRACE(testing::Message() << "seed " << seed << ", cycle " << cycle << ", in "
                                    << nameOf(before) << " -> " << nameOf(referee.mode()));

    ASSERT_NE(std::find(kSpellings.begin(), kSpellings.end(), nameOf(referee.mode())),
              kSpellings.end());
    ASSERT_EQ(ruling.newMode.value_or(before), referee.mode());
    if (ruling.newMode) {
      ASSERT_TRUE(mayFollow(before, *ruling.newMode));
    }
    ++cyclesInMode;
    if (ruling.newMode) cyclesInMode = 0;
    if (takerOf(referee.mode())) {
      ASSERT_LE(cyclesInMode, 50) << "restarts end";
    }
    if (isGoal(referee.mode())) {
      ASSERT_LE(cyclesInMode, 15);
    }

    // The clock.
    const bool stood =
        before == PlayMode::kBeforeKickOff || isGoal(before) || before == PlayMode::kGameOver;
    ASSERT_NEAR(referee.clock() - clock, stood ? 0 : 0.02, 1e-9);
    ASSERT_LE(referee.clock(), 40.0 * half + 1e-9);
    ASSERT_GE(referee.half(), half);

    // The score: one more, for one side, exactly when a goal is called.
    const int more = referee.score()[0] + referee.score()[1] - score[0] - score[1];
    ASSERT_GE(referee.score()[0], score[0]);
    ASSERT_GE(referee.score()[1], score[1]);
    const bool called = ruling.newMode && isGoal(*ruling.newMode);
    ASSERT_EQ(more, called ? 1 : 0);
    if (called) {
      ++goalsCalled;
      ASSERT_EQ(before, PlayMode::kPlayOn);
      ASSERT_GT(std::abs(view.ball[0]), 9.042);
      const Side scored = view.ball[0] > 0 ? Side::kLeft : Side::kRight;
      ASSERT_EQ(*ruling.newMode, goalOf(scored));
      ASSERT_EQ(referee.score()[scored == Side::kLeft ? 0 : 1],
                score[scored == Side::kLeft ? 0 : 1] + 1);
    }

    // The ball: no play with a ball that is out, and always put on the ground inside the lines.
    if (before == PlayMode::kPlayOn && isOut(view.ball)) {
      ASSERT_TRUE(ruling.newMode);
    }
    if (ruling.placeBallAt) {
      const Vec3& spot = *ruling.placeBallAt;
      ASSERT_LE(std::abs(spot[0]), 9.0);
      ASSERT_LE(std::abs(spot[1]), 6.0);
      ASSERT_EQ(spot[2], 0.042);
      match.put(spot);
    }

    // Room: in every cycle of a restart, around where the ball lies, for its taker.
    const auto taker = takerOf(referee.mode());
    if (taker) {
      ASSERT_TRUE(ruling.freeSpace);
      ASSERT_EQ(ruling.freeSpace->exempt, taker);
    } else {
      const bool dropped = ruling.incident && ruling.incident->kind == Incident::Kind::kDroppedBall;
      ASSERT_EQ(ruling.freeSpace.has_value(), dropped);
    }

    if (!ruling.incident) {
      if (takerOf(before) && before == referee.mode() && ruling.placeBallAt) ++tally.putBack;
      continue;
    }
    switch (ruling.incident->kind) {
      case Incident::Kind::kGoal:
        ++tally.goals;
        break;
      case Incident::Kind::kKickIn:
        ++tally.kickIns;
        break;
      case Incident::Kind::kCornerKick:
        ++tally.corners;
        break;
      case Incident::Kind::kGoalKick:
        ++tally.goalKicks;
        break;
      case Incident::Kind::kNotTaken:
        ++tally.untaken;
        break;
      case Incident::Kind::kDroppedBall:
        ++tally.dropped;
        break;
      default:
        break;
    }
  }
  EXPECT_NEAR(referee.clock(), 80, 1e-9);
  EXPECT_EQ(referee.half(), 2);
}

TEST(RandomPlay, WhatMustAlwaysHoldDoes) {
  Tally tally;
  for (unsigned seed = 1; seed <= 200; ++seed) {
    ASSERT_NO_FATAL_FAILURE(playAndCheck(seed, tally));
  }
  // Everything was met, and often.
  EXPECT_GT(tally.goals, 300);
  EXPECT_GT(tally.kickIns, 1000);
  EXPECT_GT(tally.corners, 300);
  EXPECT_GT(tally.goalKicks, 300);
  EXPECT_GT(tally.dropped, 300);
  EXPECT_GT(tally.untaken, 300);
  EXPECT_GT(tally.putBack, 300);
}

TEST(RandomPlay, TheSameWayGivesTheSameMatch) {
  for (unsigned seed = 1; seed <= 5; ++seed) {
    Referee a(eventful());
    Referee b(eventful());
    RandomMatch ballOfA(seed);
    RandomMatch ballOfB(seed);
    while (!a.finished()) {
      const Ruling ofA = a.observe(ballOfA.next());
      const Ruling ofB = b.observe(ballOfB.next());
      ASSERT_EQ(ofA.newMode, ofB.newMode);
      ASSERT_EQ(ofA.placeBallAt, ofB.placeBallAt);
      if (ofA.placeBallAt) ballOfA.put(*ofA.placeBallAt);
      if (ofB.placeBallAt) ballOfB.put(*ofB.placeBallAt);
    }
    EXPECT_EQ(a.score(), b.score());
  }
}

/// The ways of a match turned by half a turn, with the sides changed, give the rulings turned: no
/// side is favoured. Kick-offs go by turns, so play is compared from the first touch on.
TEST(RandomPlay, NoSideIsFavoured) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    RefereeSettings settings = eventful();
    settings.waitSeconds = settings.kickOffSeconds = 0;
    Referee straight(settings);
    Referee turned(settings);
    RandomMatch match(seed);
    for (Referee* referee : {&straight, &turned}) {
      referee->observe({});
      referee->observe({});
    }
    while (straight.half() == 1) {
      const FieldView view = match.next();
      FieldView mirror{{-view.ball[0], -view.ball[1], view.ball[2]}, {}};
      for (const PlayerView& player : view.players) {
        mirror.players.push_back({{opposite(player.shirt.side), player.shirt.number},
                                  {-player.position[0], -player.position[1], player.position[2]},
                                  player.touchedBall});
      }
      const Ruling a = straight.observe(view);
      const Ruling b = turned.observe(mirror);
      ASSERT_EQ(a.placeBallAt.has_value(), b.placeBallAt.has_value());
      ASSERT_EQ(takerOf(straight.mode()).has_value(), takerOf(turned.mode()).has_value());
      if (const auto taker = takerOf(straight.mode())) {
        ASSERT_EQ(opposite(*taker), takerOf(turned.mode()));
      }
      ASSERT_EQ(straight.score()[0], turned.score()[1]);
      ASSERT_EQ(straight.score()[1], turned.score()[0]);
      if (a.placeBallAt) {
        ASSERT_NEAR((*a.placeBallAt)[0], -(*b.placeBallAt)[0], 1e-12);
        ASSERT_NEAR((*a.placeBallAt)[1], -(*b.placeBallAt)[1], 1e-12);
        match.put(*a.placeBallAt);
      }
    }
  }
}

}  // namespace
}  // namespace arena
