#pragma once

/// The players' own output, read from the files into which the launcher leads it: what a player
/// prints about its plan is put into the record of the cycle in which it was read. The program asks
/// once per cycle. A file that isn't there yet is tried again; one that shrinks is read anew.
///
/// Files in the folder: left-3.log and right-3.log; player-3.log counts as left-3.log.

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "arena/record/CycleRecord.h"

namespace arena::view {

class TraceLogs {
 public:
  explicit TraceLogs(std::string folder);
  ~TraceLogs();
  TraceLogs(const TraceLogs&) = delete;
  TraceLogs& operator=(const TraceLogs&) = delete;

  /// Writes into RECORD what its players have printed since the last call. Of many lines a record
  /// keeps the first.
  void addTo(CycleRecord& record);

 private:
  struct Log {
    int file = -1;
    long long place = 0;       ///< [byte] read so far
    std::string unfinished{};  ///< a line that hasn't ended yet
    long nextTry = 0;          ///< cycle
  };

  void open(Log& log, const Shirt& shirt) const;
  static std::vector<std::string> newLines(Log& log);

  std::string folder_;
  std::array<Log, kMostRecordedPlayers> logs_{};  ///< left 1 to 6, right 1 to 6
};

}  // namespace arena::view
