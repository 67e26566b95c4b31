#pragma once

/// What soak/run has noted during a match: how much memory each process had when, and which line
/// came out of ./play when. Read once the match is over, by soak_report.

#include <istream>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace soak {

/// One look at one process, out of /proc/PID/smaps_rollup.
struct Sample {
  double time = 0;         ///< [s] since the machine was started
  std::string process{};   ///< "pitcharena", "left-3", "play"
  double residentKb = 0;   ///< all its pages in memory
  double sharedOutKb = 0;  ///< the same, each page divided by the number of its users
  double ownKb = 0;        ///< heap, stacks and whatever else is no file
};

/// A line of ./play.
struct Line {
  double time = 0;  ///< [s] as above
  std::string text{};
};

/// Lines "TIME<TAB>PROCESS<TAB>RESIDENT PSS ANONYMOUS", in kB. Throws std::runtime_error that names
/// WHERE and the line of what isn't so.
std::vector<Sample> samplesIn(std::istream& file, const std::string& where);
/// Lines "TIME<TAB>TEXT". The same.
std::vector<Line> linesIn(std::istream& file, const std::string& where);

/// The cycle that an event line of the training ground tells, "12.34 s  ..."; none of another line.
std::optional<long> cycleOf(const std::string& text);

/// Which cycle a match was in at a moment: between two event lines in proportion to the time.
class Progress {
 public:
  explicit Progress(const std::vector<Line>& lines);
  /// Before the first event line its cycle, behind the last one the last; 0 without any.
  [[nodiscard]] double cycleAt(double time) const;
  [[nodiscard]] double last() const { return marks_.empty() ? 0 : marks_.back().second; }

 private:
  std::vector<std::pair<double, double>> marks_{};  ///< time and cycle, both growing
};

}  // namespace soak
