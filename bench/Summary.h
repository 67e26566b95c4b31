#pragma once

/// What several runs of the benchmarks together say: of each figure the median over the runs and
/// how far they lay apart. bench_page makes the page of performance out of it; reads what Report
/// saved.

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "bench/Report.h"

namespace bench {

/// One figure over all runs.
struct SummaryFigure {
  std::string name{};
  std::string unit{};
  double median = 0;  ///< of the runs' p50
  double lowest = 0;
  double highest = 0;
  std::optional<double> p99{};  ///< median of the runs' p99
  std::optional<Aim> aim{};

  /// Whether the median is what was wanted; nothing was when there is no aim.
  [[nodiscard]] bool isMet() const;
};

struct Summary {
  std::string benchmark{};
  std::size_t runs = 0;
  std::vector<SummaryFigure> figures{};  ///< in the order of the first run
};

/// The machine and the program, the same in all runs.
struct Circumstances {
  std::string processor{};
  int processors = 0;
  std::string compiler{};
  std::string flags{};
  std::string commit{};

  bool operator==(const Circumstances&) const = default;
};

struct Performance {
  Circumstances circumstances{};
  std::vector<Summary> benchmarks{};  ///< in the order in which they first come
};

/// RUNS are texts that Report::asJson made. Throws std::runtime_error when there are none, when one
/// can't be read, when two differ in their circumstances, or when a figure is missing from a run.
Performance performanceOf(const std::vector<std::string>& runs);

std::string asJson(const Performance& performance);
/// A table in Markdown.
std::string asMarkdown(const Summary& summary);

/// TEMPLATE with "{{circumstances}}" and each "{{table NAME}}" replaced. Throws std::runtime_error
/// for a name that was not measured, or any other word in double braces.
std::string fillIn(const std::string& pageTemplate, const Performance& performance);

}  // namespace bench
