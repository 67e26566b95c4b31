#include "perception/VisionInfo.h"

namespace {

constexpr double kGoalLineX = 9.0;
constexpr double kSideLineY = 6.0;
constexpr double kPostY = 1.05;
constexpr double kPostHeight = 0.8;

}  // namespace

void visionInfo::setFlagPos(std::string side) {
  // The server's names stay with the field's ends; the player always attacks towards positive x.
  const double s = side == "left" ? 1.0 : -1.0;
  G1L.position = {-kGoalLineX * s, kPostY * s, kPostHeight};
  G2L.position = {-kGoalLineX * s, -kPostY * s, kPostHeight};
  G1R.position = {kGoalLineX * s, kPostY * s, kPostHeight};
  G2R.position = {kGoalLineX * s, -kPostY * s, kPostHeight};
  F1L.position = {-kGoalLineX * s, kSideLineY * s, 0.0};
  F2L.position = {-kGoalLineX * s, -kSideLineY * s, 0.0};
  F1R.position = {kGoalLineX * s, kSideLineY * s, 0.0};
  F2R.position = {kGoalLineX * s, -kSideLineY * s, 0.0};
}
