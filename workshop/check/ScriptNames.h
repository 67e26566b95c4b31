#pragma once

/// The scripts that the player looks for, by the names of their files. check, judge and whoever
/// writes scripts walk this table; a test holds it against the player itself.

#include <array>
#include <string_view>

namespace workshop {

/// An action script, and the action under which the player opens it.
struct ActionScript {
  std::string_view action;
  std::string_view file;
  /// File of the pose that the player plays first; empty within the walk.
  std::string_view pose;
  /// Action whose script comes before it in the walk; empty elsewhere.
  std::string_view after;
};

inline constexpr std::string_view kInitialPose = "initialstate.txt";
inline constexpr std::string_view kWalkPose = "initialstateforwalk.txt";

// clang-format off
inline constexpr std::array<ActionScript, 22> kActionScripts{{
    {"backward",  "back.txt",      kInitialPose, ""},
    {"shoot",     "shoot.txt",     kInitialPose, ""},
    {"turnL9",    "turnL9.txt",    kInitialPose, ""},
    {"turnR9",    "turnR9.txt",    kInitialPose, ""},
    {"turnL15",   "turnL15.txt",   kInitialPose, ""},
    {"turnR15",   "turnR15.txt",   kInitialPose, ""},
    {"turnL40",   "turnL40.txt",   kInitialPose, ""},
    {"turnR40",   "turnR40.txt",   kInitialPose, ""},
    {"turnL60",   "turnL60.txt",   kInitialPose, ""},
    {"turnR60",   "turnR60.txt",   kInitialPose, ""},
    {"turnL180",  "turnL180.txt",  kInitialPose, ""},
    {"turnR180",  "turnR180.txt",  kInitialPose, ""},
    {"sideL",     "sideL.txt",     kInitialPose, ""},
    {"sideR",     "sideR.txt",     kInitialPose, ""},
    {"sideLm",    "sideLm.txt",    kInitialPose, ""},
    {"sideRm",    "sideRm.txt",    kInitialPose, ""},
    {"walkstart", "walkstart.txt", kWalkPose,    ""},
    {"walkloop1", "walkloop1.txt", "",           "walkstart"},
    {"walkloop2", "walkloop2.txt", "",           "walkloop1"},
    {"walkloop3", "walkloop3.txt", "",           "walkloop2"},
    {"walkloop4", "walkloop4.txt", "",           "walkloop3"},
    {"walkend",   "walkend.txt",   "",           "walkloop4"},
}};

inline constexpr std::array<std::string_view, 28> kPoseScripts{
    kInitialPose, kWalkPose,
    "JumpR1.txt", "JumpL1.txt", "JumpR2.txt", "JumpL2.txt",
    "back2.txt",  "back3.txt",  "back4.txt",  "front2.txt", "front3.txt", "front4.txt",
    "kickL1.txt", "kickL2.txt", "kickL3.txt", "kickL4.txt",
    "kickL5.txt", "kickL6.txt", "kickL7.txt", "kickL8.txt",
    "kickR1.txt", "kickR2.txt", "kickR3.txt", "kickR4.txt",
    "kickR5.txt", "kickR6.txt", "kickR7.txt", "kickR8.txt",
};
// clang-format on

/// Null for a file that no action opens.
constexpr const ActionScript* actionScriptIn(std::string_view file) {
  for (const ActionScript& script : kActionScripts) {
    if (script.file == file) return &script;
  }
  return nullptr;
}

constexpr bool isPoseScript(std::string_view file) {
  for (const std::string_view pose : kPoseScripts) {
    if (pose == file) return true;
  }
  return false;
}

}  // namespace workshop
