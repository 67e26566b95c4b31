#pragma once

/// Which words the player's two script readers know, found out by letting them read: no list of
/// words is kept here that could differ from theirs.

#include <cstddef>
#include <map>
#include <optional>
#include <string>

#include "workshop/trial/Player.h"

namespace workshop {

enum class ScriptKind { kAction, kPose };

/// What a reader does with a word.
struct Meaning {
  enum class Role { kUnknown, kJoint, kEnd };
  Role role = Role::kUnknown;
  std::size_t joint = 0;  ///< row of kJoints
  double sign = 1;        ///< of the server's angle against the script's
};

class Vocabulary {
 public:
  /// PLAYER must stand in a folder of its own: probes are written there.
  explicit Vocabulary(Player& player) : player_(player) {}
  const Meaning& meaningOf(ScriptKind kind, const std::string& word);

 private:
  [[nodiscard]] Meaning ask(ScriptKind kind, const std::string& word) const;

  Player& player_;
  std::map<std::pair<ScriptKind, std::string>, Meaning> known_;
};

}  // namespace workshop
