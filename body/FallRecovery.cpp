/// BasicAgent: noticing a fall, and getting up by the clock. Nothing here looks at the sensors
/// between the first notice and the end of a sequence.

#include <array>
#include <initializer_list>
#include <iostream>

#include "body/BasicAgent.h"
#include "perception/WorldModel.h"

namespace {

enum BodyState : int { kUpright = 0, kOnBack = 1, kOnFront = 2, kOnRight = 3, kOnLeft = 4 };

constexpr double kFallenAcceleration = 6.0;  ///< [m/s^2] along a lying axis
constexpr int kDiveCycles = 99;              ///< a dive lies on its side at least this long
constexpr std::size_t kRestart = 9;          ///< the flag that restarts the clock
constexpr std::size_t kStages = 5;

/// Cycles after the start behind which each stage runs.
constexpr std::array<int, kStages> kBackTimes{49, 109, 169, 269, 499};
constexpr std::array<int, kStages> kFrontTimes{9, 109, 159, 239, 349};

int now() {
  return WorldModel::getSingleton()->cycle;
}

void startClock(BasicAgent& agent) {
  if (!agent.getUpStepPending[kRestart]) {
    return;
  }
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    agent.getUpStepPending[stage] = true;
  }
  agent.getUpStepPending[kRestart] = false;
  agent.getUpStartTime = now();
}

bool isDue(const BasicAgent& agent, const std::array<int, kStages>& times, std::size_t stage) {
  return now() > agent.getUpStartTime + times[stage] && agent.getUpStepPending[stage];
}

/// Plays a pose when its stage is due. The flag makes it run once.
void playStage(BasicAgent& agent, const std::array<int, kStages>& times, std::size_t stage,
               const char* pose) {
  if (isDue(agent, times, stage)) {
    agent.getUpStepPending[stage] = false;
    agent.loadMoveFromFile(pose);
  }
}

void setTargets(BasicAgent& agent, std::initializer_list<JointIndex> joints, double target) {
  for (const JointIndex joint : joints) {
    agent.jointFlags[joint].targetAngle = target;
    agent.jointFlags[joint].active = true;
  }
}

/// Straightens the body with the arms at ARM_TARGET [rad]. The step is written by hand, so its
/// count of cycles is exact.
void straighten(BasicAgent& agent, double armTarget, int cycles) {
  agent.zeroJoints();
  setTargets(agent, {kLShoulderPitch, kRShoulderPitch}, armTarget);
  agent.moveCyclesLeft = cycles;
  agent.lastMoveCycle = now() - 1;
  for (jointsFlag& flag : agent.jointFlags) {
    if (flag.active) {
      flag.lastError = 0.0;
      flag.errorSum = 0.0;
    }
  }
}

/// From the side to the back, unless a dive still lies there.
void rollOver(BasicAgent& agent, const char* pose) {
  if (agent.jumpTime + kDiveCycles < now()) {
    agent.loadMoveFromFile(pose);
    agent.bodyState = kOnBack;
  }
}

}  // namespace

void BasicAgent::checkBodyState() {
  if (accel.y > kFallenAcceleration) {
    bodyState = kOnBack;
  } else if (accel.y < -kFallenAcceleration) {
    bodyState = kOnFront;
  } else if (accel.x < -kFallenAcceleration) {
    bodyState = kOnRight;
  } else if (accel.x > kFallenAcceleration) {
    bodyState = kOnLeft;
  } else {
    bodyState = kUpright;
    return;
  }
  std::cout << "bodystate: " << bodyState << std::endl;
}

void BasicAgent::Back() {
  startClock(*this);
  if (isDue(*this, kBackTimes, 0)) {
    getUpStepPending[0] = false;
    straighten(*this, -1.57, 45);
  }
  playStage(*this, kBackTimes, 1, "back2.txt");
  playStage(*this, kBackTimes, 2, "back3.txt");
  playStage(*this, kBackTimes, 3, "back4.txt");
  if (isDue(*this, kBackTimes, 4)) {
    getUpStepPending[kRestart] = true;
    getUpStepPending[4] = false;
    bodyState = kUpright;
  }
}

void BasicAgent::Front() {
  startClock(*this);
  if (isDue(*this, kFrontTimes, 0)) {
    getUpStepPending[0] = false;
    straighten(*this, 0.0, 20);
  }
  playStage(*this, kFrontTimes, 1, "front2.txt");
  playStage(*this, kFrontTimes, 2, "front3.txt");
  playStage(*this, kFrontTimes, 3, "front4.txt");
  if (isDue(*this, kFrontTimes, 4)) {
    // The last flag stays set here; a restart sets it anyway.
    getUpStepPending[kRestart] = true;
    bodyState = kUpright;
  }
}

void BasicAgent::Right2Back() {
  rollOver(*this, "JumpR2.txt");
}

void BasicAgent::Left2Back() {
  rollOver(*this, "JumpL2.txt");
}

void BasicAgent::JumpR() {
  loadMoveFromFile("JumpR1.txt");
  jumpTime = now();
}

void BasicAgent::JumpL() {
  loadMoveFromFile("JumpL1.txt");
  jumpTime = now();
}

void BasicAgent::GetUP() {
  switch (bodyState) {
    case kOnBack:
      Back();
      break;
    case kOnFront:
      Front();
      break;
    case kOnRight:
      Right2Back();
      break;
    case kOnLeft:
      Left2Back();
      break;
    default:
      break;
  }
  if (bodyState == kUpright) {
    checkBodyState();
  }
}
