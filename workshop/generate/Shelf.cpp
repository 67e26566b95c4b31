#include "workshop/generate/Shelf.h"

#include <fstream>
#include <vector>

#include "workshop/generate/Controller.h"
#include "workshop/generate/Gait.h"
#include "workshop/generate/Keyframes.h"
#include "workshop/generate/ScriptText.h"
#include "workshop/generate/Standing.h"

namespace workshop {
namespace {

const Json& descriptionCalled(const Descriptions& descriptions, const std::string& name) {
  const auto found = descriptions.find(name);
  if (found == descriptions.end()) throw ParameterError("no parameters are called " + name);
  return found->second;
}

ParameterError madeTwice(const std::string& name, const std::string& script) {
  return ParameterError(name + ": " + script + " is made by two descriptions");
}

std::string between(const std::vector<Posture>& path, int from, int to) {
  return actionScript(targetsThrough({path.begin() + from, path.begin() + to + 1}));
}

Scripts standingScripts(const StandingDescription& standing) {
  const std::string pose =
      poseScript(standingPosture(standing.stance, standing.arms), standing.seconds);
  return {{"initialstate.txt", pose}, {"initialstateforwalk.txt", pose}};
}

/// One course with three strides at full pace between its start and its end. The loop is the middle
/// one, so that what comes before and after it is a full stride too.
Scripts walkScripts(const WalkDescription& walk, const StandingDescription& standing) {
  const int n = walk.gait.blocks;
  const int start = walk.startStrides * n;
  const int end = start + 3 * n;
  const Course course{walk.startStrides + 3 + walk.endStrides, walk.pace};
  const std::vector<Posture> path = gaitPath(walk.gait, course, standing.stance, standing.arms);
  const std::string loop = between(path, start + n, start + 2 * n);
  return {{"walkstart.txt", between(path, 0, start)},
          {"walkloop1.txt", loop},
          {"walkloop2.txt", loop},
          {"walkloop3.txt", loop},
          {"walkloop4.txt", loop},
          {"walkend.txt", between(path, end, end + walk.endStrides * n)}};
}

Scripts stepsScripts(const StepsDescription& steps, const StandingDescription& standing) {
  std::vector<Posture> path = gaitPath(steps.gait, steps.course, standing.stance, standing.arms);
  std::vector<Posture> targets = targetsThrough(path);
  Scripts scripts{{steps.file, actionScript(targets)}};
  if (steps.mirror) {
    for (Posture& target : targets) target = mirrored(target);
    scripts[*steps.mirror] = actionScript(targets);
  }
  return scripts;
}

}  // namespace

Descriptions readDescriptions(const std::filesystem::path& folder) {
  Descriptions descriptions;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    if (entry.path().extension() != ".json") continue;
    std::ifstream in(entry.path());
    try {
      descriptions[entry.path().stem()] = Json::parse(in);
    } catch (const Json::parse_error& problem) {
      throw ParameterError(entry.path().string() + ": " + problem.what());
    }
  }
  if (error) throw ParameterError(folder.string() + ": " + error.message());
  return descriptions;
}

Scripts scriptsOf(const Descriptions& descriptions, const std::string& name) {
  const Json& file = descriptionCalled(descriptions, name);
  const StandingDescription standing =
      standingFrom(descriptionCalled(descriptions, kStandingName), kStandingName);
  const std::string kind = textIn(file, "kind", name);
  if (kind == "standing") return standingScripts(standing);
  if (kind == "walk") return walkScripts(walkFrom(file, name), standing);
  if (kind == "steps") return stepsScripts(stepsFrom(file, name), standing);
  const Posture posture = standingPosture(standing.stance, standing.arms);
  if (kind == "poses") return posesFrom(file, posture, name);
  if (kind == "keyframes") return keyframesFrom(file, posture, name);
  throw ParameterError(name + ": unknown kind \"" + kind + "\"");
}

Scripts allScripts(const Descriptions& descriptions) {
  Scripts all;
  for (const auto& [name, file] : descriptions) {
    for (auto& [script, text] : scriptsOf(descriptions, name)) {
      if (!all.emplace(script, std::move(text)).second) {
        throw madeTwice(name, script);
      }
    }
  }
  return all;
}

}  // namespace workshop
