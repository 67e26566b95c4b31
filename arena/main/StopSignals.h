#pragma once

/// SIGINT and SIGTERM as something to ask for instead of something that interrupts. The program
/// makes one before anything else and asks it between cycles.

namespace arena {

class StopSignals {
 public:
  /// From here on the two signals wait to be asked for. Throws std::system_error.
  StopSignals();
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

  /// Whether one has come; once true, always true.
  [[nodiscard]] bool requested();

 private:
  int descriptor_ = -1;
  bool requested_ = false;
};

}  // namespace arena
