#include "workshop/tune/GroundObjectives.h"

#include <gtest/gtest.h>

namespace workshop {
namespace {

Objective from(const char* wanted) {
  const Json json = Json::parse(wanted);
  const auto objective = groundObjective(json.at("motion"), json, "test");
  if (!objective) throw ParameterError("no objective");
  return *objective;
}

TrialResult shot(double speed, double directionDeg) {
  TrialResult result;
  result.figures.stands = true;
  result.figures.ballSpeed = speed;
  result.figures.ballDirectionDeg = directionDeg;
  return result;
}

TEST(GroundObjectives, AFasterStraighterShotCostsLess) {
  const Objective kick = from(R"({"motion": "kick", "aim": 4})");
  EXPECT_DOUBLE_EQ(kick.cost(shot(4, 0)), 0);
  EXPECT_DOUBLE_EQ(kick.cost(shot(5, 0)), 0);  // beyond the aim nothing is won
  EXPECT_DOUBLE_EQ(kick.cost(shot(3, 0)), 0.25);
  EXPECT_DOUBLE_EQ(kick.cost(shot(4, -10)), 0.25);  // half of hopeless, squared
  EXPECT_DOUBLE_EQ(kick.cost(shot(0, 0)), 1);
}

TEST(GroundObjectives, AFallAfterTheBestShotCostsMoreThanNoShot) {
  const Objective kick = from(R"({"motion": "kick", "aim": 4})");
  TrialResult fallen = shot(4, 0);
  fallen.figures.fell = true;
  TrialResult broken = shot(4, 0);
  broken.error = "no such script";
  EXPECT_GT(kick.cost(fallen), kick.cost(shot(0, 0)));
  EXPECT_GT(kick.cost(broken), kick.cost(fallen));
}

TEST(GroundObjectives, AKickIsTriedNearFartherAndAsKickOff) {
  const Objective kick = from(R"({"motion": "kick", "aim": 4})");
  const auto jobs = kick.jobs("scripts", 1000007, 0);
  ASSERT_EQ(jobs.size(), 3U);
  for (const TrialJob& job : jobs) {
    EXPECT_EQ(job.seed, 1000007U);
    EXPECT_TRUE(job.ball.has_value());
  }
  EXPECT_LT(jobs[0].ball->ahead, jobs[1].ball->ahead);
  EXPECT_EQ(jobs[2].start, Start::kUpright);
  EXPECT_FALSE(jobs[2].ball->beforeToes);
}

TEST(GroundObjectives, EverySecondWorldKicksWithTheLeftFoot) {
  const Objective kick = from(R"({"motion": "kick", "aim": 4})");
  const TrialJob right = kick.jobs("scripts", std::nullopt, 0).front();
  const TrialJob left = kick.jobs("scripts", std::nullopt, 1).front();
  EXPECT_EQ(right.steps.front().foot, Foot::kRight);
  EXPECT_EQ(left.steps.front().foot, Foot::kLeft);
  EXPECT_DOUBLE_EQ(left.ball->right, -right.ball->right);
}

TEST(GroundObjectives, AGetUpHasOneSequenceFromEachSideAsked) {
  const Objective getUp = from(R"({"motion": "getUp", "from": ["front", "left"]})");
  const auto jobs = getUp.jobs("scripts", std::nullopt, 0);
  ASSERT_EQ(jobs.size(), 2U);
  EXPECT_EQ(jobs[0].start, Start::kOnFront);
  EXPECT_EQ(jobs[1].start, Start::kOnLeft);
  EXPECT_EQ(jobs[1].maxSequences, 1);
  TrialResult lying;
  EXPECT_DOUBLE_EQ(getUp.cost(lying), kFallCost);
  lying.figures.stands = true;
  EXPECT_DOUBLE_EQ(getUp.cost(lying), 0);
}

TEST(GroundObjectives, ADiveReachesOutAndStandsAgain) {
  const Objective dive = from(R"({"motion": "dive", "reach": 0.6})");
  TrialResult result;
  result.figures.stands = true;
  result.figures.reachLeft = 0.3;
  EXPECT_DOUBLE_EQ(dive.cost(result), 0.5);
  result.figures.reachRight = 0.7;
  EXPECT_DOUBLE_EQ(dive.cost(result), 0);
  result.figures.stands = false;
  EXPECT_DOUBLE_EQ(dive.cost(result), kFallCost);
}

TEST(GroundObjectives, UnknownSidesAndKeysAreRefused) {
  EXPECT_THROW(from(R"({"motion": "getUp", "from": ["above"]})"), ParameterError);
  EXPECT_THROW(from(R"({"motion": "getUp", "from": []})"), ParameterError);
  EXPECT_THROW(from(R"({"motion": "kick", "aim": 4, "speed": 3})"), ParameterError);
}

TEST(GroundObjectives, OtherMotionsAreNotItsBusiness) {
  EXPECT_FALSE(groundObjective("walk", Json::object(), "test").has_value());
}

}  // namespace
}  // namespace workshop
