#include "arena/main/MatchServer.h"

#include <algorithm>

namespace arena {
namespace {

/// How long nobody asks whether to stop.
constexpr std::chrono::milliseconds kStopCheck{50};
/// For the last messages of a match to reach their readers.
constexpr std::chrono::milliseconds kFarewell{500};

}  // namespace

MatchServer::MatchServer(const ServerSettings& settings)
    : pace_(settings.pace), hub_(settings.link), match_(settings.match) {}

Summary MatchServer::run(const std::function<bool()>& shouldStop,
                         const std::function<void(const std::string&)>& say) {
  bool goesOn = waitForPlayers(shouldStop, say);
  nextCycle_ = Clock::now();
  while (goesOn && !match_.finished()) {
    goesOn = waitForCycle(shouldStop);
    if (goesOn) playCycle(say);
  }
  say(lineOf({match_.now(), match_.finished() ? "the match is over" : "stopped"}));
  Summary summary = match_.summary();
  summary.clockSlips = clockSlips_;
  hub_.finish(Clock::now() + kFarewell);
  return summary;
}

bool MatchServer::waitForPlayers(const std::function<bool()>& shouldStop,
                                 const std::function<void(const std::string&)>& say) {
  while (!shouldStop()) {
    if (hub_.bodiesAskedFor() >= pace_.playersToStart) return true;
    hub_.serveUntil(Clock::now() + kStopCheck);
    for (const Event& event : match_.release(hub_.takeLost())) say(lineOf(event));
  }
  return false;
}

bool MatchServer::waitForCycle(const std::function<bool()>& shouldStop) {
  if (pace_.speed == 0) {
    hub_.serveUntilAnswered(pace_.settle, Clock::now() + pace_.patience);
    return !shouldStop();
  }
  const auto period = std::chrono::duration_cast<Clock::duration>(
      std::chrono::duration<double>(kCycleSeconds / pace_.speed));
  nextCycle_ += period;
  if (Clock::now() > nextCycle_ + kMostCyclesBehind * period) {
    nextCycle_ = Clock::now();
    ++clockSlips_;
  }
  while (!shouldStop()) {
    hub_.serveUntil(std::min(nextCycle_, Clock::now() + kStopCheck));
    if (Clock::now() >= nextCycle_) return true;
  }
  return false;
}

void MatchServer::playCycle(const std::function<void(const std::string&)>& say) {
  for (const Event& event : match_.release(hub_.takeLost())) say(lineOf(event));
  const MatchCycle cycle = match_.advance(hub_.takeCommands());
  for (const SessionId id : cycle.refused) hub_.close(id);
  for (const auto& [to, text] : cycle.messages) hub_.send(to, text);
  for (const Event& event : cycle.events) say(lineOf(event));
}

}  // namespace arena
