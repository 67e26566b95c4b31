#include "workshop/check/Vocabulary.h"

#include <cmath>
#include <fstream>
#include <utility>

namespace workshop {
namespace {

constexpr const char* kProbeFile = "probe.txt";
constexpr double kProbeNumber = 0.25;  ///< a joint's target, and a step of 12 cycles

}  // namespace

const Meaning& Vocabulary::meaningOf(ScriptKind kind, const std::string& word) {
  const auto key = std::pair{kind, word};
  const auto found = known_.find(key);
  if (found != known_.end()) return found->second;
  return known_.emplace(key, ask(kind, word)).first->second;
}

Meaning Vocabulary::ask(ScriptKind kind, const std::string& word) const {
  std::ofstream(kProbeFile) << word << ' ' << kProbeNumber << '\n';
  Agent& agent = player_.agent();
  for (jointsFlag& flag : agent.jointFlags) flag.active = false;
  agent.moveCyclesLeft = 0;
  if (kind == ScriptKind::kAction) {
    // Far behind any pose, so that the reader doesn't wait.
    player_.setClock(agent.lastLoadTime + 100);
    agent.myACtionFile.clear();
    agent.myACtionFile.open(kProbeFile);
    agent.loadMoveFromFile();
    agent.myACtionFile.close();
  } else {
    agent.loadMoveFromFile(kProbeFile);
  }
  if (agent.moveCyclesLeft != 0) return {.role = Meaning::Role::kEnd};
  for (const jointsFlag& flag : agent.jointFlags) {
    if (!flag.active) continue;
    return {Meaning::Role::kJoint, arena::rowOfPerceptor(flag.perceptorName),
            std::copysign(1.0, flag.targetAngle)};
  }
  return {};
}

}  // namespace workshop
