#include "workshop/check/ScriptCheck.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

#include "workshop/check/Playback.h"
#include "workshop/check/ScriptNames.h"
#include "workshop/check/ScriptText.h"
#include "workshop/check/Vocabulary.h"
#include "workshop/trial/ScriptFolder.h"

namespace workshop {
namespace {

constexpr double kShortestPoseSeconds = 0.02;
constexpr double kBlockSeconds = 0.04;  ///< of an action, whatever number its end bears
constexpr double kRadPerDeg = 3.14159265358979323846 / 180.0;
constexpr int kGoalkeeper = 1;  ///< its head doesn't move

std::string shortened(double number) {
  std::ostringstream text;
  text << number;
  return text.str();
}

/// One script under the magnifying glass.
class Reading {
 public:
  Reading(const std::filesystem::path& file, ScriptKind kind, Vocabulary& words)
      : file_(file), kind_(kind), words_(words) {}

  std::vector<Finding> check(const std::string& text) {
    int blocks = 0;
    for (const Pair& pair : pairsOf(text)) {
      if (kind_ == ScriptKind::kPose && blocks > 0) {
        note(pair.line, "nothing behind the first MOVE is read");
        break;
      }
      if (!pair.readable) {
        note(pair.line,
             "no number behind " + pair.word + ": it counts as 0 and reading ends there");
      }
      take(pair, blocks);
    }
    const std::string end = kind_ == ScriptKind::kPose ? "MOVE" : "move";
    if (!named_.empty() && (kind_ == ScriptKind::kAction || blocks == 0)) {
      note(0, "no " + end + " behind the last joints: they don't move");
    } else if (blocks == 0) {
      note(0, "no block that ends in " + end);
    }
    return std::move(findings_);
  }

 private:
  void take(const Pair& pair, int& blocks) {
    const Meaning& meaning = words_.meaningOf(kind_, pair.word);
    switch (meaning.role) {
      case Meaning::Role::kUnknown:
        note(pair.line, "unknown word " + pair.word + ": skipped with its number");
        break;
      case Meaning::Role::kEnd:
        ++blocks;
        named_.clear();
        if (kind_ == ScriptKind::kPose && !(pair.number >= kShortestPoseSeconds)) {
          note(pair.line, "a pose of " + shortened(pair.number) + " s doesn't move");
        }
        if (kind_ == ScriptKind::kAction && pair.readable && pair.number != kBlockSeconds) {
          note(pair.line, "a block of " + shortened(pair.number) + " s: all last 0.04 s");
        }
        break;
      case Meaning::Role::kJoint:
        if (!named_.insert(pair.word).second) {
          note(pair.line, pair.word + " stands twice in a block: the last one counts");
        }
        checkReach(pair, meaning);
        break;
    }
  }

  /// A pose goes straight to its targets; those of an action only pull, and may lie anywhere.
  void checkReach(const Pair& pair, const Meaning& meaning) {
    const arena::JointRow& row = arena::kJoints[meaning.joint];
    const double degrees = meaning.sign * pair.number / kRadPerDeg;
    if (!std::isfinite(pair.number)) {
      note(pair.line, pair.word + " isn't finite");
    } else if (kind_ == ScriptKind::kPose &&
               (degrees < row.lowDeg - 0.1 || degrees > row.highDeg + 0.1)) {
      char text[160];
      std::snprintf(text, sizeof text, "%s %s is %.1f deg of %s, out of its range of %.0f to %.0f",
                    pair.word.c_str(), shortened(pair.number).c_str(), degrees,
                    row.perceptor.data(), row.lowDeg, row.highDeg);
      note(pair.line, text);
    }
  }

  void note(int line, std::string what) { findings_.push_back({file_, line, std::move(what)}); }

  const std::filesystem::path& file_;
  ScriptKind kind_;
  Vocabulary& words_;
  std::set<std::string> named_;  ///< words of the block so far
  std::vector<Finding> findings_;
};

std::vector<Finding> readWith(Vocabulary& words, const std::filesystem::path& file) {
  const std::string name = file.filename().string();
  const bool pose = isPoseScript(name);
  if (!pose && actionScriptIn(name) == nullptr) {
    return {{file, 0, "the player never opens a file of this name"}};
  }
  std::ifstream in(file);
  if (!in) return {{file, 0, "can't be read"}};
  const std::string text{std::istreambuf_iterator<char>(in), {}};
  return Reading(file, pose ? ScriptKind::kPose : ScriptKind::kAction, words).check(text);
}

void append(std::vector<Finding>& to, std::vector<Finding> more) {
  to.insert(to.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

}  // namespace

std::string textOf(const Finding& finding) {
  const std::string line = finding.line > 0 ? ":" + std::to_string(finding.line) : "";
  return finding.file.string() + line + (finding.isFault ? ": " : ": note: ") + finding.what;
}

bool anyFault(const std::vector<Finding>& findings) {
  return std::any_of(findings.begin(), findings.end(),
                     [](const Finding& finding) { return finding.isFault; });
}

std::vector<Finding> checkScripts(const std::vector<std::filesystem::path>& files) {
  std::vector<std::filesystem::path> absolute;  // the player changes the folder
  absolute.reserve(files.size());
  for (const auto& file : files) absolute.push_back(std::filesystem::absolute(file));
  std::vector<Finding> findings;
  const ScriptFolder probes;
  for (std::size_t i = 0; i < files.size(); ++i) {
    std::vector<Finding> here;
    {
      Player player(probes.path(), kGoalkeeper);
      Vocabulary words(player);
      here = readWith(words, absolute[i]);
    }
    const ActionScript* const action = actionScriptIn(files[i].filename().string());
    // Only what reads well is worth playing.
    if (here.empty() && action != nullptr) {
      Player player(absolute[i].parent_path(), kGoalkeeper);
      player.setClock(1000);
      Overreach found = overreachOf(player, *action);
      for (std::string& what : found.ranges) here.push_back({files[i], 0, std::move(what)});
      if (!found.speed.empty()) here.push_back({files[i], 0, std::move(found.speed), false});
    }
    for (Finding& finding : here) finding.file = files[i];
    append(findings, std::move(here));
  }
  return findings;
}

}  // namespace workshop
