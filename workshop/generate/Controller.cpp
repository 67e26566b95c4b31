#include "workshop/generate/Controller.h"

namespace workshop {

std::vector<Posture> targetsThrough(const std::vector<Posture>& path) {
  std::vector<Posture> targets;
  for (std::size_t k = 0; k + 1 < path.size(); ++k) {
    Posture target = path[k + 1];
    for (std::size_t j = 0; j < kActionJointCount; ++j) {
      target[j] = path[k][j] + (path[k + 1][j] - path[k][j]) / kBlockShare;
    }
    targets.push_back(target);
  }
  return targets;
}

}  // namespace workshop
