#pragma once

/// An open-loop gait: footsteps on the ground, a torso that travels over them and sways from foot
/// to foot, and from these the body's posture at the end of each block of a script. One description
/// serves walking, stepping aside, backing up and turning; only the course differs.
///
/// Time is counted in strides, one step of each foot. A stride is a whole number of blocks. The
/// left foot swings round `swingCentre`, the right one half a stride later:
///
///     stride   0         0.25        0.5        0.75         1
///     left     ----/~~~~~~~~~~~\-------------------------------
///     right    ------------------------/~~~~~~~~~~~\-----------
///     torso        right                    left

#include <vector>

#include "workshop/generate/Standing.h"

namespace workshop {

struct Gait {
  int blocks = 12;            ///< per stride
  Stance stance{};            ///< of the stepping body; blended with the standing one at the ends
  double swingCentre = 0.25;  ///< [stride] middle of the left foot's swing
  double swingShare = 0.35;   ///< [stride] duration of a swing
  double lift = 0.02;         ///< [m] highest point of a swing
  double toeUpDeg = 0;        ///< in the middle of a swing
  double sway = 0.01;         ///< [m] torso to either side
  double swayLead = 0;        ///< [stride] by which the sway is ahead of the swing
  double outward = 0.5;  ///< which part of a side step or turn a foot takes on landing: 1 all of
                         ///< it when it leads, 0.5 half to either side
  double landing = 0.5;  ///< the same for steps forward: 1 puts the foot as far ahead as its
                         ///< stance will carry the torso, 0.5 half of it
  double slowing = 0;    ///< 0 even time, 1 stands still at the ends of a stride
  double rampIn = 1;     ///< [stride] over which the pace grows to full
  double rampOut = 1;    ///< [stride] over which it ends
  double swayIn = 0.5;   ///< [stride] over which the stepping itself grows: sway, lift, stance
  double swayOut = 0.5;  ///< [stride] over which it ends
  double armPitchDeg = -90;  ///< of both arms at full pace: raised, they steady the body
  double armSwingDeg = 0;    ///< each arm against its leg
  double rollDeg = 0;        ///< lean of both legs to the right, against a steady drift
};

/// What a stride at full pace covers. Left foot first.
struct Pace {
  double forward = 0;  ///< [m]
  double left = 0;     ///< [m]
  double turnDeg = 0;  ///< to the left
};

/// From standing to standing: STRIDES strides in all, growing and ending as the gait says.
struct Course {
  int strides = 4;
  Pace pace{};
};

/// The posture at the start and at the end of each block, strides * blocks + 1 in all. The first
/// and the last are the standing posture. Throws std::invalid_argument for a gait that can't be
/// stepped (no blocks, swings that overlap, a course shorter than its ramps).
std::vector<Posture> gaitPath(const Gait& gait, const Course& course, const Stance& standing,
                              const Arms& arms);

}  // namespace workshop
