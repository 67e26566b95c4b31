#pragma once

/// A match without sockets, played by hand: the test says what each session sends in a cycle.

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "arena/link/Effectors.h"
#include "arena/match/Match.h"

namespace arena::test {

class Stage {
 public:
  explicit Stage(const MatchSettings& settings = {}) : match_(settings) {}

  /// SESSION sends FRAME before the next cycle.
  void say(SessionId session, std::string_view frame) {
    if (!readEffectors(frame, pending_[session])) throw std::invalid_argument("broken frame");
  }
  /// A body and a shirt, before the next cycle.
  void join(SessionId session, int number, const std::string& team) {
    say(session, "(scene rsg/agent/nao/nao.rsg)(init (unum " + std::to_string(number) +
                     ")(teamname " + team + "))");
  }

  /// Plays CYCLES; what was said acts in the first of them.
  void play(int cycles = 1) {
    for (int i = 0; i < cycles; ++i) {
      std::vector<Received> received;
      for (const auto& [id, commands] : pending_) received.push_back({id, commands});
      pending_.clear();
      last_ = match_.advance(received);
      keep(last_.events);
    }
  }
  void drop(SessionId session, const std::string& why) { keep(match_.release({{session, why}})); }

  /// The last message to SESSION; empty if there was none.
  [[nodiscard]] std::string message(SessionId session) const {
    for (const Message& one : last_.messages) {
      if (one.to == session) return one.text;
    }
    return {};
  }
  [[nodiscard]] const MatchCycle& last() const { return last_; }
  [[nodiscard]] const std::vector<std::string>& events() const { return events_; }
  [[nodiscard]] bool happened(const std::string& event) const {
    return std::find(events_.begin(), events_.end(), event) != events_.end();
  }
  [[nodiscard]] Match& match() { return match_; }
  /// The summary's row of NAME; empty if there is none.
  [[nodiscard]] PlayerSummary row(const std::string& name) const {
    for (const PlayerSummary& player : match_.summary().players) {
      if (player.name == name) return player;
    }
    return {};
  }

 private:
  void keep(const std::vector<Event>& events) {
    for (const Event& event : events) events_.push_back(lineOf(event));
  }

  Match match_;
  std::map<SessionId, Commands> pending_{};
  MatchCycle last_{};
  std::vector<std::string> events_{};
};

/// A match with WAIT seconds before the kick-off and HALF to play, exact sight.
inline MatchSettings exactMatch(double wait, double half) {
  MatchSettings settings;
  settings.referee.waitSeconds = wait;
  settings.referee.halfSeconds = half;
  settings.senses.noise.reset();
  return settings;
}

inline bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

}  // namespace arena::test
