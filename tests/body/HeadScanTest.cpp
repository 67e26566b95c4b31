#include <array>
#include <cmath>

#include "tests/body/BodyTest.h"

namespace {

/// [rad/s] the scan as it goes over the link, and one entry more that never does.
constexpr std::array<const char*, 110> kSpeeds{
    "1.28026",  "1.30695",  "1.33479",  "1.60281",  "1.62081",  "1.63937",  "1.67902",  "1.70008",
    "1.72214",  "1.74511",  "1.79471",  "1.82143",  "1.84974",  "1.87941",  "1.94421",  "1.97982",
    "2.01771",  "2.0582",   "10",       "-1.30407", "-1.27796", "-1.28396", "-1.28916", "-1.3003",
    "-1.30597", "-1.31175", "-1.3176",  "-1.32959", "-1.33573", "-1.34194", "-1.34831", "-1.3613",
    "-1.36799", "-1.37473", "-1.38163", "-1.39582", "-1.40312", "-1.41054", "-1.41809", "-1.43358",
    "-1.54126", "-1.5516",  "-1.57297", "-1.58403", "-1.59538", "-1.60705", "-1.63129", "-1.6438",
    "-1.65679", "-1.67008", "-1.69786", "-1.7123",  "-1.72735", "-1.7427",  "-1.77504", "-1.79197",
    "-1.80958", "-1.82766", "-1.86608", "-1.88625", "-1.90737", "-1.92922", "-1.97571", "-2.00052",
    "-2.02637", "-2.05357", "-2.11195", "-2.14323", "-2.17645", "-10",      "1.29058",  "1.26434",
    "1.2703",   "1.32768",  "1.33393",  "1.34677",  "1.38814",  "1.39551",  "1.40292",  "1.41836",
    "1.42625",  "1.43429",  "1.44256",  "1.4595",   "1.46827",  "1.47714",  "1.48628",  "1.50518",
    "1.51486",  "1.52486",  "1.53502",  "1.55619",  "1.56714",  "1.77296",  "1.79024",  "1.80824",
    "1.84619",  "1.86625",  "1.88697",  "1.9087",   "1.95475",  "1.97924",  "2.00492",  "2.03176",
    "2.08936",  "2.1204",   "2.15316",  "2.50105",  "2.56029",  "10"};
constexpr std::size_t kRound = 109;

std::string CommandOf(std::size_t entry) {
  return std::string("(he1 ") + kSpeeds[entry] + ")";
}

class HeadScan : public BodyTest {
 protected:
  HeadScan() { world.cycle = 50; }

  /// One call in an even cycle.
  std::string Step() {
    world.cycle += 2;
    body.headYawDasti();
    const Commands sent = player.link.commands();
    return sent.size() == 1 ? sent[0] : "";
  }

