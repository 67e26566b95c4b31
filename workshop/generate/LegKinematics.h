#pragma once

/// The legs' geometry: from the place and attitude of a foot to the six angles of its leg and back,
/// and where the body's mass lies. Lengths come from the training ground's body table. Called by
/// the gait and standing descriptions; pure functions.
///
/// Torso frame: x to the right, y forward, z up. The three hip axes cross in one point, so the
/// inverse is closed: knee and ankle follow from where the hip is seen from the foot, and the rest
/// is a rotation taken apart.

#include "workshop/generate/Algebra3.h"
#include "workshop/generate/ScriptJoints.h"

namespace workshop {

enum class Leg { kLeft, kRight };

/// A foot as seen from its own hip: where the ankle is, and the sole's frame (columns: its x, y,
/// z).
struct FootPlace {
  Vec3 ankle{};  ///< [m] torso frame, from the hip joint
  Mat3 sole{1, 0, 0, 0, 1, 0, 0, 0, 1};
};

/// [deg] yaw-pitch, roll, hip pitch, knee, ankle pitch, ankle roll; the server's sign.
using LegAngles = std::array<double, 6>;

/// [m] the hip joint in the torso frame.
Vec3 hipPlace(Leg leg);
/// [m] ankle joint above the sole.
double ankleHeight();

/// The angles that put the foot there. A place beyond the leg's reach is drawn in to it.
LegAngles legAngles(Leg leg, const FootPlace& foot);
/// Where the angles put the foot.
FootPlace footPlace(Leg leg, const LegAngles& degrees);

/// Writes a leg's angles into a posture, and reads them.
void setLeg(Posture& posture, Leg leg, const LegAngles& degrees);
LegAngles legOf(const Posture& posture, Leg leg);

/// [m] centre of the whole body's mass in the torso frame; head and what POSTURE doesn't name at
/// zero.
Vec3 centreOfMass(const Posture& posture);

}  // namespace workshop
