#include "math/Rect.h"

#include "math/Geometry.h"

Rect::Rect(VecPosition p1, VecPosition p2) {
  setRectPoints(p1, p2);
}

void Rect::setRectPoints(VecPosition p1, VecPosition p2) {
  posLeftTop = VecPosition(max(p1.x, p2.x), min(p1.y, p2.y), 0.0);
  posRightBottom = VecPosition(min(p1.x, p2.x), max(p1.y, p2.y), 0.0);
}

bool Rect::setPosLeftTop(VecPosition p) {
  posLeftTop = p;
  return true;
}

bool Rect::setPosRightBottom(VecPosition p) {
  posRightBottom = p;
  return true;
}

bool Rect::isInside(VecPosition p) const {
  return p.isBetweenX(posRightBottom, posLeftTop) && p.isBetweenY(posLeftTop, posRightBottom);
}

void Rect::show(std::ostream& os) const {
  os << "rect(" << posLeftTop << " " << posRightBottom << ")";
}
