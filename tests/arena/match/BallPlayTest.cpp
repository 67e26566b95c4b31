#include "arena/match/BallPlay.h"

#include <gtest/gtest.h>

namespace arena {
namespace {

constexpr Shirt kLeft2{Side::kLeft, 2};
constexpr Shirt kRight5{Side::kRight, 5};

/// A match told cycle by cycle.
class Story {
 public:
  Story() {
    now_.mode = PlayMode::kPlayOn;
    add(1, kLeft2, -1);
    add(2, kRight5, 1);
  }

  CycleRecord& now() { return now_; }
  /// One cycle in which the players of TOUCHING (sessions) touch the ball.
  BallNews next(const std::vector<std::uint32_t>& touching = {}) {
    ++now_.cycle;
    for (PlayerRecord& player : now_.players) {
      player.touchedBall = std::count(touching.begin(), touching.end(), player.session) > 0;
    }
    return ballPlay_.add(now_);
  }
  /// Who shoots in this cycle and then in one without a touch; 0: nobody.
  std::uint32_t shooter(const std::vector<std::uint32_t>& touching) {
    EXPECT_FALSE(next(touching).shot) << "still touching";
    const auto shot = next().shot;
    return shot ? shot->session : 0;
  }

 private:
  void add(std::uint32_t session, Shirt shirt, double x) {
    PlayerRecord player;
    player.session = session;
    player.shirt = shirt;
    player.position = {x, 0, 0.38};
    now_.players.push_back(player);
  }

  CycleRecord now_{};
  BallPlay ballPlay_{};
};

std::uint32_t holder(const BallNews& news) {
  return news.possession ? news.possession->session : 0;
}

TEST(BallPlay, TheBallIsTheLastTouchers) {
  Story story;
  EXPECT_EQ(holder(story.next()), 0U);
  EXPECT_EQ(holder(story.next({1})), 1U);
  EXPECT_EQ(holder(story.next()), 1U);
  EXPECT_EQ(holder(story.next({2})), 2U);
  EXPECT_EQ(holder(story.next()), 2U);
}

TEST(BallPlay, OfTwoAtOnceTheNearerHasIt) {
  Story story;
  story.now().ball = {0.2, 0, 0.042};  // 1.2 m from one, 0.8 m from the other
  EXPECT_EQ(holder(story.next({1, 2})), 2U);
}

TEST(BallPlay, APlayerWithoutAShirtHasNoBall) {
  Story story;
  story.now().players[0].shirt.reset();
  EXPECT_EQ(holder(story.next({1})), 0U);
}

TEST(BallPlay, ARestartMakesItNobodysUntilTheNextTouch) {
  Story story;
  story.next({1});
  story.now().mode = PlayMode::kKickInRight;
  EXPECT_EQ(holder(story.next()), 0U);
  story.now().mode = PlayMode::kPlayOn;
  EXPECT_EQ(holder(story.next()), 0U);
  EXPECT_EQ(holder(story.next({2})), 2U);
}

TEST(BallPlay, AShotIsABallThatWouldRollIntoTheGoal) {
  // From 3 m before the line, 1 m/s is just enough: 3 m.
  EXPECT_TRUE(isShot(Side::kLeft, {6.001, 0, 0}, {1, 0, 0}));
  EXPECT_FALSE(isShot(Side::kLeft, {5.999, 0, 0}, {1, 0, 0}));
  EXPECT_TRUE(isShot(Side::kLeft, {-2.999, 0, 0}, {2, 0, 0})) << "12 m at 2 m/s";
  EXPECT_FALSE(isShot(Side::kLeft, {6.001, 0, 0}, {-1, 0, 0})) << "backwards";
  EXPECT_FALSE(isShot(Side::kLeft, {6.001, 0, 0}, {0, 1, 0})) << "sideways";
  EXPECT_TRUE(isShot(Side::kRight, {-6.001, 0, 0}, {-1, 0, 0}));
  EXPECT_FALSE(isShot(Side::kLeft, {9.1, 0, 0}, {1, 0, 0})) << "behind the line";
  // The post is at 1.05 m, half a metre beside it at 1.55 m: 2 m ahead, that much to the side.
  EXPECT_TRUE(isShot(Side::kLeft, {7, 0, 0}, {2, 1.54, 0}));
  EXPECT_FALSE(isShot(Side::kLeft, {7, 0, 0}, {2, 1.56, 0}));
  EXPECT_FALSE(isShot(Side::kLeft, {7, 0, 0}, {2, -1.56, 0}));
}

TEST(BallPlay, AShotCountsWhenTheBallHasLeftAndOncePerTouch) {
  Story story;
  story.now().ball = {7, 0, 0.042};
  story.now().ballVelocity = {2, 0, 0};
  EXPECT_EQ(story.shooter({1}), 1U);
  EXPECT_EQ(story.shooter({1}), 0U) << "the same touch";
  for (int i = 0; i < 25; ++i) story.next();
  EXPECT_EQ(story.shooter({1}), 1U) << "another touch, half a second later";
  EXPECT_EQ(story.shooter({2}), 0U) << "the other side's own goal";
}

TEST(BallPlay, NoShotWhileTheBallIsDead) {
  Story story;
  story.now().ball = {7, 0, 0.042};
  story.now().ballVelocity = {2, 0, 0};
  story.now().mode = PlayMode::kKickInRight;
  EXPECT_EQ(story.shooter({1}), 0U);
}

TEST(BallPlay, AGoalIsTheLastTouchersAndAShot) {
  Story story;
  story.next({1});
  story.next();
  story.now().score = {1, 0};
  story.now().mode = PlayMode::kGoalLeft;
  const BallNews news = story.next();
  ASSERT_TRUE(news.goal);
  EXPECT_EQ(news.goal->session, 1U);
  EXPECT_EQ(news.shot, news.goal) << "it rolled slowly, and in it went";
  EXPECT_FALSE(story.next().goal) << "once";
}

TEST(BallPlay, AGoalAfterAShotIsNoSecondShot) {
  Story story;
  story.now().ball = {7, 0, 0.042};
  story.now().ballVelocity = {2, 0, 0};
  EXPECT_EQ(story.shooter({1}), 1U);
  story.now().score = {1, 0};
  const BallNews news = story.next();
  EXPECT_TRUE(news.goal);
  EXPECT_FALSE(news.shot);
}

TEST(BallPlay, AnOwnGoalIsNoPlayers) {
  Story story;
  story.next({2});
  story.now().score = {1, 0};
  const BallNews news = story.next();
  EXPECT_FALSE(news.goal);
  EXPECT_FALSE(news.shot);
}

}  // namespace
}  // namespace arena
