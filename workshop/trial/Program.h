#pragma once

/// Takes the place of the player's decisions: makes it take a job's steps, by the same calls that
/// the decisions would make. A trial asks it once per cycle, behind the player's own cycle.

#include <vector>

#include "behaviour/Agent.h"
#include "workshop/trial/Job.h"

namespace workshop {

class Program {
 public:
  Program(std::vector<Step> steps, int maxSequences);

  /// The player has had its cycle; MAYDECIDE as Player::cycle told. Throws std::runtime_error for a
  /// script that isn't there and for a step that never ends.
  void afterCycle(Agent& agent, bool mayDecide);

  /// Index of the step under way; the number of steps when all are done.
  [[nodiscard]] int current() const { return static_cast<int>(current_); }
  [[nodiscard]] bool finished() const { return current_ == steps_.size(); }
  /// The chain of walk scripts moves, its initial pose apart, and nobody has ended it yet.
  [[nodiscard]] bool walking() const { return walking_; }
  /// Get-up sequences that have come to their end.
  [[nodiscard]] int sequences() const { return sequences_; }
  /// Some step lets the robot fall or finds it fallen.
  [[nodiscard]] bool expectsFall() const;
  /// A guess at how long all steps take, for drawing a moment within them. [cycles]
  [[nodiscard]] int expectedCycles() const;

 private:
  void begin(Agent& agent);
  void continueWalk(Agent& agent);
  [[nodiscard]] bool isOver(const Agent& agent) const;
  void countSequences(const Agent& agent);

  std::vector<Step> steps_;
  int maxSequences_;
  std::size_t current_ = 0;
  bool begun_ = false;
  int age_ = 0;  ///< [cycles] since the step began
  bool hasFallen_ = false;
  int sequences_ = 0;
  int sequencesBefore_ = 0;  ///< when the step began
  // The walk.
  bool walking_ = false;
  bool started_ = false;
  bool ended_ = false;
  int loopsOpened_ = 0;
  // Of the cycle before.
  int lastBodyState_ = 0;
  bool lastRestart_ = true;
};

}  // namespace workshop
