#include "soak/Findings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "soak/Page.h"
#include "soak/Text.h"
#include "tests/arena/record/Records.h"
#include "tests/support/TempDir.h"

namespace soak {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// Everything as it must be.
Findings goodFindings() {
  Findings findings;
  findings.facts = {{"long.status", "0"},    {"long.wanted", "100000"},
                    {"kills.status", "0"},   {"kills.done", "30"},
                    {"cut.status", "1"},     {"cut.seconds", "0.2"},
                    {"cut.remaining", "0"},  {"cut.words", "play: ended with SIGKILL"},
                    {"team.status", "1"},    {"team.seconds", "2"},
                    {"team.remaining", "0"}, {"team.words", "team: the server has gone"}};
  findings.longMatch.record.cycles = findings.longMatch.record.lastCycle = 100'000;
  findings.longMatch.record.atEnd = 12;
  findings.longMatch.record.finished = true;
  for (int i = 0; i < 14; ++i) {
    ProcessMemory memory;
    memory.process = "left-" + std::to_string(i);
    memory.ownGrowthKb = i;
    findings.memory.push_back(memory);
  }
  findings.kills.record = findings.longMatch.record;
  findings.kills.deaths = findings.kills.restarts = 30;
  findings.summaryPlayers = 42;
  findings.summaryLeft = 30;
  findings.cut.record.cycles = findings.cut.record.lastCycle = 700;
  findings.cut.record.fault = "the record has no end";
  findings.lastTold = 699;
  return findings;
}

/// What doesn't hold once BREAK has been at good findings.
std::vector<std::string> notHeld(const std::function<void(Findings&)>& spoil) {
  Findings findings = goodFindings();
  spoil(findings);
  judge(findings);
  std::vector<std::string> words;
  for (const Requirement& one : findings.requirements) {
    if (!one.held) words.push_back(one.what.substr(0, one.what.find(' ', 12)));
  }
  EXPECT_EQ(findings.allHeld(), words.empty());
  return words;
}

TEST(Findings, GoodOnesAllHold) {
  EXPECT_THAT(notHeld([](Findings&) {}), ElementsAre());
}

TEST(Findings, EachThingThatGoesWrongIsSeen) {
  EXPECT_THAT(notHeld([](Findings& f) { f.facts["long.status"] = "1"; }),
              ElementsAre("the long match"));
  EXPECT_THAT(notHeld([](Findings& f) { f.longMatch.record.fault = "damaged"; }),
              ElementsAre("the long match"));
  EXPECT_THAT(notHeld([](Findings& f) { f.longMatch.record.cycles = 99'999; }),
              ElementsAre("it has the cycles"));
  EXPECT_THAT(notHeld([](Findings& f) { f.longMatch.record.missing = 1; }),
              ElementsAre("it has the cycles"));
  EXPECT_THAT(notHeld([](Findings& f) { f.longMatch.deaths = 1; }), ElementsAre("nobody crashes"));
  EXPECT_THAT(notHeld([](Findings& f) { f.longMatch.record.atEnd = 11; }),
              ElementsAre("nobody crashes"));
  EXPECT_THAT(notHeld([](Findings& f) { f.memory[3].ownGrowthKb = kMostGrowthKb + 1; }),
              ElementsAre("no process grows"));
  EXPECT_THAT(notHeld([](Findings& f) { f.memory.pop_back(); }), ElementsAre("no process grows"));
  EXPECT_THAT(notHeld([](Findings& f) { f.kills.restarts = 29; }), ElementsAre("players killed"));
  EXPECT_THAT(notHeld([](Findings& f) { f.kills.record.atEnd = 11; }),
              ElementsAre("all twelve are"));
  EXPECT_THAT(notHeld([](Findings& f) { f.kills.record.missing = 2; }),
              ElementsAre("no cycle of it"));
  EXPECT_THAT(notHeld([](Findings& f) { f.summaryPlayers = 41; }),
              ElementsAre("its summary counts"));
  EXPECT_THAT(notHeld([](Findings& f) { f.cut.record.lastCycle = 600; }),
              ElementsAre("the training"));
  EXPECT_THAT(notHeld([](Findings& f) { f.facts["cut.remaining"] = "1"; }),
              ElementsAre("./play then ends"));
  EXPECT_THAT(notHeld([](Findings& f) { f.facts["team.status"] = "143"; }),
              ElementsAre("so does ./team"));
}

TEST(Findings, NobodyKilledProvesNothing) {
  EXPECT_THAT(notHeld([](Findings& f) {
                f.facts["kills.done"] = "0";
                f.kills.deaths = f.kills.restarts = 0;
                f.summaryPlayers = 12;
                f.summaryLeft = 0;
              }),
              ElementsAre("players killed"));
}

/// A folder as soak/run leaves it, with matches of two players.
void fill(const TempDir& folder) {
  auto match = arena::test::smallMatch(1000);
  match.back().finished = true;
  const std::string record = arena::test::fileOf(match);
  std::string facts;
  for (const auto& [key, value] : goodFindings().facts) facts += key + "\t" + value + "\n";
  folder.write("facts", facts);
  folder.write("long.rec", record);
  folder.write("long.lines", "1\t0.00 s  a\n11\t20.00 s  b\n");
  folder.write("long.samples", "2\tplay\t9 8 7\n6\tplay\t9 8 7\n11\tplay\t9 8 7\n");
  folder.write("kills.rec", record);
  folder.write("kills.lines",
               "1\t0.00 s  a\n2\tplay: left 4 ended with status 137 (SIGKILL), see x\n"
               "2\tplay: left 4 is started again\n9\t20.00 s  b\n");
  folder.write("kills.json",
               R"({"players": [{"name": "left 4", "left_at_s": 3}, {"name": "left 4"}]})");
  folder.write("cut.rec", arena::test::fileOf(arena::test::smallMatch(300), /*withEnd=*/false));
  folder.write("cut.lines", "1\t0.00 s  a\n4\t5.98 s  b\n");
}

TEST(Findings, AreReadFromTheFolder) {
  const TempDir folder;
  fill(folder);
  const Findings findings = findingsIn(folder.path().string());
  EXPECT_EQ(findings.longMatch.record.cycles, 1000);
  EXPECT_EQ(findings.longMatch.seconds, 10);
  ASSERT_EQ(findings.memory.size(), 1U);
  EXPECT_EQ(findings.memory[0].levels[1].cycle, 500);
  EXPECT_EQ(findings.kills.deaths, 1U);
  EXPECT_EQ(findings.kills.restarts, 1U);
  EXPECT_EQ(findings.summaryPlayers, 2U);
  EXPECT_EQ(findings.summaryLeft, 1U);
  EXPECT_EQ(findings.cut.record.lastCycle, 300);
  EXPECT_EQ(findings.lastTold, 299);
  EXPECT_FALSE(findings.allHeld());
}

TEST(Findings, MissingFileIsNamed) {
  const TempDir folder;
  fill(folder);
  std::filesystem::remove(folder.path() / "kills.json");
  try {
    (void)findingsIn(folder.path().string());
    FAIL() << "nothing thrown";
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), HasSubstr("kills.json can't be read"));
  }
}

TEST(Page, ShowsWhatDidNotHold) {
  Findings findings = goodFindings();
  findings.longMatch.record.missing = 3;
  judge(findings);
  const std::string page = pageOf(findings);
  EXPECT_THAT(page, HasSubstr("| 100,000 of 100000, 3 missing | **NO** |"));
  EXPECT_THAT(page, HasSubstr("| left-7 | 0 kB | 0 kB | 7.00 kB | 0.00 kB | 0.00 kB |"));
  const auto json = jsonOf(findings);
  EXPECT_EQ(json["all_held"], false);
  EXPECT_EQ(json["long_match"]["missing_cycles"], 3);
  EXPECT_EQ(json["memory"][7]["own_growth_kb_per_10000_cycles"], 7);
}

TEST(Text, NumbersReadEasily) {
  EXPECT_EQ(fixed(3.14159, 2), "3.14");
  EXPECT_EQ(fixed(-0.004, 2), "0.00");
  EXPECT_EQ(fixed(-0.006, 2), "-0.01");
  EXPECT_EQ(grouped(999), "999");
  EXPECT_EQ(grouped(1000), "1,000");
  EXPECT_EQ(grouped(-1234567), "-1,234,567");
  EXPECT_EQ(grouped(-123), "-123");
}

}  // namespace
}  // namespace soak
