#pragma once

/// Counts a match up, from the records of its cycles and nothing else: what a live match feeds and
/// what its file gives back are the same records, so a replay comes to the same figures. The match
/// shows it every cycle's record once and in order; a replay does the same.

#include <array>
#include <cstdint>
#include <map>
#include <vector>

#include "arena/match/BallPlay.h"
#include "arena/match/Summary.h"
#include "arena/match/Walk.h"
#include "arena/record/CycleRecord.h"

namespace arena {

class Statistics {
 public:
  void add(const CycleRecord& record);
  /// What the match comes down to so far.
  [[nodiscard]] Summary summary() const;

 private:
  struct Player {
    PlayerSummary row{};
    Walk walk{};
    long cyclesOfPossession = 0;
  };

  void add(const CycleRecord& record, const PlayerRecord& now);
  void add(const BallNews& news);
  void leave(const CycleRecord& record, const LeftRecord& left);
  [[nodiscard]] static PlayerSummary finished(const Player& player);

  Summary sums_{};  ///< of the match; its players and teams are filled in summary()
  std::map<std::uint32_t, Player> playing_{};
  std::vector<PlayerSummary> gone_{};
  BallPlay ballPlay_{};
  std::array<long, 2> possession_{};  ///< cycles; order of Side
};

}  // namespace arena
