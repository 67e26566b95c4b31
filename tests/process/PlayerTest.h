#pragma once

/// What the tests of the real program stand on: its path, a working directory of its own that is
/// empty at first, and sessions with it.

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/PlayerSession.h"
#include "tests/support/TempDir.h"

inline constexpr const char* kPlayer = PITCH_BIN_DIR "/pitchagent";

/// The request for a body: the first frame of every player.
inline constexpr std::string_view kSceneRequest = "(scene rsg/agent/nao/nao.rsg)";

/// The head of every message but that request, 167 bytes.
inline constexpr std::string_view kZeros =
    "(he2 0)(rae1 0)(rae2 0)(rae3 0)(rae4 0)(lae1 0)(lae2 0)(lae3 0)(lae4 0)"
    "(rle1 0)(rle2 0)(rle3 0)(rle4 0)(rle5 0)(rle6 0)"
    "(lle1 0)(lle2 0)(lle3 0)(lle4 0)(lle5 0)(lle6 0)";
static_assert(kZeros.size() == 167);

using Texts = std::vector<std::string>;

/// The frames without the zeros; throws when one doesn't begin with them.
inline Texts Commands(const Texts& frames) {
  Texts commands;
  for (const std::string& frame : frames) {
    if (!frame.starts_with(kZeros)) throw std::runtime_error("no zeros in front of " + frame);
    commands.push_back(frame.substr(kZeros.size()));
  }
  return commands;
}

class PlayerTest : public ::testing::Test {
 protected:
  /// A player that has been connected and has asked for its body.
  [[nodiscard]] PlayerSession Start(const Texts& arguments) const {
    return {kPlayer, arguments, directory.path(), kSceneRequest};
  }

  TempDir directory;
};
