#include "workshop/judge/Motions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <set>
#include <stdexcept>

#include "workshop/check/ScriptNames.h"

namespace workshop {
namespace {

Motion named(const std::string& name) {
  for (Motion& motion : acceptanceTable()) {
    if (motion.name == name) return motion;
  }
  throw std::runtime_error("no motion " + name);
}

bool met(const std::vector<Bar>& bars) {
  return std::all_of(bars.begin(), bars.end(), [](const Bar& bar) { return bar.met; });
}

/// COUNT trials that all stand and otherwise are as CHANGE makes the I-th of them.
std::vector<Figures> trials(int count, const std::function<void(Figures&, int)>& change) {
  std::vector<Figures> list(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    list[static_cast<std::size_t>(i)].stands = true;
    change(list[static_cast<std::size_t>(i)], i);
  }
  return list;
}

bool nominalMet(const std::string& name, const std::function<void(Figures&)>& change) {
  return met(named(name).nominal(trials(1, [&](Figures& f, int) { change(f); })));
}

TEST(AcceptanceTable, NamesAreUniqueAndEveryActionIsTried) {
  std::set<std::string> names;
  std::set<std::string> actions;
  for (const Motion& motion : acceptanceTable()) {
    EXPECT_TRUE(names.insert(motion.name).second) << motion.name;
    EXPECT_FALSE(motion.variants.empty());
    for (const TrialJob& job : motion.variants) {
      EXPECT_FALSE(job.seed.has_value());
      for (const Step& step : job.steps) {
        if (step.kind == Step::Kind::kScript) actions.insert(step.name);
      }
    }
  }
  for (const ActionScript& script : kActionScripts) {
    if (script.action.starts_with("walk")) continue;
    EXPECT_TRUE(actions.contains(std::string(script.action))) << script.action;
  }
}

TEST(AcceptanceTable, WalkNeedsSpeedAndAStraightWay) {
  const auto walks = [](double speed, double drift) {
    return nominalMet("walk", [&](Figures& f) {
      f.walkSpeed = speed;
      f.walkDriftDegPerSec = drift;
    });
  };
  EXPECT_TRUE(walks(0.30, 1.9));
  EXPECT_FALSE(walks(0.29, 0));
  EXPECT_FALSE(walks(0.5, -2.1));
  const auto perturbed = [](int falls) {
    return met(named("walk").perturbed(trials(20, [&](Figures& f, int i) {
      f.walkSpeed = 0.27;
      f.fell = i < falls;
    })));
  };
  EXPECT_TRUE(perturbed(2));
  EXPECT_FALSE(perturbed(3));
}

TEST(AcceptanceTable, WalkIsEndedAfterEachOfTheLoops) {
  for (const char* name : {"walkstop", "walkend"}) {
    const Motion motion = named(name);
    std::set<int> loops;
    for (const TrialJob& job : motion.variants) loops.insert(job.steps.at(0).loops.value());
    EXPECT_EQ(loops, (std::set{1, 2, 3, 4}));
  }
  EXPECT_EQ(named("walkend").variants[0].steps[0].name, "");
  EXPECT_NE(named("walkstop").variants[0].steps[0].name, "");
}

TEST(AcceptanceTable, TurnsToTheRightAreNegative) {
  const auto turns = [](const std::string& name, double degrees, double moved = 0) {
    return nominalMet(name, [&](Figures& f) {
      f.turnDeg = degrees;
      f.forward = moved;
    });
  };
  EXPECT_TRUE(turns("turnL40", 42.9));
  EXPECT_FALSE(turns("turnL40", 43.1));
  EXPECT_FALSE(turns("turnL40", -40));
  EXPECT_TRUE(turns("turnR15", -12.1, 0.09));
  EXPECT_FALSE(turns("turnR15", -15, 0.11));
  EXPECT_TRUE(turns("turnR180", -171, 0.3));
  EXPECT_FALSE(turns("turnR180", -169));
}

TEST(AcceptanceTable, SideStepsGoTheirWay) {
  const auto steps = [](const std::string& name, double left) {
    return nominalMet(name, [&](Figures& f) { f.left = left; });
  };
  EXPECT_TRUE(steps("sideL", 0.1));
  EXPECT_FALSE(steps("sideR", 0.1));
  EXPECT_TRUE(steps("sideR", -0.1));
  EXPECT_TRUE(steps("sideLm", 0.05));
  EXPECT_FALSE(steps("sideLm", 0.1));
  EXPECT_TRUE(nominalMet("backward", [](Figures& f) { f.forward = -0.2; }));
  EXPECT_FALSE(nominalMet("backward", [](Figures& f) { f.forward = 0.2; }));
}

TEST(AcceptanceTable, KicksNeedSpeedAndDirection) {
  const auto kicks = [](const std::string& name, double speed, double direction) {
    return nominalMet(name, [&](Figures& f) {
      f.ballSpeed = speed;
      f.ballDirectionDeg = direction;
    });
  };
  EXPECT_TRUE(kicks("kickL", 2.8, -8));
  EXPECT_FALSE(kicks("kickL", 2.7, 0));
  EXPECT_FALSE(kicks("kickR", 4, 8.1));
  EXPECT_TRUE(kicks("farkickR", 2, 30));
  EXPECT_TRUE(kicks("kickoff", 2.8, 8));
  EXPECT_TRUE(kicks("shoot", 1, 40));
}

TEST(AcceptanceTable, KickOffShotMayEndOnTheNose) {
  const auto kicks = [](const std::string& name) {
    return nominalMet(name, [](Figures& f) {
      f.ballSpeed = 3;
      f.fell = true;
      f.stands = false;
    });
  };
  EXPECT_TRUE(kicks("kickoff"));
  EXPECT_FALSE(kicks("kickR"));
}

TEST(AcceptanceTable, FallenRobotsAreNoPartOfAMean) {
  const auto figures = trials(20, [](Figures& f, int i) {
    f.turnDeg = i == 0 ? 500 : 40;
    f.fell = i == 0;
  });
  const auto bars = named("turnL40").perturbed(figures);
  EXPECT_TRUE(bars.at(0).met);
  EXPECT_TRUE(bars.at(1).met);
  EXPECT_FALSE(bars.at(2).met);
}

TEST(AcceptanceTable, BallLiesOnTheKickingFootsSide) {
  EXPECT_LT(named("kickL").variants[0].ball->right, 0);
  EXPECT_GT(named("kickR").variants[0].ball->right, 0);
  // At its beam place number 6 has the ball 0.15 m ahead of the torso and 0.05 m to the right.
  const BallPlace ball = named("kickoff").variants[0].ball.value();
  EXPECT_FALSE(ball.beforeToes);
  EXPECT_EQ(ball.ahead, 0.15);
  EXPECT_EQ(ball.right, 0.05);
}

TEST(AcceptanceTable, GetUpsCountTheirSequences) {
  const auto gets = [](const std::string& name, int once, int twice) {
    return met(named(name).perturbed(trials(40, [&](Figures& f, int i) {
      f.sequences = i < once ? 1 : 2;
      f.stands = i < once + twice;
    })));
  };
  EXPECT_TRUE(gets("getup-front", 39, 0));
  EXPECT_FALSE(gets("getup-front", 38, 2));
  EXPECT_TRUE(gets("getup-back", 36, 4));
  EXPECT_FALSE(gets("getup-back", 36, 3));
  EXPECT_FALSE(gets("getup-left", 35, 5));
}

TEST(AcceptanceTable, DivesReachToTheirSideAndEndOnTheFeet) {
  const auto reaches = [](const std::string& name, double left, double right) {
    return nominalMet(name, [&](Figures& f) {
      f.reachLeft = left;
      f.reachRight = right;
    });
  };
  EXPECT_TRUE(reaches("diveL", 0.5, 0));
  EXPECT_FALSE(reaches("diveL", 0, 0.5));
  EXPECT_TRUE(reaches("diveR", 0, 0.5));
}

/// 20 trials, as CHANGE makes the I-th.
bool perturbedMet(const std::string& name, const std::function<void(Figures&, int)>& change) {
  return met(named(name).perturbed(trials(20, change)));
}

/// How many of 20 perturbed trials may end in a fall.
int fallsAllowed(const std::string& name, const std::function<void(Figures&)>& good) {
  int falls = 0;
  while (falls <= 20 && perturbedMet(name, [&](Figures& f, int i) {
           good(f);
           f.fell = i < falls;
         })) {
    ++falls;
  }
  return falls - 1;
}

TEST(AcceptanceTable, FallsInPerturbedWorldsAreCounted) {
  const auto walk = [](Figures& f) { f.walkSpeed = 0.261; };
  EXPECT_EQ(fallsAllowed("walk", walk), 2);
  EXPECT_EQ(fallsAllowed("walkstop", walk), 1);
  EXPECT_EQ(fallsAllowed("walkend", walk), 1);
  EXPECT_EQ(fallsAllowed("turnL9", [](Figures& f) { f.turnDeg = 9; }), 0);
  EXPECT_EQ(fallsAllowed("turnR180", [](Figures& f) { f.turnDeg = -180; }), 0);
  for (const char* name : {"sideL", "sideR", "sideLm", "sideRm", "backward"}) {
    EXPECT_EQ(fallsAllowed(name, [](Figures&) {}), 0) << name;
  }
  const auto shot = [](Figures& f) { f.ballSpeed = 2.3; };
  EXPECT_EQ(fallsAllowed("kickL", shot), 2);
  EXPECT_EQ(fallsAllowed("kickR", shot), 2);
  EXPECT_EQ(fallsAllowed("shoot", shot), 2);
}

TEST(AcceptanceTable, WalkInPerturbedWorldsKeepsItsPace) {
  const auto walks = [](double speed) {
    return perturbedMet("walk", [&](Figures& f, int) { f.walkSpeed = speed; });
  };
  EXPECT_TRUE(walks(0.261));
  EXPECT_FALSE(walks(0.259));
}

TEST(AcceptanceTable, HeadingsInPerturbedWorldsAreCloseTogether) {
  // Half of 20 trials so much above MIDDLE, half below: one sigma is 1.026 times as much.
  const auto turns = [](const std::string& name, double middle, double off) {
    return perturbedMet(name,
                        [&](Figures& f, int i) { f.turnDeg = middle + (i % 2 == 0 ? off : -off); });
  };
  EXPECT_TRUE(turns("turnL60", 57.1, 5.8));
  EXPECT_FALSE(turns("turnL60", 56.9, 5.8));
  EXPECT_FALSE(turns("turnL60", 60, 5.9));
  EXPECT_TRUE(turns("turnL180", 180, 8.7));
  EXPECT_FALSE(turns("turnL180", 180, 8.8));
  for (const char* name : {"sideL", "sideR", "backward"}) {
    EXPECT_TRUE(turns(name, 0, 5.8)) << name;
    EXPECT_FALSE(turns(name, 0, 5.9)) << name;
  }
}

TEST(AcceptanceTable, StepsKeepTheirWayAndHeading) {
  const auto steps = [](const std::string& name, double forward, double left, double turned) {
    return nominalMet(name, [&](Figures& f) {
      f.forward = forward;
      f.left = left;
      f.turnDeg = turned;
    });
  };
  EXPECT_TRUE(steps("sideL", 0.03, 0.08, -5));
  EXPECT_TRUE(steps("sideR", -0.03, -0.13, 5));
  EXPECT_FALSE(steps("sideL", 0, 0.079, 0));
  EXPECT_FALSE(steps("sideL", 0, 0.131, 0));
  EXPECT_FALSE(steps("sideL", 0.031, 0.1, 0));
  EXPECT_FALSE(steps("sideL", 0, 0.1, 5.1));
  EXPECT_TRUE(steps("sideRm", 0, -0.04, 0));
  EXPECT_FALSE(steps("sideRm", 0, -0.039, 0));
  EXPECT_FALSE(steps("sideLm", 0, 0.061, 0));
  EXPECT_TRUE(steps("backward", -0.10, 0, 5));
  EXPECT_TRUE(steps("backward", -0.30, 0, -5));
  EXPECT_FALSE(steps("backward", -0.099, 0, 0));
  EXPECT_FALSE(steps("backward", -0.301, 0, 0));
  EXPECT_FALSE(steps("backward", -0.2, 0, 5.1));
}

TEST(AcceptanceTable, ShotsInPerturbedWorldsAreCountedByTheirSpeed) {
  const auto kicks = [](const std::string& name, double speed, int count, double direction = 0) {
    return perturbedMet(name, [&](Figures& f, int i) {
      f.ballSpeed = i < count ? speed : 0.5;
      f.ballDirectionDeg = i % 2 == 0 ? direction : -direction;
    });
  };
  for (const char* name : {"kickL", "kickR", "kickoff"}) {
    EXPECT_TRUE(kicks(name, 2.3, 18)) << name;
    EXPECT_FALSE(kicks(name, 2.3, 17)) << name;
    EXPECT_FALSE(kicks(name, 2.29, 20)) << name;
  }
  EXPECT_TRUE(kicks("kickL", 2.3, 20, 12));
  EXPECT_FALSE(kicks("kickL", 2.3, 20, 12.1));
  for (const char* name : {"farkickL", "farkickR"}) {
    EXPECT_TRUE(kicks(name, 2, 16)) << name;
    EXPECT_FALSE(kicks(name, 2, 15)) << name;
    EXPECT_FALSE(kicks(name, 1.99, 20)) << name;
  }
}

TEST(AcceptanceTable, BallLiesWhereTheApproachEnds) {
  for (const char* name : {"kickL", "kickR"}) {
    const BallPlace ball = named(name).variants[0].ball.value();
    EXPECT_TRUE(ball.beforeToes);
    EXPECT_NEAR(ball.ahead - ball.aheadSpread, 0.04, 1e-12);
    EXPECT_NEAR(ball.ahead + ball.aheadSpread, 0.07, 1e-12);
    EXPECT_NEAR(std::abs(ball.right) + ball.rightSpread, 0.05, 1e-12);
  }
  EXPECT_EQ(named("farkickL").variants[0].ball->ahead, 0.10);
}

TEST(AcceptanceTable, GetUpsAreTriedInTwiceAsManyWorlds) {
  for (const char* name : {"getup-front", "getup-back", "getup-left", "getup-right"}) {
    EXPECT_EQ(named(name).worldsPerSeed, 2) << name;
    EXPECT_EQ(named(name).variants[0].maxSequences, 2) << name;
  }
}

TEST(AcceptanceTable, DivesInPerturbedWorldsEndOnTheFeet) {
  const auto gets = [](const std::string& name, int once, int twice) {
    return perturbedMet(name, [&](Figures& f, int i) {
      f.sequences = i < once ? 1 : 2;
      f.stands = i < once + twice;
    });
  };
  for (const char* name : {"diveL", "diveR"}) {
    EXPECT_TRUE(gets(name, 16, 3)) << name;
    EXPECT_FALSE(gets(name, 16, 2)) << name;
    EXPECT_FALSE(gets(name, 15, 5)) << name;
  }
}

}  // namespace
}  // namespace workshop
