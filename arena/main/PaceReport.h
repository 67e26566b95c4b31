#pragma once

/// How well a match kept its pace on this machine. The match server fills it; the program shows it
/// behind the summary. It is no part of the summary: that is the same whenever a match is replayed,
/// this never is.

#include <chrono>
#include <string>

#include "arena/match/CycleTimes.h"

namespace arena {

struct PaceReport {
  long cycles = 0;
  double seconds = 0;                ///< [s] of real time from the first cycle to the last
  long late = 0;                     ///< cycles whose messages went out when the next one was due
  long lateByOwnFault = 0;           ///< of these: whose own work took longer than a cycle may
  std::chrono::nanoseconds last{};   ///< from when the last one was due until they were out
  std::chrono::nanoseconds worst{};  ///< the longest of these
  std::chrono::nanoseconds worstWork{};  ///< processor time of a cycle's own work
  CycleTimes work{};                     ///< of all cycles together
  bool realTime = false;                 ///< nothing is late at speed 0

  /// A cycle that was due SINCE_DUE before its messages were out, of which it worked for WORK.
  void add(std::chrono::nanoseconds sinceDue, std::chrono::nanoseconds cycleWork,
           std::chrono::nanoseconds period);
};

/// One line, in real time two, ending in a line feed.
std::string textOf(const PaceReport& report);

}  // namespace arena
