#include "workshop/generate/ScriptText.h"

#include <cmath>
#include <cstdio>
#include <string_view>

#include "workshop/generate/Algebra3.h"

namespace workshop {
namespace {

void appendPair(std::string& text, std::string_view word, double number, const char* format) {
  std::array<char, 32> digits{};
  std::snprintf(digits.data(), digits.size(), format, number);
  // What rounds to zero is written without a sign.
  const std::string_view shown = digits.data();
  const bool zero = shown.find_first_not_of("-0.") == std::string_view::npos;
  text += word;
  text += ' ';
  text += zero && shown.front() == '-' ? shown.substr(1) : shown;
  text += '\n';
}

void appendJoint(std::string& text, std::string_view word, const ScriptJoint& joint, double deg) {
  // A tenth of a milliradian is finer than the angle sensors.
  appendPair(text, word, (joint.pitch ? -deg : deg) * kRadPerDeg, "%.4f");
}

}  // namespace

std::string actionScript(const std::vector<Posture>& targets) {
  std::string text;
  for (const Posture& target : targets) {
    for (std::size_t j = 0; j < kActionJointCount; ++j) {
      appendJoint(text, kScriptJoints[j].actionWord, kScriptJoints[j], target[j]);
    }
    text += "move 0.04\n";
  }
  return text;
}

std::string poseScript(const Posture& posture, const std::array<bool, kScriptJointCount>& named,
                       double seconds) {
  std::string text;
  for (std::size_t j = 0; j < kScriptJointCount; ++j) {
    if (named[j]) appendJoint(text, kScriptJoints[j].poseWord, kScriptJoints[j], posture[j]);
  }
  appendPair(text, "MOVE", seconds, "%g");
  return text;
}

std::string poseScript(const Posture& posture, double seconds) {
  std::array<bool, kScriptJointCount> all{};
  all.fill(true);
  return poseScript(posture, all, seconds);
}

}  // namespace workshop
