/// Agent: when to shoot, with which foot, and the eight steps of a kick.

#include "behaviour/Agent.h"

#include <array>
#include <cstddef>
#include <iostream>

#include "behaviour/Accuracy.h"
#include "behaviour/BallGeometry.h"
#include "perception/WorldModel.h"

namespace {

constexpr double kNearBall = 0.4;       ///< [m]
constexpr double kShotDistance = 0.12;  ///< [m]

constexpr std::size_t kEndFlag = 8;
constexpr std::size_t kRestartFlag = 9;
constexpr int kEndOffset = 120;
/// The step that moves what follows it by a cycle, in all cases.
constexpr std::size_t kShiftingStep = 6;

/// A step runs once, behind this many cycles from the start; when its script could not be loaded
/// the start moves by the delay instead.
struct KickStep {
  int offset;
  int delay;
};
constexpr std::array<KickStep, 8> kSteps{
    {{9, 10}, {59, 50}, {84, 25}, {99, 15}, {101, 2}, {101, 0}, {102, 0}, {105, 3}}};

struct Foot {
  int slowFunction;
  std::array<const char*, kSteps.size()> files;
  MyState state;
  const char* complaint;
};
constexpr Foot kLeft{2,
                     {"kickL1.txt", "kickL2.txt", "kickL3.txt", "kickL4.txt", "kickL5.txt",
                      "kickL6.txt", "kickL7.txt", "kickL8.txt"},
                     kickL_state,
                     "eror action not compatible in kickL function\n"};
constexpr Foot kRight{1,
                      {"kickR1.txt", "kickR2.txt", "kickR3.txt", "kickR4.txt", "kickR5.txt",
                       "kickR6.txt", "kickR7.txt", "kickR8.txt"},
                      kickR_state,
                      "eror action not compatible in kickR function\n"};

/// The clock and the flags are those of the get-up sequences: a fall in mid-kick finds them as the
/// kick has left them.
void continueKick(Agent& agent, const Foot& foot) {
  const int cycle = WorldModel::getSingleton()->cycle;
  int& start = agent.getUpStartTime;
  auto& pending = agent.getUpStepPending;
  if (pending[kRestartFlag]) {
    agent.slowFunction = foot.slowFunction;
    start = cycle;
    pending.fill(true);
    pending[kRestartFlag] = false;
  }
  for (std::size_t i = 0; i < kSteps.size(); ++i) {
    if (!pending[i] || !(cycle > start + kSteps[i].offset)) {
      continue;
    }
    if (agent.loadMoveFromFile(foot.files[i])) {
      pending[i] = false;
    } else {
      start += kSteps[i].delay;
    }
    if (i == kShiftingStep) {
      start += 1;
    }
  }
  if (pending[kEndFlag] && cycle > start + kEndOffset) {
    pending[kEndFlag] = false;
    pending[kRestartFlag] = true;
    agent.slowFunction = 0;
    if (!agent.popIfOnTop(foot.state)) {
      // The usual end of a kick that was started without the stack.
      std::cout << foot.complaint;
    }
  }
}

}  // namespace

void Agent::kickHandler() {
  const VecPosition& ball = WorldModel::getSingleton()->ballPos;
  const double d = myPos.getDistanceTo(ball);
  if (d > kNearBall) {
    walkdestAccuracy = kFarAccuracy;
  }
  // Near the ball the test is left out, so that small errors don't undo the last steps.
  const bool mustTest = d > kNearBall || walkdestAccuracy == kFarAccuracy;
  if (mustTest && !isBehindBall()) {
    std::cout << "!isbehindball\n";
    walkdestAccuracy = kFarAccuracy;
  } else {
    std::cout << "isbehindball\n";
    if (d < kShotDistance) {
      std::cout << "shoot?\n";
      if (isWalking) {
        std::cout << "walk stop\n";
        shallWalk = false;
      } else {
        std::cout << "gotta shoot    BallDistance= " << d << std::endl;
      }
      kickFull();
      return;
    }
    std::cout << "walkdestAccuracy set to near\n";
    walkdestAccuracy = kNearAccuracy;
  }
  followBall();
  pushActionToStack(goBehindBall_state);
}

void Agent::kickFull() {
  const Line ballGoalLine = makeBallGoalLine(WorldModel::getSingleton()->ballPos);
  const VecPosition closestOnLine = ballGoalLine.getPointOnLineClosestTo(myPos);
  if (myPos.y - closestOnLine.y >= 0) {
    kickR();
  } else {
    kickL();
  }
}

void Agent::kickL() {
  continueKick(*this, kLeft);
}

void Agent::kickR() {
  continueKick(*this, kRight);
}
