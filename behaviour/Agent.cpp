#include "behaviour/Agent.h"

#include <sstream>

#include "perception/WorldModel.h"

namespace {

constexpr int kReportInterval = 20;  ///< [cycles]

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

Agent::Agent() {
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

  basicAgentLoop();

  if (world->cycle % kReportInterval == 0) {
    std::ostringstream report;
    report << "P," << uNum << "," << myPos.x << "," << myPos.y;
    sendSay(report.str());
  }
}

void Agent::restoreState() {
  bodyState = 0;
  moveFile.close();
  myACtionFile.close();
  slowFunction = 0;
  getUpStepPending.fill(true);
}
