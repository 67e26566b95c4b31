#include "workshop/tune/Objective.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "workshop/tune/GroundObjectives.h"

namespace workshop {
namespace {

double optionalNumber(const Json& object, const char* name, double otherwise,
                      const std::string& where) {
  return object.contains(name) ? numberIn(object, name, where) : otherwise;
}

/// Speed up to AIM, straight on, without a fall, and steady. Every third world ends the walk by its
/// own last script; the others by the initial pose out of the loop's end, as play mostly does.
Objective walkObjective(const Json& wanted, const std::string& where) {
  requireKeys(wanted, std::array<std::string_view, 4>{"motion", "loops", "aim", "drift"}, where);
  const int loops = wholeNumberIn(wanted, "loops", where);
  const double aim = numberIn(wanted, "aim", where);
  const double driftWeight = optionalNumber(wanted, "drift", 0.015, where);
  Objective objective;
  objective.jobs = [loops](const std::filesystem::path& scripts, std::optional<std::uint64_t> seed,
                           int index) {
    TrialJob job;
    job.scripts = scripts;
    job.seed = seed;
    job.steps = {walkLoops(loops + index % 4, index % 3 == 1 ? "" : "turnL15"), standFor(40)};
    return std::vector<TrialJob>{job};
  };
  objective.cost = [loops, aim, driftWeight](const TrialResult& result) {
    const Figures& f = result.figures;
    if (!result.error.empty()) return 2 * kFallCost;
    if (f.fell || !f.stands) {
      // The later the fall, the better: something to climb from where everything falls.
      return kFallCost - std::min(1.0, f.walkSeconds / (loops * 0.5));
    }
    return -std::min(f.walkSpeed, aim) + driftWeight * std::abs(f.walkDriftDegPerSec) +
           0.01 * std::max(0.0, f.maxTiltDeg - 15);
  };
  return objective;
}

/// A script that is to end a given way off, turned by so much.
Objective scriptObjective(const Json& wanted, const std::string& where) {
  requireKeys(wanted,
              std::array<std::string_view, 7>{"motion", "action", "turnDeg", "forward", "left",
                                              "seconds", "forwardWeight"},
              where);
  const std::string action = textIn(wanted, "action", where);
  const double turn = numberIn(wanted, "turnDeg", where);
  const double forward = numberIn(wanted, "forward", where);
  const double left = numberIn(wanted, "left", where);
  const double seconds = optionalNumber(wanted, "seconds", 0.02, where);
  const double forwardWeight = optionalNumber(wanted, "forwardWeight", 1.0, where);
  Objective objective;
  objective.jobs = [action](const std::filesystem::path& scripts, std::optional<std::uint64_t> seed,
                            int) {
    TrialJob job;
    job.scripts = scripts;
    job.seed = seed;
    job.steps = {playScript(action)};
    return std::vector<TrialJob>{job};
  };
  objective.cost = [=](const TrialResult& result) {
    const Figures& f = result.figures;
    if (!result.error.empty()) return 4 * kFallCost;
    if (f.fell || !f.stands) return 2 * kFallCost;
    // Three degrees weigh as much as two centimetres. Squared errors punish spread as well as bias.
    const double turnError = (f.turnDeg - turn) / 3;
    const double forwardError = forwardWeight * (f.forward - forward) / 0.02;
    const double leftError = (f.left - left) / 0.02;
    const double square =
        turnError * turnError + forwardError * forwardError + leftError * leftError;
    return std::sqrt(0.01 + square) / 4 + seconds * f.duration +
           0.01 * std::max(0.0, f.maxTiltDeg - 15);
  };
  return objective;
}

}  // namespace

Objective objectiveOf(const Json& description, const std::string& where) {
  const Json& wanted = objectIn(description, "objective", where);
  const std::string inside = where + "/objective";
  const std::string motion = textIn(wanted, "motion", inside);
  if (motion == "walk") return walkObjective(wanted, inside);
  if (motion == "script") return scriptObjective(wanted, inside);
  if (auto ground = groundObjective(motion, wanted, inside)) return *ground;
  throw ParameterError(inside + ": unknown motion \"" + motion + "\"");
}

}  // namespace workshop
