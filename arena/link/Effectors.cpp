#include "arena/link/Effectors.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <system_error>
#include <vector>

#include "arena/link/Lists.h"

namespace arena {
namespace {

using Parts = std::vector<std::string_view>;

bool isList(std::string_view part) {
  return !part.empty() && part.front() == '(';
}

/// The whole of WORD as a number: "-.28", "2.0", "-0", "1e-05", "+3". Not finite: none.
std::optional<double> number(std::string_view word) {
  if (word.starts_with('+') && !word.starts_with("+-")) word.remove_prefix(1);
  double value = 0;
  const char* const end = word.data() + word.size();
  const auto [stop, error] = std::from_chars(word.data(), end, value);
  if (error != std::errc{} || stop != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::optional<int> wholeNumber(std::string_view word) {
  int value = 0;
  const char* const end = word.data() + word.size();
  const auto [stop, error] = std::from_chars(word.data(), end, value);
  if (error != std::errc{} || stop != end) return std::nullopt;
  return value;
}

/// Texts that go into other players' messages: visible ASCII, so that nobody can break a frame of
/// somebody else's. Parentheses can't come here but in a list.
bool isPlainWord(std::string_view word, std::size_t limit) {
  return !word.empty() && word.size() <= limit && std::all_of(word.begin(), word.end(), [](char c) {
    return c > ' ' && c <= '~' && c != '(' && c != ')';
  });
}

bool readScene(const Parts& parts, Commands& commands) {
  if (parts.size() != 2 || parts[1] != kBodyRequest) return false;
  ++commands.scenes;
  return true;
}

bool readInit(const Parts& parts, Commands& commands) {
  std::optional<int> shirt;
  std::optional<std::string> team;
  Parts pair;
  for (std::size_t i = 1; i < parts.size(); ++i) {
    if (!isList(parts[i])) return false;
    if (!splitLevel(insideOf(parts[i]), pair) || pair.size() != 2) return false;
    const std::string_view value = pair[1];
    if (pair[0] == "unum") {
      shirt = wholeNumber(value);
    } else if (pair[0] == "teamname" && isPlainWord(value, kMaxTeamNameBytes)) {
      team = value;
    }
  }
  if (!shirt || !team) return false;
  commands.init = InitRequest{*shirt, *team};
  return true;
}

bool readBeam(const Parts& parts, Commands& commands) {
  if (parts.size() != 4) return false;
  const auto x = number(parts[1]);
  const auto y = number(parts[2]);
  const auto angle = number(parts[3]);
  if (!x || !y || !angle) return false;
  commands.beam = BeamRequest{*x, *y, *angle};
  return true;
}

bool readSay(const Parts& parts, Commands& commands) {
  if (parts.size() != 2 || !isPlainWord(parts[1], kMaxSayBytes)) return false;
  commands.say = parts[1];
  return true;
}

bool readJoint(const Parts& parts, Commands& commands) {
  const std::size_t joint = rowOfEffector(parts[0]);
  if (joint == kJointCount || parts.size() != 2) return false;
  const auto speed = number(parts[1]);
  if (!speed) return false;
  commands.jointSpeeds[joint] = speed;
  return true;
}

/// PARTS is room for the effector's own.
bool readEffector(std::string_view effector, Parts& parts, Commands& commands) {
  if (!isList(effector)) return false;
  if (!splitLevel(insideOf(effector), parts) || parts.empty()) return false;
  const std::string_view name = parts.front();
  if (name == "scene") return readScene(parts, commands);
  if (name == "init") return readInit(parts, commands);
  if (name == "beam") return readBeam(parts, commands);
  if (name == "say") return readSay(parts, commands);
  return readJoint(parts, commands);
}

}  // namespace

bool readEffectors(std::string_view frame, Commands& commands) {
  Parts effectors;
  if (!splitLevel(frame, effectors)) return false;
  Parts parts;
  for (const std::string_view effector : effectors) {
    if (!readEffector(effector, parts, commands)) ++commands.malformed;
  }
  ++commands.frames;
  return true;
}

}  // namespace arena
