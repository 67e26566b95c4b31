#pragma once

/// How far a long command has got: one line on standard error that overwrites itself, and nothing
/// at all where standard error isn't a terminal.

#include <cstddef>

namespace workshop {

class ProgressBar {
 public:
  ProgressBar();
  /// DONE of ALL; drawn anew only when it would look different.
  void show(std::size_t done, std::size_t all);
  /// Wipes the line.
  void clear();

 private:
  bool shown_;
  std::size_t lastDone_ = static_cast<std::size_t>(-1);
};

}  // namespace workshop
