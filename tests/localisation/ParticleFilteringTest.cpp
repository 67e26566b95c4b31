#include "localisation/ParticleFiltering.h"

#include <gmock/gmock.h>
#include <gsl/gsl_rng.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>
#include <type_traits>

#include "tests/support/OutputCapture.h"
#include "tests/support/Places.h"

namespace {

TEST(ParticleFilter, HasFourHundredParticlesAtTheOrigin) {
  const Particle_filtering filter;
  EXPECT_EQ(filter.count, 400);
  ASSERT_NE(filter.particles, nullptr);
  for (int i = 0; i < 400; ++i) {
    EXPECT_THAT(filter.particles[static_cast<std::size_t>(i)].pos, IsPlace(0, 0, 0));
  }
  EXPECT_THAT(filter.currentPos, IsPlace(0, 0, 0));
  EXPECT_THAT(filter.lastPos, IsPlace(0, 0, 0));
  EXPECT_FALSE(filter.distributionSet);
}

TEST(ParticleFilter, HasAsManyParticlesAsAskedFor) {
  const Particle_filtering filter(3);
  EXPECT_EQ(filter.count, 3);
  EXPECT_THAT(filter.particles[2].pos, IsPlace(0, 0, 0));
  EXPECT_FALSE(filter.distributionSet);
}

TEST(ParticleFilter, HasNoVirtualOperations) {
  EXPECT_FALSE(std::is_polymorphic_v<Particle_filtering>);
}

TEST(ParticleFilter, GeneratorIsSeededWithTheCalendarTime) {
  const std::time_t before = std::time(nullptr);
  const Particle_filtering filter(1);
  const std::time_t after = std::time(nullptr);
  EXPECT_STREQ(gsl_rng_name(filter.rng), "mt19937");
  const unsigned long drawn = gsl_rng_get(filter.rng);
  bool found = false;
  gsl_rng* reference = gsl_rng_alloc(gsl_rng_mt19937);
  for (std::time_t seed = before; seed <= after; ++seed) {
    gsl_rng_set(reference, static_cast<unsigned long>(seed));
    found = found || gsl_rng_get(reference) == drawn;
  }
  gsl_rng_free(reference);
  EXPECT_TRUE(found);
}

TEST(ParticleFilter, EnvironmentChangesNeitherTypeNorSeed) {
  ASSERT_EQ(::setenv("GSL_RNG_TYPE", "taus", 1), 0);
  ASSERT_EQ(::setenv("GSL_RNG_SEED", "123", 1), 0);
  const Particle_filtering filter(1);
  ::unsetenv("GSL_RNG_TYPE");
  ::unsetenv("GSL_RNG_SEED");
  EXPECT_STREQ(gsl_rng_name(filter.rng), "mt19937");
  gsl_rng* reference = gsl_rng_alloc(gsl_rng_mt19937);
  gsl_rng_set(reference, 123);
  EXPECT_NE(gsl_rng_get(filter.rng), gsl_rng_get(reference));
  gsl_rng_free(reference);
}

TEST(ParticleFilter, StartPositionIsGivenToEveryParticle) {
  Particle_filtering filter;
  filter.particles[0].weight = 0.25;
  filter.particles[399].weight = 0.75;
  OutputCapture output;
  filter.initDistribution(-2.5, 1.5, 0.125);
  EXPECT_EQ(output.text(), "number of distribution particles is: 400\n");
  EXPECT_TRUE(filter.distributionSet);
  EXPECT_THAT(filter.currentPos, IsPlace(-2.5, 1.5, 0.125));
  EXPECT_THAT(filter.lastPos, IsPlace(-2.5, 1.5, 0.125));
  for (std::size_t i = 0; i < 400; ++i) {
    EXPECT_THAT(filter.particles[i].pos, IsPlace(-2.5, 1.5, 0.125));
  }
  EXPECT_EQ(filter.particles[0].weight, 0.25);
  EXPECT_EQ(filter.particles[399].weight, 0.75);
}

TEST(ParticleFilter, NumberOfParticlesIsSaidAtEachStart) {
  Particle_filtering filter(7);
  OutputCapture output;
  filter.initDistribution(1, 2, 3);
  filter.initDistribution(4, 5, 6);
  EXPECT_EQ(output.text(),
            "number of distribution particles is: 7\n"
            "number of distribution particles is: 7\n");
  EXPECT_THAT(filter.particles[6].pos, IsPlace(4, 5, 6));
}

TEST(ParticleFilter, EmptyCloudKeepsItsEstimateAtTheStart) {
  Particle_filtering filter(0);
  OutputCapture output;
  filter.initDistribution(1, 2, 3);
  EXPECT_EQ(output.text(), "number of distribution particles is: 0\n");
  EXPECT_THAT(filter.lastPos, IsPlace(1, 2, 3));
}

TEST(ParticleFilter, MissingCloudIsReported) {
  Particle_filtering filter;
  filter.particles.reset();
  OutputCapture output;
  filter.initDistribution(1, 2, 3);
  EXPECT_EQ(output.text(), "Particle filtering -> particle set not initiated!!\n");
  EXPECT_TRUE(filter.distributionSet);
  EXPECT_THAT(filter.currentPos, IsPlace(0, 0, 0));
  EXPECT_THAT(filter.lastPos, IsPlace(0, 0, 0));
}

}  // namespace
