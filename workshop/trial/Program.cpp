#include "workshop/trial/Program.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <stdexcept>
#include <string>
#include <utility>

#include "perception/WorldModel.h"

namespace workshop {
namespace {

using Kind = Step::Kind;

constexpr int kLongestStep = 3000;  ///< [cycles] beyond what a step asks for itself
/// [cycles] in which a fall has to be noticed: a dive takes up to a second to lie.
constexpr int kFallPatience = 150;
constexpr std::size_t kRestartFlag = 9;
/// A pose script keeps the next block waiting for this long.
constexpr int kPoseRest = 30;

void requireFile(const std::string& name) {
  if (!std::filesystem::exists(name)) throw std::runtime_error("there is no script " + name);
}

void requireOpen(const Agent& agent) {
  if (!agent.myACtionFile.is_open()) {
    throw std::runtime_error("there is no script for the action " + agent.actionName);
  }
}

int blocksIn(const std::string& file) {
  std::ifstream in(file);
  int blocks = 0;
  for (std::string word; in >> word;) blocks += word == "move" ? 1 : 0;
  return blocks;
}

int expected(const Step& step) {
  switch (step.kind) {
    case Kind::kScript: {
      const std::string file = step.name == "backward" ? "back.txt" : step.name + ".txt";
      return kPoseRest + 2 * blocksIn(file);
    }
    case Kind::kWalk:
      return step.loops ? kPoseRest + 2 * (blocksIn("walkstart.txt") +
                                           *step.loops * blocksIn("walkloop1.txt"))
                        : step.cycles;
    case Kind::kKick:
      return 125;
    case Kind::kPose:
      return 25 + step.cycles;
    case Kind::kDive:
      return 600;
    case Kind::kGetUp:
      return 450;
    case Kind::kStand:
      return step.cycles;
  }
  return 0;
}

bool letsFall(const Step& step) {
  return step.kind == Kind::kDive || step.kind == Kind::kGetUp;
}

}  // namespace

Program::Program(std::vector<Step> steps, int maxSequences)
    : steps_(std::move(steps)), maxSequences_(maxSequences) {}

bool Program::expectsFall() const {
  return std::any_of(steps_.begin(), steps_.end(), letsFall);
}

int Program::expectedCycles() const {
  return std::accumulate(steps_.begin(), steps_.end(), 0,
                         [](int sum, const Step& step) { return sum + expected(step); });
}

void Program::afterCycle(Agent& agent, bool mayDecide) {
  countSequences(agent);
  if (finished()) return;
  if (begun_) {
    ++age_;
    hasFallen_ = hasFallen_ || agent.bodyState != 0;
    if (age_ > kLongestStep + steps_[current_].cycles) {
      throw std::runtime_error("step " + std::to_string(current_ + 1) + " never ends");
    }
    if (isOver(agent)) {
      ++current_;
      begun_ = false;
      walking_ = false;
      if (finished()) return;
    }
  }
  // A get-up begins with the robot down, when nothing can be decided.
  if (!mayDecide && steps_[current_].kind != Kind::kGetUp) return;
  if (!begun_) begin(agent);
  if (steps_[current_].kind == Kind::kWalk) continueWalk(agent);
}

void Program::begin(Agent& agent) {
  const Step& step = steps_[current_];
  begun_ = true;
  age_ = 0;
  hasFallen_ = agent.bodyState != 0;
  sequencesBefore_ = sequences_;
  started_ = ended_ = false;
  loopsOpened_ = 0;
  switch (step.kind) {
    case Kind::kScript:
      agent.doActionFile4(step.name);
      requireOpen(agent);
      break;
    case Kind::kPose:
      requireFile(step.name);
      agent.loadMoveFromFile(step.name.c_str());
      break;
    case Kind::kKick: {
      const bool left = step.foot == Foot::kLeft;
      requireFile(left ? "kickL1.txt" : "kickR1.txt");
      left ? agent.kickL() : agent.kickR();
      break;
    }
    case Kind::kDive: {
      const bool left = step.foot == Foot::kLeft;
      requireFile(left ? "JumpL1.txt" : "JumpR1.txt");
      agent.pushActionToStack(left ? jumpL_state : jumpR_state);
      agent.doAction();
      break;
    }
    case Kind::kWalk:
    case Kind::kGetUp:
    case Kind::kStand:
      break;
  }
}

void Program::continueWalk(Agent& agent) {
  const Step& step = steps_[current_];
  if (ended_) return;
  const bool wasOpen = agent.myACtionFile.is_open();
  const bool longEnough = step.loops ? loopsOpened_ >= *step.loops : age_ >= step.cycles;
  if (started_ && longEnough && (!wasOpen || step.leaveOpen)) {
    ended_ = true;
    walking_ = false;
    if (step.leaveOpen) return;
    if (step.name.empty()) {
      agent.shallWalk = false;
      agent.pushActionToStack(walk_state);
      agent.doAction();
    } else {
      agent.doActionFile4(step.name);
    }
    return;
  }
  agent.shallWalk = true;
  agent.pushActionToStack(walk_state);
  agent.doAction();
  if (!wasOpen) {
    requireOpen(agent);
    if (agent.actionName.starts_with("walkloop")) ++loopsOpened_;
    started_ = true;
  }
  walking_ = WorldModel::getSingleton()->cycle >= agent.lastLoadTime + kPoseRest;
}

bool Program::isOver(const Agent& agent) const {
  const Step& step = steps_[current_];
  const bool still = agent.moveCyclesLeft < 1;
  const bool closed = !agent.actionFileOpen && !agent.myACtionFile.is_open();
  switch (step.kind) {
    case Kind::kScript:
      return closed && still;
    case Kind::kWalk:
      return ended_ && (step.leaveOpen || (closed && still));
    case Kind::kKick:
      return agent.slowFunction == 0 && still;
    case Kind::kPose:
      return still && age_ >= WorldModel::getSingleton()->cycle - agent.lastMoveCycle &&
             WorldModel::getSingleton()->cycle - agent.lastMoveCycle >= step.cycles;
    case Kind::kDive:
    case Kind::kGetUp:
      if (!hasFallen_) return age_ >= kFallPatience;
      return sequences_ - sequencesBefore_ >= maxSequences_ || (agent.bodyState == 0 && still);
    case Kind::kStand:
      return age_ >= step.cycles;
  }
  return true;
}

void Program::countSequences(const Agent& agent) {
  const bool restart = agent.getUpStepPending[kRestartFlag];
  const bool wasLying = lastBodyState_ == 1 || lastBodyState_ == 2;
  if (wasLying && restart && !lastRestart_) ++sequences_;
  lastRestart_ = restart;
  lastBodyState_ = agent.bodyState;
}

}  // namespace workshop
