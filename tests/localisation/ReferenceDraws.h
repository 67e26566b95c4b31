#pragma once

/// The normal deviates that a filter's generator gives from a known seed, drawn a second time.

#include <gsl/gsl_randist.h>
#include <gsl/gsl_rng.h>

#include <memory>

inline constexpr unsigned long kSeed = 1;

/// What is left of a number in single precision, in which the measurement is kept.
inline double single(double x) {
  return static_cast<float>(x);
}

class ReferenceDraws {
 public:
  explicit ReferenceDraws(unsigned long seed) : rng_(gsl_rng_alloc(gsl_rng_mt19937)) {
    gsl_rng_set(rng_.get(), seed);
  }
  double next(double sigma) { return gsl_ran_gaussian(rng_.get(), sigma); }

 private:
  struct Free {
    void operator()(gsl_rng* rng) const { gsl_rng_free(rng); }
  };
  std::unique_ptr<gsl_rng, Free> rng_;
};
