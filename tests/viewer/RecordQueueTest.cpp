#include "viewer/server/RecordQueue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace arena::view {
namespace {

RecordQueue::Record queuedCycle(long cycle) {
  CycleRecord record;
  record.cycle = cycle;
  return std::make_shared<const CycleRecord>(record);
}

std::vector<long> cyclesOf(const std::vector<RecordQueue::Record>& records) {
  std::vector<long> cycles;
  for (const auto& record : records) cycles.push_back(record->cycle);
  return cycles;
}

TEST(RecordQueue, GivesWhatWasPutInOrderAndOnce) {
  RecordQueue queue(10);
  for (const long cycle : {1, 2, 3}) queue.put(queuedCycle(cycle));
  EXPECT_EQ(cyclesOf(queue.takeAll()), (std::vector<long>{1, 2, 3}));
  EXPECT_TRUE(queue.takeAll().empty());
}

TEST(RecordQueue, KeepsNoMoreThanItsMost) {
  RecordQueue queue(3);
  for (const long cycle : {1, 2, 3, 4, 5}) queue.put(queuedCycle(cycle));
  EXPECT_EQ(cyclesOf(queue.takeAll()), (std::vector<long>{1, 2, 3}));
  queue.put(queuedCycle(6));
  EXPECT_EQ(cyclesOf(queue.takeAll()), (std::vector<long>{6}));
}

TEST(RecordQueue, NothingIsLostOrTurnedRoundBetweenTwoThreads) {
  constexpr long kCycles = 20'000;
  RecordQueue queue(kCycles + 1);
  std::atomic<bool> done = false;
  std::thread match([&queue, &done] {
    for (long cycle = 1; cycle <= kCycles; ++cycle) queue.put(queuedCycle(cycle));
    done = true;
  });
  long expected = 1;
  const auto take = [&] {
    for (const long cycle : cyclesOf(queue.takeAll())) ASSERT_EQ(cycle, expected++);
  };
  while (!done) take();
  match.join();
  queue.put(queuedCycle(kCycles + 1));  // brings along what was put while the lock was held
  take();
  EXPECT_EQ(expected, kCycles + 2);
}

}  // namespace
}  // namespace arena::view
