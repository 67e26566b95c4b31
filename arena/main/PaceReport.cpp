#include "arena/main/PaceReport.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "arena/world/World.h"

namespace arena {
namespace {

double milliseconds(std::chrono::nanoseconds span) {
  return std::chrono::duration<double, std::milli>(span).count();
}

}  // namespace

void PaceReport::add(std::chrono::nanoseconds sinceDue, std::chrono::nanoseconds cycleWork,
                     std::chrono::nanoseconds period) {
  last = sinceDue;
  worst = std::max(worst, sinceDue);
  worstWork = std::max(worstWork, cycleWork);
  if (sinceDue < period) return;
  ++late;
  if (cycleWork >= period) ++lateByOwnFault;
}

std::string textOf(const PaceReport& report) {
  std::array<char, 256> line{};
  const double factor =
      report.seconds > 0 ? static_cast<double>(report.cycles) * kCycleSeconds / report.seconds : 0;
  int length = std::snprintf(line.data(), line.size(),
                             "pace: %ld cycles in %.2f s, %.2f times "
                             "real time",
                             report.cycles, report.seconds, factor);
  std::string text(line.data(), static_cast<std::size_t>(length));
  if (report.realTime) {
    length = std::snprintf(line.data(), line.size(),
                           "\n      %ld late, %ld of them by the training ground's own fault; at "
                           "worst %.1f ms, of own work %.1f ms",
                           report.late, report.lateByOwnFault, milliseconds(report.worst),
                           milliseconds(report.worstWork));
    text.append(line.data(), static_cast<std::size_t>(length));
  }
  return text + '\n';
}

}  // namespace arena
