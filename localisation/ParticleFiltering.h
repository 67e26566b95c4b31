#pragma once

/// The cloud of particles that judges each new position of the player. The body holds an array of
/// them; each beam pins the one of the player's shirt number to the start position.

#include <gsl/gsl_rng.h>

#include <memory>

#include "math/VecPosition.h"

/// A body holds one for each number that a shirt could have.
inline constexpr int kFilterCount = 12;

struct particle {
  VecPosition pos;    ///< [m] field frame
  double weight = 0;  ///< 1 or 0 after a gate pass
};

class Particle_filtering {
 public:
  int count;  ///< number of particles
  std::unique_ptr<particle[]> particles;
  gsl_rng* rng;            ///< lives as long as the process: it is never freed
  VecPosition currentPos;  ///< [m] the latest measurement
  VecPosition lastPos;     ///< [m] the last accepted estimate
  bool distributionSet;    ///< initDistribution has run

  /// 400 particles.
  Particle_filtering();
  /// N particles, seeded with the calendar time: filters made within a second share their numbers.
  explicit Particle_filtering(int n);

  /// Puts every particle, the measurement and the estimate on one place; weights stay.
  void initDistribution(double x, double y, double z);

  /// Draws particle I anew round the measurement. Towards greater x and y it moves 0.02 m at most,
  /// towards smaller ones it follows at once: the limit is one-sided on purpose.
  void transition(int i);
  /// The same with a drift along the step from the last estimate, finer noise (0.004 m) times
  /// FACTOR and a limit of 0.04 m.
  void transition2(int i, double factor);
  void normalizeWeights(particle* p, int n);
  /// Does nothing: there is no resampling here.
  int resample(particle* p, int n);
  /// An order of descending weight: -1, 1, or 0.
  int particleCmp(particle* a, particle* b);
  /// Uniform on 0 to b - a; the offset is not added.
  double random_d(double a, double b);
};
