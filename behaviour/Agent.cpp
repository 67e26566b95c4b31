/// Agent: the singleton and the cycle.

#include "behaviour/Agent.h"

#include <sstream>

#include "behaviour/Accuracy.h"
#include "perception/WorldModel.h"

namespace {

constexpr int kReportInterval = 20;  ///< [cycles]
constexpr int kLastCycleOfWarmUp = 99;
constexpr int kIdleLimit = 500;      ///< [cycles] without a playback message
constexpr double kFarJump = 1.0;     ///< [m] in one cycle: moved by the server
constexpr double kSamePlace = 0.05;  ///< [m]

bool isKickOff(const std::string& playMode) {
  return playMode == "KickOff_Left" || playMode == "KickOff_Right";
}

}  // namespace

Agent* Agent::m_Instance = nullptr;

Agent* Agent::getSingleton() {
  if (m_Instance == nullptr) {
    m_Instance = new Agent;
  }
  return m_Instance;
}

void Agent::freeSingleton() {
  delete m_Instance;
  m_Instance = nullptr;
}

Agent::Agent() : walkDest(&WorldModel::getSingleton()->ballPos), walkdestAccuracy(kFarAccuracy) {
  restoreState();
}

void Agent::agentLoop() {
  WorldModel* const world = WorldModel::getSingleton();
  // Both sides go back to their places on either kick-off. With no mode before it the program has
  // only just started, and no beam is sent.
  if (isKickOff(world->playMode) && lastPlayMode != world->playMode && !lastPlayMode.empty()) {
    lastPlayMode = world->playMode;
    sendBeamInfo();
    return;
  }
  lastPlayMode = world->playMode;

  static VecPosition oldPos = myPos;
  if (oldPos.getDistanceTo(myPos) > kFarJump) {
    restoreState();
  }
  oldPos = myPos;

  // Where the player started from: never refreshed, so that only a player stuck there is restored.
  static const VecPosition oldPos100 = myPos;
  [[maybe_unused]] static int oldCycle100 = world->cycle;
  if (lastMoveCycle < world->cycle - kIdleLimit) {
    if (myPos.getDistanceTo(oldPos100) < kSamePlace) {
      restoreState();
    }
    oldCycle100 = world->cycle;
  }

  basicAgentLoop();

  const bool kickWasRunning = slowFunction != 0;
  continueSlowFunction();
  if (kickWasRunning && slowFunction != 0) {
    return;
  }

  if (bodyState == 0) {
    if (world->cycle > kLastCycleOfWarmUp) {
      whoseBall();
      updateState();
    }
    doAction();
  }

  if (world->cycle % kReportInterval == 0) {
    std::ostringstream report;
    report << "P," << uNum << "," << myPos.x << "," << myPos.y;
    sendSay(report.str());
  }
}

void Agent::restoreState() {
  while (!actionStack.empty()) {
    actionStack.pop();
  }
  bodyState = 0;
  moveFile.close();
  myACtionFile.close();
  slowFunction = 0;
  isWalking = false;
  shallWalk = false;
  whoseBall();
  getUpStepPending.fill(true);
}
