#include "arena/world/Servo.h"

#include <gtest/gtest.h>

#include <numbers>
#include <vector>

#include "tests/arena/world/Run.h"

namespace arena {
namespace {

constexpr double kRadPerDeg = std::numbers::pi / 180;
constexpr double kStep = 0.004;

const JointRow& headYaw() {
  return kJoints[rowOfPerceptor("hj1")];
}  // -120 to 120 degrees

TEST(Servo, SpeedsAreCutToSevenEitherWay) {
  EXPECT_EQ(cutSpeed(7.5), 7.0);
  EXPECT_EQ(cutSpeed(-100), -7.0);
  EXPECT_EQ(cutSpeed(-6.99), -6.99);
}

TEST(Servo, JointThatKeepsUpIsAskedForTheCommandedSpeed) {
  Servo servo{.speed = 2, .held = 0};
  double angle = 0;
  for (int i = 0; i < 100; ++i) {
    EXPECT_NEAR(wantedSpeed(servo, headYaw(), angle, kStep), 2, 1e-9);
    angle += 2 * kStep;
  }
}

TEST(Servo, JointThatWasPushedAwayIsBroughtBack) {
  Servo servo{.speed = 0, .held = 0.1};
  EXPECT_LT(wantedSpeed(servo, headYaw(), 0.105, kStep), 0);
  EXPECT_GT(wantedSpeed(servo, headYaw(), 0.095, kStep), 0);
  EXPECT_EQ(wantedSpeed(servo, headYaw(), 0.1, kStep), 0);
}

TEST(Servo, JointPushedFarAwayStaysNearWhereItWasPushed) {
  Servo servo{.speed = 0, .held = 0};
  (void)wantedSpeed(servo, headYaw(), 0.5, kStep);
  EXPECT_NEAR(servo.held, 0.5, 0.02);
}

TEST(Servo, NothingIsWantedBeyondTheEndOfTheRange) {
  const double end = 120 * kRadPerDeg;
  Servo servo{.speed = 7, .held = end};
  EXPECT_LE(wantedSpeed(servo, headYaw(), end, kStep), 1e-12);
  // Pushed beyond, far or near, the motor only ever helps to come back.
  for (const double beyond : {1e-6, 0.001, 0.02, 0.5}) {
    EXPECT_LT(wantedSpeed(servo, headYaw(), end + beyond, kStep), 0) << beyond;
    EXPECT_LE(servo.held, end);
  }
}

TEST(Servo, LastStepBeforeTheEndIsShort) {
  const double end = 120 * kRadPerDeg;
  Servo servo{.speed = 7, .held = end - 0.007};
  // 0.007 rad are left, and a step lasts 0.004 s: a quarter of the commanded speed.
  EXPECT_NEAR(wantedSpeed(servo, headYaw(), end - 0.007, kStep), 1.75, 1e-9);
}

TEST(Servo, NoMotorExceedsItsTorqueLimit) {
  const Scene scene = makeScene(1, {.motorTorqueLimit = 5});
  const DataPtr data = makeData(scene);
  Servos servos{};
  const std::vector<Servos*> present{&servos};
  double strongest = 0;
  for (int i = 0; i < 250; ++i) {
    for (Servo& servo : servos) servo.speed = i / 25 % 2 == 0 ? 7 : -7;
    mj_step1(scene.model.get(), data.get());
    driveJoints(scene, *data, present);
    mj_step2(scene.model.get(), data.get());
    ASSERT_EQ(data->nf, static_cast<int>(kJointCount));
    for (int row = data->ne; row < data->ne + data->nf; ++row) {
      strongest = std::max(strongest, std::abs(data->efc_force[row]));
    }
  }
  EXPECT_LE(strongest, 5 + 1e-9);
  EXPECT_GT(strongest, 4.9);  // some motor did reach it
}

}  // namespace
}  // namespace arena
