#include "workshop/trial/Perturbation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace workshop {
namespace {

TEST(Perturbation, NominalWorldIsTheDefaultOne) {
  const Perturbation none = drawPerturbation(std::nullopt);
  const arena::WorldSettings nominal;
  EXPECT_EQ(none.world.groundFriction, nominal.groundFriction);
  EXPECT_EQ(none.world.stepSeconds, nominal.stepSeconds);
  EXPECT_EQ(none.world.servoSpeedFactor, 1);
  EXPECT_EQ(none.readingNoiseDeg, 0);
  EXPECT_EQ(none.lateShare, 0);
  EXPECT_EQ(none.pushImpulse, 0);
  for (const double degrees : none.startOffsetDeg) EXPECT_EQ(degrees, 0);
}

TEST(Perturbation, EveryDrawStaysWithinItsBounds) {
  std::set<double> steps;
  std::set<double> torques;
  std::set<double> contacts;
  double lowestFriction = 2;
  double highestFriction = 0;
  double strongestPush = 0;
  for (std::uint64_t seed = 0; seed < 500; ++seed) {
    const Perturbation odd = drawPerturbation(seed);
    lowestFriction = std::min(lowestFriction, odd.world.groundFriction);
    highestFriction = std::max(highestFriction, odd.world.groundFriction);
    strongestPush = std::max(strongestPush, odd.pushImpulse);
    EXPECT_LE(std::abs(odd.world.massFactor - 1), 0.05);
    EXPECT_LE(std::abs(odd.world.servoSpeedFactor - 1), 0.03);
    EXPECT_EQ(odd.readingNoiseDeg, 0.1);
    EXPECT_EQ(odd.lateShare, 0.05);
    // 2 degrees, and 5 mm over a leg of 0.22 m are 1.3 more.
    for (const double degrees : odd.startOffsetDeg) EXPECT_LE(std::abs(degrees), 3.31);
    EXPECT_GE(odd.pushMoment, 0);
    EXPECT_LT(odd.pushMoment, 1);
    steps.insert(odd.world.stepSeconds);
    torques.insert(odd.world.motorTorqueLimit);
    contacts.insert(odd.world.contactTimeConstant);
  }
  EXPECT_EQ(steps, (std::set{0.002, 0.004, 0.005}));
  EXPECT_EQ(torques, (std::set{10.0, 20.0, 30.0}));
  EXPECT_EQ(contacts, (std::set{0.014, 0.020, 0.030}));
  EXPECT_NEAR(lowestFriction, 0.7, 0.01);
  EXPECT_NEAR(highestFriction, 1.3, 0.01);
  EXPECT_NEAR(strongestPush, 0.3, 0.01);
}

TEST(Perturbation, DisplacedFootKeepsItsSoleLevel) {
  for (std::uint64_t seed = 0; seed < 50; ++seed) {
    const Perturbation odd = drawPerturbation(seed);
    // Beyond the 2 degrees that any joint may be off, hip and ankle turn against each other.
    const double hip = odd.startOffsetDeg[arena::rowOfPerceptor("llj3")];
    const double ankle = odd.startOffsetDeg[arena::rowOfPerceptor("llj5")];
    EXPECT_LE(std::abs(hip + ankle), 4);
  }
}

}  // namespace
}  // namespace workshop
