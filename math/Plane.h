#pragma once

/// A plane in space: the points p with normal · p + delta = 0. It stands ready beside the plane
/// geometry; the player's turn doesn't call it.

#include <iostream>
#include <string>

#include "math/VecPosition.h"

class Line3;

class Plane {
 public:
  double delta;        ///< [m] minus the height of the plane over the origin, along the normal
  VecPosition normal;  ///< unit length, as long as the setters got something to scale

  // The three planes of the axes, through the origin.
  static const Plane XY;
  static const Plane YZ;
  static const Plane XZ;

  /// The normal may have any length but 0; the point is any point of the plane. [m]
  Plane(VecPosition normalVector, VecPosition point);
  void setPlane(VecPosition normalVector, VecPosition point);

  /// Takes the direction of N and divides delta by the length of N as well, so that (N, delta) may
  /// be any multiple of a plane's equation. A zero vector isn't guarded against.
  bool setPlaneNormal(VecPosition n);
  bool setPlaneDelta(double d);
  [[nodiscard]] double getPlaneDelta() const { return delta; }
  [[nodiscard]] VecPosition getPlaneNormal() const { return normal; }
  /// Divides the equation by the normal's length.
  void normalize();

  /// Exactly on the plane, to the last bit.
  [[nodiscard]] bool isInside(VecPosition p) const;
  /// [m] never negative
  [[nodiscard]] double getDistanceToPoint(const VecPosition& p) const;
  [[nodiscard]] VecPosition getPointOnPlaneClosestTo(const VecPosition& p) const;
  /// The point closest to the origin.
  [[nodiscard]] VecPosition getArbitraryPoint() const;
  [[nodiscard]] VecPosition getMirroredPoint(const VecPosition& p) const;
  /// Between the normals, 0 to 180 [deg].
  [[nodiscard]] double getDihedralAngle(const Plane& other) const;
  /// False, without writing, for planes whose normals are exactly equal or opposite; also, with a
  /// word on standard error, where a normal of next to no length leaves nothing to cross.
  bool getIntersectionWithPlane(const Plane& other, Line3& result) const;

  /// "(Plane (x y z) delta)", the normal with two decimals.
  [[nodiscard]] std::string str() const;
  void show(std::ostream& os = std::cout) const;

 private:
  /// What is known to be scaled already; lets the compiler build the constants.
  constexpr Plane(double d, VecPosition unitNormal) : delta(d), normal(unitNormal) {}
};

// Minus zero is what delta = -(point · normal) gives at the origin.
inline constexpr Plane Plane::XY{-0.0, VecPosition(0.0, 0.0, 1.0)};
inline constexpr Plane Plane::YZ{-0.0, VecPosition(1.0, 0.0, 0.0)};
inline constexpr Plane Plane::XZ{-0.0, VecPosition(0.0, 1.0, 0.0)};
