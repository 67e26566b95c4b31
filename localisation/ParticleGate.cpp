/// BasicAgent: the gate of particles that a measured position passes once the game is running.

#include <span>

#include "body/BasicAgent.h"
#include "math/Geometry.h"
#include "math/Line.h"
#include "math/ParallelBand.h"

namespace {

constexpr double kBand = 1.5;     ///< [m] the gate's shift in x and in y, either way
constexpr double kReachX = 12.0;  ///< [m] the field and 3 m on every side
constexpr double kReachY = 9.0;

VecPosition shifted(const VecPosition& p, double shift, double z) {
  return {p.x + shift, p.y + shift, z};
}

}  // namespace

void BasicAgent::calculateMyPosWithParticleFiltering(VecPosition measured) {
  // A shirt number that the server shouldn't have given may have no filter.
  if (uNum < 1 || uNum > kFilterCount) {
    return;
  }
  Particle_filtering& filter = particleFilters[static_cast<std::size_t>(uNum - 1)];
  const VecPosition last = filter.lastPos;
  filter.currentPos = measured;
  // Along the step from the last estimate to the measurement.
  const Line upper = Line::makeLineFromTwoPoints(shifted(last, kBand, measured.z),
                                                 shifted(measured, kBand, measured.z));
  const Line lower = Line::makeLineFromTwoPoints(shifted(last, -kBand, measured.z),
                                                 shifted(measured, -kBand, measured.z));
  const ParallelBand band(upper, lower);
  const std::span<particle> particles(filter.particles.get(),
                                      static_cast<std::size_t>(filter.count));
  for (int i = 0; i < filter.count; ++i) {
    filter.transition(i);
  }
  // Each by itself: what passes is chance, and a wrong guess shall not cost a draw or a root.
  for (particle& p : particles) {
    p.weight = band.holds(p.pos) ? 1.0 : 0.0;
  }
  VecPosition sum(0.0, 0.0, 0.0);
  int passed = 0;
  for (const particle& p : particles) {
    if (p.weight == 1.0) {
      sum.x += p.pos.x;
      sum.y += p.pos.y;
      ++passed;
    }
  }
  // No particle at all makes this no number, which the bounds below refuse.
  sum.x /= passed;
  sum.y /= passed;
  if (sum.x >= -kReachX && sum.x <= kReachX && sum.y >= -kReachY && sum.y <= kReachY) {
    myPos = sum;
    filter.lastPos = sum;
  } else {
    myPos = filter.lastPos;
  }
}
