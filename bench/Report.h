#pragma once

/// What one benchmark found out, as a table for the reader and as JSON for the page that bench/run
/// writes of all of them. A program fills one Report, prints it, and saves it when it was started
/// with --json FILE.

#include <optional>
#include <string>
#include <vector>

namespace bench {

/// What a figure is wanted to be.
struct Aim {
  enum class Kind { kAtMost, kAtLeast };
  Kind kind = Kind::kAtMost;
  double value = 0;
};

inline Aim atMost(double value) {
  return {Aim::Kind::kAtMost, value};
}
inline Aim atLeast(double value) {
  return {Aim::Kind::kAtLeast, value};
}

struct Figure {
  std::string name;           ///< unique within its report
  std::string unit;           ///< empty for "so many times"
  double p50 = 0;             ///< the median, or the one value where there is no more than one
  std::optional<double> p99;  ///< where it says something
  std::optional<double> max;
  std::optional<Aim> aim;
};

/// Percentiles of SAMPLES, of which there is one at least.
Figure figureOf(std::string name, std::string unit, std::vector<double> samples);

class Report {
 public:
  /// BENCHMARK is the program's name, less what all of them share.
  explicit Report(std::string benchmark);

  void add(Figure figure);
  /// How many times the p50 of ONE is that of the other; both are figures of this report.
  void addRatio(const std::string& one, const std::string& other, std::optional<Aim> aim = {});

  /// The machine's line, then a line per figure.
  [[nodiscard]] std::string asTable() const;
  [[nodiscard]] std::string asJson() const;
  /// Throws std::runtime_error when the file can't be written.
  void save(const std::string& file) const;

  /// Throws std::out_of_range for a name that isn't there.
  [[nodiscard]] const Figure& at(const std::string& name) const;

 private:
  std::string benchmark_;
  std::vector<Figure> figures_{};
};

/// "Some processor; 2 processors; compiler; flags; commit": the first line of a benchmark.
std::string machineLine();

/// Takes "--json FILE" out of a program's arguments; empty when it isn't there.
std::string takeJsonFile(int& argc, char** argv);

}  // namespace bench
