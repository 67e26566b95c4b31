#pragma once

/// Between the match's thread and the viewer's: the match puts records in and never waits, not even
/// for a lock; the viewer takes out what there is.

#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

#include "arena/record/CycleRecord.h"

namespace arena::view {

class RecordQueue {
 public:
  using Record = std::shared_ptr<const CycleRecord>;

  /// Holds at most MOST records; further ones are lost.
  explicit RecordQueue(std::size_t most) : most_(most) {}

  /// The match's thread only.
  void put(Record record);
  /// The viewer's thread only. In order.
  std::vector<Record> takeAll();

 private:
  const std::size_t most_;
  std::vector<Record> behind_{};  ///< the match's alone: put while the viewer held the lock
  std::mutex mutex_{};
  std::vector<Record> waiting_{};
};

}  // namespace arena::view
