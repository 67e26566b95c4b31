#include "viewer/server/TraceLogs.h"

#include <gtest/gtest.h>

#include <fstream>

#include "tests/support/TempDir.h"

namespace arena::view {
namespace {

CycleRecord tracedCycle(long cycle) {
  CycleRecord record;
  record.cycle = cycle;
  record.players.resize(3);
  record.players[0].shirt = Shirt{Side::kLeft, 2};
  record.players[1].shirt = Shirt{Side::kRight, 2};
  return record;
}

using Lines = std::vector<std::string>;

class TraceLogsTest : public testing::Test {
 protected:
  void print(const std::string& name, const std::string& text) const {
    std::ofstream(folder.path() / name, std::ios::app) << text;
  }
  CycleRecord next() {
    CycleRecord record = tracedCycle(cycle += 100);
    logs.addTo(record);
    return record;
  }

  TempDir folder{};
  TraceLogs logs{folder.path().string()};
  long cycle = 0;
};

TEST_F(TraceLogsTest, EachPlayerGetsItsOwnLines) {
  print("left-2.log", "4\nwalk stop\n");
  print("right-2.log", "5\n");
  const CycleRecord record = next();
  EXPECT_EQ(record.players[0].traced, (Lines{"4", "walk stop"}));
  EXPECT_EQ(record.players[1].traced, (Lines{"5"}));
  EXPECT_TRUE(record.players[2].traced.empty());
}

TEST_F(TraceLogsTest, LogOfAPlayerWithoutASideIsTheLeftOnes) {
  print("player-2.log", "4\n");
  const CycleRecord record = next();
  EXPECT_EQ(record.players[0].traced, (Lines{"4"}));
  EXPECT_TRUE(record.players[1].traced.empty());
}

TEST_F(TraceLogsTest, OnlyWhatIsNewIsTold) {
  print("left-2.log", "4\n");
  next();
  EXPECT_TRUE(next().players[0].traced.empty());
  print("left-2.log", "5\n");
  EXPECT_EQ(next().players[0].traced, (Lines{"5"}));
}

TEST_F(TraceLogsTest, LineIsToldOnceItIsWhole) {
  print("left-2.log", "4\ngo beh");
  EXPECT_EQ(next().players[0].traced, (Lines{"4"}));
  print("left-2.log", "ind\n");
  EXPECT_EQ(next().players[0].traced, (Lines{"go behind"}));
}

TEST_F(TraceLogsTest, LogThatComesLaterIsFound) {
  EXPECT_TRUE(next().players[0].traced.empty());
  print("left-2.log", "4\n");
  EXPECT_EQ(next().players[0].traced, (Lines{"4"}));
}

TEST_F(TraceLogsTest, LogThatWasBegunAnewIsReadFromItsStart) {
  print("left-2.log", "4\n5\n");
  next();
  std::ofstream(folder.path() / "left-2.log", std::ios::trunc) << "7\n";
  EXPECT_EQ(next().players[0].traced, (Lines{"7"}));
}

}  // namespace
}  // namespace arena::view
