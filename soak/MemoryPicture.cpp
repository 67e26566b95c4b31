#include "soak/MemoryPicture.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "soak/Text.h"

namespace soak {
namespace {

constexpr double kLeft = 80;
constexpr double kWidth = 640;
constexpr double kHeight = 150;
constexpr double kAbove = 46;
constexpr double kBelow = 60;
constexpr double kTotalWidth = kLeft + kWidth + 30;

/// 1, 2 or 5 times a power of ten, so that about four of them make SPAN.
double tickFor(double span) {
  const double rough = std::max(span, 1e-9) / 4;
  const double power = std::pow(10.0, std::floor(std::log10(rough)));
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (rough <= factor * power) return factor * power;
  }
  return 10 * power;
}

std::string place(double x, double y) {
  return fixed(x, 1) + "," + fixed(y, 1);
}

/// One diagram, its upper edge TOP below the picture's.
class Diagram {
 public:
  Diagram(double top, double cycles, double highestKb, double perUnit)
      : top_(top), cycles_(std::max(cycles, 1.0)), perUnit_(perUnit) {
    tick_ = tickFor(highestKb / perUnit_);
    highest_ = std::ceil(highestKb / perUnit_ / tick_ * 1.02) * tick_;
  }

  [[nodiscard]] std::string frame(std::string_view title) const {
    std::string svg = "<text x=\"" + fixed(kLeft, 0) + "\" y=\"" + fixed(top_ - 10, 0) + "\">" +
                      std::string(title) + "</text>\n";
    for (double value = 0; value <= highest_ + tick_ / 2; value += tick_) {
      svg += horizontal(value);
    }
    const double step = tickFor(cycles_);
    for (double cycle = 0; cycle <= cycles_; cycle += step) {
      svg += "<text text-anchor=\"middle\" x=\"" + fixed(x(cycle), 1) + "\" y=\"" +
             fixed(top_ + kHeight + 18, 0) + "\">" + grouped(std::lround(cycle)) + "</text>\n";
    }
    svg += "<rect fill=\"#ddd\" fill-opacity=\"0.5\" x=\"" + fixed(kLeft, 1) + "\" y=\"" +
           fixed(top_, 1) + "\" height=\"" + fixed(kHeight, 1) + "\" width=\"" +
           fixed(kWidth * kSettlingPart, 1) + "\"/>\n";
    return svg;
  }

  [[nodiscard]] std::string line(const ProcessMemory& memory, std::string_view colour) const {
    std::string svg = "<polyline fill=\"none\" stroke=\"" + std::string(colour) +
                      "\" stroke-width=\"1.3\" points=\"";
    const std::vector<Level>& levels = memory.levels;
    for (std::size_t i = 0; i < levels.size(); ++i) {
      // Between two like itself a point shows nothing.
      if (i > 0 && i + 1 < levels.size() && levels[i - 1].ownKb == levels[i].ownKb &&
          levels[i + 1].ownKb == levels[i].ownKb) {
        continue;
      }
      svg += place(x(levels[i].cycle), y(levels[i].ownKb / perUnit_)) + " ";
    }
    return svg + "\"><title>" + memory.process + "</title></polyline>\n";
  }

 private:
  [[nodiscard]] double x(double cycle) const { return kLeft + kWidth * cycle / cycles_; }
  [[nodiscard]] double y(double value) const {
    return top_ + kHeight - kHeight * value / std::max(highest_, 1e-9);
  }
  [[nodiscard]] std::string horizontal(double value) const {
    return "<line stroke=\"#bbb\" x1=\"" + fixed(kLeft, 1) + "\" x2=\"" + fixed(kLeft + kWidth, 1) +
           "\" y1=\"" + fixed(y(value), 1) + "\" y2=\"" + fixed(y(value), 1) +
           "\"/>\n<text text-anchor=\"end\" x=\"" + fixed(kLeft - 8, 0) + "\" y=\"" +
           fixed(y(value) + 4, 1) + "\">" + fixed(value, tick_ < 1 ? 1 : 0) + "</text>\n";
  }

  double top_;
  double cycles_;
  double perUnit_;  ///< [kB]
  double tick_ = 1;
  double highest_ = 1;
};

bool isArena(const ProcessMemory& memory) {
  return memory.process == "pitcharena";
}

double highestOf(const std::vector<ProcessMemory>& memory, bool arena) {
  double highest = 1;
  for (const ProcessMemory& process : memory) {
    if (isArena(process) != arena) continue;
    for (const Level& level : process.levels) highest = std::max(highest, level.ownKb);
  }
  return highest;
}

}  // namespace

std::string pictureOf(const std::vector<ProcessMemory>& memory) {
  double cycles = 0;
  for (const ProcessMemory& process : memory) {
    if (!process.levels.empty()) cycles = std::max(cycles, process.levels.back().cycle);
  }
  const double height = 2 * (kAbove + kHeight + kBelow);
  constexpr double kKbPerMb = 1024;
  const Diagram arena(kAbove, cycles, highestOf(memory, true), kKbPerMb);
  const Diagram players(kAbove + height / 2, cycles, highestOf(memory, false), 1);

  std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " +
                    fixed(kTotalWidth, 0) + " " + fixed(height, 0) +
                    "\" font-family=\"sans-serif\" font-size=\"12\">\n"
                    "<title>Memory over the cycles of a match</title>\n"
                    "<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n";
  svg += arena.frame("pitcharena: its own memory [MB] over the cycles; grey: not counted");
  svg += players.frame("twelve pitchagents (left blue, right orange) and ./play (black) [kB]");
  for (const ProcessMemory& process : memory) {
    if (isArena(process)) {
      svg += arena.line(process, "#2a7f2a");
    } else if (process.process.starts_with("left")) {
      svg += players.line(process, "#1f6fc4");
    } else {
      svg += players.line(process, process.process.starts_with("right") ? "#d9730d" : "#000");
    }
  }
  return svg + "</svg>\n";
}

}  // namespace soak
