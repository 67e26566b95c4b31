#include <array>
#include <cctype>

#include "tests/behaviour/BehaviourTest.h"

namespace {

constexpr const char* kRestored = "playmode says resore\n";
constexpr const char* kApproach = "!isbehindball\n";

/// Nobody is in view and the ball lies deep in the own half, so that number 2 is the one who acts.
class PlayModes : public BehaviourTest {
 protected:
  PlayModes() { Become(2); }

  void Become(int number) {
    agent.uNum = number;
    Stand(-7, 0);
    world.ballPos = VecPosition(-6, 0, 0);
  }

  /// A mate's place as it was last seen.
  void See(int number, double x, double y, double z = 0) const {
    world.vision.players[static_cast<std::size_t>(number - 1)].polar.position =
        VecPosition(x, y, z);
  }

  /// The event of MODE over an entry that a restore would take away: what it answers, prints, and
  /// leaves on the stack.
  struct Event {
    bool goesOn;
    std::string printed;
    States stack;
    bool operator==(const Event&) const = default;
    friend void PrintTo(const Event& event, std::ostream* out) {
      *out << event.goesOn << " \"" << event.printed << "\" "
           << ::testing::PrintToString(event.stack);
    }
  };
  Event Ask(const std::string& mode) {
    world.playMode = mode;
    SetStack({reserved6_state});
    Event event{};
    event.printed = OutputOf([&] { event.goesOn = agent.checkPlayModeEvent(); });
    event.stack = Stack();
    return event;
  }

  /// Whether number UNUM restores at a kick-in.
  bool Restores(int number) {
    Become(number);
    return Ask("KickIn_Left").printed == kRestored;
  }

