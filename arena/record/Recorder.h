#pragma once

/// Writes a match file beside a running match: a thread of its own encodes and writes, so that no
/// cycle waits for a disk. The program makes one before the match, gives it every cycle's record,
/// and asks it for a fault now and then; after a fault the match goes on without a record.

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>

#include "arena/record/CycleRecord.h"
#include "arena/record/RecordEncoder.h"

namespace arena {

/// Cycles that may wait to be written: two minutes of real time, some 50 MB. A disk that is further
/// behind won't catch up.
inline constexpr std::size_t kMostWaitingCycles = 6'000;

class Recorder {
 public:
  /// Opens FILE, what was in it is gone. Throws std::system_error.
  Recorder(const std::string& file, const RecordSettings& settings,
           std::size_t mostWaiting = kMostWaitingCycles);
  /// Without finish(), as when an error ends the match, what waits is written but no end: the
  /// record counts as cut off.
  ~Recorder();
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;

  /// Takes a copy of RECORD, which must be of a later cycle than the one before, and returns at
  /// once.
  void keep(const CycleRecord& record);
  /// Writes what waits and the end, and closes the file. Nothing is kept afterwards.
  void finish();
  /// Why there will be no more of the record, one line for a person; told once.
  std::optional<std::string> takeFault();

 private:
  void run();
  void stop(bool inOrder);
  /// False after a fault.
  bool write(const std::string& piece);
  void fail(const std::string& why);

  const std::string name_;
  const std::size_t mostWaiting_;
  int file_ = -1;
  RecordEncoder encoder_{};  ///< the thread's alone
  long long written_ = 0;    ///< [byte] of whole pieces; the thread's alone

  std::mutex mutex_{};
  std::condition_variable changed_{};
  // Under the mutex:
  std::deque<CycleRecord> waiting_{};
  bool ending_ = false;
  bool inOrder_ = false;  ///< the end belongs into the file
  bool failed_ = false;
  std::optional<std::string> fault_{};

  std::thread thread_{};
};

}  // namespace arena
