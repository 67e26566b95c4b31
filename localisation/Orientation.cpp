/// BasicAgent: the player's heading, from the nearest landmark in view. Nothing is averaged, and
/// with no landmark the old heading stands.

#include <cmath>

#include "body/BasicAgent.h"
#include "math/Geometry.h"
#include "perception/WorldModel.h"

void BasicAgent::findOrientation() {
  const visionInfo& vision = WorldModel::getSingleton()->vision;
  double bestDistance = 100000000.0;
  bool found = false;
  PolarInfo best;
  // The order decides between flags at one distance: corner flags first, the two ends in turn.
  for (const PolarInfo* flag : {&vision.F1L, &vision.F1R, &vision.F2L, &vision.F2R, &vision.G1L,
                                &vision.G1R, &vision.G2L, &vision.G2R}) {
    if (bestDistance > flag->distance && flag->seen) {
      best = *flag;
      bestDistance = flag->distance;
      found = true;
    }
  }
  if (found) {
    myDegree = computeMyDegree(best);
  }
}

double BasicAgent::computeMyDegree(PolarInfo p) {
  double heading = Rad2Deg(std::atan2(p.position.y - myPos.y, p.position.x - myPos.x)) - p.angle;
  while (heading < 0.0) {
    heading += 360.0;
  }
  heading = heading - findJoint("hj1")->angle;
  while (heading < 0.0) {
    heading += 360.0;
  }
  while (heading >= 360.0) {
    heading -= 360.0;
  }
  return heading;
}