  const Event kIgnored{false, "", {6}};
  const Event kGoesOn{true, "", {6}};
  const Event kGivesUp{true, kRestored, {}};
  const Event kTakesIt{false, kApproach, {6, 0}};
};

constexpr std::array<const char*, 5> kModesOfLeft{
    "free_kick_left", "offside_left", "goal_kick_left", "corner_kick_left", "kickoff_left"};
constexpr std::array<const char*, 5> kModesOfRight{
    "free_kick_right", "offside_right", "goal_kick_right", "corner_kick_right", "kickoff_right"};
constexpr std::array<const char*, 10> kOthers{
    "KickIn_Left", "KickIn_Right",   "Goal_Left",     "GameOver", "",
    "pass_left",   "freekick_left ", "KickOff_Left_", "play_on",  "kickofflft"};

TEST_F(PlayModes, EachShirtNumberInEachModeOnEachSide) {
  for (const char* side : {"left", "right", "", "Left"}) {
    world.teamSide = side;
    const bool left = world.teamSide == "left";
    for (int number = 1; number <= 7; ++number) {
      Become(number);
      const bool acts = number == 2;
      const auto here = [&] { return std::string(side) + " " + std::to_string(number); };
      for (const char* mode : {"PlayOn", "playon", "PLAYON"}) {
        EXPECT_EQ(Ask(mode), kGoesOn) << here() << mode;
      }
      for (const char* mode : {"BeforeKickOff", "beforekickoff"}) {
        EXPECT_EQ(Ask(mode), kIgnored) << here() << mode;
      }
      for (const char* mode : kModesOfLeft) {
        EXPECT_EQ(Ask(mode), !acts ? kGivesUp : left ? kTakesIt : kIgnored) << here() << mode;
      }
      for (const char* mode : kModesOfRight) {
        EXPECT_EQ(Ask(mode), !acts ? kGivesUp : left ? kIgnored : kTakesIt) << here() << mode;
      }
      for (const char* mode : kOthers) {
        EXPECT_EQ(Ask(mode), acts ? kIgnored : kGivesUp) << here() << mode;
      }
    }
  }
}

TEST_F(PlayModes, CapitalsDontMatter) {
  world.teamSide = "left";
  for (const char* mode : {"KickOff_Left", "Free_Kick_Left", "GOAL_KICK_LEFT", "Offside_left"}) {
    EXPECT_EQ(Ask(mode), kTakesIt) << mode;
  }
  EXPECT_EQ(world.playMode, "Offside_left") << "only a copy is lowered";
}

TEST_F(PlayModes, WithNobodyInViewNumberTwoActsBehindMinusFiveOnly) {
  world.ballPos = VecPosition(-5.001, 0, 0);
  EXPECT_EQ(Ask("KickIn_Left"), kIgnored);
  for (const double x : {-5.0, 0.0, 8.0}) {
    world.ballPos = VecPosition(x, 0, 0);
    EXPECT_EQ(Ask("KickIn_Left"), kGivesUp) << x;
  }
}

TEST_F(PlayModes, OwnPlaceIsInNobodysViewSoThatAKnownMateEndsTheFallback) {
  See(4, 3, 3);
  for (int number = 1; number <= 6; ++number) {
    EXPECT_EQ(Restores(number), number != 4) << number;
  }
}

TEST_F(PlayModes, NearestKnownMateIsTheOneAndATieStaysWithTheLowerNumber) {
  See(1, 0, 0.001);
  See(3, -6, 1);
  See(5, -5, 0);
  for (int number = 1; number <= 6; ++number) {
    EXPECT_EQ(Restores(number), number != 3) << number;
  }
}

TEST_F(PlayModes, OnlyAPlaceOfTwoZerosIsUnknown) {
  See(3, 0, 0, 1);
  EXPECT_FALSE(Restores(2)) << "unknown, whatever its height";
  See(3, 0, 0.001);
  EXPECT_FALSE(Restores(3));
  See(3, -0.001, 0);
  EXPECT_FALSE(Restores(3));
}

TEST_F(PlayModes, OpponentsAreNotAsked) {
  world.vision.players[6].polar.position = VecPosition(-6, 0, 0);
  EXPECT_FALSE(Restores(2));
}

TEST_F(PlayModes, EachCycleOfASetPlayDropsThePlanAndThenTheRoleGoesOn) {
  WriteScripts({"sideL.txt"});
  Become(5);
  world.playMode = "KickIn_Left";
  world.vision.ball.seen = true;
  for (int i = 0; i < 3; ++i) {
    agent.doActionFile4("sideL");
    EXPECT_EQ(OutputOf([&] { agent.updateState(); }), kRestored);
    EXPECT_EQ(Stack(), States{0}) << "a fresh plan";
    EXPECT_FALSE(agent.myACtionFile.is_open()) << "the script is cut off";
  }
}

// ---- The roles in open play

class Zones : public BehaviourTest {
 protected:
  /// What number NUMBER pushes with the ball at X.
  States Decide(int number, double x) {
    agent.uNum = number;
    agent.ballOwner = myBall;
    world.vision.ball.seen = true;
    Stand(x - 3, 0);
    world.ballPos = VecPosition(x, 0, 0);
    SetStack({});
    OutputOf([&] { agent.updateState(); });
    return Stack();
  }
};

TEST_F(Zones, EachNumberHasItsZone) {
  struct Zone {
    int number;
    double inside, outside;
  };
  for (const Zone& zone : {Zone{2, -4.001, -4.0}, Zone{3, -4.001, -4.0}, Zone{4, -0.001, 0.0}}) {
    EXPECT_EQ(Decide(zone.number, zone.inside), States{0}) << zone.number;
    EXPECT_EQ(Decide(zone.number, -10000), States{0}) << zone.number;
    EXPECT_EQ(Decide(zone.number, zone.outside), States{}) << zone.number;
    EXPECT_EQ(Decide(zone.number, 8), States{}) << zone.number;
  }
  for (const double x : {-8.0, -4.0, 0.0, 8.0}) {
    for (const int number : {1, 5, 6}) EXPECT_EQ(Decide(number, x), States{0}) << number;
    for (const int number : {0, 7, -1, 11}) EXPECT_EQ(Decide(number, x), States{}) << number;
  }
}

TEST_F(Zones, OnlyTheKeeperAndTheBacksTellOfTheApproach) {
  world.ballPos = VecPosition(-6, 0, 0);
  for (int number = 1; number <= 6; ++number) {
    agent.uNum = number;
    agent.ballOwner = myBall;
    SetStack({});
    EXPECT_EQ(OutputOf([&] { agent.updateState(); }), number <= 4 ? kApproach : "") << number;
  }
}

TEST_F(Zones, FieldPlayersDontAskWhoseBallItIs) {
  for (int owner = 0; owner <= 5; ++owner) {
    for (int number = 2; number <= 6; ++number) {
      agent.uNum = number;
      agent.ballOwner = owner;
      world.ballPos = VecPosition(-6, 0, 0);
      SetStack({});
      OutputOf([&] { agent.updateState(); });
      EXPECT_EQ(Stack(), States{0}) << owner << " " << number;
    }
  }
}

TEST_F(Zones, PlayerThatGivesWayDropsItsPlanAndDecidesNothing) {
  agent.uNum = 5;
  Stand(0, 0);
  world.ballPos = VecPosition(3, 0, 0);
  PolarInfo& mate = world.vision.players[3].polar;
  mate.position = VecPosition(0.3, 0, 0);
  mate.distance = 0.3;
  mate.lastSeenCycle = world.cycle;
  agent.shallWalk = true;
  SetStack({goBehindBall_state, goToPos_state});
  EXPECT_EQ(OutputOf([&] { agent.updateState(); }), "");
  EXPECT_EQ(Stack(), States{});
  EXPECT_FALSE(agent.shallWalk);
}

// ---- The shot straight at kick-off

class KickOffShot : public BehaviourTest {
 protected:
  KickOffShot() : BehaviourTest(6) {
    world.teamSide = "left";
    world.playMode = "KickOff_Left";
    world.gameTime = 2.48;
    world.vision.ball.seen = true;
    PutBall(3, 0);
  }

