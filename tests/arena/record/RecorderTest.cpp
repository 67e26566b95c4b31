#include "arena/record/Recorder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <csignal>
#include <fstream>
#include <system_error>
#include <thread>

#include "arena/record/RecordReader.h"
#include "tests/arena/record/Records.h"
#include "tests/support/TempDir.h"

namespace arena {
namespace {

std::vector<CycleRecord> cyclesIn(const std::string& name, bool& whole) {
  std::ifstream file(name, std::ios::binary);
  RecordReader reader(file);
  std::vector<CycleRecord> cycles;
  while (auto record = reader.next()) cycles.push_back(std::move(*record));
  whole = !reader.fault();
  return cycles;
}

TEST(Recorder, WritesWhatItIsGiven) {
  const TempDir dir;
  const std::string name = dir.write("match.rec", "what was here before");
  const auto match = test::smallMatch(500);
  {
    Recorder recorder(name, {{"seed", "1"}});
    for (const CycleRecord& record : match) recorder.keep(record);
    recorder.finish();
    EXPECT_FALSE(recorder.takeFault());
  }
  bool whole = false;
  EXPECT_EQ(cyclesIn(name, whole), match);
  EXPECT_TRUE(whole);
}

TEST(Recorder, AMatchThatIsNotFinishedHasAllItsCyclesButNoEnd) {
  const TempDir dir;
  const std::string name = (dir.path() / "match.rec").string();
  const auto match = test::smallMatch(100);
  {
    Recorder recorder(name, {});
    for (const CycleRecord& record : match) recorder.keep(record);
  }
  bool whole = true;
  EXPECT_EQ(cyclesIn(name, whole), match);
  EXPECT_FALSE(whole);
}

TEST(Recorder, AFileThatCantBeOpenedIsTold) {
  EXPECT_THROW(Recorder("/no/such/folder/match.rec", {}), std::system_error);
}

TEST(Recorder, AFullDiskIsToldOnceAndTheRestGoesNowhere) {
  Recorder recorder("/dev/full", {});
  for (const CycleRecord& record : test::smallMatch(100)) recorder.keep(record);
  recorder.finish();
  EXPECT_EQ(recorder.takeFault(), "/dev/full: No space left on device");
  EXPECT_FALSE(recorder.takeFault());
}

TEST(Recorder, ADiskThatFillsUpLeavesWholeCycles) {
  const TempDir dir;
  const std::string name = (dir.path() / "match.rec").string();
  // The kernel writes as much as the limit allows, then says no, as a full disk does.
  ASSERT_NE(std::signal(SIGXFSZ, SIG_IGN), SIG_ERR);
  const rlimit limit{10'000, 10'000};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
  const auto match = test::smallMatch(2'000);
  Recorder recorder(name, {});
  for (const CycleRecord& record : match) recorder.keep(record);
  recorder.finish();
  EXPECT_EQ(recorder.takeFault(), name + ": File too large");

  std::ifstream file(name, std::ios::binary);
  RecordReader reader(file);
  std::size_t cycles = 0;
  while (const auto record = reader.next()) ASSERT_EQ(*record, match.at(cycles++));
  EXPECT_GT(cycles, 50U);
  EXPECT_LT(cycles, match.size());
  ASSERT_TRUE(reader.fault());
  EXPECT_NE(reader.fault()->find("has no end"), std::string::npos) << *reader.fault();
}

TEST(Recorder, AReaderThatStallsNeverHoldsUpTheMatch) {
  // A pipe that nobody reads takes 64 KiB and then blocks the writer: the slowest of disks.
  const TempDir dir;
  const std::string name = (dir.path() / "pipe").string();
  ASSERT_EQ(::mkfifo(name.c_str(), 0600), 0);
  const int other = ::open(name.c_str(), O_RDWR | O_NONBLOCK);
  ASSERT_GE(other, 0);
  const auto match = test::smallMatch(20'000);
  Recorder recorder(name, {}, /*mostWaiting=*/100);
  for (const CycleRecord& record : match) recorder.keep(record);
  EXPECT_EQ(recorder.takeFault(), name + ": the disk is too slow");

  // Somebody reads after all, so that the write under way comes to its end.
  std::atomic<bool> done{false};
  std::thread drain([other, &done] {
    std::array<char, 4096> bytes{};
    while (!done) {
      pollfd one{other, POLLIN, 0};
      if (::poll(&one, 1, /*ms=*/20) > 0 && ::read(other, bytes.data(), bytes.size()) < 0) return;
    }
  });
  recorder.finish();
  done = true;
  drain.join();
  ::close(other);
}

}  // namespace
}  // namespace arena
