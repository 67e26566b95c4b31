#include "workshop/check/ScriptNames.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "perception/WorldModel.h"
#include "workshop/trial/Player.h"
#include "workshop/trial/ScriptFolder.h"

namespace workshop {
namespace {

TEST(ScriptNames, AreFiftyFiles) {
  std::set<std::string_view> files(kPoseScripts.begin(), kPoseScripts.end());
  for (const ActionScript& script : kActionScripts) files.insert(script.file);
  EXPECT_EQ(files.size(), 50U);
}

class ActionNames : public testing::TestWithParam<ActionScript> {};
INSTANTIATE_TEST_SUITE_P(All, ActionNames, testing::ValuesIn(kActionScripts),
                         [](const auto& each) { return std::string(each.param.action); });

TEST_P(ActionNames, AreThoseUnderWhichThePlayerOpensTheFile) {
  const ScriptFolder folder;
  folder.write(GetParam().file, "move 0.04\n");
  // A pose that only this file could have set.
  if (!GetParam().pose.empty()) folder.write(GetParam().pose, "LSP 0.5\nMOVE 0.5\n");
  const Player player(folder.path(), 1);
  player.agent().doActionFile4(std::string(GetParam().action));
  EXPECT_TRUE(player.agent().myACtionFile.is_open());
  EXPECT_EQ(player.agent().moveCyclesLeft, GetParam().pose.empty() ? 0 : 24);
}

TEST(PoseNames, AreThoseThatGetUpsDivesAndKicksLookFor) {
  const ScriptFolder folder;
  // Every pose lasts a number of cycles of its own: 5, 10, ... (durations that lose none).
  Player player(folder.path(), 1);
  Agent& agent = player.agent();
  const auto loads = [&](const std::string& file, const auto& make) {
    folder.write(file, "LSP 0.5\nMOVE 0.1\n");
    agent.moveCyclesLeft = 0;
    make();
    EXPECT_EQ(agent.moveCyclesLeft, 5) << file;
    std::filesystem::remove(folder.path() / file);
  };
  player.setClock(1000);
  loads("JumpR1.txt", [&] { agent.JumpR(); });
  loads("JumpL1.txt", [&] { agent.JumpL(); });
  player.setClock(1200);
  loads("JumpR2.txt", [&] { agent.Right2Back(); });
  loads("JumpL2.txt", [&] { agent.Left2Back(); });
  for (const std::string file :
       {"back2.txt", "back3.txt", "back4.txt", "front2.txt", "front3.txt", "front4.txt",
        "kickL1.txt", "kickL8.txt", "kickR1.txt", "kickR8.txt"}) {
    EXPECT_TRUE(isPoseScript(file)) << file;
  }
  EXPECT_FALSE(isPoseScript("kickL9.txt"));
  EXPECT_FALSE(isPoseScript("back.txt"));
}

}  // namespace
}  // namespace workshop
