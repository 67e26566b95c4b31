#include "arena/model/Mjcf.h"

#include <cmath>
#include <limits>
#include <sstream>
#include <stdexcept>

#include "arena/model/BodyTable.h"
#include "arena/model/FieldTable.h"
#include "arena/model/PhysicsTable.h"

namespace arena {
namespace {

struct Spaced {
  Vec3 v;
};

std::ostream& operator<<(std::ostream& out, const Spaced& s) {
  return out << s.v[0] << ' ' << s.v[1] << ' ' << s.v[2];
}

Vec3 halved(const Vec3& v) {
  return {v[0] / 2, v[1] / 2, v[2] / 2};
}

void requirePositive(double value, const char* what) {
  if (!std::isfinite(value) || value <= 0) {
    throw std::invalid_argument(std::string("model: ") + what + " must be above zero");
  }
}

void requireUsable(const ModelSettings& s) {
  requirePositive(s.stepSeconds, "step");
  requirePositive(s.motorTorqueLimit, "motor torque limit");
  requirePositive(s.groundFriction, "ground friction");
  requirePositive(s.contactTimeConstant, "contact time constant");
  requirePositive(s.massFactor, "mass factor");
}

class Writer {
 public:
  Writer(std::ostream& out, const ModelSettings& settings) : out_(out), settings_(settings) {}

  void options(int robots) const {
    // The engine's own guess at its memory is so large that clearing it takes several cycles when a
    // robot joins. Contacts beyond the room are left out, which softens an impossible heap.
    const int joints = static_cast<int>(kJointCount) * robots;
    const int contacts = kContactsInCommon + kContactsPerRobot * robots;
    const int stops = joints / 2;
    const int rows = joints + stops + 3 * contacts;
    // Working space of the solver. Running out of it would end the process, so there is more than
    // half as much again as was ever in use [measured: 5.2 * velocities^2, heaps of 2 to 12].
    const int velocities = 6 + 6 * robots + joints;
    const int stack = 8 * velocities * velocities + rows * velocities + 20000;
    out_ << "<compiler angle='degree'/>\n"
         << "<option timestep='" << settings_.stepSeconds << "' gravity='0 0 " << -kGravity
         << "' solver='Newton' cone='" << kFrictionCone << "' impratio='" << kImpratio
         << "' iterations='" << kSolverIterations << "' tolerance='" << kSolverTolerance << "'/>\n"
         << "<size njmax='" << rows << "' nconmax='" << contacts << "' nstack='" << stack << "'/>\n"
         << "<default>\n"
         << "<geom friction='" << kLinkFriction << " 0 0' condim='3' solref='"
         << settings_.contactTimeConstant << " 1'/>\n"
         << "<joint frictionloss='" << settings_.motorTorqueLimit << "' armature='" << kRotorInertia
         << "' limited='true' solreflimit='" << kStopTimeConstant << " 1' solimplimit='"
         << kStopImpedance << ' ' << kStopImpedance << " 0.001' solimpfriction='" << kServoImpedance
         << ' ' << kServoImpedance << " 0.001'/>\n"
         << "</default>\n";
  }

  void field() const {
    out_ << "<geom name='" << kGroundName << "' type='plane' size='0 0 1' priority='1'"
         << " friction='" << settings_.groundFriction << " 0 0'/>\n";
    for (const double side : {-1.0, 1.0}) {
      const double x = side * (kFieldLength / 2 + kGoalPostRadius);
      const double y = kGoalWidth / 2 + kGoalPostRadius;
      const double z = kGoalHeight + kGoalPostRadius;
      bar({x, -y, 0}, {x, -y, z});
      bar({x, y, 0}, {x, y, z});
      bar({x, -y, z}, {x, y, z});
    }
  }

  void ball() const {
    const double inertia = kBallInertiaShare * kBallMass * kBallRadius * kBallRadius;
    out_ << "<body name='" << kBallName << "' pos='0 0 " << kBallRadius
         << "'><inertial pos='0 0 0' mass='" << kBallMass << "' diaginertia='"
         << Spaced{{inertia, inertia, inertia}} << "'/><freejoint name='" << kBallName
         << "'/><geom name='" << kBallName << "' type='sphere' size='" << kBallRadius
         << "' priority='2' condim='6' friction='" << kBallFriction << ' ' << kBallRollingFriction
         << ' ' << kBallRollingFriction << "'/></body>\n";
  }

  void robot(int index) const {
    const std::string torso = nameInModel(index, kTorsoName);
    // Where it stands in the text is of no account: a world puts every robot somewhere itself.
    out_ << "<body name='" << torso << "' pos='" << index - 6 << " -4 " << kStandingHeight
         << "'><freejoint name='" << torso << "'/>";
    geom(torso, Shape::kBox, kTorsoExtents, kTorsoMass);
    children(index, kTorsoName);
    out_ << "</body>\n";
  }

  void exclusions(int index) const {
    for (const LinkPair& pair : kNonColliding) {
      out_ << "<exclude body1='" << nameInModel(index, pair.a) << "' body2='"
           << nameInModel(index, pair.b) << "'/>\n";
    }
  }

 private:
  void bar(const Vec3& from, const Vec3& to) const {
    out_ << "<geom type='capsule' size='" << kGoalPostRadius << "' fromto='" << Spaced{from} << ' '
         << Spaced{to} << "'/>\n";
  }

  void geom(const std::string& name, Shape shape, const Vec3& extents, double mass) const {
    out_ << "<geom name='" << name << "' mass='" << mass * settings_.massFactor << "' ";
    if (shape == Shape::kBox) {
      out_ << "type='box' size='" << Spaced{halved(extents)} << "'";
    } else {
      out_ << "type='sphere' size='" << extents[0] / 2 << "'";
    }
    if (shape == Shape::kSmall) out_ << " contype='0' conaffinity='0'";
    out_ << "/>";
  }

  void children(int index, std::string_view parent) const {
    for (const JointRow& row : kJoints) {
      if (row.parent != parent) continue;
      const std::string name = nameInModel(index, row.link);
      out_ << "\n<body name='" << name << "' pos='" << Spaced{row.offset} << "'><joint name='"
           << name << "' axis='" << Spaced{row.axis} << "' pos='" << Spaced{row.anchor}
           << "' range='" << row.lowDeg << ' ' << row.highDeg << "'/>";
      geom(name, row.shape, row.extents, row.mass);
      children(index, row.link);
      out_ << "</body>";
    }
  }

  std::ostream& out_;
  const ModelSettings& settings_;
};

}  // namespace

std::string nameInModel(int robot, std::string_view link) {
  return "robot" + std::to_string(robot) + "/" + std::string(link);
}

std::string mjcf(int robots, const ModelSettings& settings) {
  requireUsable(settings);
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out.precision(std::numeric_limits<double>::max_digits10);
  const Writer write(out, settings);
  out << "<mujoco model='pitch'>\n";
  write.options(robots);
  out << "<worldbody>\n";
  write.field();
  write.ball();
  for (int i = 0; i < robots; ++i) write.robot(i);
  out << "</worldbody>\n";
  if (robots > 0) {
    out << "<contact>\n";
    for (int i = 0; i < robots; ++i) write.exclusions(i);
    out << "</contact>\n";
  }
  out << "</mujoco>\n";
  return out.str();
}

}  // namespace arena
