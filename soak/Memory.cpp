#include "soak/Memory.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

namespace soak {
namespace {

constexpr double kCyclesOfGrowth = 10'000;

std::vector<Level> behind(double cycle, const std::vector<Level>& levels) {
  std::vector<Level> rest;
  std::copy_if(levels.begin(), levels.end(), std::back_inserter(rest),
               [cycle](const Level& level) { return level.cycle >= cycle; });
  return rest;
}

double growth(const std::vector<Level>& levels, double Level::*quantity) {
  std::vector<std::pair<double, double>> points;
  points.reserve(levels.size());
  for (const Level& level : levels) points.emplace_back(level.cycle, level.*quantity);
  return slopeOf(points) * kCyclesOfGrowth;
}

}  // namespace

double slopeOf(const std::vector<std::pair<double, double>>& points) {
  if (points.empty()) return 0;
  const auto count = static_cast<double>(points.size());
  double meanX = 0;
  double meanY = 0;
  for (const auto& [x, y] : points) {
    meanX += x / count;
    meanY += y / count;
  }
  double xx = 0;
  double xy = 0;
  for (const auto& [x, y] : points) {
    xx += (x - meanX) * (x - meanX);
    xy += (x - meanX) * (y - meanY);
  }
  return xx > 0 ? xy / xx : 0;
}

std::vector<ProcessMemory> memoryOf(const std::vector<Sample>& samples, const Progress& progress) {
  std::map<std::string, ProcessMemory> byName;
  for (const Sample& sample : samples) {
    byName[sample.process].levels.push_back(
        {progress.cycleAt(sample.time), sample.residentKb, sample.sharedOutKb, sample.ownKb});
  }
  std::vector<ProcessMemory> all;
  for (auto& [name, memory] : byName) {
    memory.process = name;
    const std::vector<Level> settled = behind(kSettlingPart * progress.last(), memory.levels);
    if (!settled.empty()) {
      memory.ownAtFirstKb = settled.front().ownKb;
      memory.ownAtLastKb = settled.back().ownKb;
      memory.ownGrowthKb = growth(settled, &Level::ownKb);
      memory.residentGrowthKb = growth(settled, &Level::residentKb);
      memory.lastGrowthKb = growth(behind(kLastPart * progress.last(), settled), &Level::ownKb);
    }
    all.push_back(std::move(memory));
  }
  return all;
}

}  // namespace soak
