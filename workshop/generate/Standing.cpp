#include "workshop/generate/Standing.h"

#include "workshop/generate/Algebra3.h"

namespace workshop {
namespace {

/// From the torso's frame to the level one: forward is a turn to the right-hand rule's negative.
Mat3 leaned(const Stance& stance) {
  return aboutX(-stance.leanDeg * kRadPerDeg);
}

}  // namespace

LegAngles legOver(Leg leg, const Footing& footing, const Stance& stance) {
  const Mat3 toTorso = transposed(leaned(stance));
  const Vec3 hip{hipPlace(leg)[0], 0, 0};
  const Vec3 ankle{footing.right, footing.forward, footing.up - stance.hipHeight};
  const Mat3 sole = aboutZ(footing.yawDeg * kRadPerDeg) * aboutX(footing.toeUpDeg * kRadPerDeg);
  return legAngles(leg, {toTorso * (ankle - hip), toTorso * sole});
}

void setArms(Posture& posture, const Arms& arms) {
  posture[rowOfScriptJoint("laj1")] = posture[rowOfScriptJoint("raj1")] = arms.pitchDeg;
  posture[rowOfScriptJoint("laj2")] = arms.rollDeg;
  posture[rowOfScriptJoint("raj2")] = -arms.rollDeg;
  posture[rowOfScriptJoint("laj3")] = arms.yawDeg;
  posture[rowOfScriptJoint("raj3")] = -arms.yawDeg;
  posture[rowOfScriptJoint("laj4")] = arms.bendDeg;
  posture[rowOfScriptJoint("raj4")] = -arms.bendDeg;
}

Posture standingPosture(const Stance& stance, const Arms& arms) {
  Posture posture{};
  setArms(posture, arms);
  for (const Leg leg : {Leg::kLeft, Leg::kRight}) {
    const double side = leg == Leg::kLeft ? -1.0 : 1.0;
    Footing footing;
    footing.right = side * stance.halfSpacing;
    footing.forward = stance.ankleForward;
    setLeg(posture, leg, legOver(leg, footing, stance));
  }
  return posture;
}

double massAheadOfAnkles(const Stance& stance, const Arms& arms) {
  const Vec3 hip = hipPlace(Leg::kLeft);
  const Vec3 mass = centreOfMass(standingPosture(stance, arms));
  const Vec3 fromHips{0, mass[1] - hip[1], mass[2] - hip[2]};
  return (leaned(stance) * fromHips)[1] - stance.ankleForward;
}

}  // namespace workshop
