#pragma once

/// Where one page is in the match, and how it moves on: pure arithmetic on cycles. Each page has
/// one; the viewer's clock drives it, the page's requests set it.

#include <string_view>

namespace arena::view {

enum class Pace {
  kLive,   ///< always the newest cycle
  kPlays,  ///< at its own speed
  kPaused,
};

/// As the page spells it.
constexpr std::string_view nameOf(Pace pace) {
  switch (pace) {
    case Pace::kLive:
      return "live";
    case Pace::kPlays:
      return "plays";
    case Pace::kPaused:
      return "paused";
  }
  return "";
}

/// Cycles that can be shown, both included.
struct Span {
  long first = 0;
  long last = 0;
};

inline constexpr double kSlowest = 0.1;
inline constexpr double kFastest = 16;

class Playhead {
 public:
  /// GROWS: the match is live, and whoever reaches its end follows it from there.
  explicit Playhead(bool grows) : grows_(grows), pace_(grows ? Pace::kLive : Pace::kPlays) {}

  [[nodiscard]] long cycle() const { return static_cast<long>(position_); }
  [[nodiscard]] Pace pace() const { return pace_; }
  [[nodiscard]] double speed() const { return speed_; }

  /// SECONDS of real time have passed.
  void advance(double seconds, const Span& span);

  /// From the end of a record, play begins anew.
  void play(const Span& span);
  void pause();
  /// To the newest cycle and on with it; a record has none newer: its end.
  void live(const Span& span);
  /// Times real time; cut to kSlowest .. kFastest. A page that follows live keeps to that.
  void setSpeed(double times);
  /// Stays paused, or plays on from there.
  void seek(long cycle, const Span& span);
  /// Pauses BY cycles away.
  void step(long by, const Span& span);

 private:
  void place(double position, const Span& span);

  bool grows_;
  Pace pace_;
  double position_ = 0;
  double speed_ = 1;
};

}  // namespace arena::view
