// docs/scripts.md against the player's own readers, through the workshop's check.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <string>

#include "arena/model/BodyTable.h"
#include "tests/docs/Page.h"
#include "workshop/check/ScriptCheck.h"
#include "workshop/check/ScriptNames.h"
#include "workshop/check/Vocabulary.h"
#include "workshop/trial/Player.h"
#include "workshop/trial/ScriptFolder.h"

namespace workshop {
namespace {

docs::Page page() {
  return docs::Page("docs/scripts.md");
}

/// "turnL9.txt" of "script turnL9.txt".
std::string fileOf(const docs::CodeBlock& block) {
  return block.label.substr(block.label.find(' ') + 1);
}

std::string foundIn(const ScriptFolder& folder, const std::string& file) {
  std::string lines;
  for (Finding finding : checkScripts({folder.path() / file})) {
    finding.file = finding.file.filename();
    lines += textOf(finding) + '\n';
  }
  return lines;
}

/// The files that CELL names: "a1.txt to a3.txt" are three.
std::set<std::string> filesIn(const std::string& cell) {
  std::set<std::string> files;
  std::istringstream parts(cell);
  for (std::string part; std::getline(parts >> std::ws, part, ',');) {
    const auto to = part.find(" to ");
    if (to == std::string::npos) {
      files.insert(part);
      continue;
    }
    const std::string first = part.substr(0, to);
    const std::string stem = first.substr(0, first.size() - 5);
    for (char digit = first[first.size() - 5]; digit <= part[part.size() - 5]; ++digit) {
      files.insert(stem + digit + ".txt");
    }
  }
  return files;
}

TEST(ScriptsPage, WorkedExamplesAreSound) {
  const ScriptFolder folder;
  const auto examples = page().blocks("script ");
  ASSERT_EQ(examples.size(), 2U);
  for (const docs::CodeBlock& example : examples) folder.write(fileOf(example), example.text);
  for (const docs::CodeBlock& example : examples) {
    EXPECT_EQ(foundIn(folder, fileOf(example)), "") << example.label;
  }
}

TEST(ScriptsPage, FaultyExamplesHaveTheFindingsTold) {
  const ScriptFolder folder;
  const auto examples = page().blocks("faulty ");
  const auto findings = page().blocks("findings");
  ASSERT_EQ(examples.size(), findings.size());
  ASSERT_GE(examples.size(), 2U);
  for (std::size_t i = 0; i < examples.size(); ++i) {
    folder.write(fileOf(examples[i]), examples[i].text);
    EXPECT_EQ(foundIn(folder, fileOf(examples[i])), findings[i].text);
  }
}

TEST(ScriptsPage, OddRulesAreTheReaders) {
  const ScriptFolder folder;
  folder.write("kickL1.txt", "# 1\nLKP 0.5\nMOVE 0.5");
  EXPECT_EQ(foundIn(folder, "kickL1.txt"),
            "kickL1.txt:1: unknown word #: skipped with its number\n");
  folder.write("kickL2.txt", "# bend\nLKP 0.5\nMOVE 0.5\n");
  EXPECT_EQ(foundIn(folder, "kickL2.txt"),
            "kickL2.txt:1: no number behind #: it counts as 0 and reading ends there\n"
            "kickL2.txt:1: unknown word #: skipped with its number\n"
            "kickL2.txt: no block that ends in MOVE\n");
  folder.write("kickL3.txt", "LKP 0.5rad\nMOVE 0.5\n");
  EXPECT_THAT(foundIn(folder, "kickL3.txt"), testing::HasSubstr("no number behind rad"));
  folder.write("turnL9.txt", "LKneePitchCommand 0.5\nmove");
  EXPECT_EQ(foundIn(folder, "turnL9.txt"),
            "turnL9.txt:2: no number behind move: it counts as 0 and reading ends there\n");
}

TEST(ScriptsPage, WordsMoveTheJointsTold) {
  const ScriptFolder folder;
  Player player(folder.path(), 1);
  Vocabulary words(player);
  std::size_t joints = 0;
  const auto expect = [&](ScriptKind kind, const docs::Row& row, const std::string& word) {
    if (word.empty()) return;
    const Meaning& meaning = words.meaningOf(kind, word);
    if (row[0] == "end of the block") {
      EXPECT_EQ(meaning.role, Meaning::Role::kEnd) << word;
      return;
    }
    ASSERT_EQ(meaning.role, Meaning::Role::kJoint) << word;
    EXPECT_EQ(arena::kJoints[meaning.joint].perceptor, row[0]) << word;
    EXPECT_EQ(meaning.sign, row[3] == "-" ? -1 : 1) << word;
    ++joints;
  };
  for (const docs::Row& row : page().table("Joint")) {
    ASSERT_EQ(row.size(), 4U);
    expect(ScriptKind::kAction, row, row[1]);
    expect(ScriptKind::kPose, row, row[2]);
  }
  EXPECT_EQ(joints, 14U + 20U);
}

TEST(ScriptsPage, DurationsLoseTheCyclesTold) {
  EXPECT_THAT(page().text(),
              testing::HasSubstr("0.5 s are 24 cycles; 0.02, 0.04, 0.08, 0.1 and 0.2 "
                                 "s lose none"));
  const ScriptFolder folder;
  const Player player(folder.path(), 1);
  const auto cyclesOf = [&](const char* seconds) {
    folder.write("kickL1.txt", std::string("LKP 0.5 MOVE ") + seconds);
    player.agent().loadMoveFromFile("kickL1.txt");
    return player.agent().moveCyclesLeft;
  };
  EXPECT_EQ(cyclesOf("0.5"), 24);
  EXPECT_EQ(cyclesOf("0.02"), 1);
  EXPECT_EQ(cyclesOf("0.04"), 2);
  EXPECT_EQ(cyclesOf("0.08"), 4);
  EXPECT_EQ(cyclesOf("0.1"), 5);
  EXPECT_EQ(cyclesOf("0.2"), 10);
}

TEST(ScriptsPage, EveryScriptThatThePlayerKnowsIsTold) {
  std::set<std::string> actions;
  for (const docs::Row& row : page().table("Action scripts")) {
    for (const std::string& file : filesIn(row[0])) {
      actions.insert(file);
      const ActionScript* const script = actionScriptIn(file);
      ASSERT_NE(script, nullptr) << file;
      EXPECT_EQ(script->pose, row[2]) << file;
    }
  }
  EXPECT_EQ(actions.size(), kActionScripts.size());

  std::set<std::string> poses;
  for (const docs::Row& row : page().table("Pose scripts")) poses.merge(filesIn(row[0]));
  EXPECT_EQ(poses, std::set<std::string>(kPoseScripts.begin(), kPoseScripts.end()));
}

}  // namespace
}  // namespace workshop
