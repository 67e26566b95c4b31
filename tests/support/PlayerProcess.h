#pragma once

/// A program run as a child of the test, with its standard output and error on pipes. It never
/// outlives the object, nor the test that made it. Every wait has a deadline and none of them is a
/// sleep: they end as soon as what they wait for is there.

#include <sys/types.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Long enough for a loaded machine and an instrumented program; a test that meets it has failed.
inline constexpr std::chrono::milliseconds kPatience{20000};

class PlayerProcess {
 public:
  /// Starts PROGRAM in DIRECTORY; its own path comes first among the arguments it sees. Signals
  /// stand at their defaults and a death by signal leaves no core file. Throws std::system_error.
  PlayerProcess(const std::string& program, const std::vector<std::string>& arguments,
                const std::filesystem::path& directory);
  PlayerProcess(const PlayerProcess&) = delete;
  PlayerProcess& operator=(const PlayerProcess&) = delete;
  /// Kills it if it still runs, and reaps it.
  ~PlayerProcess();

  [[nodiscard]] pid_t pid() const { return pid_; }
  void Signal(int number) const;

  /// The status as waitpid tells it, or nothing when it still runs after PATIENCE. Keeps reading
  /// the pipes, so that a talkative child isn't held up.
  std::optional<int> WaitForEnd(std::chrono::milliseconds patience = kPatience);
  /// What it has written so far. Text that it hasn't flushed yet is not there.
  const std::string& Output();
  const std::string& Errors();
  /// Whether TEXT has come on standard output within PATIENCE.
  bool WaitForOutput(std::string_view text, std::chrono::milliseconds patience = kPatience);

  /// The state letter of the process: 'S' while it waits in a system call, 'R' while it runs.
  [[nodiscard]] char State() const;
  /// Whether a signal has been sent and not yet been handled.
  [[nodiscard]] bool HasPending(int signal) const;
  /// Processor time used so far, in user and system mode.
  [[nodiscard]] std::chrono::milliseconds CpuTime() const;
  /// [KiB] the largest part of it that ever was in memory.
  [[nodiscard]] std::size_t PeakMemory() const;

 private:
  struct Pipe {
    int descriptor = -1;
    std::string text;
  };

  /// Waits up to PATIENCE for output or, where that is asked for, for the end; reads what is there.
  void Pump(std::chrono::milliseconds patience, bool orEnd);
  [[nodiscard]] std::vector<std::string> StatFields() const;
  /// What stands behind NAME in the process's status.
  [[nodiscard]] std::string StatusField(std::string_view name) const;

  pid_t pid_ = -1;
  int handle_ = -1;            ///< pidfd: becomes readable at the end of the process
  std::array<Pipe, 2> pipes_;  ///< output, errors
  std::optional<int> status_;  ///< once reaped
};
