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
#include "arena/match/CycleTimes.h"
#include "arena/match/Posture.h"
#include "arena/match/Statistics.h"
#include "arena/match/Summary.h"
#include "arena/record/CycleRecord.h"
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
  CycleRecord record{};  ///< all of this for statistics, files and viewers, recordable
  CycleTimes times{};    ///< what each part of it took
};

class Match {
 public:
  explicit Match(const MatchSettings& settings);

  /// See World; before the first cycle.
  void prepareModels(int most) { world_.prepareModels(most); }

  /// Sessions that have gone: their robots leave the field. The next cycle's record has it.
  std::vector<Event> release(const std::vector<Lost>& lost);
  /// Real time was given up; for the next cycle's record.
  void noteClockSlips(int slips) { clockSlips_ += slips; }
  /// A hand from outside puts the ball somewhere, rolling or flying: for trials and tests. The
  /// rules take it for the work of whoever touched it last. Throws std::invalid_argument if not
  /// finite.
  void putBall(const Vec3& position, const Vec3& velocity) { world_.setBall(position, velocity); }
  /// One cycle.
  MatchCycle advance(const std::vector<Received>& received);

  [[nodiscard]] bool finished() const { return referee_.finished(); }
  /// [s] simulated since the start.
  [[nodiscard]] double now() const;
  /// Of the cycles so far.
  [[nodiscard]] Summary summary() const { return statistics_.summary(); }

 private:
  /// One session's part in the match.
  struct Player {
    std::optional<int> slot{};     ///< in the world; empty until it has asked for a body
    std::optional<Shirt> shirt{};  ///< empty until it has said `init`
    bool awaitingAnswer = false;
    std::optional<Pose> beamWish{};       ///< of this cycle, until it is obeyed or not
    std::optional<TeamPlace> lastBeam{};  ///< the last one obeyed
    Posture posture{};
    PlayerRecord notes{};  ///< what the next record says about it; its body comes last
  };

  [[nodiscard]] std::string nameOf(SessionId id) const;
  void act(const Received& received, MatchCycle& out);
  /// A place in the world; the body comes with bringBodies().
  std::optional<Refusal> giveBody(Player& player, int requests);
  void bringBodies();
  std::optional<Refusal> giveShirt(SessionId id, Player& player, const InitRequest& request,
                                   MatchCycle& out);
  void driveJoints(const Received& received);
  void wishBeam(Player& player, const BeamRequest& request) const;
  void obeyBeams(MatchCycle& out);
  void beam(Player& player, const Pose& pose, MatchCycle& out);
  void leave(SessionId id, const std::string& why);
  void rule(MatchCycle& out);
  [[nodiscard]] FieldView fieldView() const;
  void obey(const Ruling& ruling);
  void watchPostures(MatchCycle& out);
  [[nodiscard]] Snapshot snapshot(const std::vector<Received>& received) const;
  CycleRecord takeRecord(const Snapshot& shot, const std::vector<Event>& events);

  SenseSettings senses_;
  World world_;
  Referee referee_;
  Roster roster_{};
  std::map<SessionId, Player> players_{};
  std::array<bool, kMaxRobots> slotTaken_{};
  long cycle_ = 0;
  Statistics statistics_{};
  // For the next record:
  std::vector<LeftRecord> left_{};
  std::vector<Event> releaseEvents_{};
  int clockSlips_ = 0;
};

}  // namespace arena
