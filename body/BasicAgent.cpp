#include "body/BasicAgent.h"

#include "perception/WorldModel.h"

namespace {

/// A shirt number never heard from loses every comparison of who is nearest to the ball.
constexpr double kFarAway = 1000.0;
constexpr double kOffField = -10000.0;

void forgetTeamBall() {
  for (PolarInfo& ball : WorldModel::getSingleton()->teamBall) {
    ball.seen = false;
    ball.lastSeenCycle = 0;
    ball.position.x = kOffField;
    ball.position.y = kOffField;
    ball.distance = kFarAway;
  }
}

struct LinkRow {
  HingJoint BasicAgent::*link;
  const char* name;
  const char* perceptor;
  HingJoint BasicAgent::*parent;
  double x, y, z;  ///< [m] offset from the parent
  double mass;     ///< [kg]
};

constexpr double kTorsoMass = 1.2171;

// In the order of `joints`. The elbows' x is mirrored against the upper arms'.
using B = BasicAgent;
// clang-format off
constexpr std::array<LinkRow, kJointCount> kLinks{{
    //            name         perceptor parent             offset                    mass
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

}  // namespace

BasicAgent::BasicAgent() {
  forgetTeamBall();
  Kp = 1.0;
  Ki = 0.0;
  Kd = 0.0;
  particleFilters = std::make_unique<Particle_filtering[]>(kFilterCount);
  actionFileStartTime = 0;
  actionFileOpen = false;

  Torso.name = "Torso";
  Torso.mass = kTorsoMass;
  for (std::size_t i = 0; i < kJointCount; ++i) {
    const LinkRow& row = kLinks[i];
    HingJoint& link = this->*row.link;
    link.name = row.name;
    link.perceptorName = row.perceptor;
    link.parent = &(this->*row.parent);
    link.relPos = {row.x, row.y, row.z};
    link.mass = row.mass;
    joints[i] = link;
  }

  keepRunning = true;
  commands.clear();
  for (std::size_t i = 0; i < kJointCount; ++i) {
    jointFlags[i].perceptorName = kJointRows[i].perceptor;
    jointFlags[i].effectorName = kJointRows[i].effector;
  }
}
