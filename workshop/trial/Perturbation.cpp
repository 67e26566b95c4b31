#include "workshop/trial/Perturbation.h"

#include <cmath>
#include <numbers>
#include <random>

namespace workshop {
namespace {

using Engine = std::mt19937_64;

double between(Engine& engine, double low, double high) {
  return std::uniform_real_distribution<double>(low, high)(engine);
}

double oneOf(Engine& engine, const std::array<double, 3>& choices) {
  return choices[std::uniform_int_distribution<std::size_t>(0, choices.size() - 1)(engine)];
}

/// Moves one foot by up to 5 mm, its sole level: hip and ankle turn against each other, which over
/// a leg of some 0.22 m shifts the foot by 3.8 mm a degree.
void displaceFoot(Engine& engine, std::array<double, arena::kJointCount>& degrees) {
  constexpr double kLegLength = 0.22;  ///< [m] hip to ankle
  constexpr double kFarthest = 0.005;  ///< [m]
  const bool left = between(engine, 0, 1) < 0.5;
  const double direction = between(engine, 0, 2 * std::numbers::pi);
  const double angle = between(engine, 0, kFarthest) / kLegLength * 180.0 / std::numbers::pi;
  const double pitch = angle * std::cos(direction);
  const double roll = angle * std::sin(direction);
  degrees[arena::rowOfPerceptor(left ? "llj3" : "rlj3")] += pitch;
  degrees[arena::rowOfPerceptor(left ? "llj5" : "rlj5")] -= pitch;
  degrees[arena::rowOfPerceptor(left ? "llj2" : "rlj2")] += roll;
  degrees[arena::rowOfPerceptor(left ? "llj6" : "rlj6")] -= roll;
}

}  // namespace

Perturbation drawPerturbation(std::optional<std::uint64_t> seed) {
  Perturbation drawn;
  if (!seed) return drawn;
  Engine engine(*seed);
  drawn.world.groundFriction *= between(engine, 0.7, 1.3);
  drawn.world.massFactor = between(engine, 0.95, 1.05);
  drawn.world.servoSpeedFactor = between(engine, 0.97, 1.03);
  drawn.world.stepSeconds = oneOf(engine, {0.002, 0.004, 0.005});
  drawn.world.motorTorqueLimit = oneOf(engine, {10.0, 20.0, 30.0});
  drawn.world.contactTimeConstant = oneOf(engine, {0.014, 0.020, 0.030});
  drawn.readingNoiseDeg = 0.1;
  drawn.lateShare = 0.05;
  for (double& degrees : drawn.startOffsetDeg) degrees = between(engine, -2, 2);
  displaceFoot(engine, drawn.startOffsetDeg);
  drawn.pushImpulse = between(engine, 0, 0.3);
  drawn.pushDirectionDeg = between(engine, -180, 180);
  drawn.pushMoment = between(engine, 0, 1);
  drawn.clockOffset = static_cast<int>(engine() % 2);
  drawn.headPhase = static_cast<int>(engine() % 109);
  drawn.ballShiftAhead = between(engine, -1, 1);
  drawn.ballShiftRight = between(engine, -1, 1);
  drawn.tipDeg = between(engine, -8, 8);
  drawn.noiseSeed = engine();
  return drawn;
}

}  // namespace workshop
