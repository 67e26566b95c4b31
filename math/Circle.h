#pragma once

/// A circle in the plane of the field. Localisation crosses two of them.

#include <iostream>

#include "math/VecPosition.h"

class Circle {
 public:
  VecPosition center;  ///< [m]
  double radius;       ///< [m] never negative: every setter puts 0 for what isn't above it

  /// At no known place, radius 0.
  Circle();
  Circle(VecPosition c, double r);

  /// True when the radius was taken, false when 0 took its place.
  bool setCircle(VecPosition c, double r);
  bool setRadius(double r);
  [[nodiscard]] double getRadius() const { return radius; }
  bool setCenter(VecPosition c);
  [[nodiscard]] VecPosition getCenter() const { return center; }

  [[nodiscard]] double getCircumference() const;
  [[nodiscard]] double getArea() const;
  /// Of the sphere with this radius.
  [[nodiscard]] double getVolume() const;
  /// Strictly inside. A height that isn't ignored counts in the distance.
  [[nodiscard]] bool isInside(VecPosition p, bool ignoreHeight) const;
  /// How many points the circles share. Both points are written whatever the result; equal circles
  /// give 2 and points that are no numbers.
  int getCircleIntersectionPoints(Circle other, VecPosition* p1, VecPosition* p2) const;
  [[nodiscard]] double getIntersectionArea(Circle other, bool sameHeightOnly) const;
  /// "c:(x, y, z), r:radius"
  void show(std::ostream& os = std::cout) const;
};
