#pragma once

/// A straight line in the plane of the field: a y + b x + c = 0. Note that a belongs to y. A line
/// is vertical (one x) exactly when a is 0.

#include <iostream>
#include <string>

#include "math/Circle.h"
#include "math/VecPosition.h"

class Line {
 public:
  double a;
  double b;
  double c;

  Line(double aCoefficient, double bCoefficient, double cCoefficient);

  [[nodiscard]] double getACoefficient() const { return a; }
  [[nodiscard]] double getBCoefficient() const { return b; }
  [[nodiscard]] double getCCoefficient() const { return c; }
  /// 0, 1, 2 is a, b, c. Any other index is reported on standard error; what is then written
  /// through the non-const form stays in a stand-in that starts at -1000.
  double operator[](int index) const;
  double& operator[](int index);

  /// Anchored on the second point. Points of nearly one x give a vertical line.
  static Line makeLineFromTwoPoints(VecPosition p1, VecPosition p2);
  static Line makeLineFromPositionAndAngle(VecPosition p, double ang);

  // 0 and a word on standard error when the line runs along that axis.
  [[nodiscard]] double getYGivenX(double x) const;
  [[nodiscard]] double getXGivenY(double y) const;

  /// The perpendicular through P.
  [[nodiscard]] Line getTangentLine(VecPosition p) const;
  /// (0, 0, 0) for parallel lines, by an exact test.
  [[nodiscard]] VecPosition getIntersection(Line other) const;
  [[nodiscard]] VecPosition getPointOnLineClosestTo(VecPosition p) const;
  /// The height of P counts.
  [[nodiscard]] double getDistanceWithPoint(VecPosition p) const;
  /// The foot of P on the line is as near to P1 and to P2 as they are to each other.
  [[nodiscard]] bool isInBetween(VecPosition p, VecPosition p1, VecPosition p2) const;
  /// Without any tolerance: what lies in the band passes or not by the last bit of three roots.
  static bool isInBetweenTwoParallelLines(Line l1, Line l2, VecPosition p);
  /// How many points they share. Both are written whatever the result.
  int getCircleIntersectionPoints(Circle circle, VecPosition* p1, VecPosition* p2) const;

  void show(std::ostream& os = std::cout) const;
  [[nodiscard]] std::string str() const;
};

/// "y = 2x + 1", "x = 3"
std::ostream& operator<<(std::ostream& os, Line line);
