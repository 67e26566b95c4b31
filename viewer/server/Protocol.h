#pragma once

/// The texts between viewer and page, besides the binary frames: JSON, one object per message.
/// Pure: the viewer decides when which is sent.
///
/// To the page: {"hello": ..} once, then {"time": ..}, {"events": ..}, {"teams": ..}, {"mind": ..}.
/// From the page, {"do": ..}:
///   "got"                          a frame has arrived: one more may be sent
///   "play" "pause" "live"
///   "speed" with "value"           times real time
///   "seek" with "cycle", "step" with "by"
///   "minds" with "slots"           whose minds it wants to see from now on

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "viewer/server/Mind.h"
#include "viewer/server/Playhead.h"
#include "viewer/server/Timeline.h"

namespace arena::view {

struct Got {};
struct Play {};
struct Pause {};
struct GoLive {};
struct SetSpeed {
  double times = 1;
};
struct Seek {
  long cycle = 0;
};
struct StepBy {
  long cycles = 0;
};
struct WatchMinds {
  std::vector<std::size_t> slots{};
};
using Request = std::variant<Got, Play, Pause, GoLive, SetSpeed, Seek, StepBy, WatchMinds>;

/// Empty for anything that is none.
std::optional<Request> requestIn(std::string_view text);

/// What doesn't change: robot, field, names, and whether the match is LIVE or a record.
std::string helloText(bool live);
std::string teamsText(const std::array<std::string, 2>& names);
std::string timeText(const Playhead& playhead, const Span& span, bool finished);
/// Events from row FROM on.
std::string eventsText(const std::vector<TimedEvent>& events, std::size_t from);
std::string mindText(const Mind& mind);

}  // namespace arena::view
