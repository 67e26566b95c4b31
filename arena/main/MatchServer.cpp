#include "arena/main/MatchServer.h"

#include <algorithm>
#include <utility>

namespace arena {
namespace {

/// How long nobody asks whether to stop.
constexpr std::chrono::milliseconds kStopCheck{50};
/// For the last messages of a match to reach their readers.
constexpr std::chrono::milliseconds kFarewell{500};

}  // namespace

MatchServer::MatchServer(const ServerSettings& settings)
    : pace_(settings.pace), hub_(settings.link), match_(settings.match) {
  // In real time players may come and go without a cycle being late for it.
  match_.prepareModels(pace_.speed > 0 ? kMaxRobots : static_cast<int>(pace_.playersToStart));
}

Summary MatchServer::run(const std::function<bool()>& shouldStop,
                         const std::function<void(const std::string&)>& say,
                         const std::function<void(CycleRecord&)>& onCycle) {
  bool goesOn = waitForPlayers(shouldStop, say);
  const Clock::time_point start = Clock::now();
  if (pace_.speed > 0) clock_.emplace(pace_.speed, start);
  report_.realTime = clock_.has_value();
  while (goesOn && !match_.finished()) {
    LapWatch watch;
    goesOn = waitForCycle(shouldStop);
    watch.lap(report_.work.link);
    if (!goesOn) break;
    try {
      playCycle(say, onCycle);
    } catch (const Diverged& error) {
      fault_ = error.what();
      goesOn = false;
    }
  }
  report_.seconds = std::chrono::duration<double>(Clock::now() - start).count();
  const std::string end = fault_              ? "the match ends here, " + *fault_
                          : match_.finished() ? "the match is over"
                                              : "stopped";
  say(lineOf({match_.now(), end}));
  hub_.finish(Clock::now() + kFarewell);
  return match_.summary();
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
  if (!clock_) {
    due_ = Clock::now();
    hub_.serveUntilAnswered(pace_.settle, due_ + pace_.patience);
    return !shouldStop();
  }
  due_ = clock_->next(Clock::now());
  while (!shouldStop()) {
    hub_.serveUntil(std::min(due_, Clock::now() + kStopCheck));
    if (Clock::now() >= due_) return true;
  }
  return false;
}

void MatchServer::playCycle(const std::function<void(const std::string&)>& say,
                            const std::function<void(CycleRecord&)>& onCycle) {
  LapWatch watch;
  CycleTimes::Span work{};
  for (const Event& event : match_.release(hub_.takeLost())) say(lineOf(event));
  if (clock_) match_.noteClockSlips(clock_->slips() - std::exchange(slipsNoted_, clock_->slips()));
  MatchCycle cycle = match_.advance(hub_.takeCommands());
  for (const SessionId id : cycle.refused) hub_.close(id);
  for (const auto& [to, text] : cycle.messages) hub_.send(to, text);
  watch.lap(work);
  account(cycle.times, work);

  for (const Event& event : cycle.events) say(lineOf(event));
  if (onCycle) onCycle(cycle.record);
  handedOn_ = {};
  watch.lap(handedOn_);
  report_.work.record += handedOn_;
}

void MatchServer::account(const CycleTimes& ofMatch, CycleTimes::Span work) {
  ++report_.cycles;
  report_.work += ofMatch;
  report_.work.link += work - ofMatch.total();
  if (clock_) report_.add(Clock::now() - due_, handedOn_ + work, clock_->period());
}

}  // namespace arena
