#include "localisation/ParticleFiltering.h"

#include <ctime>
#include <iostream>

namespace {
constexpr int kDefaultCount = 400;
}

Particle_filtering::Particle_filtering() : Particle_filtering(kDefaultCount) {}

Particle_filtering::Particle_filtering(int n)
    : count(n), particles(new particle[static_cast<std::size_t>(n)]) {
  gsl_rng_env_setup();
  rng = gsl_rng_alloc(gsl_rng_mt19937);
  gsl_rng_set(rng, static_cast<unsigned long>(std::time(nullptr)));
  distributionSet = false;
}

void Particle_filtering::initDistribution(double x, double y, double z) {
  distributionSet = true;
  if (particles == nullptr) {
    std::cout << "Particle filtering -> particle set not initiated!!\n";
    return;
  }
  currentPos = lastPos = VecPosition(x, y, z);
  for (int i = 0; i < count; ++i) {
    particles[static_cast<std::size_t>(i)].pos = currentPos;
  }
  std::cout << "number of distribution particles is: " << count << std::endl;
}
