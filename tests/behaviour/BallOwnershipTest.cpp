#include <array>

#include "tests/behaviour/BehaviourTest.h"

namespace {

/// Number 3; the ball lies in (1, 0) and nobody has told of it or been seen.
class BallOwnership : public BehaviourTest {
 protected:
  BallOwnership() {
    world.ballPos = VecPosition(1, 0, 0);
    world.cycle = 100;
  }

  void Report(int number, double distance) const {
    world.teamBall[static_cast<std::size_t>(number - 1)].distance = distance;
  }

  /// A player seen in CYCLE at (X, Y); index as in the table of seen players.
  void See(int index, double x, double y, int cycle, double distance = 10) const {
    PolarInfo& polar = world.vision.players[static_cast<std::size_t>(index)].polar;
    polar.position = VecPosition(x, y, 0);
    polar.lastSeenCycle = cycle;
    polar.distance = distance;
  }
};

struct Lead {
  double mate;      // [m] from the ball
  double opponent;  // [m]
  int owner;        // when the mate is another player
  int mine;         // when the mate is this player
};

constexpr std::array<Lead, 13> kLeads{{{3.25, 3.25, freeBall, freeBall},
                                       {3.25, 100, freeBall, freeBall},
                                       {3.0, 10, mateBall, myBall},
                                       {3.0, 3.25, contestedMateBall, contestedMyBall},
                                       {3.25, 3.0, contestedMateBall, contestedMyBall},
                                       {4.0, 3.0, opponentBall, opponentBall},
                                       {2.0, 2.5, contestedMateBall, contestedMyBall},
                                       {2.0, 3.0, contestedMateBall, contestedMyBall},
                                       {2.0, 3.125, mateBall, myBall},
                                       {2.0, 1.5, contestedMateBall, contestedMyBall},
                                       {2.0, 1.375, opponentBall, opponentBall},
                                       {0.0, 0.0, contestedMateBall, contestedMyBall},
                                       {1000, 0.5, opponentBall, opponentBall}}};

TEST_F(BallOwnership, LeadsDecide) {
  for (const Lead& lead : kLeads) {
    for (const int nearest : {3, 5}) {
      for (int number = 1; number <= 6; ++number) Report(number, 1000);
      Report(nearest, lead.mate);
      See(8, 1 + lead.opponent, 0, 100);
      EXPECT_EQ(OutputOf([&] { agent.whoseBall(); }), "");
      if (lead.mate == 1000) {
        EXPECT_EQ(agent.closestMateIndex, 0) << "all are equal";
      } else {
        EXPECT_EQ(agent.closestMateIndex, nearest - 1);
      }
      EXPECT_EQ(agent.ballOwner, nearest == 3 ? lead.mine : lead.owner)
          << lead.mate << " " << lead.opponent << " " << nearest;
      EXPECT_EQ(agent.closestMateDist, lead.mate);
      EXPECT_EQ(agent.closestOpponentDist, lead.opponent);
      EXPECT_EQ(agent.closestOpponentIndex, 8);
    }
  }
}

TEST_F(BallOwnership, NobodyInViewLeavesTheOpponentFarOff) {
  agent.whoseBall();
  EXPECT_EQ(agent.closestOpponentDist, 1e7);
  EXPECT_EQ(agent.closestOpponentIndex, -1);
  EXPECT_EQ(agent.ballOwner, freeBall);
}

TEST_F(BallOwnership, WithoutAnyReportBelowTheLimitThereIsNoMate) {
  for (int number = 1; number <= 6; ++number) Report(number, 1e7);
  agent.whoseBall();
  EXPECT_EQ(agent.closestMateDist, 1e7);
  EXPECT_EQ(agent.closestMateIndex, -1);
  EXPECT_EQ(agent.ballOwner, freeBall);
}

TEST_F(BallOwnership, OpponentCountsForFourCycles) {
  See(6, 2, 0, 96);
  agent.whoseBall();
  EXPECT_EQ(agent.closestOpponentIndex, 6);
  EXPECT_EQ(agent.ballOwner, opponentBall);
  See(6, 2, 0, 95);
  agent.whoseBall();
  EXPECT_EQ(agent.closestOpponentIndex, -1);
  EXPECT_EQ(agent.closestOpponentDist, 1e7);
  EXPECT_EQ(agent.ballOwner, freeBall);
}

TEST_F(BallOwnership, NearestRecentOpponentIsTakenAndATieStaysWithTheLowerOne) {
  See(6, 1.5, 0, 95);
  See(7, 3, 0, 99);
  See(9, 2, 0, 100);
  See(11, 1, 1, 100);
  agent.whoseBall();
  EXPECT_EQ(agent.closestOpponentIndex, 9);
  EXPECT_EQ(agent.closestOpponentDist, 1);
}

TEST_F(BallOwnership, MatesInViewAreNoOpponents) {
  See(0, 1, 0, 100);
  See(5, 1, 0, 100);
  agent.whoseBall();
  EXPECT_EQ(agent.closestOpponentIndex, -1);
}

TEST_F(BallOwnership, NearestReportIsTakenWhateverItsAgeAndATieStaysWithTheLowerNumber) {
  Report(2, 1.5);
  Report(4, 1.5);
  Report(6, 2);
  world.cycle = 100000;
  agent.whoseBall();
  EXPECT_EQ(agent.closestMateIndex, 1);
  EXPECT_EQ(agent.closestMateDist, 1.5);
}

TEST_F(BallOwnership, OwnSightAloneMakesThePlayerTheNearestMate) {
  for (int number = 1; number <= 6; ++number) {
    agent.uNum = number;
    for (int other = 1; other <= 6; ++other) Report(other, 1000);
    Report(number, 2.5);
    agent.whoseBall();
    EXPECT_EQ(agent.closestMateIndex, number - 1);
    EXPECT_EQ(agent.ballOwner, myBall) << number;
  }
}

TEST_F(BallOwnership, NobodyCloseMeansNoCollision) {
  EXPECT_TRUE(agent.collisionHandler());
}

TEST_F(BallOwnership, PlayerFartherFromTheBallThanACloseMateGivesWay) {
  See(1, 0.25, 0, 100, 0.25);  // 0.75 m from the ball
  EXPECT_FALSE(agent.collisionHandler()) << "1 m from the ball";
  Stand(0.5, 0);
  EXPECT_TRUE(agent.collisionHandler()) << "0.5 m from the ball";
}

TEST_F(BallOwnership, AtEqualDistancesThePlayerGivesWay) {
  See(1, 1, 1, 100, 0.25);
  EXPECT_FALSE(agent.collisionHandler());
}

TEST_F(BallOwnership, OnlyTheCloseMateWithTheLowerNumberIsCompared) {
  See(1, -1, 0, 100, 0.25);  // farther than this player
  See(4, 0.9, 0, 100, 0.25);
  EXPECT_TRUE(agent.collisionHandler());
  See(0, 0.9, 0, 100, 0.25);
  EXPECT_FALSE(agent.collisionHandler());
}

TEST_F(BallOwnership, MateAtHalfAMetreIsNotClose) {
  See(1, 0.9, 0, 100, 0.5);
  EXPECT_TRUE(agent.collisionHandler());
  See(1, 0.9, 0, 100, 0.4999);
  EXPECT_FALSE(agent.collisionHandler());
}

TEST_F(BallOwnership, CloseMateCountsForFourCycles) {
  See(1, 0.9, 0, 96, 0.25);
  EXPECT_FALSE(agent.collisionHandler());
  See(1, 0.9, 0, 95, 0.25);
  EXPECT_TRUE(agent.collisionHandler());
}

TEST_F(BallOwnership, OwnEntryAndOpponentsAreNoMatesInTheWay) {
  See(2, 0.9, 0, 100, 0.25);
  See(6, 0.9, 0, 100, 0.25);
  EXPECT_TRUE(agent.collisionHandler());
  agent.uNum = 4;
  EXPECT_FALSE(agent.collisionHandler()) << "number 3 is a mate of number 4";
}

TEST_F(BallOwnership, BallReportNeedsASightOfThisCycleOrTheOneBefore) {
  world.ballPos = VecPosition(1.5, -2, 0);
  for (const int seen : {100, 99}) {
    world.vision.ball.lastSeenCycle = seen;
    agent.sendMyInfo();
    EXPECT_EQ(player.link.commands(), Commands{"(say (o 1.5:-2:0))"}) << seen;
  }
  world.vision.ball.lastSeenCycle = 98;
  agent.sendMyInfo();
  EXPECT_EQ(player.link.bytes(), "");
}

}  // namespace
