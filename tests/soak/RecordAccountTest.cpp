#include "soak/RecordAccount.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "tests/arena/record/Records.h"

namespace soak {
namespace {

using arena::test::fileOf;
using arena::test::smallMatch;

RecordAccount accountOf(const std::vector<arena::CycleRecord>& match, bool withEnd = true) {
  std::istringstream file(fileOf(match, withEnd));
  return soak::accountOf(file);
}

TEST(RecordAccount, WholeMatchHasAllItsCyclesAndPlayers) {
  auto match = smallMatch(50);
  match.back().finished = true;
  match[7].players[1].lateAnswer = true;
  match[9].players[0].fell = true;
  const RecordAccount account = accountOf(match);
  EXPECT_EQ(account.cycles, 50);
  EXPECT_EQ(account.lastCycle, 50);
  EXPECT_EQ(account.missing, 0);
  EXPECT_EQ(account.answers, 100);
  EXPECT_EQ(account.lateAnswers, 1);
  EXPECT_EQ(account.falls, 1U);
  EXPECT_EQ(account.joined, 2U);
  EXPECT_EQ(account.left, 0U);
  EXPECT_EQ(account.atEnd, 2U);
  EXPECT_EQ(account.events.size(), 10U);
  EXPECT_EQ(account.events.front(), "0.10 s  left 2 fell");
  EXPECT_TRUE(account.finished);
  EXPECT_EQ(account.fault, std::nullopt);
}

TEST(RecordAccount, CyclesThatAreLeftOutAreMissed) {
  auto match = smallMatch(50);
  match.erase(match.begin() + 20, match.begin() + 23);
  match.erase(match.begin());
  const RecordAccount account = accountOf(match);
  EXPECT_EQ(account.cycles, 46);
  EXPECT_EQ(account.lastCycle, 50);
  EXPECT_EQ(account.missing, 4);
}

// Number 2 is away from cycle 21 up to cycle 30, and comes back as another session.
TEST(RecordAccount, ComingBackIsCountedFromTheGoing) {
  auto match = smallMatch(50);
  for (int cycle = 21; cycle <= 50; ++cycle) {
    auto& players = match[static_cast<std::size_t>(cycle - 1)].players;
    if (cycle <= 30) {
      players.pop_back();
    } else {
      players.back().session = 9;
    }
  }
  match[20].left.push_back({2, "the connection broke"});
  const RecordAccount account = accountOf(match);
  EXPECT_EQ(account.absences, std::vector<long>{10});
  EXPECT_EQ(account.joined, 3U);
  EXPECT_EQ(account.left, 1U);
  EXPECT_EQ(account.atEnd, 2U);
}

TEST(RecordAccount, WhoStaysAwayIsNotThereAtTheEnd) {
  auto match = smallMatch(50);
  for (auto record = match.begin() + 40; record != match.end(); ++record)
    record->players.pop_back();
  const RecordAccount account = accountOf(match);
  EXPECT_EQ(account.atEnd, 1U);
  EXPECT_TRUE(account.absences.empty());
}

TEST(RecordAccount, CutOffMatchCountsUpToThere) {
  const RecordAccount account = accountOf(smallMatch(50), /*withEnd=*/false);
  EXPECT_EQ(account.lastCycle, 50);
  EXPECT_FALSE(account.finished);
  ASSERT_TRUE(account.fault.has_value());
  EXPECT_NE(account.fault->find("the match was cut off"), std::string::npos);
}

}  // namespace
}  // namespace soak
