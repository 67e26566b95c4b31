#include "viewer/server/Timeline.h"

#include <algorithm>
#include <iterator>

#include "arena/senses/Perception.h"

namespace arena::view {

void Timeline::add(const CycleRecord& record) {
  if (!empty() && record.cycle <= last()) return;
  Moment moment;
  moment.cycle = record.cycle;
  const bool lookCycle = record.cycle % kCyclesPerLook == 0;
  for (const PlayerRecord& player : record.players) {
    const auto slot = static_cast<std::size_t>(player.slot);
    if (slot >= kMostRecordedPlayers) continue;
    moment.sessionInSlot[slot] = player.session;
    if (lookCycle) shown_[slot] = shownTo(player, record.ball);
    const Side side = player.shirt ? player.shirt->side : Side::kLeft;
    if (!player.said.empty()) {
      said_[slot].push_back({record.cycle, player.session, side, player.said});
    }
    for (const std::string& line : player.traced) {
      traced_[slot].push_back({record.cycle, player.session, side, line});
    }
  }
  moment.shown = shown_;
  moment.frame = frameOf(record, shown_);
  moments_.push_back(std::move(moment));
  for (const Event& event : record.events) events_.push_back({record.cycle, event.text});
  teamNames_ = record.teamNames;
  finished_ = record.finished;
  if (keep_) forgetBefore(record.cycle - *keep_);
}

const Moment* Timeline::at(long cycle) const {
  if (empty()) return nullptr;
  const auto after =
      std::upper_bound(moments_.begin(), moments_.end(), cycle,
                       [](long wanted, const Moment& moment) { return wanted < moment.cycle; });
  return after == moments_.begin() ? &*after : &*std::prev(after);
}

void Timeline::forgetBefore(long cycle) {
  while (!moments_.empty() && moments_.front().cycle < cycle) moments_.pop_front();
  const auto forget = [cycle](auto& bySlot) {
    for (auto& words : bySlot) {
      while (!words.empty() && words.front().cycle < cycle) words.pop_front();
    }
  };
  forget(said_);
  forget(traced_);
}

}  // namespace arena::view
