#include "workshop/judge/Motions.h"

#include <cmath>
#include <utility>

namespace workshop {
namespace {

constexpr int kChainCycles = 1500;  ///< 30 s

double turn(const Figures& f) {
  return f.turnDeg;
}
double forward(const Figures& f) {
  return f.forward;
}
double speed(const Figures& f) {
  return f.walkSpeed;
}
double ballSpeed(const Figures& f) {
  return f.ballSpeed;
}
double ballDirection(const Figures& f) {
  return f.ballDirectionDeg;
}

Bar standing(Trials trials, double share) {
  return shareOf(trials, isStanding, share, "stands in");
}

/// Where the robot got to means nothing once it has fallen.
std::vector<Figures> upright(Trials trials) {
  return only(trials, isStanding);
}
/// A ball that was never touched has no direction.
std::vector<Figures> hit(Trials trials) {
  return only(trials, [](const Figures& f) { return f.ballSpeed > 0; });
}

TrialJob jobOf(std::vector<Step> steps, Start start = Start::kReady) {
  TrialJob job;
  job.start = start;
  job.steps = std::move(steps);
  return job;
}

Motion walk() {
  Motion motion{"walk", "walking chain, 30 s", {jobOf({walkFor(kChainCycles)})}, 1, {}, {}};
  motion.nominal = [](Trials trials) {
    return std::vector{
        meanAtLeast(upright(trials), speed, 0.30, 3, "m/s"),
        magnitudeAtMost(
            upright(trials), [](const Figures& f) { return f.walkDriftDegPerSec; }, 2, 2, "deg/s"),
        standing(trials, 1)};
  };
  motion.perturbed = [](Trials trials) {
    return std::vector{meanAtLeast(upright(trials), speed, 0.26, 3, "m/s"), standing(trials, 0.9)};
  };
  return motion;
}

/// The walk ended after each of the loops, ENDEDBY as Step has it.
Motion walkStop(std::string name, std::string title, const std::string& endedBy) {
  Motion motion{std::move(name), std::move(title), {}, 1, {}, {}};
  for (int loops = 1; loops <= 4; ++loops) {
    motion.variants.push_back(jobOf({walkLoops(loops, endedBy)}));
  }
  motion.nominal = [](Trials trials) { return std::vector{standing(trials, 1)}; };
  motion.perturbed = [](Trials trials) { return std::vector{standing(trials, 0.95)}; };
  return motion;
}

/// DEGREES positive to the left.
Motion turnBy(const std::string& name, double degrees) {
  const bool isAboutFace = std::abs(degrees) > 90;
  Motion motion{name, name, {jobOf({playScript(name)})}, 1, {}, {}};
  const double off = isAboutFace ? 10 : 3;
  motion.nominal = [degrees, off, isAboutFace](Trials trials) {
    std::vector bars{meanWithin(upright(trials), turn, degrees - off, degrees + off, 1, "deg")};
    if (!isAboutFace) {
      const Measure moved = [](const Figures& f) { return std::hypot(f.forward, f.left); };
      bars.push_back(magnitudeAtMost(upright(trials), moved, 0.10, 3, "m"));
    }
    bars.push_back(standing(trials, 1));
    return bars;
  };
  motion.perturbed = [degrees, isAboutFace](Trials trials) {
    std::vector<Bar> bars;
    if (!isAboutFace)
      bars.push_back(meanWithin(upright(trials), turn, degrees - 3, degrees + 3, 1, "deg"));
    bars.push_back(spreadAtMost(upright(trials), turn, isAboutFace ? 9 : 6, 1, "deg"));
    bars.push_back(standing(trials, 1));
    return bars;
  };
  return motion;
}

/// WAY 1 to the left, -1 to the right.
Motion sideStep(const std::string& name, double way, double least, double most, bool isLong) {
  Motion motion{name, name, {jobOf({playScript(name)})}, 1, {}, {}};
  const Measure side = [way](const Figures& f) { return way * f.left; };
  motion.nominal = [side, least, most, isLong](Trials trials) {
    std::vector bars{meanWithin(upright(trials), side, least, most, 3, "m")};
    if (isLong) {
      bars.push_back(magnitudeAtMost(upright(trials), turn, 5, 1, "deg"));
      bars.push_back(magnitudeAtMost(upright(trials), forward, 0.03, 3, "m"));
    }
    bars.push_back(standing(trials, 1));
    return bars;
  };
  motion.perturbed = [isLong](Trials trials) {
    std::vector<Bar> bars;
    if (isLong) bars.push_back(spreadAtMost(upright(trials), turn, 6, 1, "deg"));
    bars.push_back(standing(trials, 1));
    return bars;
  };
  return motion;
}

Motion backward() {
  Motion motion{"backward", "backward", {jobOf({playScript("backward")})}, 1, {}, {}};
  const Measure back = [](const Figures& f) { return -f.forward; };
  motion.nominal = [back](Trials trials) {
    return std::vector{meanWithin(upright(trials), back, 0.10, 0.30, 3, "m"),
                       magnitudeAtMost(upright(trials), turn, 5, 1, "deg"), standing(trials, 1)};
  };
  motion.perturbed = [](Trials trials) {
    return std::vector{spreadAtMost(upright(trials), turn, 6, 1, "deg"), standing(trials, 1)};
  };
  return motion;
}

/// The ball leaves at SPEED or more in a SHARE of TRIALS, of which some may have fallen since.
Bar hits(Trials trials, double speed, double share) {
  return shareOf(
      trials, [speed](const Figures& f) { return f.ballSpeed >= speed; }, share, "fast enough in");
}

TrialJob kickJob(Foot foot, double ahead, double aheadSpread) {
  TrialJob job = jobOf({kickWith(foot)});
  // The player kicks with the foot on whose side the ball lies, or with the right one.
  const double right = foot == Foot::kRight ? 0.025 : -0.025;
  job.ball = BallPlace{true, ahead, right, aheadSpread, 0.025};
  return job;
}

Motion kick(const std::string& name, Foot foot) {
  Motion motion{name, name + " where the approach ends", {kickJob(foot, 0.055, 0.015)}, 1, {}, {}};
  motion.nominal = [](Trials trials) {
    return std::vector{meanAtLeast(trials, ballSpeed, 2.8, 2, "m/s"),
                       magnitudeAtMost(hit(trials), ballDirection, 8, 1, "deg"),
                       standing(trials, 1)};
  };
  motion.perturbed = [](Trials trials) {
    return std::vector{hits(trials, 2.3, 0.9),
                       magnitudeAtMost(hit(trials), ballDirection, 12, 1, "deg"),
                       standing(trials, 0.9)};
  };
  return motion;
}

Motion farKick(const std::string& name, const std::string& foot, Foot side) {
  Motion motion{name, foot + ", ball 0.10 m ahead", {kickJob(side, 0.10, 0)}, 1, {}, {}};
  motion.nominal = [](Trials trials) {
    return std::vector{meanAtLeast(trials, ballSpeed, 2, 2, "m/s"), standing(trials, 1)};
  };
  motion.perturbed = [](Trials trials) { return std::vector{hits(trials, 2, 0.8)}; };
  return motion;
}

Motion kickOff() {
  TrialJob job = jobOf({kickWith(Foot::kRight)}, Start::kUpright);
  job.ball = BallPlace{false, 0.15, 0.05};
  Motion motion{"kickoff", "kick-off shot", {std::move(job)}, 1, {}, {}};
  motion.nominal = [](Trials trials) {
    return std::vector{meanAtLeast(trials, ballSpeed, 2.8, 2, "m/s"),
                       magnitudeAtMost(hit(trials), ballDirection, 8, 1, "deg")};
  };
  motion.perturbed = [](Trials trials) { return std::vector{hits(trials, 2.3, 0.9)}; };
  return motion;
}

Motion shoot() {
  TrialJob job = jobOf({playScript("shoot")});
  job.ball = BallPlace{true, 0.055, 0.025, 0.015, 0.025};
  Motion motion{"shoot", "shoot", {std::move(job)}, 1, {}, {}};
  motion.nominal = [](Trials trials) {
    return std::vector{meanAtLeast(trials, ballSpeed, 1, 2, "m/s"), standing(trials, 1)};
  };
  motion.perturbed = [](Trials trials) { return std::vector{standing(trials, 0.9)}; };
  return motion;
}

bool isUpAfterOne(const Figures& f) {
  return isStanding(f) && f.sequences == 1;
}

/// Stands after one sequence in SHAREOFONE of the worlds, within two in SHAREOFTWO.
std::vector<Bar> gettingUp(Trials trials, double shareOfOne, double shareOfTwo) {
  std::vector bars{shareOf(trials, isUpAfterOne, shareOfOne, "up after one sequence in")};
  if (shareOfTwo > 0) bars.push_back(shareOf(trials, isStanding, shareOfTwo, "within two in"));
  return bars;
}

Motion getUpFrom(const std::string& name, std::string title, Start start, double shareOfOne,
                 double shareOfTwo) {
  Motion motion{name, std::move(title), {jobOf({getUp()}, start)}, 2, {}, {}};
  motion.nominal = [](Trials trials) { return gettingUp(trials, 1, 0); };
  motion.perturbed = [shareOfOne, shareOfTwo](Trials trials) {
    return gettingUp(trials, shareOfOne, shareOfTwo);
  };
  return motion;
}

Motion dive(const std::string& name, Foot side) {
  TrialJob job = jobOf({diveTo(side)});
  job.scanHead = false;
  Motion motion{name, name, {std::move(job)}, 1, {}, {}};
  const Condition reaches = [side](const Figures& f) {
    return (side == Foot::kLeft ? f.reachLeft : f.reachRight) >= 0.5;
  };
  motion.nominal = [reaches](Trials trials) {
    return std::vector{shareOf(trials, reaches, 1, "0.5 m in a second in"), standing(trials, 1)};
  };
  motion.perturbed = [](Trials trials) { return gettingUp(trials, 0.8, 0.95); };
  return motion;
}

}  // namespace

std::vector<Motion> acceptanceTable() {
  std::vector<Motion> table{
      walk(),
      walkStop("walkstop", "walk ended by a turn, after any loop", "turnL15"),
      walkStop("walkend", "walk ended by walkend, after any loop", ""),
  };
  for (const int degrees : {9, 15, 40, 60, 180}) {
    table.push_back(turnBy("turnL" + std::to_string(degrees), degrees));
    table.push_back(turnBy("turnR" + std::to_string(degrees), -degrees));
  }
  table.push_back(sideStep("sideL", 1, 0.08, 0.13, true));
  table.push_back(sideStep("sideR", -1, 0.08, 0.13, true));
  table.push_back(sideStep("sideLm", 1, 0.04, 0.06, false));
  table.push_back(sideStep("sideRm", -1, 0.04, 0.06, false));
  table.push_back(backward());
  table.push_back(kick("kickL", Foot::kLeft));
  table.push_back(kick("kickR", Foot::kRight));
  table.push_back(farKick("farkickL", "kickL", Foot::kLeft));
  table.push_back(farKick("farkickR", "kickR", Foot::kRight));
  table.push_back(kickOff());
  table.push_back(shoot());
  table.push_back(getUpFrom("getup-front", "get up from the front", Start::kOnFront, 0.975, 0));
  table.push_back(getUpFrom("getup-back", "get up from the back", Start::kOnBack, 0.9, 1));
  table.push_back(getUpFrom("getup-left", "get up from the left side", Start::kOnLeft, 0.9, 1));
  table.push_back(getUpFrom("getup-right", "get up from the right side", Start::kOnRight, 0.9, 1));
  table.push_back(dive("diveL", Foot::kLeft));
  table.push_back(dive("diveR", Foot::kRight));
  return table;
}

}  // namespace workshop
