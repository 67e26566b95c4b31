#include <gmock/gmock.h>
#include <gsl/gsl_rng.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "behaviour/Agent.h"
#include "tests/localisation/ReferenceDraws.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/OutputCapture.h"
#include "tests/support/Places.h"

namespace {

class ParticleGate : public testing::Test {
 protected:
  void SetUp() override { agent.myPos = VecPosition(3, -3, 0.5); }

  /// Pins the cloud to one place, as a beam does, with a known seed and COUNT particles.
  void pin(double x, double y, int count = 400, unsigned long seed = kSeed) const {
    filter = Particle_filtering(count);
    gsl_rng_set(filter.rng, seed);
    OutputCapture output;
    filter.initDistribution(x, y, 0);
  }
  VecPosition measured(double x, double y) const {
    agent.calculateMyPosWithParticleFiltering(VecPosition(x, y, 0));
    return agent.myPos;
  }
  [[nodiscard]] int passed() const {
    return static_cast<int>(std::count_if(filter.particles.get(),
                                          filter.particles.get() + filter.count,
                                          [](const particle& p) { return p.weight == 1; }));
  }

  FreshPlayer player{2};
  Agent& agent = player.agent();
  Particle_filtering& filter = agent.particleFilters[1];
};

TEST_F(ParticleGate, UnmovedMeasurementLetsEveryParticlePass) {
  pin(0, 0);
  ReferenceDraws draws(kSeed);
  VecPosition sum(0, 0, 0);
  for (int i = 0; i < 400; ++i) {
    sum.x += std::min(single(draws.next(0.02)), single(0.02));
    sum.y += std::min(single(draws.next(0.02)), single(0.02));
  }
  EXPECT_THAT(measured(0, 0), IsPlaceNear(sum.x / 400, sum.y / 400, 0.0));
  EXPECT_EQ(passed(), 400);
  EXPECT_EQ(filter.lastPos, agent.myPos);
  EXPECT_THAT(filter.currentPos, IsPlace(0, 0, 0));
}

TEST_F(ParticleGate, BandOfAnUnmovedMeasurementIsThreeWideInXAndEndlessInY) {
  pin(0, 0, 5);
  const double places[][2] = {{0, -50}, {-1.6, 0}, {-1.4, 0}, {-1.53, -7}, {-1.51, -7}};
  for (std::size_t i = 0; i < 5; ++i) {
    filter.particles[i].pos = VecPosition(places[i][0], places[i][1], 0);
  }
  // Held by the limit: 0.02 to the right of where they were.
  measured(0, 0);
  EXPECT_EQ(filter.particles[0].weight, 1);
  EXPECT_EQ(filter.particles[1].weight, 0);
  EXPECT_EQ(filter.particles[2].weight, 1);
  EXPECT_EQ(filter.particles[3].weight, 0);  // at -1.51
  EXPECT_EQ(filter.particles[4].weight, 1);  // at -1.49
}

TEST_F(ParticleGate, ParticleLeftOutOfTheMeanStillFeedsItsNextStep) {
  pin(0, 0, 2);
  filter.particles[0].pos = VecPosition(-4, 0, 0);
  filter.particles[1].pos = VecPosition(-1, 0, 0);
  EXPECT_EQ(measured(0, 0).x, single(-0.98));
  EXPECT_EQ(filter.particles[0].weight, 0);
  EXPECT_EQ(filter.particles[0].pos.x, single(-3.98));
  EXPECT_EQ(filter.lastPos.x, single(-0.98));
  measured(0, 0);
  EXPECT_EQ(filter.particles[0].pos.x, single(single(-3.98) + 0.02));
}

// The band has no width: only what lies on the diagonal itself passes.
TEST_F(ParticleGate, StepAlongTheDiagonalLetsNothingBesideItPass) {
  pin(0, 0);
  for (int i = 0; i < 400; ++i) {
    filter.particles[static_cast<std::size_t>(i)].pos = VecPosition(0, -0.5, 0);
  }
  EXPECT_THAT(measured(1, 1), IsPlace(0, 0, 0));  // the last estimate, not what was in myPos
  EXPECT_EQ(passed(), 0);
  EXPECT_THAT(filter.lastPos, IsPlace(0, 0, 0));
  EXPECT_THAT(filter.particles[0].pos, IsPlace(single(0.02), single(-0.48), 0));
}

TEST_F(ParticleGate, StepDownTheDiagonalScattersEveryParticleOffIt) {
  pin(2, 2);
  EXPECT_THAT(measured(1, 1), IsPlace(2, 2, 0));
  EXPECT_EQ(passed(), 0);
}

// The limit holds every particle of a fresh cloud at (0.02, 0.02), which is on the diagonal.
TEST_F(ParticleGate, FreshCloudStaysOnTheDiagonalOfAForwardStep) {
  pin(0, 0);
  EXPECT_THAT(measured(1, 1), IsPlaceNear(single(0.02), single(0.02), 0.0));
  EXPECT_EQ(passed(), 400);
}

TEST_F(ParticleGate, FailedCrossingMovesTheEstimateByTwoCentimetresAtMost) {
  pin(-8.6, 0);
  EXPECT_NEAR(measured(0, 0).x, single(-8.58), 1e-9);
  EXPECT_NEAR(agent.myPos.y, 0, 0.02);
  EXPECT_EQ(passed(), 400);
}

// 400 draws with a spread of 0.02: the mean's is 0.001.
TEST_F(ParticleGate, StepBackIsFollowedAtOnce) {
  pin(-8.6, 0);
  EXPECT_NEAR(measured(-9, 0).x, -9, 0.005);
  pin(0, 0);
  EXPECT_NEAR(measured(-5, 0).x, -5, 0.005);
}

TEST_F(ParticleGate, ForwardMeasurementIsApproachedTwoCentimetresAtATime) {
  pin(0, 0);
  for (int step = 1; step <= 20; ++step) {
    EXPECT_NEAR(measured(3, 0).x, 0.02 * step, 1e-5) << step;
  }
}

TEST_F(ParticleGate, EstimateAtItsLimitsIsAcceptedAndBeyondThemRefused) {
  // The limit of a step puts the only particle exactly there.
  pin(11.98, 0, 1);
  EXPECT_EQ(measured(15, 0).x, 12);
  EXPECT_EQ(filter.lastPos.x, 12);
  pin(11.99, 0, 1);
  EXPECT_THAT(measured(15, 0), IsPlace(11.99, 0, 0));
  EXPECT_THAT(filter.lastPos, IsPlace(11.99, 0, 0));
  EXPECT_EQ(filter.particles[0].pos.x, single(12.01));
  EXPECT_EQ(filter.particles[0].weight, 1);  // through the gate, yet too far out
  pin(0, 8.98, 1);
  EXPECT_EQ(measured(0, 12).y, 9);
  pin(0, 8.99, 1);
  EXPECT_THAT(measured(0, 12), IsPlace(0, 8.99, 0));
}

// Downwards there is no limit, so the measurement makes up for the noise that is known to come.
TEST_F(ParticleGate, EstimateAtItsLowerLimitsIsAcceptedAndBeyondThemRefused) {
  ReferenceDraws draws(kSeed);
  const double noiseX = draws.next(0.02);
  const double noiseY = draws.next(0.02);
  pin(-11, 0, 1);
  EXPECT_EQ(measured(-12 - noiseX, 0).x, -12);
  pin(-11, 0, 1);
  EXPECT_THAT(measured(-12.01 - noiseX, 0), IsPlace(-11, 0, 0));
  pin(0, -8, 1);
  EXPECT_EQ(measured(0, -9 - noiseY).y, -9);
  pin(0, -8, 1);
  EXPECT_THAT(measured(0, -9.01 - noiseY), IsPlace(0, -8, 0));
}

TEST_F(ParticleGate, RefusedEstimateBringsBackAllOfTheLastPlace) {
  pin(11.99, 0, 1);
  filter.lastPos.z = 0.25;
  EXPECT_THAT(measured(15, 0), IsPlace(11.99, 0, 0.25));
}

TEST_F(ParticleGate, EmptyCloudStaysAtTheLastEstimate) {
  pin(1, 2, 0);
  EXPECT_THAT(measured(1, 2), IsPlace(1, 2, 0));
  EXPECT_THAT(measured(-5, 0), IsPlace(1, 2, 0));
  EXPECT_THAT(filter.currentPos, IsPlace(-5, 0, 0));
}

TEST_F(ParticleGate, MeasurementThatIsNoNumberIsThrownAway) {
  pin(1, 2);
  EXPECT_THAT(measured(std::numeric_limits<double>::quiet_NaN(), 0), IsPlace(1, 2, 0));
  EXPECT_EQ(passed(), 0);
}

// Along an oblique step the last bits of three roots decide about each particle. The band is
// 3 |cos - sin| wide, about 2 here, and all particles are well within.
TEST_F(ParticleGate, PartOfTheCloudPassesAlongAnObliqueStep) {
  pin(0, 0);
  const VecPosition estimate = measured(-1, -0.3);
  EXPECT_GT(passed(), 0);
  EXPECT_LT(passed(), 400);
  VecPosition sum(0, 0, 0);
  for (int i = 0; i < 400; ++i) {
    const particle& p = filter.particles[static_cast<std::size_t>(i)];
    if (p.weight == 1) {
      sum += p.pos;
    } else {
      EXPECT_EQ(p.weight, 0);
    }
  }
  EXPECT_THAT(estimate, IsPlaceNear(sum.x / passed(), sum.y / passed(), 0.0));
  EXPECT_NEAR(estimate.x, -1, 0.02);
  EXPECT_NEAR(estimate.y, -0.3, 0.02);
}

TEST_F(ParticleGate, RunsDifferBySeedAlone) {
  pin(0, 0, 400, 1);
  const VecPosition first = measured(-1, -0.3);
  pin(0, 0, 400, 2);
  const VecPosition other = measured(-1, -0.3);
  pin(0, 0, 400, 1);
  const VecPosition again = measured(-1, -0.3);
  EXPECT_EQ(first, again);
  EXPECT_NE(first, other);
}

TEST_F(ParticleGate, EstimateHasNoHeight) {
  pin(0, 0);
  filter.lastPos.z = 0.25;
  EXPECT_EQ(measured(-1, 0).z, 0);
  EXPECT_EQ(filter.lastPos.z, 0);
}

TEST_F(ParticleGate, OnlyTheFilterOfTheOwnNumberWorks) {
  for (int number = 1; number <= 12; ++number) {
    SCOPED_TRACE(number);
    for (int i = 0; i < 12; ++i) {
      agent.particleFilters[static_cast<std::size_t>(i)].currentPos = VecPosition(7, 7, 7);
    }
    agent.particleFilter.currentPos = VecPosition(7, 7, 7);
    agent.uNum = number;
    measured(-1, 0);
    for (int i = 0; i < 12; ++i) {
      EXPECT_THAT(agent.particleFilters[static_cast<std::size_t>(i)].currentPos,
                  i == number - 1 ? IsPlace(-1, 0, 0) : IsPlace(7, 7, 7))
          << i;
    }
    EXPECT_THAT(agent.particleFilter.currentPos, IsPlace(7, 7, 7));
  }
}

TEST_F(ParticleGate, NumberWithoutAFilterChangesNothing) {
  for (const int number : {0, -1, 13, 2147483647, -2147483647 - 1}) {
    agent.uNum = number;
    EXPECT_THAT(measured(-1, 0), IsPlace(3, -3, 0.5)) << number;
  }
}

TEST_F(ParticleGate, MeasuringSaysNothing) {
  pin(0, 0);
  OutputCapture output;
  OutputCapture errors(OutputCapture::Stream::Error);
  measured(0, 0);
  measured(1, 1);
  measured(20, -0.3);
  EXPECT_EQ(errors.text(), "");
  EXPECT_EQ(output.text(), "");
}

TEST_F(ParticleGate, BeamResetsTheMemoryButNotThePlace) {
  OutputCapture output;
  agent.sendBeamInfo();
  EXPECT_THAT(output.text(), testing::HasSubstr("number of distribution particles is: 400\n"));
  EXPECT_THAT(agent.myPos, IsPlace(3, -3, 0.5));
  EXPECT_THAT(filter.lastPos, IsPlace(agent.beamX, agent.beamY, 0));
}

}  // namespace
