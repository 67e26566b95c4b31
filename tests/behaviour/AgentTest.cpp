#include "behaviour/Agent.h"

#include <gtest/gtest.h>

#include "perception/WorldModel.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/TempDir.h"

namespace {

TEST(Agent, IsMadeAtFirstUseAndOnceOnly) {
  Agent::freeSingleton();
  EXPECT_EQ(Agent::m_Instance, nullptr);
  Agent* const first = Agent::getSingleton();
  EXPECT_NE(first, nullptr);
  EXPECT_EQ(Agent::m_Instance, first);
  EXPECT_EQ(Agent::getSingleton(), first);
  Agent::freeSingleton();
  EXPECT_EQ(Agent::m_Instance, nullptr);
  Agent::freeSingleton();
  EXPECT_EQ(Agent::m_Instance, nullptr);
}

TEST(Agent, FirstOneMakesTheWorldModel) {
  Agent::freeSingleton();
  WorldModel::freeSingleton();
  Agent::getSingleton();
  EXPECT_NE(WorldModel::m_Instance, nullptr);
  Agent::freeSingleton();
  WorldModel::freeSingleton();
}

TEST(Agent, StartsUprightWithNoKickAndAllStagesPending) {
  const FreshPlayer player;
  const Agent& agent = player.agent();
  EXPECT_EQ(agent.lastPlayMode, "");
  EXPECT_EQ(agent.bodyState, 0);
  EXPECT_EQ(agent.slowFunction, 0);
  for (const bool pending : agent.getUpStepPending) EXPECT_TRUE(pending);
  EXPECT_TRUE(agent.keepRunning);
}

TEST(Agent, RestoreStateAbandonsEveryMotion) {
  TempDir directory;
  directory.write("script.txt", "move 0");
  directory.enter();
  const FreshPlayer player;
  Agent& agent = player.agent();
  agent.bodyState = 2;
  agent.slowFunction = 1;
  agent.getUpStepPending = {};
  agent.myACtionFile.open("script.txt");
  agent.moveFile.open("script.txt");
  agent.actionFileOpen = true;
  agent.restoreState();
  EXPECT_EQ(agent.bodyState, 0);
  EXPECT_EQ(agent.slowFunction, 0);
  for (const bool pending : agent.getUpStepPending) EXPECT_TRUE(pending);
  EXPECT_FALSE(agent.myACtionFile.is_open());
  EXPECT_FALSE(agent.moveFile.is_open());
  EXPECT_TRUE(agent.actionFileOpen) << "the script's reader clears it";
}

TEST(Agent, RestoreStateMarksStreamsThatWereNotOpenAndTheNextOpeningClearsTheMark) {
  TempDir directory;
  directory.write("script.txt", "move 0");
  directory.enter();
  const FreshPlayer player;
  Agent& agent = player.agent();
  agent.restoreState();
  EXPECT_TRUE(agent.myACtionFile.fail());
  EXPECT_TRUE(agent.moveFile.fail());
  agent.myACtionFile.open("script.txt");
  EXPECT_FALSE(agent.myACtionFile.fail());
}

TEST(Agent, RestoreStateLeavesARunningStepAlone) {
  FreshPlayer player;
  Agent& agent = player.agent();
  agent.LHipRollCommand(0.5);
  agent.initMove(0.2);
  agent.restoreState();
  EXPECT_EQ(agent.moveCyclesLeft, 10);
  EXPECT_TRUE(agent.jointFlags[17].active);
  EXPECT_EQ(player.link.bytes(), "");
}

}  // namespace
