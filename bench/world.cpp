// How fast is the bare simulation on one core? Six and twelve robots, standing and flailing in
// reach of each other: the time of a cycle, and how many times faster than real time that is by
// processor time. Beside it, as a yardstick, one robot standing alone in the same run.
//
//   world [seconds of simulated time, default 20]

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <iomanip>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "arena/world/World.h"
#include "bench/Report.h"

namespace {

using Clock = std::chrono::steady_clock;

struct Case {
  const char* name;
  int robots;
  bool flailing;
};

void flail(arena::World& world, int robots, std::mt19937& random) {
  std::uniform_real_distribution<double> speed(-7, 7);
  for (int slot = 0; slot < robots; ++slot) {
    for (int joint = 0; joint < static_cast<int>(arena::kJointCount); ++joint) {
      world.setJointSpeed(slot, joint, speed(random));
    }
  }
}

struct Result {
  std::vector<double> cycleMs;  ///< [ms] by the wall clock
  double cpuSeconds = 0;        ///< spent in them, whatever else the machine did
};

Result measure(const Case& what, int cycles) {
  arena::World world;
  for (int slot = 0; slot < what.robots; ++slot) {
    const int row = slot / 4;
    world.addRobot(slot, {0.5 * (slot % 4), 0.5 * row, 40.0 * slot});
  }
  std::mt19937 random(7);
  Result result;
  for (int i = 0; i < cycles + 25; ++i) {
    if (what.flailing && i % 10 == 0) flail(world, what.robots, random);
    const std::clock_t cpuStart = std::clock();
    const Clock::time_point start = Clock::now();
    world.advance();
    const std::chrono::duration<double, std::milli> took = Clock::now() - start;
    const std::clock_t cpuEnd = std::clock();
    if (i < 25) continue;  // landing and first touches of memory
    result.cycleMs.push_back(took.count());
    result.cpuSeconds += static_cast<double>(cpuEnd - cpuStart) / CLOCKS_PER_SEC;
  }
  return result;
}

}  // namespace

int main(int argc, char** argv) {
  const double seconds = argc > 1 ? std::atof(argv[1]) : 20;
  const int cycles = std::max(1, static_cast<int>(seconds / arena::kCycleSeconds));
  std::cout << bench::machineLine() << "; step " << arena::WorldSettings{}.stepSeconds * 1000
            << " ms; " << cycles << " cycles each\n"
            << std::left << std::setw(22) << "" << std::right << std::setw(10) << "p50 ms"
            << std::setw(10) << "p99 ms" << std::setw(10) << "max ms" << std::setw(22)
            << "times real time" << '\n';
  for (const Case& what :
       {Case{"1 robot standing", 1, false}, Case{"6 robots standing", 6, false},
        Case{"6 robots flailing", 6, true}, Case{"12 robots standing", 12, false},
        Case{"12 robots flailing", 12, true}}) {
    Result result = measure(what, cycles);
    std::vector<double>& times = result.cycleMs;
    std::sort(times.begin(), times.end());
    const auto percentile = [&](std::size_t p) { return times[(times.size() - 1) * p / 100]; };
    std::cout << std::left << std::setw(22) << what.name << std::right << std::fixed
              << std::setprecision(3) << std::setw(10) << percentile(50) << std::setw(10)
              << percentile(99) << std::setw(10) << times.back() << std::setprecision(1)
              << std::setw(22) << cycles * arena::kCycleSeconds / result.cpuSeconds << '\n';
  }
  return 0;
}
