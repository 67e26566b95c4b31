#include "workshop/generate/Keyframes.h"

#include <cmath>
#include <numbers>

#include "workshop/generate/Controller.h"
#include "workshop/generate/ScriptText.h"

namespace workshop {
namespace {

using Mask = std::array<bool, kScriptJointCount>;

struct NamedAngles {
  Posture posture{};
  Mask named{};
};

void setAngle(NamedAngles& target, std::size_t row, double degrees) {
  target.posture[row] = degrees;
  target.named[row] = true;
}

ParameterError unknownJoint(const std::string& name, const std::string& where) {
  return ParameterError(where + ": no script moves a joint \"" + name + "\"");
}

/// Adds the angles of OBJECT to TARGET.
void readAngles(const Json& object, NamedAngles& target, const std::string& where) {
  if (!object.is_object()) throw ParameterError(where + ": must be an object");
  for (const auto& [name, value] : object.items()) {
    const double degrees = numberIn(object, name, where);
    const std::size_t row = rowOfScriptJoint(name);
    const std::size_t left = rowOfScriptJoint("l" + name);
    if (row < kScriptJointCount) {
      setAngle(target, row, degrees);
    } else if (left < kScriptJointCount) {
      setAngle(target, left, degrees);
      const ScriptJoint& joint = kScriptJoints[left];
      setAngle(target, joint.partner, joint.mirrorNegates ? -degrees : degrees);
    } else {
      throw unknownJoint(name, where);
    }
  }
}

Mask mirroredMask(const Mask& named) {
  Mask result{};
  for (std::size_t i = 0; i < named.size(); ++i) result[i] = named[kScriptJoints[i].partner];
  return result;
}

const Json& listIn(const Json& file, std::string_view name, const std::string& where) {
  const Json& list = objectIn(file, name, where);
  if (!list.is_array()) {
    throw ParameterError(where + ": \"" + std::string(name) + "\" must be a list");
  }
  return list;
}

}  // namespace

Scripts posesFrom(const Json& file, const Posture& standing, const std::string& where) {
  Scripts scripts;
  int number = 0;
  for (const Json& entry : listIn(file, "poses", where)) {
    const std::string inside = where + "/poses/" + std::to_string(number++);
    requireKeys(entry,
                std::array<std::string_view, 5>{"file", "mirror", "seconds", "base", "degrees"},
                inside);
    NamedAngles pose;
    if (entry.contains("base")) {
      if (textIn(entry, "base", inside) != "standing") {
        throw ParameterError(inside + ": \"base\" must be \"standing\"");
      }
      pose.posture = standing;
      pose.named.fill(true);
    }
    readAngles(objectIn(entry, "degrees", inside), pose, inside + "/degrees");
    const double seconds = numberIn(entry, "seconds", inside);
    scripts[textIn(entry, "file", inside)] = poseScript(pose.posture, pose.named, seconds);
    if (entry.contains("mirror")) {
      scripts[textIn(entry, "mirror", inside)] =
          poseScript(mirrored(pose.posture), mirroredMask(pose.named), seconds);
    }
  }
  return scripts;
}

Scripts keyframesFrom(const Json& file, const Posture& standing, const std::string& where) {
  std::vector<Posture> path{standing};
  int number = 0;
  for (const Json& entry : listIn(file, "frames", where)) {
    const std::string inside = where + "/frames/" + std::to_string(number++);
    requireKeys(entry, std::array<std::string_view, 2>{"blocks", "degrees"}, inside);
    const int blocks = wholeNumberIn(entry, "blocks", inside);
    const Posture from = path.back();
    NamedAngles target{from, {}};
    readAngles(objectIn(entry, "degrees", inside), target, inside + "/degrees");
    for (int k = 1; k <= blocks; ++k) {
      const double share = (1 - std::cos(std::numbers::pi * k / blocks)) / 2;
      Posture posture = from;
      for (std::size_t j = 0; j < kActionJointCount; ++j) {
        posture[j] = from[j] + share * (target.posture[j] - from[j]);
      }
      path.push_back(posture);
    }
  }
  std::vector<Posture> targets = targetsThrough(path);
  Scripts scripts{{textIn(file, "file", where), actionScript(targets)}};
  if (file.contains("mirror")) {
    for (Posture& target : targets) target = mirrored(target);
    scripts[textIn(file, "mirror", where)] = actionScript(targets);
  }
  return scripts;
}

}  // namespace workshop
