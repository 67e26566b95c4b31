#include "workshop/check/Playback.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <map>
#include <numbers>

#include "arena/model/PhysicsTable.h"
#include "perception/WorldModel.h"

namespace workshop {
namespace {

constexpr double kCycleSeconds = 0.02;
constexpr double kSlackDeg = 0.5;     ///< beyond a joint's range
constexpr double kSlackSpeed = 0.05;  ///< [rad/s] beyond a motor's
constexpr int kLongest = 20000;       ///< [cycles]

double degrees(double radians) {
  return radians * 180.0 / std::numbers::pi;
}

/// The worst that a joint was asked for.
struct Excess {
  double speed = 0;  ///< [rad/s]
  int speedBlock = 0;
  double beyondDeg = 0;
  int beyondBlock = 0;
};

/// A body without weight: joints go exactly where they are told, and on through their range's end.
class Body {
 public:
  explicit Body(Player& player) : player_(player), clock_(WorldModel::getSingleton()->cycle) {}

  /// One cycle of the player's low-level loop.
  void cycle() {
    player_.setClock(++clock_);
    player_.agent().basicAgentLoop();
    const arena::Commands sent = player_.takeCommands();
    for (std::size_t j = 0; j < arena::kJointCount; ++j) {
      speeds_[j] = sent.jointSpeeds[j].value_or(0);
      HingJoint* const joint = player_.agent().findJoint(std::string(arena::kJoints[j].perceptor));
      joint->angle += degrees(speeds_[j]) * kCycleSeconds;
      angles_[j] = joint->angle;
    }
  }

  /// Plays the open script to its end; NOTE(block) behind each cycle of it.
  template <typename Note>
  void playToEnd(const Note& note) {
    Agent& agent = player_.agent();
    int block = 0;
    for (int i = 0; i < kLongest && agent.actionFileOpen; ++i) {
      const bool waits = agent.lastLoadTime + 30 > clock_ + 1;
      cycle();
      if (!waits && clock_ % 2 != 0) ++block;
      if (block > 0 && agent.actionFileOpen) note(block);
    }
  }

  std::array<double, arena::kJointCount> speeds_{};  ///< [rad/s]
  std::array<double, arena::kJointCount> angles_{};  ///< [deg]

 private:
  Player& player_;
  int clock_;
};

std::string describedRange(std::size_t joint, const Excess& excess) {
  const arena::JointRow& row = arena::kJoints[joint];
  std::array<char, 160> text{};
  std::snprintf(
      text.data(), text.size(), "block %d drives %s %.1f deg beyond its range of %.0f to %.0f deg",
      excess.beyondBlock, row.perceptor.data(), excess.beyondDeg, row.lowDeg, row.highDeg);
  return text.data();
}

/// Empty when no joint is asked beyond its motor.
std::string describedSpeeds(const std::array<Excess, arena::kJointCount>& worst) {
  const auto isTooFast = [](const Excess& excess) {
    return excess.speed > arena::kMaxJointSpeed + kSlackSpeed;
  };
  const auto count = std::count_if(worst.begin(), worst.end(), isTooFast);
  if (count == 0) return {};
  const auto most =
      std::max_element(worst.begin(), worst.end(),
                       [](const Excess& a, const Excess& b) { return a.speed < b.speed; });
  const auto joint = static_cast<std::size_t>(most - worst.begin());
  std::array<char, 200> text{};
  std::snprintf(
      text.data(), text.size(),
      "asks %d joint%s for more than the %.0f rad/s of a motor, most of all %s in block %d "
      "for %.1f",
      static_cast<int>(count), count == 1 ? "" : "s", arena::kMaxJointSpeed,
      arena::kJoints[joint].perceptor.data(), most->speedBlock, most->speed);
  return text.data();
}

/// The scripts from the first of the walk to SCRIPT; only itself elsewhere.
std::vector<const ActionScript*> chainTo(const ActionScript& script) {
  std::vector<const ActionScript*> chain{&script};
  while (!chain.front()->after.empty()) {
    const auto before = std::find_if(
        kActionScripts.begin(), kActionScripts.end(),
        [&](const ActionScript& other) { return other.action == chain.front()->after; });
    chain.insert(chain.begin(), &*before);
  }
  return chain;
}

}  // namespace

Overreach overreachOf(Player& player, const ActionScript& script) {
  Agent& agent = player.agent();
  for (HingJoint& joint : agent.joints) joint.angle = 0;
  agent.shallWalk = false;
  Body body(player);
  std::array<Excess, arena::kJointCount> worst{};
  for (const ActionScript* part : chainTo(script)) {
    if (!std::filesystem::exists(part->file)) continue;
    agent.doActionFile4(std::string(part->action));
    body.playToEnd([&](int block) {
      if (part != &script) return;
      for (std::size_t j = 0; j < worst.size(); ++j) {
        const arena::JointRow& row = arena::kJoints[j];
        const double speed = std::abs(body.speeds_[j]);
        const double beyond = std::max(row.lowDeg - body.angles_[j], body.angles_[j] - row.highDeg);
        if (speed > worst[j].speed) worst[j].speed = speed, worst[j].speedBlock = block;
        if (beyond > worst[j].beyondDeg) worst[j].beyondDeg = beyond, worst[j].beyondBlock = block;
      }
    });
  }
  Overreach found;
  for (std::size_t j = 0; j < worst.size(); ++j) {
    if (worst[j].beyondDeg > kSlackDeg) found.ranges.push_back(describedRange(j, worst[j]));
  }
  found.speed = describedSpeeds(worst);
  return found;
}

}  // namespace workshop
