#include "workshop/trial/Trial.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iostream>
#include <numbers>
#include <stdexcept>

#include "tests/workshop/trial/Scripts.h"
#include "workshop/trial/Perturbation.h"

namespace workshop {
namespace {

constexpr double kCycle = 0.02;
constexpr double kDeg = 180 / std::numbers::pi;

class TrialTest : public testing::Test {
 protected:
  /// One trial from upright in the nominal world, its series kept.
  TrialResult run(std::vector<Step> steps) {
    TrialJob job;
    job.scripts = folder.path();
    job.start = Start::kUpright;
    job.steps = std::move(steps);
    job.keepSeries = true;
    job.settleCycles = 30;
    return runTrialHere(job);
  }

  ScriptFolder folder;
};

TEST_F(TrialTest, IdleRobotStandsWhereItIs) {
  const Figures f = run({standFor(200)}).figures;
  EXPECT_TRUE(f.stands);
  EXPECT_FALSE(f.fell);
  EXPECT_NEAR(f.forward, 0, 0.001);
  EXPECT_NEAR(f.left, 0, 0.001);
  EXPECT_NEAR(f.turnDeg, 0, 0.1);
  EXPECT_NEAR(f.duration, 200 * kCycle, 1e-9);
  EXPECT_EQ(f.ballSpeed, 0);
}

TEST_F(TrialTest, ActionWaitsForItsPoseAndPlaysABlockEverySecondCycle) {
  folder.write("turnL15.txt", blocks(10));
  // Opened in an odd cycle: 30 cycles for the pose, 2 for each block, closed in the odd cycle
  // after.
  EXPECT_NEAR(run({playScript("turnL15")}).figures.duration, (30 + 2 * 10) * kCycle, 1e-9);
}

TEST_F(TrialTest, BlockMovesAJointAFifthOfTheWay) {
  folder.write("turnL15.txt", blocks(1, "0.5"));
  const TrialResult result = run({playScript("turnL15")});
  // In the player's controller: 7.5 %, then 14.37 % of the rest asked for: 0.219 in all. The
  // server's sign is the opposite one.
  const double reached = static_cast<double>(result.series.back().angleDeg[2]);
  EXPECT_NEAR(reached, -0.219 * 0.5 * kDeg, 0.02 * 0.5 * kDeg);
}

TEST_F(TrialTest, SeriesTellsWhatWasAskedForAndWhatWasReached) {
  folder.write("turnL15.txt", blocks(5, "0.5"));
  const TrialResult result = run({playScript("turnL15")});
  const auto moving = std::find_if(result.series.begin(), result.series.end(), [](const auto& s) {
    return std::abs(s.askedDeg[2] - s.angleDeg[2]) > 0.01F || std::abs(s.angleDeg[2]) > 1;
  });
  ASSERT_NE(moving, result.series.end());
  // 7.5 % of the way to 28.6 deg in the first cycle that moves.
  EXPECT_NEAR(moving->askedDeg[2], -0.075 * 0.5 * kDeg, 0.1);
  EXPECT_NEAR(moving->angleDeg[2], moving->askedDeg[2], 0.5);
}

TEST_F(TrialTest, ScriptThatIsNotThereIsNamed) {
  try {
    run({playScript("turnR60")});
    FAIL();
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "there is no script for the action turnR60");
  }
  EXPECT_THROW(run({kickWith(Foot::kLeft)}), std::runtime_error);
  EXPECT_THROW(run({playPose("front2.txt", 5)}), std::runtime_error);
}

TEST_F(TrialTest, WalkEndedByWalkendPlaysEveryScript) {
  writeWalk(folder);
  // Each script takes two cycles per block and two more to meet its end.
  EXPECT_NEAR(run({walkLoops(2, "")}).figures.duration,
              (30 + (2 * 10) + (2 + 2 * 4) + (2 + 2 * 5) + (2 + 2 * 20)) * kCycle, 1e-9);
}

TEST_F(TrialTest, WalkThatATurnEndsNeverPlaysWalkend) {
  writeWalk(folder);
  // The initial pose comes at once, and the file is closed when the pose's 30 cycles are over.
  EXPECT_NEAR(run({walkLoops(2)}).figures.duration,
              (30 + (2 * 10) + (2 + 2 * 4) + (2 + 2 * 5) + 30) * kCycle, 1e-9);
}

TEST_F(TrialTest, WalkByTheClockEndsWithItsScript) {
  writeWalk(folder);
  // 61 cycles are over while the second loop plays, which begins at 60 and lasts 12.
  EXPECT_NEAR(run({walkFor(61, "")}).figures.duration,
              (30 + (2 * 10) + (2 + 2 * 4) + (2 + 2 * 5) + (2 + 2 * 20)) * kCycle, 1e-9);
}

TEST_F(TrialTest, WalkingIsMeasuredBehindTheInitialPose) {
  writeWalk(folder);
  const Figures f = run({walkLoops(4)}).figures;
  // From the first block to the order to stop.
  EXPECT_NEAR(f.walkSeconds,
              ((2 * 10) + (2 + 2 * 4) + (2 + 2 * 5) + (2 + 2 * 6) + (2 + 2 * 7)) * kCycle,
              2.01 * kCycle);
  EXPECT_NEAR(f.walkSpeed, 0, 0.01);
}

TEST_F(TrialTest, KickTakesAHundredAndTwentyTwoCycles) {
  for (int i = 1; i <= 8; ++i) folder.write("kickR" + std::to_string(i) + ".txt", "MOVE 0.02\n");
  EXPECT_NEAR(run({kickWith(Foot::kRight)}).figures.duration, 122 * kCycle, 1e-9);
}

TEST_F(TrialTest, ShotOutOfAWalkFreezesTheWalk) {
  writeWalk(folder);
  for (int i = 1; i <= 8; ++i) folder.write("kickL" + std::to_string(i) + ".txt", "MOVE 0.02\n");
  const Figures f = run({walkInto(40), kickWith(Foot::kLeft)}).figures;
  EXPECT_NEAR(f.duration, (40 + 122) * kCycle, 2.01 * kCycle);
}

TEST_F(TrialTest, StepsFollowOneAnother) {
  folder.write("turnL15.txt", blocks(10));
  const TrialResult result = run({standFor(7), playScript("turnL15"), standFor(9)});
  std::vector<int> seen;
  for (const Sample& sample : result.series) {
    if (seen.empty() || seen.back() != sample.step) seen.push_back(sample.step);
  }
  EXPECT_EQ(seen, (std::vector{0, 1, 2, 3}));
}

TEST_F(TrialTest, ReadyRobotStandsInTheInitialPoseWhenTheFirstStepBegins) {
  folder.write("initialstate.txt", "LSP -1\nRSP -1\nMOVE 0.5\n");
  TrialJob job;
  job.scripts = folder.path();
  job.steps = {standFor(10)};
  job.keepSeries = true;
  const TrialResult result = runTrialHere(job);
  const auto first = std::find_if(result.series.begin(), result.series.end(),
                                  [](const Sample& sample) { return sample.step == 0; });
  ASSERT_NE(first, result.series.end());
  EXPECT_NEAR(static_cast<double>(first->angleDeg[2]), kDeg, 1);
  EXPECT_NEAR(result.figures.duration, 10 * kCycle, 1e-9);
}

TEST_F(TrialTest, OffsetsOfAPerturbedWorldAreThereWhenTheMotionBegins) {
  folder.write("initialstate.txt", "LSP 0\nMOVE 0.02\n");
  constexpr std::uint64_t kSeed = 7;
  TrialJob job;
  job.scripts = folder.path();
  job.steps = {standFor(5)};
  job.seed = kSeed;
  job.keepSeries = true;
  const std::vector<Sample> series = runTrialHere(job).series;
  const auto first =
      std::find_if(series.begin(), series.end(), [](const Sample& now) { return now.step == 0; });
  ASSERT_NE(first, series.end());
  const Perturbation odd = drawPerturbation(kSeed);
  // The arms: nothing holds them but their motors. The pose asks the left shoulder for 0.
  for (const char* joint : {"laj1", "raj3", "laj3"}) {
    const auto row = static_cast<std::size_t>(arena::rowOfPerceptor(joint));
    EXPECT_NEAR(static_cast<double>(first->angleDeg[row]), odd.startOffsetDeg[row], 0.3) << joint;
    EXPECT_GT(std::abs(odd.startOffsetDeg[row]), 0.3) << joint << ": a seed that says nothing";
  }
}

TEST_F(TrialTest, PushComesWhileTheMotionRuns) {
  folder.write("initialstate.txt", "LSP 0\nMOVE 0.02\n");
  // A push to be seen, but not one to fall by, in the middle of the motion.
  std::uint64_t seed = 1;
  Perturbation odd = drawPerturbation(seed);
  while (odd.pushImpulse < 0.08 || odd.pushImpulse > 0.15 || std::abs(odd.pushMoment - 0.5) > 0.2) {
    odd = drawPerturbation(++seed);
  }
  TrialJob job;
  job.scripts = folder.path();
  job.steps = {standFor(400)};
  job.seed = seed;
  job.keepSeries = true;
  const std::vector<Sample> series = runTrialHere(job).series;
  std::size_t begins = 0;
  while (series[begins].step < 0) ++begins;
  const auto expected = begins + static_cast<std::size_t>(400 * odd.pushMoment);
  // Once the offsets of the start have died away, nothing moves the torso as fast as the push does.
  std::size_t fastest = begins + 100;
  double most = 0;
  for (std::size_t i = begins + 100; i < series.size(); ++i) {
    const double moved = std::hypot(series[i].torso[0] - series[i - 1].torso[0],
                                    series[i].torso[1] - series[i - 1].torso[1]);
    if (moved > most) {
      most = moved;
      fastest = i;
    }
  }
  EXPECT_NEAR(static_cast<double>(fastest), static_cast<double>(expected), 10);
}

TEST_F(TrialTest, BallLiesWhereTheJobPutsIt) {
  TrialJob job;
  job.scripts = folder.path();
  job.start = Start::kUpright;
  job.steps = {standFor(10)};
  job.keepSeries = true;
  job.ball = BallPlace{false, 0.5, 0.1};
  const Sample s = runTrialHere(job).series.front();
  EXPECT_NEAR(s.ball[0] - s.torso[0], 0.5, 1e-3);
  EXPECT_NEAR(s.ball[1] - s.torso[1], -0.1, 1e-3);
  // Straight legs: the toes are 0.025 + 0.08 m ahead of the torso.
  job.ball = BallPlace{true, 0.06, 0};
  const Sample beforeToes = runTrialHere(job).series.front();
  EXPECT_NEAR(beforeToes.ball[0] - beforeToes.torso[0], 0.165, 2e-3);
}

TEST_F(TrialTest, PlayersOutputAndFolderArePutBack) {
  const auto before = std::filesystem::current_path();
  run({standFor(3)});
  EXPECT_EQ(std::filesystem::current_path(), before);
  EXPECT_NE(std::cout.rdbuf(), nullptr);
}

TEST_F(TrialTest, SightChangesNoMotion) {
  folder.write("turnL15.txt", blocks(10, "0.5"));
  TrialJob job;
  job.scripts = folder.path();
  job.start = Start::kUpright;
  job.steps = {playScript("turnL15")};
  job.scanHead = false;
  job.keepSeries = true;
  const auto blind = runTrialHere(job).series;
  job.sight = true;
  const auto seeing = runTrialHere(job).series;
  ASSERT_EQ(blind.size(), seeing.size());
  EXPECT_EQ(blind.back().angleDeg, seeing.back().angleDeg);
  EXPECT_EQ(blind.back().torso, seeing.back().torso);
}

class Falling : public TrialTest, public testing::WithParamInterface<std::pair<Start, int>> {};
INSTANTIATE_TEST_SUITE_P(Sides, Falling,
                         testing::Values(std::pair{Start::kOnBack, 1},
                                         std::pair{Start::kOnFront, 2},
                                         std::pair{Start::kOnRight, 3},
                                         std::pair{Start::kOnLeft, 4}));

TEST_P(Falling, IsNoticedByThePlayerForWhatItIs) {
  TrialJob job;
  job.scripts = folder.path();
  job.start = GetParam().first;
  job.steps = {getUp()};
  job.maxSequences = 1;
  job.keepSeries = true;
  const TrialResult result = runTrialHere(job);
  const auto noticed = std::find_if(result.series.begin(), result.series.end(),
                                    [](const Sample& sample) { return sample.bodyState != 0; });
  ASSERT_NE(noticed, result.series.end());
  EXPECT_EQ(noticed->bodyState, GetParam().second);
  EXPECT_LT(noticed->time, 2);
  // Without scripts nobody gets up; the sequence goes by the clock all the same.
  EXPECT_EQ(result.figures.sequences, 1);
  EXPECT_FALSE(result.figures.stands);
}

TEST_F(TrialTest, UnexpectedFallEndsTheTrial) {
  folder.write("front2.txt", "LAP 0.78\nRAP 0.78\nLHP 0.4\nRHP 0.4\nMOVE 0.2\n");
  const Figures f = run({playPose("front2.txt", 200)}).figures;
  EXPECT_TRUE(f.fell);
  EXPECT_FALSE(f.stands);
  EXPECT_LT(f.simulatedSeconds, 3);
}

}  // namespace
}  // namespace workshop
