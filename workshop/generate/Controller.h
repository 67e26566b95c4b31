#pragma once

/// What the player's joint controller makes of an action script, and its inverse. An action block
/// lasts two cycles, and within them a joint covers only a fixed share of the way to its target; so
/// a script that is to pass through given angles must aim beyond them.

#include <vector>

#include "workshop/generate/ScriptJoints.h"

namespace workshop {

inline constexpr double kCycleSeconds = 0.02;
inline constexpr int kCyclesPerBlock = 2;
inline constexpr double kBlockSeconds = kCyclesPerBlock * kCycleSeconds;

/// Gains during action blocks; the derivative's is zero.
inline constexpr double kActionKp = 0.14;
inline constexpr double kActionKi = 0.5;

/// Share of the way to its target that a joint covers in the CYCLE-th cycle (0, 1) of a block, if
/// its motor follows exactly. Of the way as it was at the block's start.
constexpr double shareOfCycle(int cycle) {
  double way = 1.0;
  double sum = 0.0;
  double share = 0.0;
  for (int i = 0; i <= cycle; ++i) {
    const double error = way / (kCyclesPerBlock - i);
    sum += error * kCycleSeconds;
    share = error * kActionKp + sum * kActionKi;
    way -= share;
  }
  return share;
}

/// Share covered by a whole block: 0.219.
inline constexpr double kBlockShare = shareOfCycle(0) + shareOfCycle(1);

/// [deg] Fastest motion of a joint over a block: its second cycle carries two thirds of the way.
inline constexpr double kMaxBlockDeg =
    7.0 * kCycleSeconds * 57.29577951308232 * kBlockShare / shareOfCycle(1);

/// The targets, one posture per block, with which the body passes through PATH: its first posture
/// is where the body stands when the first block begins, the k-th where the k-th block ends. Joints
/// that action scripts cannot move keep PATH's numbers. Targets may lie outside a joint's range.
std::vector<Posture> targetsThrough(const std::vector<Posture>& path);

/// Where a joint that stands at FROM ends after a block with TARGET, its motor following exactly.
constexpr double afterBlock(double from, double target) {
  return from + kBlockShare * (target - from);
}

}  // namespace workshop
