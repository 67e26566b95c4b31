#pragma once

/// A match on the link: the hub's sessions play in a Match at the pace that was asked for. The
/// program runs one; tests run one in a thread and play against it over loopback.
///
/// When a cycle begins:
///   speed above 0   at every 0.02 s / speed of real time. After a hold-up the cycles that were
///                   missed follow at once, and a long one is given up (CycleClock).
///   speed 0         when every player has answered its last message and nothing more has come
///                   for a moment (settle), or when patience is at an end.
/// The pace decides only which cycle a command falls into, never what a cycle makes of it.

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "arena/link/Hub.h"
#include "arena/main/CycleClock.h"
#include "arena/main/PaceReport.h"
#include "arena/match/Match.h"

namespace arena {

struct PaceSettings {
  double speed = 1;                            ///< times real time; 0: as fast as players answer
  std::size_t playersToStart = 1;              ///< the first cycle waits for so many bodies
  std::chrono::microseconds patience{20'000};  ///< for answers, at speed 0
  std::chrono::microseconds settle{1'000};     ///< for further frames of an answer, at speed 0
};

struct ServerSettings {
  LinkSettings link{};
  MatchSettings match{};
  PaceSettings pace{};
};

class MatchServer {
 public:
  /// Listens, and makes ready what would take longer than a cycle. Throws LinkError when it can't
  /// listen.
  explicit MatchServer(const ServerSettings& settings);

  [[nodiscard]] std::uint16_t port() const { return hub_.port(); }

  /// Plays until the match is over or SHOULD_STOP says so (asked at least every 50 ms), then ends
  /// all sessions. SAY gets one line, without a line feed, for everything that happens. ONCYCLE
  /// gets the record of every cycle, once its messages are on their way; it must return at once.
  /// Physics that diverge end the match with the cycle before.
  Summary run(const std::function<bool()>& shouldStop,
              const std::function<void(const std::string&)>& say,
              const std::function<void(CycleRecord&)>& onCycle = {});

  /// Of the cycles so far.
  [[nodiscard]] const PaceReport& pace() const { return report_; }
  /// Why the match ended before its time, if it wasn't stopped.
  [[nodiscard]] const std::optional<std::string>& fault() const { return fault_; }

 private:
  using Clock = Hub::Clock;

  [[nodiscard]] bool waitForPlayers(const std::function<bool()>& shouldStop,
                                    const std::function<void(const std::string&)>& say);
  [[nodiscard]] bool waitForCycle(const std::function<bool()>& shouldStop);
  void playCycle(const std::function<void(const std::string&)>& say,
                 const std::function<void(CycleRecord&)>& onCycle);
  void account(const CycleTimes& ofMatch, CycleTimes::Span work);

  PaceSettings pace_;
  Hub hub_;
  Match match_;
  std::optional<CycleClock> clock_{};  ///< from the first cycle on; none at speed 0
  Clock::time_point due_{};            ///< when the cycle at hand was to begin
  int slipsNoted_ = 0;                 ///< of the clock's, in the match's records
  CycleTimes::Span handedOn_{};        ///< what came behind the last cycle's messages
  PaceReport report_{};
  std::optional<std::string> fault_{};
};

}  // namespace arena
