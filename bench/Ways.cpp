#include "bench/Ways.h"

#include <time.h>

#include <utility>

namespace bench {

void timeByTurns(Report& report, const std::vector<Way>& ways, int passes, const std::string& unit,
                 const Figured& figured) {
  std::vector<std::vector<double>> figures(ways.size());
  for (int pass = -1; pass < passes; ++pass) {
    for (std::size_t i = 0; i < ways.size(); ++i) {
      const double start = processorSeconds();
      ways[i].pass();
      const double took = processorSeconds() - start;
      if (pass >= 0) figures[i].push_back(figured(took));
    }
  }
  const bool isRate = unit.find('/') != std::string::npos;
  for (std::size_t i = 0; i < ways.size(); ++i) {
    Figure figure = figureOf(ways[i].name, unit, std::move(figures[i]));
    if (isRate) {
      figure.p99.reset();
      figure.max.reset();
    }
    report.add(std::move(figure));
  }
}

double processorSeconds() {
  timespec now{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

}  // namespace bench
