#pragma once

/// The constants of math/ as an object sees them that is built before main() runs, in a file of its
/// own. Which of two files comes first is nobody's promise.

#include "math/Algebra.h"
#include "math/Geometry.h"

struct BeforeMain {
  VecPosition unknown = UnknownPosition;
  double centreOfACircle = Circle().getCenter().x;
  Plane xy = Plane::XY;
  Plane yz = Plane::YZ;
  Plane xz = Plane::XZ;
  Matrix3 zero3 = Matrix3::zero;
  Matrix3 identity3 = Matrix3::identity;
  Matrix4 zero4 = Matrix4::zero;
  Matrix4 identity4 = Matrix4::identity;
  Quaternion zeroTurn = Quaternion::zero;
  Quaternion identityTurn = Quaternion::identity;
  // Computed with, not only copied.
  double height = Plane::XY.getDistanceToPoint({1, 2, 3});
  double determinant = (Matrix3::identity + Matrix3::identity).getDeterminant();
  VecPosition turned = Quaternion::identity * (Matrix4::identity * VecPosition(4, 5, 6));
};

/// As it was seen.
const BeforeMain& beforeMain();
