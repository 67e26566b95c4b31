#pragma once

/// The soak's three parts as figures, and whether what must hold did. soak_report reads the folder
/// that soak/run has filled, then writes the findings as page, JSON and picture.
///
/// In the folder: long.* and kills.* and cut.*, of each NAME.lines (what ./play said), NAME.rec,
/// NAME.json (its summary; none of the cut one), long.samples, and facts: "key<TAB>value" lines.

#include <map>
#include <string>
#include <vector>

#include "soak/Memory.h"
#include "soak/RecordAccount.h"
#include "soak/Samples.h"

namespace soak {

/// [kB per 10,000 cycles] Ten bytes a cycle: less than the smallest block that a process can lose
/// in every cycle.
inline constexpr double kMostGrowthKb = 100;
/// The same as a part of what a process has. The training ground keeps what it frees and has twice
/// as much heap as it uses (KeptMemory.h), so that it touches new pages of it now and then.
inline constexpr double kMostGrowthPart = 0.0025;
inline constexpr std::size_t kPlayers = 12;

/// Something that must hold, with what was found.
struct Requirement {
  std::string what{};
  std::string found{};
  bool held = false;
};

/// A match that ./play supervised.
struct MatchFindings {
  RecordAccount record{};
  std::size_t deaths = 0;    ///< players that ./play saw end
  std::size_t restarts = 0;  ///< players that it started again
  double seconds = 0;        ///< [s] of real time from its first line to its last
};

struct Findings {
  std::map<std::string, std::string> facts{};
  MatchFindings longMatch{};
  std::vector<ProcessMemory> memory{};
  MatchFindings kills{};
  std::size_t summaryPlayers = 0;  ///< entries in the summary of the match with kills
  std::size_t summaryLeft = 0;     ///< of these: with a time at which they left
  MatchFindings cut{};
  long lastTold = 0;  ///< cycle of the last event that ./play showed of the cut match
  std::vector<Requirement> requirements{};

  /// Empty for a fact that isn't there.
  [[nodiscard]] std::string fact(const std::string& key) const;
  [[nodiscard]] bool allHeld() const;
};

/// [kB per 10,000 cycles] What a process may grow by.
double allowedGrowthKb(const ProcessMemory& memory);

/// Throws std::runtime_error that names the file which is missing or can't be read.
Findings findingsIn(const std::string& folder);

/// Fills in the requirements from everything else. A step of findingsIn(), apart for tests.
void judge(Findings& findings);

}  // namespace soak
