#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "behaviour/Agent.h"
#include "perception/WorldModel.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/TempDir.h"

namespace {

using Commands = std::vector<std::string>;

/// Number 3, in an empty working directory. The cycles stay below 50, where its head begins to
/// scan.
class AgentLoop : public ::testing::Test {
 protected:
  AgentLoop() { directory.enter(); }

  /// One turn in CYCLE and play mode MODE; what it sent, without the zero speeds.
  Commands Turn(int cycle, const std::string& mode) {
    world.cycle = cycle;
    world.playMode = mode;
    agent.agentLoop();
    return player.link.commands();
  }

  TempDir directory;
  FreshPlayer player{3};
  Agent& agent = player.agent();
  WorldModel& world = player.world();
};

constexpr const char* kBeam = "(beam -6.15 0.50 -0)";
constexpr const char* kReport = "(say P,3,0,0)";

TEST_F(AgentLoop, FirstMessageInAKickOffIsNoNewKickOff) {
  EXPECT_EQ(Turn(21, "KickOff_Left"), Commands{""});
  EXPECT_EQ(agent.lastPlayMode, "KickOff_Left");
  EXPECT_EQ(Turn(22, "KickOff_Left"), Commands{""});
}

TEST_F(AgentLoop, NewKickOffOfEitherSideIsExactlyOneBeamCycle) {
  int cycle = 21;
  for (const char* mode : {"KickOff_Left", "KickOff_Right"}) {
    for (const char* before : {"BeforeKickOff", "PlayOn"}) {
      Turn(cycle++, before);
      EXPECT_EQ(Turn(cycle++, mode), Commands{kBeam}) << before << " " << mode;
      EXPECT_EQ(agent.lastPlayMode, mode);
      EXPECT_EQ(Turn(cycle++, mode), Commands{""}) << before << " " << mode;
    }
  }
}

TEST_F(AgentLoop, KickOffThatChangesSidesBeamsAnew) {
  EXPECT_EQ(Turn(21, "KickOff_Left"), Commands{""});
  EXPECT_EQ(Turn(22, "KickOff_Right"), Commands{kBeam});
  EXPECT_EQ(Turn(23, "KickOff_Left"), Commands{kBeam});
  EXPECT_EQ(Turn(24, "KickOff_Left"), Commands{""});
}

TEST_F(AgentLoop, LaterKickOffOfTheSameSideBeamsAgain) {
  Turn(19, "BeforeKickOff");
  EXPECT_EQ(Turn(21, "KickOff_Right"), Commands{kBeam});
  EXPECT_EQ(Turn(22, "KickOff_Right"), Commands{""});
  EXPECT_EQ(Turn(23, "PlayOn"), Commands{""});
  EXPECT_EQ(Turn(24, "KickOff_Right"), Commands{kBeam});
  EXPECT_EQ(Turn(25, "KickOff_Right"), Commands{""});
}

TEST_F(AgentLoop, OwnSideDoesNotMatterForTheBeam) {
  for (const char* side : {"left", "right", ""}) {
    world.teamSide = side;
    EXPECT_EQ(Turn(21, "PlayOn"), Commands{""});
    EXPECT_EQ(Turn(22, "KickOff_Left"), Commands{kBeam}) << side;
  }
}

TEST_F(AgentLoop, OtherSpellingsAndModesDontBeam) {
  EXPECT_EQ(Turn(21, "PlayOn"), Commands{""});
  for (const char* mode : {"kickoff_left", "KickOff_left", "kick_off_left", "Goal_Left",
                           "KickIn_Left", "KickOff_Left "}) {
    EXPECT_EQ(Turn(22, mode), Commands{""}) << mode;
    EXPECT_EQ(agent.lastPlayMode, mode);
  }
}

TEST_F(AgentLoop, BeamCycleIsWithoutMotionAndReport) {
  EXPECT_EQ(Turn(39, "PlayOn"), Commands{""});
  agent.LHipRollCommand(0.5);
  agent.initMove(0.2);
  EXPECT_EQ(Turn(40, "KickOff_Left"), Commands{kBeam});
  EXPECT_EQ(agent.moveCyclesLeft, 10);
}

TEST_F(AgentLoop, BeamOfANewKickOffNeedsNoCycleTwenty) {
  EXPECT_EQ(Turn(1, "BeforeKickOff"), Commands{""});
  EXPECT_EQ(Turn(2, "KickOff_Left"), Commands{kBeam});
}

TEST_F(AgentLoop, PlayModeIsRememberedAfterEveryOtherCycle) {
  Turn(5, "BeforeKickOff");
  EXPECT_EQ(agent.lastPlayMode, "BeforeKickOff");
  Turn(6, "PlayOn");
  EXPECT_EQ(agent.lastPlayMode, "PlayOn");
  Turn(7, "");
  EXPECT_EQ(agent.lastPlayMode, "");
}

TEST_F(AgentLoop, ModeLostInBetweenCountsAsAStart) {
  Turn(5, "PlayOn");
  Turn(6, "");
  EXPECT_EQ(Turn(7, "KickOff_Left"), Commands{""});
}

TEST_F(AgentLoop, PlaceIsReportedEachTwentiethCycleBehindThePlayback) {
  for (int cycle = 11; cycle < 50; ++cycle) {
    EXPECT_EQ(Turn(cycle, "PlayOn"), cycle % 20 == 0 ? (Commands{"", kReport}) : Commands{""})
        << cycle;
  }
}

TEST_F(AgentLoop, CycleZeroReportsThoughNothingElseLeavesIt) {
  EXPECT_EQ(Turn(0, ""), Commands{kReport});
}

TEST_F(AgentLoop, EachTurnOfACycleReports) {
  EXPECT_EQ(Turn(20, "PlayOn"), (Commands{"", kReport}));
  EXPECT_EQ(Turn(20, "PlayOn"), (Commands{"", kReport}));
}

TEST_F(AgentLoop, WaitForTheKickOffEndsTheBodysCycleAndNotTheReport) {
  EXPECT_EQ(Turn(19, "BeforeKickOff"), Commands{""});
  EXPECT_EQ(Turn(20, "BeforeKickOff"), (Commands{kBeam, kReport}));
  EXPECT_EQ(Turn(21, "BeforeKickOff"), Commands{kBeam});
  EXPECT_EQ(Turn(40, "BeforeKickOff"), (Commands{kBeam, kReport}));
}

TEST_F(AgentLoop, LyingPlayerReportsToo) {
  agent.accel = VecPosition(0, 7, 0);
  EXPECT_EQ(Turn(39, "PlayOn"), Commands{""});
  EXPECT_EQ(agent.bodyState, 1);
  EXPECT_EQ(Turn(40, "PlayOn"), (Commands{"", kReport}));
}

TEST_F(AgentLoop, ReportHasTheShortFormOfTheNumbers) {
  agent.myPos = VecPosition(-8.6, 0.123456789, 7);
  agent.uNum = 5;
  EXPECT_EQ(Turn(20, "PlayOn"), (Commands{"", "(say P,5,-8.6,0.123457)"}));
}

TEST_F(AgentLoop, FieldPlayersHeadScansInTheAgentsCycle) {
  EXPECT_EQ(Turn(50, "PlayOn"), (Commands{"(he1 1.28026)", ""}));
  EXPECT_EQ(Turn(51, "PlayOn"), Commands{""});
}

}  // namespace
