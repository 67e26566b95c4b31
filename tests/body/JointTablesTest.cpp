#include "body/JointTables.h"

#include <array>

#include "tests/body/BodyTest.h"

namespace {

using JointTables = BodyTest;

struct ExpectedRow {
  const char* perceptor;
  const char* effector;
};

constexpr std::array<ExpectedRow, 22> kRows{{
    {"hj1", "he1"},   {"hj2", "he2"},   {"raj1", "rae1"}, {"raj2", "rae2"}, {"raj3", "rae3"},
    {"raj4", "rae4"}, {"laj1", "lae1"}, {"laj2", "lae2"}, {"laj3", "lae3"}, {"laj4", "lae4"},
    {"rlj1", "rle1"}, {"rlj2", "rle2"}, {"rlj3", "rle3"}, {"rlj4", "rle4"}, {"rlj5", "rle5"},
    {"rlj6", "rle6"}, {"llj1", "lle1"}, {"llj2", "lle2"}, {"llj3", "lle3"}, {"llj4", "lle4"},
    {"llj5", "lle5"}, {"llj6", "lle6"},
}};

TEST_F(JointTables, RowsOfTheCommandedJointsStandInMessageOrder) {
  ASSERT_EQ(body.jointFlags.size(), kRows.size());
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    EXPECT_EQ(body.jointFlags[i].perceptorName, kRows[i].perceptor) << "row " << i;
    EXPECT_EQ(body.jointFlags[i].effectorName, kRows[i].effector) << "row " << i;
  }
}

TEST_F(JointTables, CommandedJointsStartIdleAndAtZero) {
  for (const jointsFlag& row : body.jointFlags) {
    EXPECT_FALSE(row.active) << row.perceptorName;
    EXPECT_EQ(row.targetAngle, 0) << row.perceptorName;
    EXPECT_EQ(row.speed, 0) << row.perceptorName;
    EXPECT_EQ(row.nextAngle, 0) << row.perceptorName;
    EXPECT_EQ(row.lastError, 0) << row.perceptorName;
    EXPECT_EQ(row.errorSum, 0) << row.perceptorName;
  }
}

struct ExpectedLink {
  HingJoint BasicAgent::*member;
  const char* name;
  const char* perceptor;
  HingJoint BasicAgent::*parent;
  double x, y, z;  // [m]
  double mass;     // [kg]
};

using B = BasicAgent;

// clang-format off
constexpr std::array<ExpectedLink, 22> kLinks{{
    {&B::Neck,      "Neck",      "hj1",  &B::Torso,      0,      0,      0.09,   0.05},
    {&B::Head,      "Head",      "hj2",  &B::Neck,       0,      0,      0.065,  0.35},
    {&B::Lshoulder, "Lshoulder", "laj1", &B::Torso,     -0.098,  0,      0.075,  0.07},
    {&B::Rshoulder, "Rshoulder", "raj1", &B::Torso,      0.098,  0,      0.075,  0.07},
    {&B::LUpperArm, "LUpperArm", "laj2", &B::Lshoulder, -0.01,   0.02,   0,      0.15},
    {&B::RUpperArm, "RUpperArm", "raj2", &B::Rshoulder,  0.01,   0.02,   0,      0.15},
    {&B::LElbow,    "LElbow",    "laj3", &B::LUpperArm,  0.01,   0.07,   0.009,  0.035},
    {&B::RElbow,    "RElbow",    "raj3", &B::RUpperArm, -0.01,   0.07,   0.009,  0.035},
    {&B::LLowerArm, "LLowerArm", "laj4", &B::LElbow,     0,      0.05,   0,      0.2},
    {&B::RLowerArm, "RLowerArm", "raj4", &B::RElbow,     0,      0.05,   0,      0.2},
    {&B::LHip1,     "LHip1",     "llj1", &B::Torso,     -0.055, -0.01,  -0.115,  0.09},
    {&B::RHip1,     "RHip1",     "rlj1", &B::Torso,      0.055, -0.01,  -0.115,  0.09},
    {&B::LHip2,     "LHip2",     "llj2", &B::LHip1,      0,      0,      0,      0.125},
    {&B::RHip2,     "RHip2",     "rlj2", &B::RHip1,      0,      0,      0,      0.125},
    {&B::LThigh,    "LThigh",    "llj3", &B::LHip2,      0,      0.01,  -0.04,   0.275},
    {&B::RThigh,    "RThigh",    "rlj3", &B::RHip2,      0,      0.01,  -0.04,   0.275},
    {&B::LShank,    "LShank",    "llj4", &B::LThigh,     0,      0.005, -0.125,  0.225},
    {&B::RShank,    "RShank",    "rlj4", &B::RThigh,     0,      0.005, -0.125,  0.225},
    {&B::LAnkle,    "LAnkle",    "llj5", &B::LShank,     0,     -0.01,  -0.055,  0.125},
    {&B::RAnkle,    "RAnkle",    "rlj5", &B::RShank,     0,     -0.01,  -0.055,  0.125},
    {&B::LFoot,     "LFoot",     "llj6", &B::LAnkle,     0,      0.03,  -0.035,  0.2},
    {&B::RFoot,     "RFoot",     "rlj6", &B::RAnkle,     0,      0.03,  -0.035,  0.2},
}};
// clang-format on

