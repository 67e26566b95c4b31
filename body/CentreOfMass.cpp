/// BasicAgent: the mass-weighted sum of the links' places.

#include "body/BasicAgent.h"

VecPosition BasicAgent::computeCOM() {
  updateTorsoPos();
  VecPosition sum = Torso.relPos * Torso.mass;
  for (HingJoint& joint : joints) {
    joint.absPos = joint.relPos + joint.parent->relPos;
  }
  for (const HingJoint& joint : joints) {
    sum += joint.absPos * joint.mass;
  }
  return sum;
}

void BasicAgent::updateTorsoPos() {
  Torso.relPos = myPos;
}
