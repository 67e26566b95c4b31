#include "soak/RecordAccount.h"

#include <map>
#include <set>
#include <utility>

#include "arena/record/RecordReader.h"

namespace soak {
namespace {

using ShirtKey = std::pair<arena::Side, int>;

/// Which shirts are there, cycle by cycle.
class Attendance {
 public:
  void add(const arena::CycleRecord& record, RecordAccount& account) {
    std::set<ShirtKey> now;
    for (const arena::PlayerRecord& player : record.players) {
      if (sessions_.insert(player.session).second) ++account.joined;
      if (player.shirt) now.insert({player.shirt->side, player.shirt->number});
    }
    for (const ShirtKey& shirt : there_) {
      if (!now.contains(shirt)) goneAt_[shirt] = record.cycle;
    }
    for (const ShirtKey& shirt : now) {
      const auto gone = goneAt_.find(shirt);
      if (gone == goneAt_.end()) continue;
      account.absences.push_back(record.cycle - gone->second);
      goneAt_.erase(gone);
    }
    there_ = std::move(now);
    account.atEnd = there_.size();
  }

 private:
  std::set<std::uint32_t> sessions_{};
  std::set<ShirtKey> there_{};
  std::map<ShirtKey, long> goneAt_{};
};

}  // namespace

RecordAccount accountOf(std::istream& file) {
  arena::RecordReader reader(file);
  RecordAccount account;
  Attendance attendance;
  while (const auto record = reader.next()) {
    ++account.cycles;
    account.missing += record->cycle - account.lastCycle - 1;
    account.lastCycle = record->cycle;
    account.goals = record->score[0] + record->score[1];
    account.finished = record->finished;
    account.left += record->left.size();
    for (const arena::PlayerRecord& player : record->players) {
      ++account.answers;
      if (player.lateAnswer) ++account.lateAnswers;
      if (player.fell) ++account.falls;
    }
    for (const arena::Event& event : record->events) account.events.push_back(lineOf(event));
    attendance.add(*record, account);
  }
  account.fault = reader.fault();
  return account;
}

}  // namespace soak
