#include "arena/main/PaceReport.h"

#include <gtest/gtest.h>

namespace arena {
namespace {

using namespace std::chrono_literals;

TEST(PaceReport, ACycleIsLateWhenTheNextOneIsDue) {
  PaceReport report;
  report.add(19'999us, 3ms, 20ms);
  EXPECT_EQ(report.late, 0);
  report.add(20ms, 3ms, 20ms);
  EXPECT_EQ(report.late, 1);
}

TEST(PaceReport, TheFaultIsItsOwnOnlyIfItsWorkTookSoLong) {
  PaceReport report;
  report.add(50ms, 19ms, 20ms);  // kept from working
  EXPECT_EQ(report.late, 1);
  EXPECT_EQ(report.lateByOwnFault, 0);
  report.add(25ms, 20ms, 20ms);
  EXPECT_EQ(report.late, 2);
  EXPECT_EQ(report.lateByOwnFault, 1);
}

TEST(PaceReport, TheWorstOfEachIsKept) {
  PaceReport report;
  report.add(9ms, 4ms, 20ms);
  report.add(5ms, 5ms, 20ms);
  report.add(7ms, 3ms, 20ms);
  EXPECT_EQ(report.worst, 9ms);
  EXPECT_EQ(report.worstWork, 5ms);
}

TEST(PaceReport, InRealTimeASecondLineTellsOfLateCycles) {
  PaceReport report;
  report.cycles = 500;
  report.seconds = 10.02;
  report.realTime = true;
  report.add(21ms, 4'060us, 20ms);
  EXPECT_EQ(textOf(report),
            "pace: 500 cycles in 10.02 s, 1.00 times real time\n"
            "      1 late, 0 of them by the training ground's own fault; at worst 21.0 ms, of own "
            "work 4.1 ms\n");
}

TEST(PaceReport, AsFastAsPossibleNothingIsLate) {
  PaceReport report;
  report.cycles = 500;
  report.seconds = 2.5;
  EXPECT_EQ(textOf(report), "pace: 500 cycles in 2.50 s, 4.00 times real time\n");
  report.seconds = 0;
  report.cycles = 0;
  EXPECT_EQ(textOf(report), "pace: 0 cycles in 0.00 s, 0.00 times real time\n");
}

}  // namespace
}  // namespace arena
