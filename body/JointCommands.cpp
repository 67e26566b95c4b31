/// BasicAgent: the joints' targets, the motion step, and the one door through which messages leave.

#include <cstring>
#include <limits>
#include <string_view>
#include <utility>

#include "body/BasicAgent.h"
#include "perception/WorldModel.h"
#include "runtime/Connection.h"

namespace {

/// As given: yaw, roll and yaw-pitch joints.
void setTarget(BasicAgent& agent, JointIndex joint, long double angle) {
  jointsFlag& flag = agent.jointFlags[joint];
  flag.perceptorName = kJointRows[joint].perceptor;
  flag.effectorName = kJointRows[joint].effector;
  flag.active = true;
  flag.targetAngle = static_cast<double>(angle);
}

/// The scripts' sign of every pitch joint is the opposite of the server's.
void setPitchTarget(BasicAgent& agent, JointIndex joint, long double angle) {
  setTarget(agent, joint, -angle);
}

/// What a conversion of a number that doesn't fit gives on this machine.
int truncateLikeTheProcessor(long double value) {
  constexpr long double kLowest = std::numeric_limits<int>::min();
  constexpr long double kHighest = std::numeric_limits<int>::max();
  const bool fits = value > kLowest - 1.0L && value < kHighest + 1.0L;
  return fits ? static_cast<int>(value) : std::numeric_limits<int>::min();
}

}  // namespace

void BasicAgent::HeadYawCommand(long double angle) {
  setTarget(*this, kHeadYaw, angle);
}
void BasicAgent::HeadPitchCommand(long double angle) {
  setPitchTarget(*this, kHeadPitch, angle);
}
void BasicAgent::RShoulderPitchCommand(long double angle) {
  setPitchTarget(*this, kRShoulderPitch, angle);
}
void BasicAgent::RShoulderRollCommand(long double angle) {
  setTarget(*this, kRShoulderRoll, angle);
}
void BasicAgent::RElbowYawCommand(long double angle) {
  setTarget(*this, kRElbowYaw, angle);
}
void BasicAgent::RElbowRollCommand(long double angle) {
  setTarget(*this, kRElbowRoll, angle);
}
void BasicAgent::LShoulderPitchCommand(long double angle) {
  setPitchTarget(*this, kLShoulderPitch, angle);
}
void BasicAgent::LShoulderRollCommand(long double angle) {
  setTarget(*this, kLShoulderRoll, angle);
}
void BasicAgent::LElbowYawCommand(long double angle) {
  setTarget(*this, kLElbowYaw, angle);
}
void BasicAgent::LElbowRollCommand(long double angle) {
  setTarget(*this, kLElbowRoll, angle);
}
void BasicAgent::RHipYawPitchCommand(long double angle) {
  setTarget(*this, kRHipYawPitch, angle);
}
void BasicAgent::RHipRollCommand(long double angle) {
  setTarget(*this, kRHipRoll, angle);
}
void BasicAgent::RHipPitchCommand(long double angle) {
  setPitchTarget(*this, kRHipPitch, angle);
}
void BasicAgent::RKneePitchCommand(long double angle) {
  setPitchTarget(*this, kRKneePitch, angle);
}
void BasicAgent::RAnklePitchCommand(long double angle) {
  setPitchTarget(*this, kRAnklePitch, angle);
}
void BasicAgent::RAnkleRollCommand(long double angle) {
  setTarget(*this, kRAnkleRoll, angle);
}
void BasicAgent::LHipYawPitchCommand(long double angle) {
  setTarget(*this, kLHipYawPitch, angle);
}
void BasicAgent::LHipRollCommand(long double angle) {
  setTarget(*this, kLHipRoll, angle);
}
void BasicAgent::LHipPitchCommand(long double angle) {
  setPitchTarget(*this, kLHipPitch, angle);
}
void BasicAgent::LKneePitchCommand(long double angle) {
  setPitchTarget(*this, kLKneePitch, angle);
}
void BasicAgent::LAnklePitchCommand(long double angle) {
  setPitchTarget(*this, kLAnklePitch, angle);
}
void BasicAgent::LAnkleRollCommand(long double angle) {
  setTarget(*this, kLAnkleRoll, angle);
}

void BasicAgent::zeroJoints() {
  // Head and shoulder rolls keep whatever they had.
  for (const JointIndex joint :
       {kLShoulderPitch, kRShoulderPitch, kRHipPitch, kLHipPitch, kLHipRoll, kRHipRoll,
        kLHipYawPitch, kRHipYawPitch, kLKneePitch, kRKneePitch, kRAnklePitch, kLAnklePitch,
        kRAnkleRoll, kLAnkleRoll, kRElbowRoll, kLElbowRoll, kRElbowYaw, kLElbowYaw}) {
    jointFlags[joint].targetAngle = 0.0;
    jointFlags[joint].active = true;
  }
  Kp = 1.53;
  Ki = 0.002;
  Kd = 0.0098;
}

void BasicAgent::initMove(double seconds) {
  constexpr double kCycleSeconds = 0.02;
  static_assert(std::numeric_limits<long double>::digits == 64, "the scripts' timing rests on it");
  // In 80-bit precision and then cut. The double next to 0.02 lies a little above it, so most
  // durations lose a cycle; in double precision the quotient would round up to the whole number.
  moveCyclesLeft = truncateLikeTheProcessor(static_cast<long double>(seconds) /
                                            static_cast<long double>(kCycleSeconds));
  lastMoveCycle = WorldModel::getSingleton()->cycle - 1;
  for (jointsFlag& flag : jointFlags) {
    if (flag.active) {
      flag.lastError = 0.0;
      flag.errorSum = 0.0;
    }
  }
}

HingJoint* BasicAgent::findJoint(std::string perceptorName) {
  // Most names differ in their last character already.
  const char last = perceptorName.empty() ? '\0' : perceptorName.back();
  for (HingJoint& joint : joints) {
    const std::string& name = joint.perceptorName;
    if (name.size() == perceptorName.size() && (name.empty() || name.back() == last) &&
        name == perceptorName) {
      return &joint;
    }
  }
  return nullptr;
}

void BasicAgent::sendCommand(std::string text) {
  constexpr std::string_view kHeadYawEffector = "he1";
  constexpr std::size_t kZerosAndLength = 171;  // so the link need not make room once more
  commands += text;
  std::string message;
  message.reserve(kZerosAndLength + commands.size());
  for (const jointsFlag& flag : jointFlags) {
    // The head's yaw alone keeps turning at its last speed from one command to the next.
    if (flag.effectorName != kHeadYawEffector) {
      message += '(';
      message += flag.effectorName;
      message += " 0)";
    }
  }
  message += commands;
  // What a C string tells: a zero byte would end the message.
  message.resize(std::strlen(message.c_str()));
  Connection::getSingleton()->PutMSG(std::move(message));
  commands.clear();
}

std::string BasicAgent::getCommands() const {
  return commands;
}

void BasicAgent::sendSay(std::string text) {
  text.insert(0, "(say ");
  text += ')';
  sendCommand(std::move(text));
}
