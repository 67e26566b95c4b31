#pragma once

/// Snapshots made by hand, for tests of the senses.

#include <string>

#include "arena/senses/Perception.h"

namespace arena::test {

/// A camera at POSITION that looks along +x, level.
inline Frame lookingAlongX(const Vec3& position) {
  // Columns: right is -y, the view is +x, up is +z.
  return {position, {0, 1, 0, -1, 0, 0, 0, 0, 1}};
}

/// A camera at POSITION that looks along -x, level.
inline Frame lookingBack(const Vec3& position) {
  return {position, {0, -1, 0, 1, 0, 0, 0, 0, 1}};
}

/// A robot at (X, Y) with a level camera, all its visible parts stacked above that point.
inline Actor actorAt(double x, double y, const Shirt& shirt, const Frame& camera) {
  Actor actor;
  actor.shirt = shirt;
  actor.body.camera = camera;
  actor.body.torso.position = {x, y, 0.38};
  actor.body.head = {x, y, 0.5};
  actor.body.rightLowerArm = {x, y, 0.4};
  actor.body.leftLowerArm = {x, y, 0.3};
  actor.body.rightFootPosition = {x, y, 0.1};
  actor.body.leftFootPosition = {x, y, 0.2};
  return actor;
}

inline SenseSettings exactSight() {
  SenseSettings settings;
  settings.noise.reset();
  return settings;
}

inline bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

}  // namespace arena::test
