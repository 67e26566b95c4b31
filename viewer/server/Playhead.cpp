#include "viewer/server/Playhead.h"

#include <algorithm>
#include <cmath>

#include "arena/record/CycleRecord.h"

namespace arena::view {

void Playhead::place(double position, const Span& span) {
  position_ = std::clamp(position, static_cast<double>(span.first), static_cast<double>(span.last));
}

void Playhead::advance(double seconds, const Span& span) {
  place(position_, span);
  switch (pace_) {
    case Pace::kLive:
      place(static_cast<double>(span.last), span);
      break;
    case Pace::kPlays:
      place(position_ + seconds * speed_ / kRecordCycleSeconds, span);
      if (cycle() >= span.last) pace_ = grows_ ? Pace::kLive : Pace::kPaused;
      break;
    case Pace::kPaused:
      break;
  }
}

void Playhead::play(const Span& span) {
  if (pace_ == Pace::kLive) return;
  if (!grows_ && cycle() >= span.last) place(static_cast<double>(span.first), span);
  pace_ = Pace::kPlays;
}

void Playhead::pause() {
  pace_ = Pace::kPaused;
}

void Playhead::live(const Span& span) {
  place(static_cast<double>(span.last), span);
  pace_ = grows_ ? Pace::kLive : Pace::kPaused;
}

void Playhead::setSpeed(double times) {
  if (std::isfinite(times)) speed_ = std::clamp(times, kSlowest, kFastest);
}

void Playhead::seek(long cycle, const Span& span) {
  if (pace_ == Pace::kLive) pace_ = Pace::kPlays;
  place(static_cast<double>(cycle), span);
}

void Playhead::step(long by, const Span& span) {
  pace_ = Pace::kPaused;
  place(position_, span);
  place(static_cast<double>(cycle()) + static_cast<double>(by), span);
}

}  // namespace arena::view