  /// Brings the table to its end, from wherever the tests before in this process have left it.
  void GoToEndOfRound() {
    for (std::size_t i = 0; i <= kRound; ++i) {
      if (Step() == CommandOf(kRound - 1)) return;
    }
    throw std::runtime_error("the scan has no end");
  }
};

TEST_F(HeadScan, FirstCommandWithTheGateOpenIsTheFirstEntry) {
  EXPECT_EQ(Cycle(49), Commands{""});
  EXPECT_EQ(Cycle(50), (Commands{"(he1 1.28026)", ""}));
  EXPECT_EQ(Cycle(51), Commands{""});
  EXPECT_EQ(Cycle(52), (Commands{"(he1 1.30695)", ""}));
}

TEST_F(HeadScan, RoundHasAHundredAndNineCommandsAndStartsAgain) {
  GoToEndOfRound();
  for (int round = 0; round < 2; ++round) {
    for (std::size_t entry = 0; entry < kRound; ++entry) {
      EXPECT_EQ(Step(), CommandOf(entry)) << "entry " << entry;
    }
  }
}

TEST_F(HeadScan, LastSpeedIsFollowedByTheFirst) {
  GoToEndOfRound();
  EXPECT_EQ(Step(), "(he1 1.28026)");
}

TEST_F(HeadScan, EachBurstComesOncePerRound) {
  GoToEndOfRound();
  std::vector<std::size_t> right;
  std::vector<std::size_t> left;
  for (std::size_t entry = 0; entry < kRound; ++entry) {
    const std::string command = Step();
    if (command == "(he1 10)") left.push_back(entry);
    if (command == "(he1 -10)") right.push_back(entry);
  }
  EXPECT_EQ(left, std::vector<std::size_t>{18});
  EXPECT_EQ(right, std::vector<std::size_t>{69});
}

TEST_F(HeadScan, RoundTurnsTheHeadByThirtyFiveDegreesInAll) {
  GoToEndOfRound();
  double turn = 0;  // [deg], each command lasting 0.04 s
  for (std::size_t entry = 0; entry < kRound; ++entry) {
    turn += std::stod(Step().substr(5)) * 0.04 * 180 / 3.14159265358979323846;
    if (entry == 18) {
      EXPECT_NEAR(turn, 93.9, 0.05);
    } else if (entry == 69) {
      EXPECT_NEAR(turn, 93.9 - 207.4, 0.1);
    }
  }
  EXPECT_NEAR(turn, 35.7, 0.05);
}

struct Stretch {
  std::size_t first;
  double factor;
  int from;  // cycles to the notional end of the sweep
  int to;
};

constexpr std::array<Stretch, 7> kStretches{{{3, 8.916, 73, 39},
                                             {20, -10.494, 193, 145},
                                             {40, -10.494, 121, 51},
                                             {71, 10.382, 193, 191},
                                             {76, 10.382, 153, 113},
                                             {93, 10.382, 83, 51},
                                             {107, 10.382, 35, 33}}};

// The table's own law, to 0.15 percent: factor * m^-0.4, m going down by two and leaving out what
// ends in 7.
TEST_F(HeadScan, SpeedsWithinAStretchFollowTheirLaw) {
  GoToEndOfRound();
  std::array<double, kRound> sent{};
  for (double& speed : sent) speed = std::stod(Step().substr(5));
  for (const Stretch& stretch : kStretches) {
    std::size_t entry = stretch.first;
    for (int m = stretch.from; m >= stretch.to; m -= 2) {
      if (m % 10 == 7) continue;
      const double law = stretch.factor * std::pow(m, -0.4);
      EXPECT_NEAR(sent.at(entry) / law, 1, 0.0015) << "entry " << entry;
      ++entry;
    }
  }
}

TEST_F(HeadScan, OddCycleSendsNothingAndKeepsThePlace) {
  GoToEndOfRound();
  EXPECT_EQ(Step(), CommandOf(0));
  world.cycle += 1;
  body.headYawDasti();
  EXPECT_EQ(player.link.commands(), Commands{});
  world.cycle -= 1;
  EXPECT_EQ(Step(), CommandOf(1));
}

TEST_F(HeadScan, WrapInAnOddCycleGoesOnWithTheFirstEntry) {
  GoToEndOfRound();
  world.cycle += 1;
  body.headYawDasti();
  EXPECT_EQ(player.link.commands(), Commands{});
  world.cycle -= 1;
  EXPECT_EQ(Step(), CommandOf(0));
  EXPECT_EQ(Step(), CommandOf(1));
}

TEST_F(HeadScan, TwoTurnsInOneEvenCycleStepTwice) {
  GoToEndOfRound();
  world.cycle = 60;
  body.headYawDasti();
  body.headYawDasti();
  EXPECT_EQ(player.link.commands(), (Commands{CommandOf(0), CommandOf(1)}));
}

TEST_F(HeadScan, FacingTheBallAndTheRightKickHoldTheScan) {
  GoToEndOfRound();
  for (const int state : {22, 1}) {
    body.headState = state;
    EXPECT_EQ(Step(), "") << state;
  }
  body.headState = 0;
  EXPECT_EQ(Step(), CommandOf(0)) << "the place is kept meanwhile";
}

TEST_F(HeadScan, EveryOtherStateLetsItRun) {
  GoToEndOfRound();
  std::size_t entry = 0;
  for (const int state : {23, 0, 2, 5, 21, 24}) {
    body.headState = state;
    EXPECT_EQ(Step(), CommandOf(entry++)) << state;
  }
}

TEST_F(HeadScan, GoalkeeperNeverScans) {
  body.uNum = 1;
  for (int cycle = 50; cycle < 90; ++cycle) EXPECT_EQ(Cycle(cycle), Commands{""});
}

TEST_F(HeadScan, FallStopsTheScanAtItsPlace) {
  GoToEndOfRound();
  EXPECT_EQ(Cycle(300), (Commands{CommandOf(0), ""}));
  body.accel = VecPosition(0, -7, 0);
  EXPECT_EQ(Cycle(301), Commands{""});
  for (int cycle = 302; cycle < 302 + 349; ++cycle) EXPECT_EQ(Cycle(cycle).size(), 1U);
  body.accel = VecPosition(0, 0, 9.81);
  EXPECT_EQ(body.bodyState, 2);
  EXPECT_EQ(Cycle(652).size(), 1U) << "the scan had its turn before the sequence ended";
  EXPECT_EQ(body.bodyState, 0);
  EXPECT_EQ(Cycle(653).size(), 1U);
  EXPECT_EQ(Cycle(654), (Commands{CommandOf(1), ""}));
}

TEST_F(HeadScan, HeadOfAStepIsCommandedBehindTheScan) {
  GoToEndOfRound();
  world.cycle = 300;
  body.HeadYawCommand(0.1);
  body.initMove(0.1);
  EXPECT_EQ(Cycle(300), (Commands{CommandOf(0), "(he1 1)"}));
  EXPECT_EQ(Cycle(301), Commands{"(he1 1.25)"});
}

}  // namespace
