#pragma once

/// What the tests of the body stand on: a new player, number 2 unless it is said otherwise, with a
/// captured link, in a working directory of its own that is empty at first. Number 2 scans with its
/// head; tests that count messages stay below cycle 50 or use number 1.

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "behaviour/Agent.h"
#include "perception/WorldModel.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/LinkCapture.h"
#include "tests/support/OutputCapture.h"
#include "tests/support/TempDir.h"

class BodyTest : public ::testing::Test {
 protected:
  explicit BodyTest(int shirtNumber = 2) : player(shirtNumber) { directory.enter(); }

  /// The commanded side of the joint with this perceptor.
  [[nodiscard]] jointsFlag& Row(std::string_view perceptor) const {
    for (jointsFlag& row : body.jointFlags) {
      if (row.perceptorName == perceptor) return row;
    }
    throw std::runtime_error("no such joint");
  }

  /// The perceptors of all active rows, in message order.
  [[nodiscard]] std::vector<std::string> ActiveJoints() const {
    std::vector<std::string> names;
    for (const jointsFlag& row : body.jointFlags) {
      if (row.active) names.push_back(row.perceptorName);
    }
    return names;
  }

  /// One low-level cycle; what it sent, without the zero speeds.
  [[nodiscard]] std::vector<std::string> Cycle(int cycle) {
    world.cycle = cycle;
    body.basicAgentLoop();
    return player.link.commands();
  }

  TempDir directory;
  FreshPlayer player;
  Agent& body = player.agent();
  WorldModel& world = player.world();
};

using Commands = std::vector<std::string>;
