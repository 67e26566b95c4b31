#include <gtest/gtest.h>

#include <string>

#include "behaviour/Agent.h"
#include "perception/SLangParser.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/Places.h"

namespace {

class BodySensors : public testing::Test {
 protected:
  FreshPlayer player;
  Agent& agent = player.agent();
};

class Gyroscope : public BodySensors {
 protected:
  static int decode(const std::string& element) { return SLangParser::parseGyroInfo(element); }
  void SetUp() override {
    agent.gyroName = "before";
    agent.gyroRate = VecPosition(7, 8, 9);
  }
  void expectNothingStored() const {
    EXPECT_EQ(agent.gyroName, "before");
    EXPECT_THAT(agent.gyroRate, IsPlace(7, 8, 9));
  }
};

TEST_F(Gyroscope, NameAndRateAreStored) {
  EXPECT_EQ(decode("(GYR (n torso) (rt 0.01 -0.07 0.46))"), 0);
  EXPECT_EQ(agent.gyroName, "torso");
  EXPECT_THAT(agent.gyroRate, IsPlaceNear(0.01, -0.07, 0.46));
}

TEST_F(Gyroscope, AnyNameFillsTheOnePairOfFields) {
  EXPECT_EQ(decode("(GYR (rt 1 2 3) (n elbow))"), 0);
  EXPECT_EQ(agent.gyroName, "elbow");
  EXPECT_THAT(agent.gyroRate, IsPlace(1, 2, 3));
}

TEST_F(Gyroscope, RateAloneComesWithAnEmptyName) {
  EXPECT_EQ(decode("(GYR (rt 1 2 3))"), 0);
  EXPECT_EQ(agent.gyroName, "");
  EXPECT_THAT(agent.gyroRate, IsPlace(1, 2, 3));
}

TEST_F(Gyroscope, NameAloneComesWithNoRate) {
  EXPECT_EQ(decode("(GYR (n torso))"), 0);
  EXPECT_EQ(agent.gyroName, "torso");
  EXPECT_THAT(agent.gyroRate, IsPlace(0, 0, 0));
}

TEST_F(Gyroscope, UnknownPartIsAComplaintAndTheRestIsStored) {
  EXPECT_EQ(decode("(GYR (n torso) (x 1) word (rt 1 2 3))"), 2);
  EXPECT_THAT(agent.gyroRate, IsPlace(1, 2, 3));
}

TEST_F(Gyroscope, PartsAreKnownByHowTheyBegin) {
  EXPECT_EQ(decode("(GYR (name torso) (rtx 1 2 3))"), 0);
  EXPECT_EQ(agent.gyroName, "torso");
  EXPECT_THAT(agent.gyroRate, IsPlace(1, 2, 3));
}

TEST_F(Gyroscope, MisshapenPartGivesTheElementUp) {
  EXPECT_EQ(decode("(GYR (n torso) (rt 1 2))"), 1);
  EXPECT_EQ(decode("(GYR (n torso) (rt 1 2 3 4))"), 1);
  EXPECT_EQ(decode("(GYR (n) (rt 1 2 3))"), 1);
  EXPECT_EQ(decode("(GYR (x) (n a b) (rt 1 2 3))"), 2);
  expectNothingStored();
}

TEST_F(Gyroscope, UnsplittableOneIsOneComplaint) {
  EXPECT_EQ(decode("(GYR (n torso) (rt 1 2 3)"), 1);
  expectNothingStored();
}

class Accelerometer : public BodySensors {
 protected:
  static int decode(const std::string& element) { return SLangParser::parseACCInfo(element); }
  void SetUp() override { agent.accel = VecPosition(7, 8, 9); }
};

TEST_F(Accelerometer, ThirdGroupIsTheReading) {
  EXPECT_EQ(decode("(ACC (n torso) (a 0.00 -0.25 9.81))"), 1);
  EXPECT_THAT(agent.accel, IsPlace(0, -0.25, 9.81));
  EXPECT_EQ(decode("(what (so) (ever 1e2 2 3))"), 1);
  EXPECT_THAT(agent.accel, IsPlace(100, 2, 3));
}

TEST_F(Accelerometer, ElementWithoutGroupsReadsAsZeros) {
  EXPECT_EQ(decode("(ACC)"), 1);
  EXPECT_THAT(agent.accel, IsPlace(0, 0, 0));
}

TEST_F(Accelerometer, SecondGroupIsNotTheReading) {
  EXPECT_EQ(decode("(ACC (a 1 2 3))"), 1);
  EXPECT_THAT(agent.accel, IsPlace(0, 0, 0));
}

TEST_F(Accelerometer, MissingAndBadNumbersReadAsZero) {
  EXPECT_EQ(decode("(ACC (n torso) (a 1 2))"), 1);
  EXPECT_THAT(agent.accel, IsPlace(1, 2, 0));
  EXPECT_EQ(decode("(ACC (n torso) (a one 2x 3))"), 1);
  EXPECT_THAT(agent.accel, IsPlace(0, 2, 3));
  EXPECT_EQ(decode("(ACC (n torso) (a))"), 1);
  EXPECT_THAT(agent.accel, IsPlace(0, 0, 0));
  EXPECT_EQ(decode(""), 1);
  EXPECT_THAT(agent.accel, IsPlace(0, 0, 0));
}

TEST_F(Accelerometer, UnclosedElementIsReadAllTheSame) {
  EXPECT_EQ(decode("(ACC (n torso) (a 1 2 3"), 1);
  EXPECT_THAT(agent.accel, IsPlace(1, 2, 3));
}

class HingeJoint : public BodySensors {
 protected:
  static int decode(const std::string& element) {
    return SLangParser::parseHingeJointInfo(element);
  }
  void SetUp() override {
    for (HingJoint& joint : agent.joints) {
      joint.angle = 77;
    }
  }
  [[nodiscard]] double angleOf(const std::string& joint) const {
    return agent.findJoint(joint)->angle;
  }
  void expectNothingStored() const {
    for (const HingJoint& joint : agent.joints) {
      EXPECT_EQ(joint.angle, 77) << joint.perceptorName;
    }
  }
};

TEST_F(HingeJoint, EveryJointTakesItsAngleInDegrees) {
  int index = 0;
  for (const std::string name :
       {"hj1",  "hj2",  "raj1", "raj2", "raj3", "raj4", "laj1", "laj2", "laj3", "laj4", "rlj1",
        "rlj2", "rlj3", "rlj4", "rlj5", "rlj6", "llj1", "llj2", "llj3", "llj4", "llj5", "llj6"}) {
    SCOPED_TRACE(name);
    ++index;
    EXPECT_EQ(decode("(HJ (n " + name + ") (ax -" + std::to_string(index) + ".25))"), 0);
    EXPECT_EQ(angleOf(name), -index - 0.25);
  }
  EXPECT_EQ(index, 22);
}

TEST_F(HingeJoint, OnlyTheNamedJointChanges) {
  decode("(HJ (ax 3) (n raj2))");
  EXPECT_EQ(angleOf("raj2"), 3);
  agent.findJoint("raj2")->angle = 77;
  expectNothingStored();
}

TEST_F(HingeJoint, RateIsReadAndDropped) {
  EXPECT_EQ(decode("(HJ (n hj1) (rt 0.5) (ax 12))"), 0);
  EXPECT_EQ(angleOf("hj1"), 12);
}

TEST_F(HingeJoint, MisshapenRateIsOnlyAComplaint) {
  EXPECT_EQ(decode("(HJ (n hj1) (rt) (ax 12) (rt 1 2))"), 2);
  EXPECT_EQ(angleOf("hj1"), 12);
}

TEST_F(HingeJoint, WithoutAnAngleTheJointIsAtZero) {
  EXPECT_EQ(decode("(HJ (n hj1))"), 1);
  EXPECT_EQ(angleOf("hj1"), 0);
}

TEST_F(HingeJoint, UnknownAngleIsZeroWithAComplaint) {
  EXPECT_EQ(decode("(HJ (n hj1) (ax nan00))"), 1);
  EXPECT_EQ(angleOf("hj1"), 0);
  EXPECT_EQ(decode("(HJ (n hj2) (ax -1000))"), 1);
  EXPECT_EQ(angleOf("hj2"), 0);
}

TEST_F(HingeJoint, ShortNanIsAnAngleOfZero) {
  EXPECT_EQ(decode("(HJ (n hj1) (ax nan))"), 0);
  EXPECT_EQ(angleOf("hj1"), 0);
}

TEST_F(HingeJoint, UnknownNameStoresNothing) {
  EXPECT_EQ(decode("(HJ (n nosuch) (ax 3))"), 1);
  EXPECT_EQ(decode("(HJ (n hj11) (ax 3))"), 1);
  EXPECT_EQ(decode("(HJ (ax 3))"), 1);
  EXPECT_EQ(decode("(HJ)"), 1);
  expectNothingStored();
}

TEST_F(HingeJoint, MisshapenPartGivesTheElementUp) {
  EXPECT_EQ(decode("(HJ (n hj1) (ax 1 2))"), 1);
  EXPECT_EQ(decode("(HJ (n hj1) (ax))"), 1);
  EXPECT_EQ(decode("(HJ (n hj1 hj2) (ax 1))"), 1);
  EXPECT_EQ(decode("(HJ (x) (rt) (n) (ax 1))"), 3);
  expectNothingStored();
}

TEST_F(HingeJoint, UnknownPartIsAComplaintAndTheRestIsStored) {
  EXPECT_EQ(decode("(HJ (x 1) (n hj1) word (ax 12))"), 2);
  EXPECT_EQ(angleOf("hj1"), 12);
}

TEST_F(HingeJoint, PartsAreKnownByHowTheyBegin) {
  EXPECT_EQ(decode("(HJ (name hj1) (axis 12) (rtx 3))"), 0);
  EXPECT_EQ(angleOf("hj1"), 12);
}

TEST_F(HingeJoint, UnsplittableOneIsOneComplaint) {
  EXPECT_EQ(decode("(HJ (n hj1) (ax 12)"), 1);
  expectNothingStored();
}

class FootForce : public BodySensors {
 protected:
  static int decode(const std::string& element) { return SLangParser::parseFRPInfo(element); }
  void SetUp() override {
    for (VecPosition* place : {&agent.leftFootForceCentre, &agent.leftFootForce,
                               &agent.rightFootForceCentre, &agent.rightFootForce}) {
      *place = VecPosition(7, 8, 9);
    }
  }
  void expectLeftUntouched() const {
    EXPECT_THAT(agent.leftFootForceCentre, IsPlace(7, 8, 9));
    EXPECT_THAT(agent.leftFootForce, IsPlace(7, 8, 9));
  }
  void expectRightUntouched() const {
    EXPECT_THAT(agent.rightFootForceCentre, IsPlace(7, 8, 9));
    EXPECT_THAT(agent.rightFootForce, IsPlace(7, 8, 9));
  }
};

TEST_F(FootForce, LeftFoot) {
  EXPECT_EQ(decode("(FRP (n lf) (c 0.01 0.02 -0.03) (f 1.2 3.4 22.1))"), 0);
  EXPECT_THAT(agent.leftFootForceCentre, IsPlaceNear(0.01, 0.02, -0.03));
  EXPECT_THAT(agent.leftFootForce, IsPlaceNear(1.2, 3.4, 22.1));
  expectRightUntouched();
}

TEST_F(FootForce, RightFoot) {
  EXPECT_EQ(decode("(FRP (f 4 5 6) (c 1 2 3) (n rf))"), 0);
  EXPECT_THAT(agent.rightFootForceCentre, IsPlace(1, 2, 3));
  EXPECT_THAT(agent.rightFootForce, IsPlace(4, 5, 6));
  expectLeftUntouched();
}

TEST_F(FootForce, AbsentGroupIsUnknownUntilALaterElement) {
  EXPECT_EQ(decode("(FRP (n lf) (c 1 2 3))"), 0);
  EXPECT_THAT(agent.leftFootForceCentre, IsPlace(1, 2, 3));
  EXPECT_THAT(agent.leftFootForce, IsPlace(-1000, -1000, -1000));
  EXPECT_EQ(decode("(FRP (n lf) (f 4 5 6))"), 0);
  EXPECT_THAT(agent.leftFootForceCentre, IsPlace(-1000, -1000, -1000));
  EXPECT_THAT(agent.leftFootForce, IsPlace(4, 5, 6));
}

TEST_F(FootForce, UnknownFootStoresNothing) {
  EXPECT_EQ(decode("(FRP (n xf) (c 1 2 3) (f 4 5 6))"), 0);
  EXPECT_EQ(decode("(FRP (c 1 2 3) (f 4 5 6))"), 0);
  EXPECT_EQ(decode("(FRP)"), 0);
  expectLeftUntouched();
  expectRightUntouched();
}

TEST_F(FootForce, MisshapenPartGivesTheElementUp) {
  EXPECT_EQ(decode("(FRP (n lf) (c 1 2) (f 4 5 6))"), 1);
  EXPECT_EQ(decode("(FRP (n lf) (c 1 2 3) (f 4 5 6 7))"), 1);
  EXPECT_EQ(decode("(FRP (n) (c 1 2 3) (f 4 5 6))"), 1);
  EXPECT_EQ(decode("(FRP (x) (n lf) (f) (c 1 2 3))"), 2);
  expectLeftUntouched();
}

TEST_F(FootForce, UnknownPartIsAComplaintAndTheRestIsStored) {
  EXPECT_EQ(decode("(FRP (n lf) (x 1) word (c 1 2 3) (f 4 5 6))"), 2);
  EXPECT_THAT(agent.leftFootForce, IsPlace(4, 5, 6));
}

TEST_F(FootForce, PartsAreKnownByHowTheyBegin) {
  EXPECT_EQ(decode("(FRP (name lf) (centre 1 2 3) (force 4 5 6))"), 0);
  EXPECT_THAT(agent.leftFootForceCentre, IsPlace(1, 2, 3));
  EXPECT_THAT(agent.leftFootForce, IsPlace(4, 5, 6));
}

TEST_F(FootForce, UnsplittableOneIsOneComplaint) {
  EXPECT_EQ(decode("(FRP (n lf) (c 1 2 3) (f 4 5 6)"), 1);
  expectLeftUntouched();
}

}  // namespace
