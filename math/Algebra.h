#pragma once

/// The source unit Algebra: matrices, quaternions, and numeric helpers. Include this header for any
/// of it.
///
/// The helpers are told here and in Algebra.cpp: the quadratic formula, which the intersection of a
/// line with a circle stands on, the least squares line, geometric series. They have no data. Each
/// class of the linear algebra has a pair of files of its own, for all of them in one would be more
/// than a reader can hold:
///   Matrix3                         linear maps; its rotations stand in Matrix3Rotation.cpp
///   Matrix4                         affine maps
///   Quaternion                      rotations

#include <vector>

#include "math/Line.h"
#include "math/Matrix3.h"
#include "math/Matrix4.h"
#include "math/Quaternion.h"
#include "math/VecPosition.h"

class Algebra {
 public:
  /// n!, for n up to 20; 20! for anything larger.
  static double fact(unsigned int n);
  /// Solves a t^2 + b t + c = 0. Returns the number of roots and writes as many, the larger first
  /// for a > 0. A discriminant next to nothing counts as one root, whatever its sign.
  static int abcFormula(double a, double b, double c, double* s1, double* s2);
};

class Statistics {
 public:
  /// The least squares line through N points, [i][0] being x and [i][1] being y. Points that all
  /// have one x give the vertical line there.
  static Line getLinearRegression(double (*points)[2], const int& n);
  static Line getLinearRegression(const std::vector<VecPosition>& points);
};

class GeomSeries {
 public:
  static double getFirst(double sum, double ratio, double length);
  static double getSum(double first, double ratio, double length);
  /// -1 when no length reaches the sum. A negative ratio is reported on standard error.
  static double getLength(double first, double ratio, double sum);
  // Of the endless series; a ratio above 1 is reported on standard error and computed all the same.
  static double getFirstInf(double sum, double ratio);
  static double getSumInf(double first, double ratio);
};
