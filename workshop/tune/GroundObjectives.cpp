#include "workshop/tune/GroundObjectives.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

namespace workshop {
namespace {

using Path = std::filesystem::path;
using Seed = std::optional<std::uint64_t>;

// Where the ball lies, as the approach leaves it. [m]
constexpr double kNear = 0.055;
constexpr double kNearSpread = 0.015;
constexpr double kFar = 0.10;
constexpr double kAside = 0.025;  ///< to the kicking foot's side, and as much either way
// From the torso to the ball at a kick-off, as the player's start place has it. [m]
constexpr double kKickOffAhead = 0.15;
constexpr double kKickOffAside = 0.05;

/// [deg] off straight ahead that costs as much as a ball that lies still.
constexpr double kHopelessDeg = 20;

TrialJob jobOf(const Path& scripts, Seed seed, std::vector<Step> steps) {
  TrialJob job;
  job.scripts = scripts;
  job.seed = seed;
  job.steps = std::move(steps);
  return job;
}

bool stands(const TrialResult& result) {
  return result.error.empty() && !result.figures.fell && result.figures.stands;
}

/// Falls short of AIM, goes astray, topples.
double shotCost(const TrialResult& result, double aim) {
  if (!result.error.empty()) return 2 * kFallCost;
  const double speed = std::min(result.figures.ballSpeed, aim);
  const double astray = std::min(1.0, std::abs(result.figures.ballDirectionDeg) / kHopelessDeg);
  return (aim - speed) / aim + astray * astray + (stands(result) ? 0.0 : kFallCost);
}

/// The left kick is the right one's mirror image; the worlds take turns between them.
Objective kickObjective(const Json& wanted, const std::string& where) {
  requireKeys(wanted, std::array<std::string_view, 2>{"motion", "aim"}, where);
  const double aim = numberIn(wanted, "aim", where);
  Objective objective;
  objective.jobs = [](const Path& scripts, Seed seed, int index) {
    const Foot foot = index % 2 == 0 ? Foot::kRight : Foot::kLeft;
    const double aside = foot == Foot::kRight ? kAside : -kAside;
    TrialJob near = jobOf(scripts, seed, {kickWith(foot)});
    near.ball = BallPlace{true, kNear, aside, kNearSpread, kAside};
    TrialJob far = near;
    far.ball = BallPlace{true, kFar, aside, 0, kAside};
    TrialJob kickOff = jobOf(scripts, seed, {kickWith(Foot::kRight)});
    kickOff.start = Start::kUpright;
    kickOff.ball = BallPlace{false, kKickOffAhead, kKickOffAside};
    return std::vector<TrialJob>{near, far, kickOff};
  };
  objective.cost = [aim](const TrialResult& result) { return shotCost(result, aim); };
  return objective;
}

Objective shootObjective(const Json& wanted, const std::string& where) {
  requireKeys(wanted, std::array<std::string_view, 2>{"motion", "aim"}, where);
  const double aim = numberIn(wanted, "aim", where);
  Objective objective;
  objective.jobs = [](const Path& scripts, Seed seed, int) {
    TrialJob job = jobOf(scripts, seed, {playScript("shoot")});
    job.ball = BallPlace{true, kNear, kAside, kNearSpread, kAside};
    return std::vector<TrialJob>{job};
  };
  objective.cost = [aim](const TrialResult& result) { return shotCost(result, aim); };
  return objective;
}

Start startNamed(const std::string& side, const std::string& where) {
  if (side == "front") return Start::kOnFront;
  if (side == "back") return Start::kOnBack;
  if (side == "left") return Start::kOnLeft;
  if (side == "right") return Start::kOnRight;
  throw ParameterError(where + ": nobody falls to the \"" + side + "\"");
}

/// One sequence has to do.
Objective getUpObjective(const Json& wanted, const std::string& where) {
  requireKeys(wanted, std::array<std::string_view, 2>{"motion", "from"}, where);
  const Json& sides = objectIn(wanted, "from", where);
  std::vector<Start> starts;
  for (const Json& side : sides) {
    if (!side.is_string()) throw ParameterError(where + ": \"from\" must be a list of sides");
    starts.push_back(startNamed(side, where));
  }
  if (starts.empty()) throw ParameterError(where + ": \"from\" names no side");
  Objective objective;
  objective.jobs = [starts](const Path& scripts, Seed seed, int) {
    std::vector<TrialJob> jobs;
    for (const Start start : starts) {
      TrialJob job = jobOf(scripts, seed, {getUp()});
      job.start = start;
      job.maxSequences = 1;
      jobs.push_back(job);
    }
    return jobs;
  };
  objective.cost = [](const TrialResult& result) { return stands(result) ? 0.0 : kFallCost; };
  return objective;
}

Objective diveObjective(const Json& wanted, const std::string& where) {
  requireKeys(wanted, std::array<std::string_view, 2>{"motion", "reach"}, where);
  const double reach = numberIn(wanted, "reach", where);
  Objective objective;
  objective.jobs = [](const Path& scripts, Seed seed, int index) {
    TrialJob job = jobOf(scripts, seed, {diveTo(index % 2 == 0 ? Foot::kRight : Foot::kLeft)});
    job.scanHead = false;
    job.maxSequences = 1;
    return std::vector<TrialJob>{job};
  };
  objective.cost = [reach](const TrialResult& result) {
    if (!result.error.empty()) return 2 * kFallCost;
    const double reached = std::max(result.figures.reachLeft, result.figures.reachRight);
    return std::max(0.0, reach - reached) / reach + (stands(result) ? 0.0 : kFallCost);
  };
  return objective;
}

}  // namespace

std::optional<Objective> groundObjective(const std::string& motion, const Json& wanted,
                                         const std::string& where) {
  if (motion == "kick") return kickObjective(wanted, where);
  if (motion == "shoot") return shootObjective(wanted, where);
  if (motion == "getUp") return getUpObjective(wanted, where);
  if (motion == "dive") return diveObjective(wanted, where);
  return std::nullopt;
}

}  // namespace workshop
