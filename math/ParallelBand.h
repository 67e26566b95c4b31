#pragma once

/// The band between two parallel lines, asked about many points: Line::isInBetweenTwoParallelLines,
/// and the same to the last bit, with what doesn't depend on the point worked out once. The
/// particle gate makes one for each measured place.

#include <cmath>

#include "math/Line.h"
#include "math/VecPosition.h"

class ParallelBand {
 public:
  ParallelBand(const Line& l1, const Line& l2) : feet1_(l1), feet2_(l2) {}

  /// Without any tolerance, as Line tells it.
  [[nodiscard]] bool holds(const VecPosition& p) const {
    const VecPosition f1 = feet1_.footOf(p);
    const VecPosition f2 = feet2_.footOf(p);
    return distance(f1, f2) >= distance(f1, p) + distance(f2, p);
  }

 private:
  /// Line::getPointOnLineClosestTo for one line.
  class Feet {
   public:
    explicit Feet(const Line& line)
        : line_(line),
          bc_(line.b * line.c),
          divisor_(line.b * line.b - line.a * -line.a),
          isSlanted_(line.a != 0 && line.b != 0 && line.a / line.b != line.b / -line.a) {}

    // The perpendicular is (b, -a, a p.x - b p.y). The sums and products are those of
    // Line::getIntersection, in their order; lines along an axis are left to that.
    [[nodiscard]] VecPosition footOf(const VecPosition& p) const {
      if (!isSlanted_) {
        return line_.getPointOnLineClosestTo(p);
      }
      const double x = (line_.a * (line_.a * p.x - line_.b * p.y) - bc_) / divisor_;
      return {x, -(line_.b * x + line_.c) / line_.a, 0.0};
    }

   private:
    Line line_;
    double bc_;
    double divisor_;
    bool isSlanted_;
  };

  /// VecPosition::getDistanceTo, where the compiler sees it.
  static double distance(const VecPosition& p, const VecPosition& q) {
    const double x = p.x - q.x;
    const double y = p.y - q.y;
    const double z = p.z - q.z;
    return std::sqrt(x * x + y * y + z * z);
  }

  Feet feet1_;
  Feet feet2_;
};
