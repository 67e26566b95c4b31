#include "viewer/server/Mind.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <numbers>
#include <string_view>
#include <variant>

namespace arena::view {
namespace {

constexpr int kHighestAction = 23;

/// The words of SESSION in (CYCLE - kMemoryCycles, CYCLE], newest first, each handed to LOOK until
/// it says false.
template <typename Look>
void backFrom(const std::deque<TimedWords>& words, long cycle, std::uint32_t session,
              const Look& look) {
  auto at =
      std::upper_bound(words.begin(), words.end(), cycle,
                       [](long wanted, const TimedWords& entry) { return wanted < entry.cycle; });
  while (at != words.begin()) {
    --at;
    if (at->cycle <= cycle - kMemoryCycles || at->session != session || !look(*at)) return;
  }
}

/// Where SLOT's torso saw the ball at the last look before words of CYCLE were said.
std::optional<double> bearingBefore(const Timeline& timeline, long cycle, std::size_t slot) {
  const Moment* moment = timeline.at(cycle - 1);
  if (moment == nullptr || moment->cycle >= cycle) return std::nullopt;
  return moment->shown[slot].ballBearingDeg;
}

double normalised(double degrees) {
  return std::remainder(degrees, 360.0);
}

void readReports(Mind& mind, const Timeline& timeline, std::uint32_t session) {
  std::array<bool, 7> opponentKnown{};
  Side side = Side::kLeft;
  backFrom(timeline.said(mind.slot), mind.cycle, session, [&](const TimedWords& entry) {
    side = entry.side;
    if (!mind.words) mind.words = {entry.text, entry.cycle};
    const auto report = reportIn(entry.text);
    if (!report) return true;
    if (const auto* own = std::get_if<OwnPlace>(&*report)) {
      if (!mind.self) mind.self = {inField(own->at, side), entry.cycle};
    } else if (const auto* ball = std::get_if<BallPlace>(&*report)) {
      if (!mind.ball) mind.ball = {inField(ball->at, side), entry.cycle};
    } else {
      const auto& other = std::get<OpponentPlace>(*report);
      bool& known = opponentKnown.at(static_cast<std::size_t>(other.number));
      if (!known) {
        mind.opponents.push_back({{other.number, inField(other.at, side)}, entry.cycle});
      }
      known = true;
    }
    return true;
  });
  std::sort(mind.opponents.begin(), mind.opponents.end(),
            [](const auto& a, const auto& b) { return a.what.number < b.what.number; });
  if (!mind.self || !mind.ball || std::abs(mind.self->cycle - mind.ball->cycle) > kHeadingCycles) {
    return;
  }
  if (const auto bearing = bearingBefore(timeline, mind.ball->cycle, mind.slot)) {
    const double toBall =
        std::atan2(mind.ball->what.y - mind.self->what.y, mind.ball->what.x - mind.self->what.x);
    mind.headingDeg = {normalised(toBall * 180 / std::numbers::pi - *bearing), mind.ball->cycle};
  }
}

/// An action's number is a line of its own.
std::optional<int> actionIn(std::string_view line) {
  int number = 0;
  const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number);
  if (error != std::errc{} || end != line.data() + line.size()) return std::nullopt;
  if (number < 0 || number > kHighestAction) return std::nullopt;
  return number;
}

void readTrace(Mind& mind, const Timeline& timeline, std::uint32_t session) {
  backFrom(timeline.traced(mind.slot), mind.cycle, session, [&](const TimedWords& entry) {
    const auto number = actionIn(entry.text);
    if (number && !mind.action) mind.action = {*number, entry.cycle};
    if (mind.trace.size() < kMostTraceLines) mind.trace.push_back(entry.text);
    return !mind.action || mind.trace.size() < kMostTraceLines;
  });
  std::reverse(mind.trace.begin(), mind.trace.end());
}

}  // namespace

std::optional<Mind> mindAt(const Timeline& timeline, long cycle, std::size_t slot) {
  const Moment* moment = timeline.at(cycle);
  if (moment == nullptr || slot >= kMostRecordedPlayers) return std::nullopt;
  const std::uint32_t session = moment->sessionInSlot[slot];
  if (session == 0) return std::nullopt;
  Mind mind;
  mind.slot = slot;
  mind.cycle = moment->cycle;
  mind.shown = moment->shown[slot];
  readReports(mind, timeline, session);
  readTrace(mind, timeline, session);
  return mind;
}

}  // namespace arena::view
