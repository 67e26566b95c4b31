#pragma once

/// The posture in which every motion of the locomotion scripts begins and ends, made from a few
/// lengths and angles. It leans forward: a player shoots when the ball is near its head, and
/// upright, the feet would push the ball away first.

#include "workshop/generate/LegKinematics.h"
#include "workshop/generate/ScriptJoints.h"

namespace workshop {

/// How the torso is held over the feet. Feet flat, at equal height, pointing forward.
struct Stance {
  double hipHeight = 0.205;    ///< [m] hip above ankle; stretched 0.22
  double leanDeg = 8;          ///< torso forward from upright
  double halfSpacing = 0.055;  ///< [m] ankle from the midline
  double ankleForward = 0.0;   ///< [m] ankle ahead of hip, along the ground
};

/// Arms, alike on both sides, in the left side's sign.
struct Arms {
  double pitchDeg = -90;  ///< hanging straight down
  double rollDeg = 15;    ///< away from the body: straight down they press on the thighs
  double yawDeg = 0;      ///< elbow
  double bendDeg = -20;   ///< elbow
};

/// Where one foot stands under a level, forward-looking frame in the middle between the hips.
struct Footing {
  double right = 0;    ///< [m] ankle
  double forward = 0;  ///< [m] ankle
  double up = 0;       ///< [m] sole above the ground
  double yawDeg = 0;   ///< to the left
  double toeUpDeg = 0;
};

/// Leg angles for a torso that leans by STANCE.leanDeg with hips STANCE.hipHeight above the
/// ground's ankle height.
LegAngles legOver(Leg leg, const Footing& footing, const Stance& stance);

/// Both arms into a posture.
void setArms(Posture& posture, const Arms& arms);

Posture standingPosture(const Stance& stance, const Arms& arms);

/// [m] how far the centre of mass is ahead of the ankles' line, along the ground, while the
/// standing feet are flat.
double massAheadOfAnkles(const Stance& stance, const Arms& arms);

}  // namespace workshop