void ExpectLink(const HingJoint& link, const ExpectedLink& row, const HingJoint* parent) {
  SCOPED_TRACE(row.name);
  EXPECT_EQ(link.name, row.name);
  EXPECT_EQ(link.perceptorName, row.perceptor);
  EXPECT_EQ(link.parent, parent);
  EXPECT_EQ(link.relPos, VecPosition(row.x, row.y, row.z));
  EXPECT_EQ(link.absPos, VecPosition(0, 0, 0));
  EXPECT_EQ(link.mass, row.mass);
  EXPECT_EQ(link.angle, 0);
}

TEST_F(JointTables, TorsoIsTheRoot) {
  EXPECT_EQ(body.Torso.name, "Torso");
  EXPECT_EQ(body.Torso.perceptorName, "");
  EXPECT_EQ(body.Torso.parent, nullptr);
  EXPECT_EQ(body.Torso.relPos, VecPosition(0, 0, 0));
  EXPECT_EQ(body.Torso.mass, 1.2171);
}

TEST_F(JointTables, NamedLinksHoldTheBodyTable) {
  for (const ExpectedLink& row : kLinks) ExpectLink(body.*row.member, row, &(body.*row.parent));
}

TEST_F(JointTables, LiveJointsAreCopiesWhoseParentsAreTheNamedLinks) {
  ASSERT_EQ(body.joints.size(), kLinks.size());
  for (std::size_t i = 0; i < kLinks.size(); ++i) {
    ExpectLink(body.joints[i], kLinks[i], &(body.*kLinks[i].parent));
  }
}

TEST_F(JointTables, FindJointTellsEveryLiveJointByItsPerceptor) {
  for (std::size_t i = 0; i < kLinks.size(); ++i) {
    EXPECT_EQ(body.findJoint(kLinks[i].perceptor), &body.joints[i]) << kLinks[i].perceptor;
  }
}

TEST_F(JointTables, UnknownJointIsNull) {
  EXPECT_EQ(body.findJoint("nosuch"), nullptr);
  EXPECT_EQ(body.findJoint(""), nullptr) << "the torso isn't among the live joints";
  EXPECT_EQ(body.findJoint("raj"), nullptr);
  EXPECT_EQ(body.findJoint("raj22"), nullptr);
  EXPECT_EQ(body.findJoint("RAJ2"), nullptr);
}

TEST_F(JointTables, RightShoulderRollIsJointFiveAndRowThree) {
  EXPECT_EQ(body.findJoint("raj2"), &body.joints[5]);
  EXPECT_EQ(body.jointFlags[3].perceptorName, "raj2");
}

TEST_F(JointTables, EveryRowHasItsLiveJoint) {
  for (const jointsFlag& row : body.jointFlags) {
    ASSERT_NE(body.findJoint(row.perceptorName), nullptr) << row.perceptorName;
  }
}

TEST_F(JointTables, NewBodyHasItsGainsAndAnIdleStep) {
  EXPECT_EQ(body.Kp, 1);
  EXPECT_EQ(body.Ki, 0);
  EXPECT_EQ(body.Kd, 0);
  EXPECT_TRUE(body.keepRunning);
  EXPECT_FALSE(body.actionFileOpen);
  EXPECT_EQ(body.actionFileStartTime, 0);
  EXPECT_EQ(body.getCommands(), "");
  EXPECT_EQ(body.headState, 0);
  EXPECT_EQ(body.moveCyclesLeft, 0);
  EXPECT_EQ(body.lastMoveCycle, 0);
  EXPECT_EQ(body.lastLoadTime, 0);
  EXPECT_EQ(body.jumpTime, 0);
  EXPECT_EQ(body.getUpStartTime, 0);
}

TEST_F(JointTables, NewBodyPutsEveryonesBallFarAway) {
  for (PolarInfo& ball : world.teamBall) {
    ball.seen = true;
    ball.lastSeenCycle = 7;
    ball.distance = 1;
    ball.position = VecPosition(1, 2, 0);
  }
  const BasicAgent another;
  for (const PolarInfo& ball : world.teamBall) {
    EXPECT_FALSE(ball.seen);
    EXPECT_EQ(ball.lastSeenCycle, 0);
    EXPECT_EQ(ball.distance, 1000);
    EXPECT_EQ(ball.position.x, -10000);
    EXPECT_EQ(ball.position.y, -10000);
  }
}

}  // namespace
