/// BasicAgent: the player's place from the landmarks it sees.

#include <array>
#include <cmath>
#include <utility>

#include "body/BasicAgent.h"
#include "math/Circle.h"
#include "math/Geometry.h"
#include "math/Rect.h"
#include "perception/WorldModel.h"

namespace {

constexpr int kLastUnfilteredCycle = 20;

/// The landmarks in view at one end of the field.
struct SeenFlags {
  std::array<PolarInfo*, 4> flags{};
  std::size_t count = 0;

  void add(PolarInfo& flag) {
    if (flag.seen) {
      flags[count++] = &flag;
    }
  }
  PolarInfo* operator[](std::size_t i) const { return flags[i]; }
};

/// Not a full sort: the first element never moves, so table order decides before distance does,
/// and of four the middle two can stay out of order.
void order(SeenFlags& list) {
  for (std::size_t i = 0; i + 1 < list.count; ++i) {
    for (std::size_t j = i + 1; j + 1 < list.count; ++j) {
      if (list.flags[j]->distance > list.flags[j + 1]->distance) {
        std::swap(list.flags[j], list.flags[j + 1]);
      }
    }
  }
}

SeenFlags inOrder(const std::array<PolarInfo*, 4>& flags) {
  SeenFlags list;
  for (PolarInfo* flag : flags) {
    list.add(*flag);
  }
  order(list);
  return list;
}

struct FlagsInView {
  explicit FlagsInView(visionInfo& vision)
      : left(inOrder({&vision.F1L, &vision.F2L, &vision.G1L, &vision.G2L})),
        right(inOrder({&vision.F1R, &vision.F2R, &vision.G1R, &vision.G2R})) {}

  SeenFlags left;
  SeenFlags right;
};

bool hasVisionNow(const WorldModel& world) {
  return world.lastSeeCycle == world.cycle;
}

/// Two flags of one end, or one of each: the pairs that both entry points take alike.
/// {null, null} when the flags in view are another case.
std::pair<PolarInfo*, PolarInfo*> simplePair(const SeenFlags& left, const SeenFlags& right) {
  if (left.count == 0 && right.count >= 2) {
    return {right[0], right[1]};
  }
  if (left.count == 1 && right.count == 1) {
    return {right[0], left[0]};
  }
  if (left.count >= 2 && right.count == 0) {
    return {left[0], left[1]};
  }
  return {nullptr, nullptr};
}

double square(double x) {
  return x * x;
}

Circle groundCircle(const PolarInfo& flag) {
  return {flag.position, flag.distance * cosDeg(flag.elevation)};
}

/// The place from the distances of P and of one flag to either side of it. The divisors are the
/// field's geometry (4 times 9 and 4 times 6) and hold for corner flags in table order only.
VecPosition placeFromThree(const PolarInfo& p, const PolarInfo& q, const PolarInfo& r) {
  const double x = (square(p.distance) - square(q.distance)) / 36;
  const double y = (square(r.distance) - square(p.distance)) / 24;
  const double X = p.position.x;
  const double Y = p.position.y;
  const double z = std::sqrt(square(p.distance) - (x - X * x - X) - (y - Y * y - Y));
  return {x, y, z};
}

}  // namespace

void BasicAgent::LocalizeAgentWith3FlagsCircle() {
  WorldModel* const world = WorldModel::getSingleton();
  if (!hasVisionNow(*world)) {
    return;
  }
  const auto [left, right] = FlagsInView(world->vision);
  // With flags at both ends and three or more in all, the last place stands.
  const auto [a, b] = simplePair(left, right);
  if (a != nullptr) {
    LocalizeAgentWith2Flags(a, b);
  }
}

void BasicAgent::LocalizeAgentWith2Flags(PolarInfo* a, PolarInfo* b) {
  const double tilt = findJoint("hj2")->angle;
  VecPosition s1(0.0, 0.0, 0.0);
  VecPosition s2(0.0, 0.0, 0.0);
  const int points = groundCircle(*a).getCircleIntersectionPoints(groundCircle(*b), &s1, &s2);

  // Circles that miss each other give the field's centre, not the old place.
  VecPosition chosen(0.0, 0.0, 0.0);
  const Rect reach(VecPosition(-9.5, 6.5, 0.0), VecPosition(9.5, -6.5, 0.0));
  if (points == 1 || (points == 2 && reach.isInside(s1))) {
    chosen = s1;
  } else if (points == 2 && reach.isInside(s2)) {
    chosen = s2;
  }

  const PolarInfo& near = b->distance > a->distance ? *a : *b;
  const double z = std::fabs(near.position.z - near.distance * sinDeg(tilt + near.elevation));
  if (WorldModel::getSingleton()->cycle > kLastUnfilteredCycle) {
    calculateMyPosWithParticleFiltering(VecPosition(chosen.x, chosen.y, 0.0));
  } else {
    myPos = VecPosition(chosen.x, chosen.y, z);
  }
}

void BasicAgent::LocalizeAgentWith3Flags() {
  WorldModel* const world = WorldModel::getSingleton();
  if (!hasVisionNow(*world)) {
    return;
  }
  const auto [left, right] = FlagsInView(world->vision);
  const auto [a, b] = simplePair(left, right);
  if (a != nullptr) {
    LocalizeAgentWith2Flags(a, b);
    return;
  }
  if (left.count == 0 || right.count == 0) {
    return;
  }
  if (left.count >= 2 && (right.count == 1 || right[1]->distance > left[1]->distance)) {
    myPos = placeFromThree(*left[0], *right[0], *left[1]);
  } else {
    myPos = placeFromThree(*right[0], *left[0], *right[1]);
  }
}
