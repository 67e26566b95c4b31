#pragma once

/// One link of the body tree with the joint that carries it.

#include <string>

#include "math/VecPosition.h"

struct HingJoint {
  std::string name;
  std::string perceptorName;    ///< key of BasicAgent::findJoint; empty for the torso
  double angle = 0;             ///< [deg] measured, as the server reports it; 0 until then
  HingJoint* parent = nullptr;  ///< not owned; null for the torso
  VecPosition relPos;           ///< [m] offset from the parent
  VecPosition absPos;           ///< [m] worked out by computeCOM
  double mass = 0;              ///< [kg]
};
