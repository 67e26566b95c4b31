#pragma once

/// A whole match without sockets and without a clock: world, referee, roster and senses, and what
/// each session's player is in it. The match server calls release() for sessions that have gone
/// and advance() once per cycle; tests and trials call them directly. The same settings and the
/// same commands give the same messages, byte for byte, however fast the calls come.
///
/// One cycle, in this order: commands act, the world moves on by 0.02 s, the referee rules, every
/// player's message is made from what is there then.

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "arena/link/Intake.h"
#include "arena/main/Event.h"
#include "arena/main/Posture.h"
#include "arena/main/Summary.h"
#include "arena/referee/Referee.h"
#include "arena/referee/Roster.h"
#include "arena/senses/Perception.h"
#include "arena/world/World.h"

namespace arena {

struct MatchSettings {
  RefereeSettings referee{};
  SenseSettings senses{};
  WorldSettings world{};
};

struct Message {
  SessionId to = 0;
  std::string text{};
};

/// What comes out of a cycle.
struct MatchCycle {
  std::vector<Message> messages{};   ///< one per player with a body, in order of session
  std::vector<SessionId> refused{};  ///< sessions that are to be closed
  std::vector<Event> events{};
};

class Match {
 public:
  explicit Match(const MatchSettings& settings);

  /// Sessions that have gone: their robots leave the field.
  std::vector<Event> release(const std::vector<Lost>& lost);
  /// One cycle.
  MatchCycle advance(const std::vector<Received>& received);

  [[nodiscard]] bool finished() const { return referee_.finished(); }
  /// [s] simulated since the start.
  [[nodiscard]] double now() const;
  [[nodiscard]] Summary summary() const;

 private:
  /// One session's part in the match.
  struct Player {
    std::optional<int> slot{};  ///< in the world; empty until it has asked for a body
    bool awaitingAnswer = false;
    Posture posture{};
    PlayerSummary record{};
  };

  [[nodiscard]] std::string nameOf(SessionId id) const;
  void act(const Received& received, MatchCycle& out);
  std::optional<Refusal> giveBody(Player& player, int requests);
  std::optional<Refusal> giveShirt(SessionId id, Player& player, const InitRequest& request,
                                   MatchCycle& out);
  void beam(Player& player, const BeamRequest& request, MatchCycle& out);
  [[nodiscard]] bool isFree(const Pose& pose, int slot) const;
  void leave(SessionId id, const std::string& why);
  void rule(MatchCycle& out);
  void watchPostures(MatchCycle& out);
  [[nodiscard]] Snapshot snapshot(const std::vector<Received>& received) const;
  [[nodiscard]] PlayerSummary finalRecord(SessionId id, const Player& player) const;

  SenseSettings senses_;
  World world_;
  Referee referee_;
  Roster roster_{};
  std::map<SessionId, Player> players_{};
  std::array<bool, kMaxRobots> slotTaken_{};
  std::vector<PlayerSummary> gone_{};
  int sessionsWithoutBody_ = 0;
  long cycle_ = 0;
};

}  // namespace arena
