#pragma once

/// A rectangle along the axes of the field. Its left top corner has the greatest x and the smallest
/// y, after the handedness of VecPosition.

#include <iostream>

#include "math/VecPosition.h"

class Rect {
 public:
  VecPosition posLeftTop;      ///< [m] greatest x, smallest y
  VecPosition posRightBottom;  ///< [m] smallest x, greatest y

  Rect() = default;
  /// Any two opposite corners.
  Rect(VecPosition p1, VecPosition p2);
  void setRectPoints(VecPosition p1, VecPosition p2);

  // Stored as given, without sorting.
  bool setPosLeftTop(VecPosition p);
  bool setPosRightBottom(VecPosition p);
  [[nodiscard]] VecPosition getPosLeftTop() const { return posLeftTop; }
  [[nodiscard]] VecPosition getPosRightBottom() const { return posRightBottom; }

  /// The border is outside.
  [[nodiscard]] bool isInside(VecPosition p) const;
  /// "rect((x, y, z) (x, y, z))"
  void show(std::ostream& os = std::cout) const;
};
