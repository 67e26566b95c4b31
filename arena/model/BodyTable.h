#pragma once

/// The robot's body: one table of links and joints, the only source of it in the training ground.
/// The physics model is generated from it when a world is built; senses and sessions read joint
/// names and ranges from it. Constant throughout.
///
/// Torso frame: x to the right, y forward, z up; all link frames are parallel to it while every
/// joint stands at zero. Lengths in metres, masses in kilograms, angles in degrees.

#include <array>
#include <cstddef>
#include <string_view>

namespace arena {

using Vec3 = std::array<double, 3>;

inline constexpr std::size_t kJointCount = 22;

/// How a link is shaped. Small links are spheres that only carry mass: nothing touches them.
enum class Shape { kBox, kSphere, kSmall };

/// One link and the joint that ties it to its parent.
struct JointRow {
  std::string_view perceptor;  ///< name of the joint's angle sensor
  std::string_view effector;   ///< name of the joint's motor
  std::string_view link;
  std::string_view parent;  ///< link that it hangs on; kTorsoName for the root
  Vec3 offset{};            ///< [m] of the link's origin from the parent's
  Vec3 axis{};              ///< link frame; positive by the right-hand rule
  double lowDeg = 0;        ///< [deg] range
  double highDeg = 0;       ///< [deg] range
  Vec3 anchor{};            ///< [m] point of the joint's axis, from the link's own origin
  double mass = 0;          ///< [kg]
  Shape shape = Shape::kSmall;
  Vec3 extents{};  ///< [m] full extents of a box; diameters of a sphere
};

inline constexpr std::string_view kTorsoName = "Torso";
inline constexpr double kTorsoMass = 1.2171;            ///< [kg]
inline constexpr Vec3 kTorsoExtents{0.10, 0.10, 0.18};  ///< [m] box, full extents
/// [m] height of the torso's origin while the robot stands straight: offsets down to the foot
/// (0.115 + 0.04 + 0.125 + 0.055 + 0.035) and half the foot's thickness.
inline constexpr double kStandingHeight = 0.380;

// clang-format off
inline constexpr std::array<JointRow, kJointCount> kJoints{{
  //perceptor effector link        parent       offset                     axis                    range          anchor                 mass    shape          extents
  //                                            [m]                                                [deg]          [m]                    [kg]                   [m]
  {"hj1",  "he1",  "Neck",      "Torso",     { 0,      0,     0.09 },  { 0,      0, 1     },  -120, 120,  { 0,     0,     0    },  0.05,  Shape::kSmall,  {0.03, 0.03, 0.03}},
  {"hj2",  "he2",  "Head",      "Neck",      { 0,      0,     0.065},  { 1,      0, 0     },   -45,  45,  { 0,     0,    -0.005},  0.35,  Shape::kSphere, {0.13, 0.13, 0.13}},
  {"laj1", "lae1", "Lshoulder", "Torso",     {-0.098,  0,     0.075},  { 1,      0, 0     },  -120, 120,  { 0,     0,     0    },  0.07,  Shape::kSmall,  {0.03, 0.03, 0.03}},
  {"raj1", "rae1", "Rshoulder", "Torso",     { 0.098,  0,     0.075},  { 1,      0, 0     },  -120, 120,  { 0,     0,     0    },  0.07,  Shape::kSmall,  {0.03, 0.03, 0.03}},
  {"laj2", "lae2", "LUpperArm", "Lshoulder", {-0.01,   0.02,  0    },  { 0,      0, 1     },    -1,  95,  { 0.01, -0.02,  0    },  0.15,  Shape::kBox,    {0.07, 0.08, 0.06}},
  {"raj2", "rae2", "RUpperArm", "Rshoulder", { 0.01,   0.02,  0    },  { 0,      0, 1     },   -95,   1,  {-0.01, -0.02,  0    },  0.15,  Shape::kBox,    {0.07, 0.08, 0.06}},
  {"laj3", "lae3", "LElbow",    "LUpperArm", { 0.01,   0.07,  0.009},  { 0,      1, 0     },  -120, 120,  { 0,     0,     0    },  0.035, Shape::kSmall,  {0.03, 0.03, 0.03}},
  {"raj3", "rae3", "RElbow",    "RUpperArm", {-0.01,   0.07,  0.009},  { 0,      1, 0     },  -120, 120,  { 0,     0,     0    },  0.035, Shape::kSmall,  {0.03, 0.03, 0.03}},
  {"laj4", "lae4", "LLowerArm", "LElbow",    { 0,      0.05,  0    },  { 0,      0, 1     },   -90,   1,  { 0,    -0.05,  0    },  0.2,   Shape::kBox,    {0.05, 0.11, 0.05}},
  {"raj4", "rae4", "RLowerArm", "RElbow",    { 0,      0.05,  0    },  { 0,      0, 1     },    -1,  90,  { 0,    -0.05,  0    },  0.2,   Shape::kBox,    {0.05, 0.11, 0.05}},
  {"llj1", "lle1", "LHip1",     "Torso",     {-0.055, -0.01, -0.115},  {-0.7071, 0,-0.7071},   -90,   1,  { 0,     0,     0    },  0.09,  Shape::kSmall,  {0.03, 0.03, 0.03}},
  {"rlj1", "rle1", "RHip1",     "Torso",     { 0.055, -0.01, -0.115},  {-0.7071, 0, 0.7071},   -90,   1,  { 0,     0,     0    },  0.09,  Shape::kSmall,  {0.03, 0.03, 0.03}},
  {"llj2", "lle2", "LHip2",     "LHip1",     { 0,      0,     0    },  { 0,      1, 0     },   -25,  45,  { 0,     0,     0    },  0.125, Shape::kSmall,  {0.03, 0.03, 0.03}},
  {"rlj2", "rle2", "RHip2",     "RHip1",     { 0,      0,     0    },  { 0,      1, 0     },   -45,  25,  { 0,     0,     0    },  0.125, Shape::kSmall,  {0.03, 0.03, 0.03}},
  {"llj3", "lle3", "LThigh",    "LHip2",     { 0,      0.01, -0.04 },  { 1,      0, 0     },   -25, 100,  { 0,    -0.01,  0.04 },  0.275, Shape::kBox,    {0.07, 0.07, 0.14}},
  {"rlj3", "rle3", "RThigh",    "RHip2",     { 0,      0.01, -0.04 },  { 1,      0, 0     },   -25, 100,  { 0,    -0.01,  0.04 },  0.275, Shape::kBox,    {0.07, 0.07, 0.14}},
  {"llj4", "lle4", "LShank",    "LThigh",    { 0,      0.005,-0.125},  { 1,      0, 0     },  -130,   1,  { 0,    -0.01,  0.045},  0.225, Shape::kBox,    {0.08, 0.07, 0.11}},
  {"rlj4", "rle4", "RShank",    "RThigh",    { 0,      0.005,-0.125},  { 1,      0, 0     },  -130,   1,  { 0,    -0.01,  0.045},  0.225, Shape::kBox,    {0.08, 0.07, 0.11}},
  {"llj5", "lle5", "LAnkle",    "LShank",    { 0,     -0.01, -0.055},  { 1,      0, 0     },   -45,  75,  { 0,     0,     0    },  0.125, Shape::kSmall,  {0.03, 0.03, 0.03}},
  {"rlj5", "rle5", "RAnkle",    "RShank",    { 0,     -0.01, -0.055},  { 1,      0, 0     },   -45,  75,  { 0,     0,     0    },  0.125, Shape::kSmall,  {0.03, 0.03, 0.03}},
  {"llj6", "lle6", "LFoot",     "LAnkle",    { 0,      0.03, -0.035},  { 0,      1, 0     },   -45,  25,  { 0,    -0.03,  0.035},  0.2,   Shape::kBox,    {0.08, 0.16, 0.02}},
  {"rlj6", "rle6", "RFoot",     "RAnkle",    { 0,      0.03, -0.035},  { 0,      1, 0     },   -25,  45,  { 0,    -0.03,  0.035},  0.2,   Shape::kBox,    {0.08, 0.16, 0.02}},
}};
// clang-format on

/// Two links of one robot that never touch each other.
struct LinkPair {
  std::string_view a;
  std::string_view b;
};

/// Pairs whose shapes overlap or touch at rest. Links that share a joint don't collide either;
/// they need no row. Head and torso are tied by the neck and touch in one point at rest.
inline constexpr std::array kNonColliding{
    LinkPair{"Torso", "Head"},          LinkPair{"Torso", "LThigh"},
    LinkPair{"Torso", "RThigh"},        LinkPair{"Torso", "LUpperArm"},
    LinkPair{"Torso", "RUpperArm"},     LinkPair{"LUpperArm", "LLowerArm"},
    LinkPair{"RUpperArm", "RLowerArm"}, LinkPair{"LShank", "LFoot"},
    LinkPair{"RShank", "RFoot"},
};

/// Row of the link called LINK; kJointCount when there is none.
constexpr std::size_t rowOfLink(std::string_view link) {
  for (std::size_t i = 0; i < kJointCount; ++i) {
    if (kJoints[i].link == link) return i;
  }
  return kJointCount;
}

/// Row of the joint whose motor is called EFFECTOR; kJointCount when there is none.
constexpr std::size_t rowOfEffector(std::string_view effector) {
  for (std::size_t i = 0; i < kJointCount; ++i) {
    if (kJoints[i].effector == effector) return i;
  }
  return kJointCount;
}

/// Row of the joint whose angle sensor is called PERCEPTOR; kJointCount when there is none.
constexpr std::size_t rowOfPerceptor(std::string_view perceptor) {
  for (std::size_t i = 0; i < kJointCount; ++i) {
    if (kJoints[i].perceptor == perceptor) return i;
  }
  return kJointCount;
}

/// Names unique, parents before children, ranges ordered and round zero, axes of unit length to
/// within the rounding of 0.7071, masses and extents above zero.
constexpr bool bodyTableIsSane(const std::array<JointRow, kJointCount>& rows) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const JointRow& row = rows[i];
    bool parentKnown = row.parent == kTorsoName;
    for (std::size_t k = 0; k < i; ++k) {
      if (rows[k].perceptor == row.perceptor || rows[k].effector == row.effector ||
          rows[k].link == row.link) {
        return false;
      }
      parentKnown = parentKnown || rows[k].link == row.parent;
    }
    const double length2 =
        row.axis[0] * row.axis[0] + row.axis[1] * row.axis[1] + row.axis[2] * row.axis[2];
    if (!parentKnown || length2 < 0.9999 || length2 > 1.0001) return false;
    if (row.lowDeg >= 0 || row.highDeg <= 0 || row.mass <= 0) return false;
    if (row.extents[0] <= 0 || row.extents[1] <= 0 || row.extents[2] <= 0) return false;
  }
  return true;
}
static_assert(bodyTableIsSane(kJoints));
static_assert(rowOfLink("Neck") == 0 && rowOfLink("RFoot") == kJointCount - 1);

}  // namespace arena
