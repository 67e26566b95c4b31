#include "bench/LocalisationTrial.h"

#include <gsl/gsl_rng.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <numbers>
#include <stdexcept>
#include <streambuf>
#include <string>

#include "arena/senses/Perception.h"
#include "arena/world/World.h"
#include "behaviour/Agent.h"
#include "bench/CarriedPaths.h"
#include "perception/SLangParser.h"
#include "perception/WorldModel.h"
#include "tests/support/FreshPlayer.h"

namespace bench {
namespace {

constexpr int kShirt = 2;
constexpr int kUnfilteredCycles = 20;
constexpr double kReachBehindLine = 0.5;  ///< [m] that the player still takes for the field
constexpr double kGoalLine = 9.0;         ///< [m]
constexpr std::array kHeadYaws{0.0, 40.0, -40.0};

/// No position that the player writes has this height; as a mark it tells whether one was written.
constexpr double kUntouched = -1.0;

struct Conditions {
  arena::Side side = arena::Side::kLeft;
  double headYawDeg = 0;
  arena::SenseSettings senses{};
};

/// Keeps the player's talk from the terminal.
class SilentOutput {
 public:
  SilentOutput() : terminal_(std::cout.rdbuf(&nowhere_)) {}
  ~SilentOutput() { std::cout.rdbuf(terminal_); }
  SilentOutput(const SilentOutput&) = delete;
  SilentOutput& operator=(const SilentOutput&) = delete;

 private:
  class Nowhere : public std::streambuf {
    int overflow(int c) override { return traits_type::not_eof(c); }
    std::streamsize xsputn(const char*, std::streamsize n) override { return n; }
  };
  Nowhere nowhere_{};
  std::streambuf* terminal_;
};

double differenceDeg(double a, double b) {
  return std::abs(std::remainder(a - b, 360.0));
}

View viewOf(const visionInfo& vision, double x) {
  int own = 0;
  int other = 0;
  for (const PolarInfo* flag : {&vision.F1L, &vision.F2L, &vision.G1L, &vision.G2L, &vision.F1R,
                                &vision.F2R, &vision.G1R, &vision.G2R}) {
    if (flag->seen) ++(flag->position.x < 0 ? own : other);
  }
  const int all = own + other;
  if (all == 0) return View::kNothing;
  if (all == 1) return View::kOne;
  if (own > 0 && other > 0) return all == 2 ? View::kOneAtEachEnd : View::kMoreOverBothEnds;
  if ((own > 0 ? kGoalLine + x : kGoalLine - x) <= kReachBehindLine) return View::kBesideTheirLine;
  if (all == 2) return View::kTwoAtOneEnd;
  return all == 3 ? View::kThreeAtOneEnd : View::kFourAtOneEnd;
}

/// Holds the robot and says what it perceives. The messages' time goes on from player to player, so
/// no two of them have the same noise.
class Carrier {
 public:
  Carrier() {
    world_.addRobot(0, {});
    shot_.mode = arena::PlayMode::kPlayOn;
    shot_.actors.resize(1);
  }

  /// Puts the robot there, for a player of that side, and gives the next message.
  std::string carryTo(const CarriedPose& pose, const Conditions& conditions) {
    const bool turned = conditions.side == arena::Side::kRight;
    const double sign = turned ? -1 : 1;
    world_.beam(0, {sign * pose.x, sign * pose.y,
                    pose.viewDeg - conditions.headYawDeg + (turned ? 180.0 : 0.0)});
    std::array<double, arena::kJointCount> joints{};
    const auto neck = std::find_if(arena::kJoints.begin(), arena::kJoints.end(),
                                   [](const auto& row) { return row.perceptor == "hj1"; });
    joints[static_cast<std::size_t>(neck - arena::kJoints.begin())] = conditions.headYawDeg;
    world_.setJointAngles(0, joints);

    ++shot_.cycle;
    shot_.now = static_cast<double>(shot_.cycle) * arena::kCycleSeconds;
    shot_.actors[0] = {world_.robot(0), arena::Shirt{conditions.side, kShirt}, 0};
    return arena::perceive(shot_, 0, conditions.senses);
  }

  /// The torso's place and direction, in the frame of a player of that side.
  [[nodiscard]] CarriedPose truth(arena::Side side) const {
    const arena::Frame& torso = shot_.actors[0].body.torso;
    const bool turned = side == arena::Side::kRight;
    const double sign = turned ? -1 : 1;
    const double heading =
        std::atan2(torso.axes[4], torso.axes[1]) * 180 / std::numbers::pi + (turned ? 180.0 : 0.0);
    return {sign * torso.position[0], sign * torso.position[1], heading};
  }

 private:
  arena::World world_{};
  arena::Snapshot shot_{};
};

/// A player from its making on.
class Life {
 public:
  explicit Life(std::uint64_t seed) : player_(kShirt) { gsl_rng_set(filter().rng, seed); }
  /// The player never frees its generators, and a trial has a thousand players.
  ~Life() {
    Agent& agent = player_.agent();
    gsl_rng_free(agent.particleFilter.rng);
    for (int i = 0; i < kFilters; ++i) gsl_rng_free(agent.particleFilters[index(i)].rng);
  }
  Life(const Life&) = delete;
  Life& operator=(const Life&) = delete;

