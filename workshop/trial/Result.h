#pragma once

/// What a trial hands back: figures for tables and for tuning, and on request every cycle for
/// plots. Plain values that can cross a process boundary as bytes.

#include <array>
#include <string>
#include <type_traits>
#include <vector>

#include "arena/model/BodyTable.h"

namespace workshop {

/// One cycle, as it stands at the cycle's end. The torso's place in the field frame.
struct Sample {
  double time = 0;  ///< [s] since the trial began
  arena::Vec3 torso{};
  double headingDeg = 0;  ///< [deg] counts on through whole turns
  double tiltDeg = 0;     ///< [deg] the torso's up axis against the vertical
  arena::Vec3 ball{};
  arena::Vec3 ballVelocity{};
  double reachLeft = 0;  ///< [m] torso frame's outermost head, arm or foot, from the start's line
  double reachRight = 0;
  std::array<float, arena::kJointCount> askedDeg{};  ///< where the commanded speeds would lead
  std::array<float, arena::kJointCount> angleDeg{};
  int step = -1;      ///< index into the job's steps; -1 before them, their number behind them
  int bodyState = 0;  ///< what the player believes: 0 upright
  bool ballTouched = false;
  bool walking = false;  ///< the walking chain plays, its initial pose apart
};

/// Measured from the moment the first step begins, in the frame of the torso then.
struct Figures {
  double forward = 0;   ///< [m] to the trial's end
  double left = 0;      ///< [m]
  double turnDeg = 0;   ///< [deg] net turn, positive to the left
  double duration = 0;  ///< [s] of the steps, without the settling
  bool fell = false;    ///< tipped over, or the player believed so, where no step expects it
  bool stands = false;  ///< upright, high and believed so, all through the last half second
  double maxTiltDeg = 0;
  int sequences = 0;  ///< get-up sequences played
  // Walking, from the first block to the order to stop.
  double walkSeconds = 0;
  double walkSpeed = 0;           ///< [m/s] along the heading of each moment
  double walkDriftDegPerSec = 0;  ///< [deg/s] of heading, positive to the left
  // Ball, as it leaves the robot.
  double ballSpeed = 0;         ///< [m/s] 0: never touched
  double ballDirectionDeg = 0;  ///< [deg] from straight ahead, positive to the left
  double ballDistance = 0;      ///< [m] from its place to where it is at the end
  /// [m] how far to either side the outermost part of the body got within a second of the start.
  double reachLeft = 0;
  double reachRight = 0;
  double simulatedSeconds = 0;
  double cpuSeconds = 0;
};
static_assert(std::is_trivially_copyable_v<Sample> && std::is_trivially_copyable_v<Figures>);

struct TrialResult {
  std::string error{};  ///< why there are no figures; empty when there are
  Figures figures{};
  std::vector<Sample> series{};
};

}  // namespace workshop
