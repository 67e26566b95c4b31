#pragma once

/// The part of a match that can be watched: the last minute of a live one, the whole of a recorded
/// one. The viewer adds records in order; pages ask for frames, events and reports by cycle. Used
/// by one thread at a time.

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "arena/record/CycleRecord.h"
#include "viewer/server/Frame.h"
#include "viewer/server/Shown.h"

namespace arena::view {

/// One cycle as it is kept.
struct Moment {
  long cycle = 0;
  std::string frame{};
  ShownBySlot shown{};                                              ///< at the last look
  std::array<std::uint32_t, kMostRecordedPlayers> sessionInSlot{};  ///< 0: nobody
};

/// An event with the cycle in which it is shown.
struct TimedEvent {
  long cycle = 0;
  std::string text{};
};

/// Words of one player: said, or a line of its log.
struct TimedWords {
  long cycle = 0;
  std::uint32_t session = 0;
  Side side = Side::kLeft;
  std::string text{};
};

class Timeline {
 public:
  /// Keeps at least the last CYCLES of frames and words; empty: all. Events are kept all.
  explicit Timeline(std::optional<long> cycles = std::nullopt) : keep_(cycles) {}

  /// Records come in order; one that isn't later than the last is left out.
  void add(const CycleRecord& record);

  [[nodiscard]] bool empty() const { return moments_.empty(); }
  /// First and last cycle that can be shown; 0 while empty.
  [[nodiscard]] long first() const { return empty() ? 0 : moments_.front().cycle; }
  [[nodiscard]] long last() const { return empty() ? 0 : moments_.back().cycle; }
  /// The latest moment that isn't later than CYCLE, or the first; null while empty.
  [[nodiscard]] const Moment* at(long cycle) const;

  [[nodiscard]] const std::vector<TimedEvent>& events() const { return events_; }
  [[nodiscard]] const std::array<std::string, 2>& teamNames() const { return teamNames_; }
  /// The match itself is over, and nothing more will come.
  [[nodiscard]] bool finished() const { return finished_; }

  /// What the player in SLOT said, or wrote into its log, in order of cycle.
  [[nodiscard]] const std::deque<TimedWords>& said(std::size_t slot) const { return said_[slot]; }
  [[nodiscard]] const std::deque<TimedWords>& traced(std::size_t slot) const {
    return traced_[slot];
  }

 private:
  void forgetBefore(long cycle);

  std::optional<long> keep_;
  std::deque<Moment> moments_{};
  ShownBySlot shown_{};
  std::vector<TimedEvent> events_{};
  std::array<std::deque<TimedWords>, kMostRecordedPlayers> said_{};
  std::array<std::deque<TimedWords>, kMostRecordedPlayers> traced_{};
  std::array<std::string, 2> teamNames_{};
  bool finished_ = false;
};

}  // namespace arena::view
