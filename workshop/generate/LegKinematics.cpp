#include "workshop/generate/LegKinematics.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "arena/model/BodyTable.h"

namespace workshop {
namespace {

constexpr const arena::JointRow& rowOf(std::string_view link) {
  return arena::kJoints[arena::rowOfLink(link)];
}

/// From hip to knee and from knee to ankle with all angles at zero; both lie in the plane x = 0.
constexpr Vec3 kThigh = rowOf("LThigh").offset + rowOf("LShank").offset + rowOf("LShank").anchor;
constexpr Vec3 kShank = (rowOf("LAnkle").offset + rowOf("LAnkle").anchor) - rowOf("LShank").anchor;
static_assert(kThigh[0] == 0 && kShank[0] == 0 && kShank[1] == 0, "the inverse rests on it");

/// The yaw-pitch axis is the vertical tilted towards the leg's own side by this.
constexpr double kHipTilt = std::numbers::pi / 4;

double sideOf(Leg leg) {
  return leg == Leg::kLeft ? -1.0 : 1.0;
}

double inPlane(const Vec3& v) {
  return std::atan2(v[2], v[1]);
}

Mat3 aboutAxis(const Vec3& unit, double rad) {
  const double c = std::cos(rad);
  const double s = std::sin(rad);
  const double t = 1 - c;
  const auto [x, y, z] = unit;
  return {t * x * x + c,     t * x * y - s * z, t * x * z + s * y, t * x * y + s * z, t * y * y + c,
          t * y * z - s * x, t * x * z - s * y, t * y * z + s * x, t * z * z + c};
}

/// The yaw-pitch turn as the tilted vertical gives it: left, the axis points down.
Mat3 yawPitch(Leg leg, double rad) {
  const double side = sideOf(leg);
  return aboutY(-side * kHipTilt) * aboutZ(side * rad) * aboutY(side * kHipTilt);
}

}  // namespace

Vec3 hipPlace(Leg leg) {
  return rowOf(leg == Leg::kLeft ? "LHip1" : "RHip1").offset;
}

double ankleHeight() {
  return -rowOf("LFoot").offset[2] + rowOf("LFoot").extents[2] / 2;
}

LegAngles legAngles(Leg leg, const FootPlace& foot) {
  const double side = sideOf(leg);
  // The hip seen from the ankle, in the sole's frame. Turning the ankle's roll back brings it into
  // the plane in which knee and ankle bend.
  const Vec3 hip = transposed(foot.sole) * (-1.0 * foot.ankle);
  const double ankleRoll = std::atan2(-hip[0], hip[2]);
  const Vec3 flat{0, hip[1], std::hypot(hip[0], hip[2])};

  // Law of cosines; the thigh's line runs from the hip to the knee's axis, a little off the link's
  // own z.
  const double thigh = std::hypot(kThigh[1], kThigh[2]);
  const double shank = -kShank[2];
  const double slant = std::atan2(kThigh[1], -kThigh[2]);
  const double square = flat[1] * flat[1] + flat[2] * flat[2];
  const double cosine =
      std::clamp((square - thigh * thigh - shank * shank) / (2 * thigh * shank), -1.0, 1.0);
  const double knee = slant - std::acos(cosine);

  const Vec3 bent = -1.0 * (aboutX(-knee) * kThigh + kShank);
  const double anklePitch = std::remainder(inPlane(bent) - inPlane(flat), 2 * std::numbers::pi);

  // What is left for the hip, seen in the tilted frame, is a rotation about z, y and x in turn.
  const Mat3 rest = foot.sole * aboutY(-ankleRoll) * aboutX(-anklePitch) * aboutX(-knee);
  const Mat3 zyx = aboutY(side * kHipTilt) * rest;
  const double yaw = std::atan2(zyx[3], zyx[0]);
  const double tiltedRoll = std::asin(std::clamp(-zyx[6], -1.0, 1.0));
  const double pitch = std::atan2(zyx[7], zyx[8]);
  return {side * yaw / kRadPerDeg, (tiltedRoll - side * kHipTilt) / kRadPerDeg,
          pitch / kRadPerDeg,      knee / kRadPerDeg,
          anklePitch / kRadPerDeg, ankleRoll / kRadPerDeg};
}

FootPlace footPlace(Leg leg, const LegAngles& degrees) {
  LegAngles rad{};
  std::transform(degrees.begin(), degrees.end(), rad.begin(),
                 [](double deg) { return deg * kRadPerDeg; });
  const Mat3 hip = yawPitch(leg, rad[0]) * aboutY(rad[1]) * aboutX(rad[2]);
  const Mat3 knee = hip * aboutX(rad[3]);
  return {hip * kThigh + knee * kShank, knee * aboutX(rad[4]) * aboutY(rad[5])};
}

void setLeg(Posture& posture, Leg leg, const LegAngles& degrees) {
  for (std::size_t i = 0; i < degrees.size(); ++i) {
    posture[2 + 2 * i + (leg == Leg::kLeft ? 0 : 1)] = degrees[i];
  }
}

LegAngles legOf(const Posture& posture, Leg leg) {
  LegAngles degrees{};
  for (std::size_t i = 0; i < degrees.size(); ++i) {
    degrees[i] = posture[2 + 2 * i + (leg == Leg::kLeft ? 0 : 1)];
  }
  return degrees;
}

Vec3 centreOfMass(const Posture& posture) {
  struct Placed {
    Vec3 origin;
    Mat3 axes;
  };
  constexpr Placed kTorso{{0, 0, 0}, {1, 0, 0, 0, 1, 0, 0, 0, 1}};
  std::array<Placed, arena::kJointCount> links{};
  double mass = arena::kTorsoMass;
  Vec3 sum{};
  for (std::size_t i = 0; i < arena::kJointCount; ++i) {
    const arena::JointRow& row = arena::kJoints[i];
    const std::size_t parent = arena::rowOfLink(row.parent);
    const Placed& from = parent < arena::kJointCount ? links[parent] : kTorso;
    const std::size_t named = rowOfScriptJoint(row.perceptor);
    const double angle = named < kScriptJointCount ? posture[named] * kRadPerDeg : 0.0;
    const Mat3 turn = aboutAxis(row.axis, angle);
    // The link turns about its anchor, not about its own origin.
    links[i].axes = from.axes * turn;
    links[i].origin = from.origin + from.axes * ((row.offset + row.anchor) - (turn * row.anchor));
    sum = sum + row.mass * links[i].origin;
    mass += row.mass;
  }
  return (1.0 / mass) * sum;
}

}  // namespace workshop
