#include <gmock/gmock.h>
#include <gsl/gsl_rng.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "localisation/ParticleFiltering.h"
#include "tests/localisation/ReferenceDraws.h"
#include "tests/support/Places.h"

namespace {

/// A filter with a known seed, every particle at LAST and the measurement at CURRENT.
Particle_filtering seeded(int count, const VecPosition& last, const VecPosition& current) {
  Particle_filtering filter(count);
  gsl_rng_set(filter.rng, kSeed);
  filter.lastPos = last;
  filter.currentPos = current;
  for (int i = 0; i < count; ++i) {
    filter.particles[static_cast<std::size_t>(i)].pos = last;
  }
  return filter;
}

TEST(ParticleStep, IsDrawnAroundTheMeasurementXFirst) {
  Particle_filtering filter = seeded(2, VecPosition(50, 50, 0), VecPosition(1, -2, 0.1));
  ReferenceDraws draws(kSeed);
  for (const int i : {1, 0}) {
    const double x = single(1 + draws.next(0.02));
    const double y = single(-2 + draws.next(0.02));
    filter.transition(i);
    EXPECT_THAT(filter.particles[static_cast<std::size_t>(i)].pos, IsPlace(x, y, single(0.1)));
  }
}

TEST(ParticleStep, GoesAtMostTwoCentimetresTowardsGreaterXAndY) {
  Particle_filtering filter = seeded(1, VecPosition(-8.6, 3.3, 0), VecPosition(0, 4, 0));
  filter.transition(0);
  EXPECT_THAT(filter.particles[0].pos, IsPlace(single(-8.58), single(3.32), 0));
  filter.transition(0);
  EXPECT_THAT(filter.particles[0].pos,
              IsPlace(single(single(-8.58) + 0.02), single(single(3.32) + 0.02), 0));
}

TEST(ParticleStep, FollowsAtOnceTowardsSmallerXAndY) {
  Particle_filtering filter = seeded(1, VecPosition(5, 5, 0), VecPosition(-8, -5, 0));
  filter.transition(0);
  EXPECT_NEAR(filter.particles[0].pos.x, -8, 0.1);
  EXPECT_NEAR(filter.particles[0].pos.y, -5, 0.1);
}

TEST(ParticleStep, EachAxisIsLimitedByItself) {
  Particle_filtering filter = seeded(1, VecPosition(0, 5, 0), VecPosition(3, -5, 0));
  filter.transition(0);
  EXPECT_EQ(filter.particles[0].pos.x, single(0.02));
  EXPECT_NEAR(filter.particles[0].pos.y, -5, 0.1);
}

TEST(ParticleStep, TakesTheWeightAway) {
  Particle_filtering filter = seeded(2, VecPosition(0, 0, 0), VecPosition(0, 0, 0));
  filter.particles[0].weight = filter.particles[1].weight = 1;
  filter.transition(1);
  EXPECT_EQ(filter.particles[0].weight, 1);
  EXPECT_EQ(filter.particles[1].weight, 0);
  EXPECT_THAT(filter.particles[0].pos, IsPlace(0, 0, 0));
}

// 10000 draws: the mean's deviation is 0.0002, the spread's 0.00014.
TEST(ParticleStep, SpreadIsTwoCentimetres) {
  constexpr int kDraws = 10000;
  Particle_filtering filter = seeded(kDraws, VecPosition(9, 9, 0), VecPosition(1, -2, 0));
  VecPosition sum(0, 0, 0);
  VecPosition squares(0, 0, 0);
  for (int i = 0; i < kDraws; ++i) {
    filter.transition(i);
    const VecPosition off =
        filter.particles[static_cast<std::size_t>(i)].pos - VecPosition(1, -2, 0);
    sum += off;
    squares += off * off;
  }
  EXPECT_NEAR(sum.x / kDraws, 0, 0.001);
  EXPECT_NEAR(sum.y / kDraws, 0, 0.001);
  EXPECT_NEAR(std::sqrt(squares.x / kDraws), 0.02, 0.0007);
  EXPECT_NEAR(std::sqrt(squares.y / kDraws), 0.02, 0.0007);
}

// A hundredth of the step from (0, 0) to (-2, -4) on top of the measurement.
TEST(DriftingStep, AddsAHundredthOfTheStepAndScalesTheNoise) {
  Particle_filtering filter = seeded(1, VecPosition(0, 0, 0), VecPosition(-2, -4, 0.1));
  ReferenceDraws draws(kSeed);
  const double x = -2.02 + draws.next(0.004) * 3;
  const double y = -4.04 + draws.next(0.004) * 3;
  filter.particles[0].weight = 1;
  filter.transition2(0, 3);
  EXPECT_NEAR(filter.particles[0].pos.x, x, 1e-6);
  EXPECT_NEAR(filter.particles[0].pos.y, y, 1e-6);
  EXPECT_EQ(filter.particles[0].pos.x, single(filter.particles[0].pos.x));
  EXPECT_EQ(filter.particles[0].pos.z, single(0.1));
  EXPECT_EQ(filter.particles[0].weight, 0);
}

TEST(DriftingStep, GoesAtMostFourCentimetresTowardsGreaterXAndY) {
  Particle_filtering filter = seeded(1, VecPosition(-8.6, 3.3, 0), VecPosition(0, 4, 0));
  filter.transition2(0, 1);
  EXPECT_THAT(filter.particles[0].pos, IsPlace(single(-8.56), single(3.34), 0));
}

TEST(ParticleWeights, AreDividedByTheirSum) {
  particle cloud[3];
  cloud[0].weight = 1;
  cloud[1].weight = 2;
  cloud[2].weight = 5;
  Particle_filtering(0).normalizeWeights(cloud, 3);
  EXPECT_EQ(cloud[0].weight, 0.125);
  EXPECT_EQ(cloud[1].weight, 0.25);
  EXPECT_EQ(cloud[2].weight, 0.625);
}

TEST(ParticleWeights, SumIsRoundedToSinglePrecisionAtEachAddition) {
  particle cloud[3];
  cloud[0].weight = 16777216;  // from here on single precision has even numbers only
  cloud[1].weight = 1;
  cloud[2].weight = 1;
  Particle_filtering(0).normalizeWeights(cloud, 3);
  EXPECT_EQ(cloud[0].weight, 1);
  EXPECT_EQ(cloud[1].weight, 1.0 / 16777216);
}

TEST(ParticleWeights, NoneAreNotTouched) {
  particle cloud[1];
  cloud[0].weight = 4;
  Particle_filtering(0).normalizeWeights(cloud, 0);
  EXPECT_EQ(cloud[0].weight, 4);
}

TEST(ParticleOrder, IsThatOfDescendingWeight) {
  Particle_filtering filter(0);
  particle heavy;
  heavy.weight = 0.75;
  particle light;
  light.weight = 0.25;
  particle none;
  none.weight = std::nan("");
  EXPECT_EQ(filter.particleCmp(&heavy, &light), -1);
  EXPECT_EQ(filter.particleCmp(&light, &heavy), 1);
  EXPECT_EQ(filter.particleCmp(&light, &light), 0);
  EXPECT_EQ(filter.particleCmp(&none, &light), 0);
  EXPECT_EQ(filter.particleCmp(&light, &none), 0);
}

TEST(ParticleResampling, DoesNothing) {
  Particle_filtering filter = seeded(2, VecPosition(1, 2, 3), VecPosition(0, 0, 0));
  filter.particles[0].weight = 1;
  EXPECT_EQ(filter.resample(filter.particles.get(), 2), 0);
  EXPECT_THAT(filter.particles[0].pos, IsPlace(1, 2, 3));
  EXPECT_EQ(filter.particles[0].weight, 1);
  EXPECT_EQ(filter.particles[1].weight, 0);
}

TEST(ParticleRandomNumber, CoversTheIntervalsLengthFromZeroOn) {
  Particle_filtering filter(0);
  std::srand(7);
  double sum = 0;
  for (int i = 0; i < 2000; ++i) {
    const double drawn = filter.random_d(10, 14);
    EXPECT_GE(drawn, 0);  // the lower bound isn't added
    EXPECT_LE(drawn, 4);
    sum += drawn;
  }
  EXPECT_NEAR(sum / 2000, 2, 0.15);
}

TEST(ParticleRandomNumber, IsTheSystemsGeneratorScaled) {
  Particle_filtering filter(0);
  std::srand(7);
  const double expected = 3.0 * std::rand() / 2147483647.0;
  std::srand(7);
  EXPECT_EQ(filter.random_d(0, 3), expected);
}

}  // namespace
