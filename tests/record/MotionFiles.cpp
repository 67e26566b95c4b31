#include "tests/record/MotionFiles.h"

#include <array>
#include <cstdio>

namespace {

[[nodiscard]] std::string Number(int hundredths) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "%s%d.%02d", hundredths < 0 ? "-" : "",
                (hundredths < 0 ? -hundredths : hundredths) / 100,
                (hundredths < 0 ? -hundredths : hundredths) % 100);
  return text.data();
}

/// COUNT blocks that each name one joint of either leg, and a word that no reader knows.
[[nodiscard]] std::string Blocks(int number, int count) {
  std::string text;
  for (int block = 1; block <= count; ++block) {
    text += "RHipPitchCommand " + Number(number * 2 + block) + "\nLKneePitchCommand " +
            Number(-number - block) + "\nUnheardOf 7\n";
    if (block % 2 == 0) text += "LAnkleRollCommand " + Number(block) + "\n";
    text += "move 0.04\n";
  }
  return text;
}

[[nodiscard]] std::string Pose(const char* joint, int hundredths, const char* seconds) {
  return std::string(joint) + " " + Number(hundredths) + "\nNoJoint 1\nMOVE " + seconds +
         "\nRSP 1\n";
}

}  // namespace

std::vector<MotionFile> MotionFiles(bool complete) {
  std::vector<MotionFile> files;
  int number = 0;
  for (const char* name :
       {"shoot",     "turnL40",   "turnR40",   "turnL180",  "turnR180",  "turnR60", "turnL60",
        "turnL15",   "turnR15",   "turnL9",    "turnR9",    "sideR",     "sideRm",  "sideLm",
        "walkstart", "walkloop1", "walkloop2", "walkloop3", "walkloop4", "walkend"}) {
    ++number;
    files.push_back({std::string(name) + ".txt", Blocks(number, 2 + number % 4)});
  }
  files.push_back({"initialstate.txt", Pose("LSP", 21, "0.1")});
  files.push_back({"initialstateforwalk.txt", Pose("RSP", 22, "0.2")});
  files.push_back({"JumpR1.txt", Pose("RSR", -41, "0.06")});
  files.push_back({"JumpL1.txt", Pose("LSR", 42, "0.06")});
  files.push_back({"JumpR2.txt", Pose("RER", 43, "0.06")});
  files.push_back({"JumpL2.txt", Pose("LER", -44, "0.06")});
  for (int stage = 2; stage <= 4; ++stage) {
    files.push_back({"back" + std::to_string(stage) + ".txt", Pose("LHP", 50 + stage, "0.06")});
    files.push_back({"front" + std::to_string(stage) + ".txt", Pose("RHP", 60 + stage, "0.06")});
  }
  for (int step = 1; step <= 8; ++step) {
    const char* seconds = step == 7 ? "0.04" : "0.02";
    files.push_back({"kickR" + std::to_string(step) + ".txt", Pose("RKP", 70 + step, seconds)});
    if (complete || step != 6) {
      files.push_back({"kickL" + std::to_string(step) + ".txt", Pose("LKP", 80 + step, seconds)});
    }
  }
  if (complete) {
    files.push_back({"back.txt", Blocks(30, 3)});
    files.push_back({"sideL.txt", Blocks(31, 3)});
  }
  return files;
}