  /// What a beam to that place does to the player's memory.
  void pin(const CarriedPose& pose) { filter().initDistribution(pose.x, pose.y, 0.0); }

  /// One turn of the player, as far as its place goes. True if there was something to see.
  bool turn(const std::string& message) {
    Agent& agent = player_.agent();
    WorldModel& world = player_.world();
    const VecPosition place = agent.myPos;
    const VecPosition accepted = filter().lastPos;
    agent.myPos.z = kUntouched;

    SLangParser::updateFromServerMsg("(" + message + ")");
    world.vision.setFlagPos(world.teamSide);
    agent.LocalizeAgentWith3FlagsCircle();
    agent.findOrientation();
    world.setBallPos();
    (void)player_.link.bytes();

    const bool written = agent.myPos.z != kUntouched;
    if (!written) agent.myPos.z = place.z;
    // A measurement that the filter throws away leaves its last accepted place as it was.
    updated_ = written && (!filtered() || filter().lastPos.x != accepted.x ||
                           filter().lastPos.y != accepted.y);
    return world.lastSeeCycle == world.cycle;
  }

  [[nodiscard]] Sight compared(const CarriedPose& truth, const Conditions& conditions) const {
    const Agent& agent = player_.agent();
    Sight sight;
    sight.view = viewOf(player_.world().vision, truth.x);
    sight.filtered = filtered();
    sight.noise = conditions.senses.noise.has_value();
    sight.side = conditions.side;
    sight.headYawDeg = conditions.headYawDeg;
    sight.positionError = std::hypot(agent.myPos.x - truth.x, agent.myPos.y - truth.y);
    sight.headingErrorDeg = differenceDeg(agent.myDegree, truth.viewDeg);
    sight.updated = updated_;
    return sight;
  }

 private:
  static constexpr int kFilters = 12;

  static std::size_t index(int i) { return static_cast<std::size_t>(i); }
  [[nodiscard]] Particle_filtering& filter() const {
    return player_.agent().particleFilters[index(kShirt - 1)];
  }
  [[nodiscard]] bool filtered() const { return player_.world().cycle > kUnfilteredCycles; }

  FreshPlayer player_;
  bool updated_ = false;
};

/// The first cycles of a player that is already under way when it is made.
void carryFromScratch(Carrier& carrier, const CarriedPath& path, double start,
                      const Conditions& conditions, std::vector<Sight>& sights) {
  Life life(conditions.senses.seed);
  for (int cycle = 0; cycle < kUnfilteredCycles; ++cycle) {
    const CarriedPose pose = poseAt(path, start + cycle * arena::kCycleSeconds);
    if (life.turn(carrier.carryTo(pose, conditions))) {
      sights.push_back(life.compared(carrier.truth(conditions.side), conditions));
    }
  }
}

/// The whole path, with a player that has stood at its start and was beamed there. Only the way
/// counts.
void carryAllAlong(Carrier& carrier, const CarriedPath& path, const Conditions& conditions,
                   std::vector<Sight>& sights) {
  Life life(conditions.senses.seed);
  for (int cycle = 0; cycle < kUnfilteredCycles; ++cycle) {
    life.turn(carrier.carryTo(poseAt(path, 0), conditions));
  }
  life.pin(poseAt(path, 0));
  const int cycles = static_cast<int>(std::lround(duration(path) / arena::kCycleSeconds));
  for (int cycle = 1; cycle <= cycles; ++cycle) {
    const CarriedPose pose = poseAt(path, cycle * arena::kCycleSeconds);
    if (life.turn(carrier.carryTo(pose, conditions))) {
      sights.push_back(life.compared(carrier.truth(conditions.side), conditions));
    }
  }
}

}  // namespace

std::vector<Sight> runTrial(const TrialSettings& settings) {
  if (!(settings.startEverySeconds > 0)) {
    throw std::invalid_argument("localisation trial: the start spacing must be above zero");
  }
  const SilentOutput silent;
  const std::vector<CarriedPath> paths = carriedPaths();
  Carrier carrier;
  std::vector<Sight> sights;
  for (const bool noise : {false, true}) {
    for (const arena::Side side : {arena::Side::kLeft, arena::Side::kRight}) {
      for (const double headYawDeg : kHeadYaws) {
        Conditions conditions{side, headYawDeg, {}};
        conditions.senses.seed = settings.seed;
        if (!noise) conditions.senses.noise.reset();
        for (const CarriedPath& path : paths) {
          for (int i = 0; i * settings.startEverySeconds < duration(path); ++i) {
            carryFromScratch(carrier, path, i * settings.startEverySeconds, conditions, sights);
          }
          carryAllAlong(carrier, path, conditions, sights);
        }
      }
    }
  }
  return sights;
}

}  // namespace bench
