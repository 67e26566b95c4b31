// Does a match run slower when three pages watch it, and how much does a page get? A staged match
// of twelve robots, first as fast as it goes, by turns without pages and with three that keep up,
// then at real time. The pages are threads of this process, so their own work is on the same
// machine.
//
//   viewer [turns, default 20]

#include <time.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <iomanip>
#include <iostream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "bench/Report.h"
#include "bench/StubPlayers.h"
#include "tests/viewer/StagedMatch.h"
#include "tests/viewer/WatchClient.h"
#include "viewer/server/Viewer.h"

namespace {

using Clock = std::chrono::steady_clock;
using arena::test::StagedMatch;
using arena::test::WatchClient;

constexpr int kPages = 3;
constexpr int kCyclesPerTurn = 250;
constexpr int kRealTimeCycles = 500;

/// A page in a thread of its own, which watches all minds as well.
class WatchingThread {
 public:
  explicit WatchingThread(std::uint16_t port) {
    thread_ = std::thread([this, port] {
      WatchClient page(port);
      page.send({{"do", "minds"}, {"slots", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}}});
      while (!stop_) {
        page.read();
        bytes_ = page.bytes();
        frames_ = page.frames();
      }
    });
  }
  ~WatchingThread() {
    stop_ = true;
    thread_.join();
  }
  WatchingThread(const WatchingThread&) = delete;
  WatchingThread& operator=(const WatchingThread&) = delete;

  [[nodiscard]] std::size_t bytes() const { return bytes_; }
  [[nodiscard]] long frames() const { return frames_; }

 private:
  std::atomic<bool> stop_{false};
  std::atomic<std::size_t> bytes_{0};
  std::atomic<long> frames_{0};
  std::thread thread_{};
};

using Pages = std::vector<std::unique_ptr<WatchingThread>>;

Pages watching(std::uint16_t port) {
  Pages pages;
  for (int i = 0; i < kPages; ++i) pages.push_back(std::make_unique<WatchingThread>(port));
  for (const auto& page : pages) {
    while (page->bytes() == 0) std::this_thread::yield();
  }
  return pages;
}

double processorSeconds() {
  timespec now{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

double seconds(Clock::duration span) {
  return std::chrono::duration<double>(span).count();
}

/// [ms] per cycle.
struct Cost {
  double wall = 0;
  double processor = 0;  ///< of the match's own thread
};

Cost playTurn(StagedMatch& match, arena::view::Viewer& viewer) {
  const auto start = Clock::now();
  const double used = processorSeconds();
  for (int i = 0; i < kCyclesPerTurn; ++i) viewer.show(match.advance());
  return {1000 * seconds(Clock::now() - start) / kCyclesPerTurn,
          1000 * (processorSeconds() - used) / kCyclesPerTurn};
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

void measureFullSpeed(int turns) {
  arena::view::ViewSettings settings;
  settings.port = 0;
  arena::view::Viewer viewer(settings);
  StagedMatch match;
  match.playTo(arena::test::kInPlay);
  playTurn(match, viewer);
  std::vector<double> wall[2];
  std::vector<double> processor[2];
  std::vector<double> wallRatio;
  std::vector<double> processorRatio;
  for (int turn = 0; turn < turns; ++turn) {
    Cost costs[2];
    // Now the one first, now the other: a machine that gets busier falls on both.
    for (const int step : {0, 1}) {
      const int watched = (step + turn) % 2;
      const Pages pages = watched == 1 ? watching(viewer.port()) : Pages{};
      costs[watched] = playTurn(match, viewer);
      wall[watched].push_back(costs[watched].wall);
      processor[watched].push_back(costs[watched].processor);
    }
    wallRatio.push_back(costs[1].wall / costs[0].wall);
    processorRatio.push_back(costs[1].processor / costs[0].processor);
  }
  std::cout << "a cycle as fast as it goes, medians of " << turns << " turns [ms]\n"
            << "              no page  three pages  ratio (median of pairs)\n"
            << "  wall clock  " << std::setw(7) << median(wall[0]) << std::setw(13)
            << median(wall[1]) << std::setw(7) << median(wallRatio) << '\n'
            << "  processor   " << std::setw(7) << median(processor[0]) << std::setw(13)
            << median(processor[1]) << std::setw(7) << median(processorRatio) << '\n';
}

void measureRealTime() {
  std::cout << "at real time, " << kRealTimeCycles << " cycles\n";
  for (const bool watched : {false, true}) {
    arena::view::ViewSettings settings;
    settings.port = 0;
    arena::view::Viewer viewer(settings);
    StagedMatch match;
    match.playTo(arena::test::kInPlay);
    viewer.show(match.advance());
    const Pages pages = watched ? watching(viewer.port()) : Pages{};
    const std::size_t before = watched ? pages[0]->bytes() : 0;
    const long framesBefore = watched ? pages[0]->frames() : 0;
    const auto start = Clock::now();
    auto next = start;
    for (int i = 0; i < kRealTimeCycles; ++i) {
      next += std::chrono::milliseconds(20);
      std::this_thread::sleep_until(next);
      viewer.show(match.advance());
    }
    const double took = seconds(Clock::now() - start);
    std::cout << "  " << (watched ? "three pages" : "no page    ") << "  speed "
              << kRealTimeCycles * 0.02 / took;
    if (watched) {
      std::cout << ", each page got "
                << static_cast<double>(pages[0]->bytes() - before) / took / 1000 << " kB/s in "
                << static_cast<double>(pages[0]->frames() - framesBefore) / took
                << " frames/s, all twelve minds watched";
    }
    std::cout << '\n';
  }
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const int turns = argc > 1 ? std::max(1, std::atoi(argv[1])) : 20;
    std::cout << bench::machineLine() << '\n' << std::fixed << std::setprecision(3);
    measureFullSpeed(turns);
    measureRealTime();
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "viewer: " << error.what() << '\n';
    return 1;
  }
}
