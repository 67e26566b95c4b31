#include "workshop/tune/Objective.h"

#include <gtest/gtest.h>

namespace workshop {
namespace {

Objective turnBy15() {
  return objectiveOf(Json::parse(R"({"objective": {"motion": "script", "action": "turnL15",
      "turnDeg": 15, "forward": 0, "left": 0}})"),
                     "turn15");
}

TrialResult standing() {
  TrialResult result;
  result.figures.stands = true;
  result.figures.turnDeg = 15;
  result.figures.duration = 2;
  return result;
}

TEST(Objective, TheTurnThatWasWantedCostsLeast) {
  TrialResult off = standing();
  off.figures.turnDeg = 18;
  TrialResult further = standing();
  further.figures.turnDeg = 24;
  const Objective objective = turnBy15();
  EXPECT_LT(objective.cost(standing()), objective.cost(off));
  EXPECT_LT(objective.cost(off), objective.cost(further));
}

TEST(Objective, AFallCostsMoreThanAnyWayOfStanding) {
  TrialResult fallen = standing();
  fallen.figures.stands = false;
  TrialResult wrongWay = standing();
  wrongWay.figures.turnDeg = 0;
  TrialResult broken;
  broken.error = "no such script";
  const Objective objective = turnBy15();
  EXPECT_GE(objective.cost(fallen), kFallCost);
  EXPECT_LT(objective.cost(wrongWay), objective.cost(fallen));
  EXPECT_GT(objective.cost(broken), objective.cost(fallen));
}

TEST(Objective, AFasterStraighterWalkCostsLess) {
  const Objective objective = objectiveOf(
      Json::parse(R"({"objective": {"motion": "walk", "loops": 5, "aim": 0.5}})"), "walk");
  TrialResult slow = standing();
  slow.figures.walkSpeed = 0.2;
  slow.figures.walkSeconds = 5;
  TrialResult fast = slow;
  fast.figures.walkSpeed = 0.3;
  TrialResult drifting = fast;
  drifting.figures.walkDriftDegPerSec = -4;
  TrialResult fallen = fast;
  fallen.figures.fell = true;
  EXPECT_LT(objective.cost(fast), objective.cost(slow));
  EXPECT_LT(objective.cost(fast), objective.cost(drifting));
  EXPECT_GT(objective.cost(fallen), objective.cost(slow));
}

TEST(Objective, AJobPlaysTheActionInTheWorldAskedFor) {
  const std::vector<TrialJob> jobs = turnBy15().jobs("here", 7U, 1);
  ASSERT_EQ(jobs.size(), 1U);
  EXPECT_EQ(jobs[0].scripts, "here");
  EXPECT_EQ(jobs[0].seed, 7U);
  ASSERT_EQ(jobs[0].steps.size(), 1U);
  EXPECT_EQ(jobs[0].steps[0].name, "turnL15");
}

TEST(Objective, UnknownMotionsAreErrors) {
  EXPECT_THROW(objectiveOf(Json::parse(R"({"objective": {"motion": "dance"}})"), "x"),
               ParameterError);
  EXPECT_THROW(objectiveOf(Json::parse("{}"), "x"), ParameterError);
}

}  // namespace
}  // namespace workshop
