#pragma once

/// Where the time of a cycle goes. The match and its server fill one per cycle; the benchmarks
/// print them, and the server's account of its pace says from them whose fault a late cycle was.

#include <ctime>

#include <chrono>

namespace arena {

/// Processor time of the match's thread, so that whatever else the machine does doesn't count.
struct CycleTimes {
  using Span = std::chrono::nanoseconds;

  Span link{};      ///< reading frames into commands, sending messages
  Span commands{};  ///< acting on what the players asked for
  Span physics{};   ///< the world's step
  Span referee{};   ///< rules and postures
  Span senses{};    ///< making the messages
  Span record{};    ///< making the cycle's record, handing it on

  [[nodiscard]] Span total() const { return link + commands + physics + referee + senses + record; }
  CycleTimes& operator+=(const CycleTimes& other) {
    link += other.link;
    commands += other.commands;
    physics += other.physics;
    referee += other.referee;
    senses += other.senses;
    record += other.record;
    return *this;
  }
};

/// Measures one span behind the other.
class LapWatch {
 public:
  /// Adds to SPAN what has gone since the last lap, or since the watch was made.
  void lap(CycleTimes::Span& span) {
    const CycleTimes::Span now = read();
    span += now - last_;
    last_ = now;
  }

 private:
  static CycleTimes::Span read() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
  }

  CycleTimes::Span last_ = read();
};

}  // namespace arena
