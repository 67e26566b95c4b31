#include "workshop/main/Actions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "arena/world/World.h"
#include "workshop/check/ScriptNames.h"

namespace workshop {
namespace {

constexpr int kPoseRest = 50;  ///< [cycles]
/// Where a shot usually finds the ball.
constexpr BallPlace kBallAtRightFoot{true, 0.055, 0.025};
constexpr BallPlace kBallAtLeftFoot{true, 0.055, -0.025};

}  // namespace

std::string actionHelp() {
  return "an action (turnL15, sideR, backward, shoot ...), walk, kickL, kickR, diveL, diveR, "
         "getup-front, getup-back, getup-left, getup-right, or a pose script (front2.txt)";
}

TrialJob jobNamed(const std::string& action, double seconds) {
  TrialJob job;
  const auto isThat = [&](const ActionScript& script) { return script.action == action; };
  constexpr std::array<std::pair<std::string_view, Start>, 4> kGetUps{
      {{"getup-front", Start::kOnFront},
       {"getup-back", Start::kOnBack},
       {"getup-left", Start::kOnLeft},
       {"getup-right", Start::kOnRight}}};
  if (std::any_of(kActionScripts.begin(), kActionScripts.end(), isThat)) {
    job.steps = {playScript(action)};
    if (action == "shoot") job.ball = kBallAtRightFoot;
  } else if (action == "walk") {
    job.steps = {walkFor(static_cast<int>(std::lround(seconds / arena::kCycleSeconds)))};
  } else if (action == "kickL" || action == "kickR") {
    const bool left = action == "kickL";
    job.steps = {kickWith(left ? Foot::kLeft : Foot::kRight)};
    job.ball = left ? kBallAtLeftFoot : kBallAtRightFoot;
  } else if (action == "diveL" || action == "diveR") {
    job.steps = {diveTo(action == "diveL" ? Foot::kLeft : Foot::kRight)};
    job.scanHead = false;
  } else if (isPoseScript(action)) {
    job.steps = {playPose(action, kPoseRest)};
  } else {
    const auto found = std::find_if(kGetUps.begin(), kGetUps.end(),
                                    [&](const auto& entry) { return entry.first == action; });
    if (found == kGetUps.end()) throw std::invalid_argument("no motion is called " + action);
    job.start = found->second;
    job.steps = {getUp()};
  }
  return job;
}

std::string textOf(const Figures& f) {
  std::array<char, 1000> text{};
  std::size_t length = 0;
  const auto line = [&](const char* format, auto... values) {
    const int wrote = std::snprintf(text.data() + length, text.size() - length, format, values...);
    if (wrote > 0) length = std::min(text.size() - 1, length + static_cast<std::size_t>(wrote));
  };
  line("end         %s\n", f.fell ? "fell" : f.stands ? "stands" : "doesn't stand");
  line("moved       %.3f m forward, %.3f m to the left\n", f.forward, f.left);
  line("turned      %.1f deg to the left\n", f.turnDeg);
  line("took        %.2f s, torso tilted up to %.0f deg\n", f.duration, f.maxTiltDeg);
  if (f.walkSeconds > 0) {
    line("walked      %.3f m/s along its heading for %.2f s, drifting %.2f deg/s to the left\n",
         f.walkSpeed, f.walkSeconds, f.walkDriftDegPerSec);
  }
  if (f.ballSpeed > 0) {
    line("ball        %.2f m/s, %.1f deg to the left of straight ahead, %.2f m so far\n",
         f.ballSpeed, f.ballDirectionDeg, f.ballDistance);
  }
  if (f.sequences > 0) line("got up      %d sequences\n", f.sequences);
  line("reached     %.2f m to the left, %.2f m to the right within a second\n", f.reachLeft,
       f.reachRight);
  line("simulated   %.1f s, %.0f times as fast as real time\n", f.simulatedSeconds,
       f.cpuSeconds > 0 ? f.simulatedSeconds / f.cpuSeconds : 0.0);
  return text.data();
}

}  // namespace workshop
