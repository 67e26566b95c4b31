#include <array>
#include <cmath>
#include <limits>

#include "math/Geometry.h"
#include "tests/behaviour/BehaviourTest.h"

namespace {

class Turning : public BehaviourTest {
 protected:
  Turning() {
    WriteScripts({"turnL60.txt", "turnL40.txt", "turnL15.txt", "turnR15.txt", "turnR40.txt",
                  "turnR60.txt", "sideR.txt", "sideL.txt"});
  }

  /// Runs a turn from HEADING to DEG as the stack's executor does; the script it opened, or what
  /// it printed.
  std::string TurnTo(double deg, double heading = 0) {
    SetStack({turnToDeg_state});
    agent.myDegree = heading;
    const std::string printed = OutputOf([&] { agent.turnToDeg(deg); });
    if (!agent.myACtionFile.is_open()) return printed;
    EXPECT_EQ(Stack(), States{23}) << deg;
    std::string script = OpenScript();
    agent.myACtionFile.close();
    return script;
  }
};

constexpr const char* kReached = "turnToDeg popeed itself\n";

double below(double x) {
  return std::nextafter(x, -1000.0);
}
double above(double x) {
  return std::nextafter(x, 1000.0);
}

struct Bound {
  double at;
  const char* below;
  const char* on;
  const char* above;
};

constexpr std::array<Bound, 6> kBounds{{{50, "turnL40.txt", "turnL60.txt", "turnL60.txt"},
                                        {27, "turnL15.txt", "turnL40.txt", "turnL40.txt"},
                                        {14, kReached, "turnL15.txt", "turnL15.txt"},
                                        {-14, "turnR15.txt", kReached, kReached},
                                        {-27, "turnR40.txt", "turnR15.txt", "turnR15.txt"},
                                        {-50, "turnR60.txt", "turnR40.txt", "turnR40.txt"}}};

TEST_F(Turning, EachBoundBelongsToTheRowAboveIt) {
  for (const Bound& bound : kBounds) {
    EXPECT_EQ(TurnTo(below(bound.at)), bound.below) << "below " << bound.at;
    EXPECT_EQ(TurnTo(bound.at), bound.on) << "on " << bound.at;
    EXPECT_EQ(TurnTo(above(bound.at)), bound.above) << "above " << bound.at;
  }
}

TEST_F(Turning, MiddleOfEachRowAndItsEnds) {
  EXPECT_EQ(TurnTo(0), kReached);
  EXPECT_EQ(TurnTo(20), "turnL15.txt");
  EXPECT_EQ(TurnTo(40), "turnL40.txt");
  EXPECT_EQ(TurnTo(120), "turnL60.txt");
  EXPECT_EQ(TurnTo(-20), "turnR15.txt");
  EXPECT_EQ(TurnTo(-40), "turnR40.txt");
  EXPECT_EQ(TurnTo(-120), "turnR60.txt");
}

TEST_F(Turning, ShorterWayRoundIsTaken) {
  EXPECT_EQ(TurnTo(180), "turnL60.txt") << "180 isn't wrapped";
  EXPECT_EQ(TurnTo(-180), "turnR60.txt");
  EXPECT_EQ(TurnTo(above(180.0)), "turnR60.txt");
  EXPECT_EQ(TurnTo(below(-180.0)), "turnL60.txt");
  EXPECT_EQ(TurnTo(10, 350), "turnL15.txt") << "20 to the left across north";
  EXPECT_EQ(TurnTo(350, 10), "turnR15.txt");
  EXPECT_EQ(TurnTo(355, 5), kReached);
  EXPECT_EQ(TurnTo(0, 346), "turnL15.txt") << "14 across north";
  EXPECT_EQ(TurnTo(346, 0), kReached) << "-14 across north";
}

TEST_F(Turning, DifferenceThatIsNoNumberDoesNothing) {
  SetStack({turnToDeg_state});
  EXPECT_EQ(TurnTo(std::numeric_limits<double>::quiet_NaN()), "");
  EXPECT_EQ(Stack(), States{23});
  EXPECT_FALSE(agent.actionFileOpen);
}

TEST_F(Turning, TurnWaitsForARunningScript) {
  SetStack({turnToDeg_state});
  agent.doActionFile4("sideL");
  for (const double deg : {0.0, 60.0}) {
    EXPECT_EQ(OutputOf([&] { agent.turnToDeg(deg); }), "turnToDeg returned fileOpen\n");
    EXPECT_EQ(Stack(), States{23});
    EXPECT_EQ(agent.actionName, "sideL");
  }
}

TEST_F(Turning, ReachedHeadingTakesOnlyTheTurnOff) {
  SetStack({goBehindBall_state, turnToDeg_state});
  EXPECT_EQ(OutputOf([&] { agent.turnToDeg(5); }), kReached);
  EXPECT_EQ(Stack(), States{0});
}

TEST_F(Turning, ReachedHeadingUnderAForeignActionComplains) {
  for (const std::vector<MyState>& stack :
       {std::vector<MyState>{turnToDeg_state, walk_state}, std::vector<MyState>{}}) {
    SetStack(stack);
    EXPECT_EQ(OutputOf([&] { agent.turnToDeg(5); }),
              "eror action not compatible in turn Dest function\n");
    EXPECT_EQ(Entries().size(), stack.size());
  }
}

struct Way {
  double x, y;     // [m] destination, seen from (1, 1)
  double bearing;  // [deg] 0 to 360
};

constexpr std::array<Way, 8> kWays{{{3, 1, 0},
                                    {3, 3, 45},
                                    {1, 3, 90},
                                    {-1, 3, 135},
                                    {-1, 1, 180},
                                    {-1, -1, 225},
                                    {1, -1, 270},
                                    {3, -1, 315}}};

TEST_F(Turning, BearingIsKeptAsTheTurnsTargetWhetherOrNotATurnFollows) {
  for (const Way& way : kWays) {
    for (const double off : {0.0, 90.0, 180.0}) {
      SetStack({});
      agent.turnDest = -1;
      Stand(1, 1, std::fmod(way.bearing + off, 360.0));
      const bool turns = agent.turnToPos(VecPosition(way.x, way.y, 0));
      EXPECT_EQ(turns, off != 0) << way.bearing << " " << off;
      EXPECT_EQ(Stack(), off != 0 ? States{23} : States{});
      EXPECT_NEAR(agent.turnDest, way.bearing, 1e-12);
    }
  }
}

TEST_F(Turning, HeadingOffByExactlyFourteenNeedsNoTurn) {
  const VecPosition ahead(5, 0, 0);  // bearing 0, exactly
  for (const double heading : {14.0, 346.0}) {
    Stand(0, 0, heading);
    EXPECT_FALSE(agent.turnToPos(ahead)) << heading;
  }
  EXPECT_EQ(agent.headState, 0);
  for (const double heading : {above(14.0), below(346.0)}) {
    SetStack({});
    agent.headState = 0;
    Stand(0, 0, heading);
    EXPECT_TRUE(agent.turnToPos(ahead)) << heading;
    EXPECT_EQ(agent.headState, 23);
    EXPECT_EQ(Stack(), States{23});
  }
}

TEST_F(Turning, SideStepNeedsMoreThanEightCentimetres) {
  const double justMore = std::nextafter(0.08, 1);
  for (const double dist : {0.08, 0.0, -0.5}) {
    agent.sideStepRToPos(dist);
    agent.sideStepLToPos(dist);
    EXPECT_FALSE(agent.actionFileOpen) << dist;
  }
  for (const double dist : {justMore, 0.092, 2.0}) {
    agent.sideStepRToPos(dist);
    EXPECT_EQ(OpenScript(), "sideR.txt") << dist;
    agent.myACtionFile.close();
    agent.sideStepLToPos(dist);
    EXPECT_EQ(OpenScript(), "sideL.txt") << dist;
    agent.myACtionFile.close();
  }
  EXPECT_EQ(Stack(), States{});
}

TEST_F(Turning, FacingTheBallTurnsTheHeadByBothAngles) {
  world.vision.ball.angle = 10;
  agent.findJoint("hj1")->angle = 20;
  agent.faceBall();
  EXPECT_EQ(ActiveJoints(), Commands{"hj1"});
  EXPECT_NEAR(agent.jointFlags[kHeadYaw].targetAngle, PI / 6, 1e-12);
  EXPECT_EQ(agent.moveCyclesLeft, 24);
  agent.move();
  // 10 degrees in 24 cycles of 0.02 s: 0.174533 / 0.48
  EXPECT_EQ(player.link.commands(), Commands{"(he1 0.36361)"});
}

TEST_F(Turning, BackwardByItselfDoesNothing) {
  EXPECT_EQ(OutputOf([&] { agent.backward(); }), "");
  EXPECT_FALSE(agent.actionFileOpen);
  EXPECT_EQ(Stack(), States{});
}

}  // namespace
