#pragma once

/// The joints that motion scripts can move, with their words in the two script formats, and the
/// posture of a body as a generator thinks of it. Read by everything in this folder.
///
/// Angles are degrees in the server's sign, as in the body table; only the text writer turns them
/// into the scripts' radians and signs.

#include <array>
#include <cstddef>
#include <string_view>

namespace workshop {

inline constexpr std::size_t kScriptJointCount = 20;
/// The first rows are those that an action script knows; the others move in pose scripts alone.
inline constexpr std::size_t kActionJointCount = 14;

struct ScriptJoint {
  std::string_view perceptor;
  std::string_view actionWord;  ///< empty where the action format has none
  std::string_view poseWord;
  bool pitch = false;          ///< the scripts' sign is the opposite of the server's
  std::size_t partner = 0;     ///< row of the same joint on the other side
  bool mirrorNegates = false;  ///< a mirrored motion has the partner's angle negated
};

// clang-format off
inline constexpr std::array<ScriptJoint, kScriptJointCount> kScriptJoints{{
  //perceptor action word               pose word pitch  partner negated
  {"laj1", "LShoulderPitchCommand",  "LSP",    true,   1,     false},
  {"raj1", "RShoulderPitchCommand",  "RSP",    true,   0,     false},
  {"llj1", "LHipYawPitchCommand",    "LHY",    false,  3,     false},
  {"rlj1", "RHipYawPitchCommand",    "RHY",    false,  2,     false},
  {"llj2", "LHipRollCommand",        "LHR",    false,  5,     true},
  {"rlj2", "RHipRollCommand",        "RHR",    false,  4,     true},
  {"llj3", "LHipPitchCommand",       "LHP",    true,   7,     false},
  {"rlj3", "RHipPitchCommand",       "RHP",    true,   6,     false},
  {"llj4", "LKneePitchCommand",      "LKP",    true,   9,     false},
  {"rlj4", "RKneePitchCommand",      "RKP",    true,   8,     false},
  {"llj5", "LAnklePitchCommand",     "LAP",    true,  11,     false},
  {"rlj5", "RAnklePitchCommand",     "RAP",    true,  10,     false},
  {"llj6", "LAnkleRollCommand",      "LAR",    false, 13,     true},
  {"rlj6", "RAnkleRollCommand",      "RAR",    false, 12,     true},
  {"laj2", "",                       "LSR",    false, 15,     true},
  {"raj2", "",                       "RSR",    false, 14,     true},
  {"laj3", "",                       "LEY",    false, 17,     true},
  {"raj3", "",                       "REY",    false, 16,     true},
  {"laj4", "",                       "LER",    false, 19,     true},
  {"raj4", "",                       "RER",    false, 18,     true},
}};
// clang-format on

/// [deg] one angle per row of kScriptJoints.
using Posture = std::array<double, kScriptJointCount>;

/// Row of the joint whose angle sensor is called PERCEPTOR; kScriptJointCount when there is none.
constexpr std::size_t rowOfScriptJoint(std::string_view perceptor) {
  for (std::size_t i = 0; i < kScriptJointCount; ++i) {
    if (kScriptJoints[i].perceptor == perceptor) return i;
  }
  return kScriptJointCount;
}

constexpr bool scriptJointsAreSane() {
  for (std::size_t i = 0; i < kScriptJointCount; ++i) {
    const ScriptJoint& row = kScriptJoints[i];
    const ScriptJoint& other = kScriptJoints[row.partner];
    if (row.partner == i || other.partner != i || other.mirrorNegates != row.mirrorNegates) {
      return false;
    }
    if (row.actionWord.empty() != (i >= kActionJointCount) || row.poseWord.empty()) return false;
    if (rowOfScriptJoint(row.perceptor) != i) return false;
  }
  return true;
}
static_assert(scriptJointsAreSane(), "names unique, partners mutual, action joints first");

/// The same posture with left and right exchanged.
constexpr Posture mirrored(const Posture& posture) {
  Posture result{};
  for (std::size_t i = 0; i < kScriptJointCount; ++i) {
    const double angle = posture[kScriptJoints[i].partner];
    result[i] = kScriptJoints[i].mirrorNegates ? -angle : angle;
  }
  return result;
}

}  // namespace workshop
