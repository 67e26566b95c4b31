#pragma once

/// What the tests of the decisions stand on: a new player, number 3 unless it is said otherwise,
/// with a captured link, in a working directory of its own that is empty at first. It stands at
/// (0, 0), facing the goal at (9, 0), and the ball lies in (0, 0) too until a test puts it
/// somewhere.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "behaviour/Agent.h"
#include "perception/WorldModel.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/LinkCapture.h"
#include "tests/support/OutputCapture.h"
#include "tests/support/Places.h"
#include "tests/support/TempDir.h"

using Commands = std::vector<std::string>;
/// Numbers of actions, bottom first.
using States = std::vector<int>;

class BehaviourTest : public ::testing::Test {
 protected:
  explicit BehaviourTest(int shirtNumber = 3) : player(shirtNumber) {
    directory.enter();
    world.cycle = 200;
    world.playMode = "PlayOn";
  }

  /// What ACTION prints.
  template <typename Action>
  static std::string OutputOf(Action action) {
    OutputCapture output;
    action();
    return output.text();
  }

  /// The stack's entries, bottom first.
  [[nodiscard]] std::vector<actionStruct> Entries() const {
    std::vector<actionStruct> entries;
    for (auto rest = agent.actionStack; !rest.empty(); rest.pop()) entries.push_back(rest.top());
    std::reverse(entries.begin(), entries.end());
    return entries;
  }

  [[nodiscard]] States Stack() const {
    States states;
    for (const actionStruct& entry : Entries()) states.push_back(entry.state);
    return states;
  }

  /// Replaces the stack, bottom first, all under the present owner of the ball.
  void SetStack(const std::vector<MyState>& states) const {
    agent.actionStack = {};
    for (const MyState state : states) agent.actionStack.push({state, agent.ballOwner});
  }

  void Stand(double x, double y, double heading = 0) const {
    agent.myPos = VecPosition(x, y, 0);
    agent.myDegree = heading;
  }

  /// Puts the ball there, also for the cycle's own look at the team's reports.
  void PutBall(double x, double y) const {
    world.ballPos = VecPosition(x, y, 0);
    PolarInfo& own = world.teamBall[static_cast<std::size_t>(agent.uNum - 1)];
    own.position = world.ballPos;
    own.distance = agent.myPos.getDistanceTo(world.ballPos);
  }

  /// The open action script's first word, or "" when none is open; each script of a test begins
  /// with its own name. Reading goes on behind that word.
  [[nodiscard]] std::string OpenScript() const {
    if (!agent.myACtionFile.is_open()) return "";
    std::string word;
    agent.myACtionFile.clear();
    agent.myACtionFile >> word;
    return word;
  }

  /// Writes action scripts that begin with their names. Nothing of them moves a joint.
  void WriteScripts(const std::vector<std::string>& names) const {
    for (const std::string& name : names) directory.write(name, name + " 0 move 0\n");
  }

  /// The perceptors of all active rows, in message order.
  [[nodiscard]] Commands ActiveJoints() const {
    Commands names;
    for (const jointsFlag& row : agent.jointFlags) {
      if (row.active) names.push_back(row.perceptorName);
    }
    return names;
  }

  /// One turn of the player in CYCLE; what it sent, without the zero speeds.
  [[nodiscard]] Commands Turn(int cycle) {
    world.cycle = cycle;
    agent.agentLoop();
    return player.link.commands();
  }

  TempDir directory;
  FreshPlayer player;
  Agent& agent = player.agent();
  WorldModel& world = player.world();
};
