#pragma once

/// All that one cycle of a match says, as plain values. The match makes one at the end of every
/// cycle; the statistics, the match file and whoever watches live read the same ones, and a file
/// gives them back unchanged. That holds because they are made recordable first (Recordable.h):
/// rounded to the steps below and cut to the limits below.
///
/// Field frame: origin at the centre, x towards the right team's goal, y to the left of the left
/// team's attack, z up; metres. Torso frame: x to the right, y forward, z up.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "arena/model/BodyTable.h"
#include "arena/record/Event.h"
#include "arena/referee/PlayMode.h"
#include "arena/referee/Side.h"
#include "arena/world/State.h"

namespace arena {

/// [s] from one record to the next; the match checks that the world agrees.
inline constexpr double kRecordCycleSeconds = 0.02;

inline constexpr std::size_t kMostRecordedPlayers = 12;
inline constexpr std::size_t kMostRecordedEvents = 400;     ///< of a cycle
inline constexpr std::size_t kMostRecordedLeavings = 400;   ///< of a cycle
inline constexpr std::size_t kMostRecordedTraces = 20;      ///< of a player in a cycle
inline constexpr std::size_t kMostRecordedTextBytes = 240;  ///< of a text, whatever it says

/// Attitude as a unit quaternion (w, x, y, z) that turns torso axes into field axes, w not below
/// zero. Each part is rounded by itself: normalise before use.
using Quaternion = std::array<double, 4>;

/// One player with a body, at the end of the cycle and in it.
struct PlayerRecord {
  /// Who it is, the same for as long as its body is there. A session that comes up for the first
  /// time has joined in this cycle.
  std::uint32_t session = 0;
  int slot = 0;                  ///< place in the world, 0 to 11
  std::optional<Shirt> shirt{};  ///< empty until it has said `init`

  // Its body at the end of the cycle.
  Vec3 position{};                             ///< [m] field frame, of the torso's origin
  Quaternion attitude{1, 0, 0, 0};             ///< of the torso
  std::array<double, kJointCount> jointDeg{};  ///< [deg] rows of kJoints
  bool standing = true;                        ///< by the tilt of the torso, with a hysteresis
  bool touchedBall = false;                    ///< during the cycle

  // What was noted about it during the cycle.
  bool fell = false;
  bool gotUp = false;          ///< by itself; a beam that puts it upright is none
  bool moved = false;          ///< the referee put it elsewhere
  bool lateAnswer = false;     ///< the cycle began with its last message unanswered
  std::optional<Pose> beam{};  ///< obeyed: where it was put, field frame
  int ignoredBeams = 0;        ///< at the wrong time, off the field or onto another robot
  int malformed = 0;           ///< effectors skipped; with those from before it had a body
  std::string said{};          ///< as it goes to the others; empty: nothing
  /// Lines of its own log from this cycle, where somebody gathers them; nothing is made of them.
  std::vector<std::string> traced{};

  friend bool operator==(const PlayerRecord&, const PlayerRecord&) = default;
};

/// A session that ended since the cycle before. One that was in no record had no body, or was
/// refused in the cycle in which it got it.
struct LeftRecord {
  std::uint32_t session = 0;
  std::string why{};

  friend bool operator==(const LeftRecord&, const LeftRecord&) = default;
};

struct CycleRecord {
  long cycle = 0;    ///< since the start of the match; the first record is number 1
  double clock = 0;  ///< [s] the game's own clock
  int half = 1;      ///< 1 or 2
  PlayMode mode = PlayMode::kBeforeKickOff;
  std::array<int, 2> score{};              ///< order of Side
  int droppedBalls = 0;                    ///< so far, because nobody touched the ball
  bool finished = false;                   ///< the match is over with this cycle
  std::array<std::string, 2> teamNames{};  ///< order of Side; empty while a side has no team

  Vec3 ball{};          ///< [m] field frame, of its centre
  Vec3 ballVelocity{};  ///< [m/s] field frame

  std::vector<PlayerRecord> players{};  ///< everyone with a body, in order of slot
  std::vector<LeftRecord> left{};
  std::vector<Event> events{};  ///< since the cycle before, in order
  int clockSlips = 0;           ///< times that real time was given up since the cycle before

  /// [s] simulated since the start of the match, at the end of the cycle.
  [[nodiscard]] double now() const { return static_cast<double>(cycle) * kRecordCycleSeconds; }
  /// [s] at its beginning, where commands act and sessions come and go.
  [[nodiscard]] double begin() const {
    return static_cast<double>(cycle - 1) * kRecordCycleSeconds;
  }

  friend bool operator==(const CycleRecord&, const CycleRecord&) = default;
};

}  // namespace arena
