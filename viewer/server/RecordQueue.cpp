#include "viewer/server/RecordQueue.h"

#include <iterator>
#include <utility>

namespace arena::view {

void RecordQueue::put(Record record) {
  if (behind_.size() < most_) behind_.push_back(std::move(record));
  const std::unique_lock lock(mutex_, std::try_to_lock);
  if (!lock.owns_lock()) return;
  for (Record& one : behind_) {
    if (waiting_.size() < most_) waiting_.push_back(std::move(one));
  }
  behind_.clear();
}

std::vector<RecordQueue::Record> RecordQueue::takeAll() {
  const std::lock_guard lock(mutex_);
  return std::exchange(waiting_, {});
}

}  // namespace arena::view
