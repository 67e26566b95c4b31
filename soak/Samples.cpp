#include "soak/Samples.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "arena/record/CycleRecord.h"

namespace soak {
namespace {

[[noreturn]] void refuse(const std::string& where, std::size_t line, const std::string& text) {
  throw std::runtime_error(where + ":" + std::to_string(line) + ": can't read '" + text + "'");
}

}  // namespace

std::vector<Sample> samplesIn(std::istream& file, const std::string& where) {
  std::vector<Sample> samples;
  std::string text;
  for (std::size_t line = 1; std::getline(file, text); ++line) {
    std::istringstream in(text);
    Sample sample;
    if (!(in >> sample.time >> sample.process >> sample.residentKb >> sample.sharedOutKb >>
          sample.ownKb)) {
      refuse(where, line, text);
    }
    samples.push_back(std::move(sample));
  }
  return samples;
}

std::vector<Line> linesIn(std::istream& file, const std::string& where) {
  std::vector<Line> lines;
  std::string text;
  for (std::size_t number = 1; std::getline(file, text); ++number) {
    std::istringstream in(text);
    Line line;
    if (!(in >> line.time) || in.get() != '\t') refuse(where, number, text);
    std::getline(in, line.text);
    lines.push_back(std::move(line));
  }
  return lines;
}

std::optional<long> cycleOf(const std::string& text) {
  std::istringstream in(text);
  double seconds = 0;
  std::string unit;
  if (!(in >> seconds >> unit) || unit != "s") return std::nullopt;
  return std::lround(seconds / arena::kRecordCycleSeconds);
}

Progress::Progress(const std::vector<Line>& lines) {
  for (const Line& line : lines) {
    const auto cycle = cycleOf(line.text);
    if (!cycle) continue;
    const auto at = static_cast<double>(*cycle);
    // Events of one moment come as several lines.
    if (marks_.empty() || (at > marks_.back().second && line.time > marks_.back().first)) {
      marks_.emplace_back(line.time, at);
    }
  }
}

double Progress::cycleAt(double time) const {
  if (marks_.empty()) return 0;
  const auto after =
      std::upper_bound(marks_.begin(), marks_.end(), time,
                       [](double wanted, const auto& mark) { return wanted < mark.first; });
  if (after == marks_.begin()) return marks_.front().second;
  if (after == marks_.end()) return marks_.back().second;
  const auto before = std::prev(after);
  const double part = (time - before->first) / (after->first - before->first);
  return before->second + part * (after->second - before->second);
}

}  // namespace soak
