#pragma once

/// A straight line in space: point + t · direction. It stands ready beside the plane geometry; the
/// player's turn doesn't call it.

#include <string>

#include "math/VecPosition.h"

class Line;
class Plane;

class Line3 {
 public:
  VecPosition direction{1.0, 0.0, 0.0};  ///< unit length, unless it was no longer than EPSILON
  VecPosition point{0.0, 0.0, 0.0};      ///< [m] any point of the line

  /// Along x through the origin.
  Line3() = default;
  /// Two equal points leave the default state, with a word on standard error.
  Line3(VecPosition p1, VecPosition p2);
  /// Azimuth and elevation in degrees.
  Line3(VecPosition through, double theta, double phi);
  /// The line of the field, at height 0.
  Line3(const Line& line);

  /// From the first towards the second. Exactly equal points are reported on standard error and
  /// change nothing: false.
  bool makeLineFromTwoPoints(VecPosition p1, VecPosition p2);
  /// Azimuth and elevation in degrees.
  void makeLineFromPointAndAngle(VecPosition through, double theta, double phi);
  /// The point kept is p - v, from where the line runs to p. A zero vector as with equal points.
  bool makeLineFromVectorAndPoint(VecPosition v, VecPosition p);
  void makeLineFromLineAndXYPlane(const Line& line);

  [[nodiscard]] VecPosition getVector() const { return direction; }
  [[nodiscard]] VecPosition getPoint() const { return point; }
  void setPoint(const VecPosition& p);
  /// Scaled to unit length if it is longer than EPSILON.
  void setVector(const VecPosition& v);

  /// Direction and point, exactly: one line told by two of its points is two values.
  bool operator==(const Line3& other) const;
  bool operator!=(const Line3& other) const;

  /// [m] -1000 and a word on standard error for a line without direction.
  [[nodiscard]] double getDistanceWithPoint(const VecPosition& p) const;
  /// Nearer than EPSILON. True of every point for a line without direction, as -1000 is nearer too.
  [[nodiscard]] bool isPointOnLine(const VecPosition& p) const;
  /// Takes the direction for a unit vector.
  [[nodiscard]] VecPosition getPointOnLineClosestTo(const VecPosition& p) const;
  /// [m] Directions within 0.006 degrees of each other count as parallel.
  [[nodiscard]] double getDistanceWithLine(const Line3& other) const;

  /// False, with UnknownPosition, for a line exactly along the plane.
  bool getIntersectionWithPlane(const Plane& plane, VecPosition& result) const;
  /// False, without writing, for a line exactly along the plane's normal.
  bool getProjectionOnPlane(const Plane& plane, Line3& result) const;
  /// Lines that pass each other by no more than EPSILON meet half-way; of one line with itself the
  /// result is this line's point. False, with UnknownPosition, for lines further apart, and for all
  /// that getLineLineIntersection() counts as parallel.
  bool getIntersectionWithLine(const Line3& other, VecPosition& result) const;
  /// The shortest way from this line to the other: its ends through PA (here) and PB (there), each
  /// unless null, and the line along it. False for lines within 0.57 degrees of parallel, or a line
  /// without direction. The line along it stays untouched where the ends are one point.
  bool getLineLineIntersection(const Line3& other, Line3& segment, VecPosition* pa,
                               VecPosition* pb) const;

  /// "(Line3 V(x y z) P(x y z))"
  [[nodiscard]] std::string str() const;
};