  /// Whether a kick is running behind the decision.
  bool Shoots() {
    agent.restoreState();
    printed = OutputOf([&] { agent.updateState(); });
    return agent.slowFunction == 1;
  }

  std::string printed;
};

TEST_F(KickOffShot, NumberSixShootsAtItsOwnKickOffWithNothingOnTheStack) {
  for (const char* side : {"left", "right"}) {
    world.teamSide = side;
    world.playMode = std::string("KickOff_") + (world.teamSide == "left" ? "Left" : "Right");
    EXPECT_TRUE(Shoots()) << side;
    EXPECT_EQ(printed, "");
    EXPECT_EQ(Stack(), States{});
  }
}

TEST_F(KickOffShot, FromTwoAndAHalfSecondsOnItTakesTheCommonPath) {
  for (const double time : {2.5, 100.0}) {
    world.gameTime = time;
    EXPECT_FALSE(Shoots()) << time;
    EXPECT_EQ(printed, kRestored);
    EXPECT_EQ(Stack(), States{0});
  }
}

TEST_F(KickOffShot, OtherNumbersDontShoot) {
  for (const int number : {1, 2, 3, 4, 5, 7}) {
    agent.uNum = number;
    EXPECT_FALSE(Shoots()) << number;
  }
}

TEST_F(KickOffShot, OtherSidesAndSpellingsAndModesDontShoot) {
  for (const char* mode : {"KickOff_Right", "kickoff_left", "PlayOn", "KickIn_Left", ""}) {
    world.playMode = mode;
    EXPECT_FALSE(Shoots()) << mode;
  }
  world.teamSide = "right";
  world.playMode = "KickOff_Left";
  EXPECT_FALSE(Shoots());
  world.teamSide = "";
  EXPECT_FALSE(Shoots());
}

}  // namespace
