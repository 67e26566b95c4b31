#include "arena/record/CycleCodec.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "arena/record/Recordable.h"
#include "arena/record/Steps.h"

namespace arena {
namespace {

/// More than any quantity and its expectation are apart. Keeps the sums below far from overflow.
constexpr std::int64_t kMostDifference = std::int64_t{1} << 40U;
constexpr std::uint64_t kMostCycles = std::uint64_t{1} << 40U;
constexpr int kShirtsOfASide = 6;

/// What is said about a player in this cycle, one bit each. Most players only stand.
enum PlayerFlag : std::uint64_t {
  kStanding = 1U << 0U,
  kNew = 1U << 1U,           ///< the session follows; nobody or another was in this slot
  kShirtChanged = 1U << 2U,  ///< the shirt follows
  kTouchedBall = 1U << 3U,
  kLateAnswer = 1U << 4U,
  kSaid = 1U << 5U,          ///< the word follows
  kBeam = 1U << 6U,          ///< the pose follows
  kIgnoredBeams = 1U << 7U,  ///< the count follows
  kMalformed = 1U << 8U,     ///< the count follows
  kFell = 1U << 9U,
  kGotUp = 1U << 10U,
  kMoved = 1U << 11U,
  kTraced = 1U << 12U,  ///< the number of lines and they follow
};
constexpr std::uint64_t kAllPlayerFlags = (1U << 13U) - 1;

/// What is said about the match in this cycle.
enum CycleFlag : std::uint64_t {
  kFinished = 1U << 0U,
  kSecondHalf = 1U << 1U,
  kScoreChanged = 1U << 2U,      ///< the goals of both and the dropped balls follow
  kLeftNameChanged = 1U << 3U,   ///< it follows
  kRightNameChanged = 1U << 4U,  ///< it follows
  kPeopleLeft = 1U << 5U,        ///< their number and they follow
  kEvents = 1U << 6U,            ///< their number and they follow
  kClockSlips = 1U << 7U,        ///< their number follows
};
constexpr std::uint64_t kAllCycleFlags = (1U << 8U) - 1;

constexpr std::uint64_t flag(bool set, std::uint64_t bit) {
  return set ? bit : 0;
}

const Step& bodyStep(std::size_t quantity) {
  if (quantity < 3) return kLengthStep;
  return quantity < 7 ? kTurnStep : kAngleStep;
}

const Step& ballStep(std::size_t quantity) {
  return quantity < 3 ? kLengthStep : kSpeedStep;
}

/// QUANTITIES of a record in one row. Works on const records and on those being read.
auto& quantity(auto& player, std::size_t i) {
  if (i < 3) return player.position[i];
  return i < 7 ? player.attitude[i - 3] : player.jointDeg[i - 7];
}

auto& ballQuantity(auto& record, std::size_t i) {
  return i < 3 ? record.ball[i] : record.ballVelocity[i - 3];
}

Track<kBodyQuantities>::Steps bodySteps(const PlayerRecord& player) {
  Track<kBodyQuantities>::Steps steps{};
  for (std::size_t i = 0; i < steps.size(); ++i) {
    steps[i] = stepsOf(quantity(player, i), bodyStep(i));
  }
  return steps;
}

Track<kBallQuantities>::Steps ballSteps(const CycleRecord& record) {
  Track<kBallQuantities>::Steps steps{};
  for (std::size_t i = 0; i < steps.size(); ++i) {
    steps[i] = stepsOf(ballQuantity(record, i), ballStep(i));
  }
  return steps;
}

std::uint64_t codeOf(const std::optional<Shirt>& shirt) {
  if (!shirt) return 0;
  const int code = static_cast<int>(shirt->side) * kShirtsOfASide + shirt->number;
  return static_cast<std::uint64_t>(code);
}

std::optional<Shirt> shirtOf(std::uint64_t code) {
  if (code == 0) return std::nullopt;
  const int row = static_cast<int>(code) - 1;
  return Shirt{static_cast<Side>(row / kShirtsOfASide), row % kShirtsOfASide + 1};
}

std::uint64_t numberOf(int count) {
  return static_cast<std::uint64_t>(count);
}

int count(ByteReader& in) {
  return static_cast<int>(in.number(kMostCounted));
}

/// A difference from EXPECTED, in steps.
double quantityAt(ByteReader& in, std::int64_t expected, const Step& step) {
  const std::int64_t difference = in.difference();
  if (difference > kMostDifference || difference < -kMostDifference) in.fail();
  if (in.failed()) return 0;
  const std::int64_t steps = expected + difference;
  if (steps > step.most || steps < -step.most) in.fail();
  return valueOf(steps, step);
}

void writePlayer(const PlayerRecord& player, const std::optional<CycleMemory::Body>& before,
                 ByteWriter& out) {
  const bool isNew = !before || before->session != player.session;
  const CycleMemory::Body nobody{};
  const CycleMemory::Body& known = isNew ? nobody : *before;
  const bool shirtChanged = known.shirt != player.shirt;

  out.number(flag(player.standing, kStanding) | flag(isNew, kNew) |
             flag(shirtChanged, kShirtChanged) | flag(player.touchedBall, kTouchedBall) |
             flag(player.lateAnswer, kLateAnswer) | flag(!player.said.empty(), kSaid) |
             flag(player.beam.has_value(), kBeam) | flag(player.ignoredBeams > 0, kIgnoredBeams) |
             flag(player.malformed > 0, kMalformed) | flag(player.fell, kFell) |
             flag(player.gotUp, kGotUp) | flag(player.moved, kMoved) |
             flag(!player.traced.empty(), kTraced));
  if (isNew) out.number(player.session);
  if (shirtChanged) out.number(codeOf(player.shirt));
  if (!player.said.empty()) out.text(player.said);
  if (player.beam) {
    out.difference(stepsOf(player.beam->x, kLengthStep));
    out.difference(stepsOf(player.beam->y, kLengthStep));
    out.difference(stepsOf(player.beam->headingDeg, kAngleStep));
  }
  if (player.ignoredBeams > 0) out.number(numberOf(player.ignoredBeams));
  if (player.malformed > 0) out.number(numberOf(player.malformed));
  if (!player.traced.empty()) {
    out.number(player.traced.size());
    for (const std::string& line : player.traced) out.text(line);
  }

  const auto steps = bodySteps(player);
  for (std::size_t i = 0; i < steps.size(); ++i) {
    out.difference(steps[i] - known.track.expected(i));
  }
}

PlayerRecord readPlayer(int slot, const std::optional<CycleMemory::Body>& before, ByteReader& in) {
  PlayerRecord player;
  player.slot = slot;
  const std::uint64_t flags = in.number(kAllPlayerFlags);
  const auto has = [flags](std::uint64_t bit) { return (flags & bit) != 0; };
  if (!has(kNew) && !before) in.fail();
  const CycleMemory::Body nobody{};
  const CycleMemory::Body& known = has(kNew) || !before ? nobody : *before;

  player.session = known.session;
  player.shirt = known.shirt;
  player.standing = has(kStanding);
  player.touchedBall = has(kTouchedBall);
  player.lateAnswer = has(kLateAnswer);
  player.fell = has(kFell);
  player.gotUp = has(kGotUp);
  player.moved = has(kMoved);
  if (has(kNew)) {
    player.session =
        static_cast<std::uint32_t>(in.number(std::numeric_limits<std::uint32_t>::max()));
  }
  if (has(kShirtChanged)) player.shirt = shirtOf(in.number(2 * kShirtsOfASide));
  if (has(kSaid)) player.said = in.text(kMostRecordedTextBytes);
  if (has(kBeam)) {
    const double x = quantityAt(in, 0, kLengthStep);
    const double y = quantityAt(in, 0, kLengthStep);
    player.beam = Pose{x, y, quantityAt(in, 0, kAngleStep)};
  }
  if (has(kIgnoredBeams)) player.ignoredBeams = count(in);
  if (has(kMalformed)) player.malformed = count(in);
  if (has(kTraced)) {
    player.traced.resize(static_cast<std::size_t>(in.number(kMostRecordedTraces)));
    for (std::string& line : player.traced) line = in.text(kMostRecordedTextBytes);
  }
  for (std::size_t i = 0; i < kBodyQuantities; ++i) {
    quantity(player, i) = quantityAt(in, known.track.expected(i), bodyStep(i));
  }
  return player;
}

}  // namespace

void CycleMemory::add(const CycleRecord& record) {
  ball_.add(ballSteps(record));
  std::array<std::optional<Body>, kMostRecordedPlayers> bodies{};
  for (const PlayerRecord& player : record.players) {
    const auto slot = static_cast<std::size_t>(player.slot);
    Body body{player.session, player.shirt, {}};
    if (bodies_[slot] && bodies_[slot]->session == player.session) {
      body.track = bodies_[slot]->track;
    }
    body.track.add(bodySteps(player));
    bodies[slot] = body;
  }
  bodies_ = bodies;
  last_ = record;
}

void CycleEncoder::encode(const CycleRecord& record, ByteWriter& out) {
  const CycleRecord& last = memory_.last();
  const auto nameChanged = [&](std::size_t side) {
    return record.teamNames[side] != last.teamNames[side];
  };
  const bool scoreChanged = record.score != last.score || record.droppedBalls != last.droppedBalls;
  out.number(static_cast<std::uint64_t>(record.cycle - last.cycle));
  out.number(flag(record.finished, kFinished) | flag(record.half == 2, kSecondHalf) |
             flag(scoreChanged, kScoreChanged) | flag(nameChanged(0), kLeftNameChanged) |
             flag(nameChanged(1), kRightNameChanged) | flag(!record.left.empty(), kPeopleLeft) |
             flag(!record.events.empty(), kEvents) | flag(record.clockSlips > 0, kClockSlips));
  out.byte(static_cast<std::uint8_t>(record.mode));
  out.difference(stepsOf(record.clock, kClockStep) - stepsOf(last.clock, kClockStep));
  if (scoreChanged) {
    for (const int goals : record.score) out.number(numberOf(goals));
    out.number(numberOf(record.droppedBalls));
  }
  for (std::size_t side = 0; side < 2; ++side) {
    if (nameChanged(side)) out.text(record.teamNames[side]);
  }
  const auto ball = ballSteps(record);
  for (std::size_t i = 0; i < ball.size(); ++i) {
    out.difference(ball[i] - memory_.ball().expected(i));
  }

  std::uint64_t slots = 0;
  for (const PlayerRecord& player : record.players) {
    slots |= std::uint64_t{1} << static_cast<unsigned>(player.slot);
  }
  out.number(slots);
  for (const PlayerRecord& player : record.players) {
    writePlayer(player, memory_.body(player.slot), out);
  }

  if (!record.left.empty()) {
    out.number(record.left.size());
    for (const LeftRecord& left : record.left) {
      out.number(left.session);
      out.text(left.why);
    }
  }
  if (!record.events.empty()) {
    out.number(record.events.size());
    for (const Event& event : record.events) {
      out.difference(stepsOf(event.seconds, kClockStep) - record.cycle);
      out.text(event.text);
    }
  }
  if (record.clockSlips > 0) out.number(numberOf(record.clockSlips));
  memory_.add(record);
}

std::optional<CycleRecord> CycleDecoder::decode(std::string_view payload) {
  const CycleRecord& last = memory_.last();
  ByteReader in(payload);
  CycleRecord record;
  const auto cyclesOn = static_cast<long>(in.number(kMostCycles));
  record.cycle = last.cycle + cyclesOn;
  if (cyclesOn < 1 || record.cycle > static_cast<long>(kMostCycles)) in.fail();
  const std::uint64_t flags = in.number(kAllCycleFlags);
  const auto has = [flags](std::uint64_t bit) { return (flags & bit) != 0; };
  record.finished = has(kFinished);
  record.half = has(kSecondHalf) ? 2 : 1;
  const std::uint8_t mode = in.byte();
  if (mode >= kPlayModeNames.size()) return std::nullopt;
  record.mode = static_cast<PlayMode>(mode);
  record.clock = quantityAt(in, stepsOf(last.clock, kClockStep), kClockStep);
  record.score = last.score;
  record.droppedBalls = last.droppedBalls;
  if (has(kScoreChanged)) {
    for (int& goals : record.score) goals = count(in);
    record.droppedBalls = count(in);
  }
  record.teamNames = last.teamNames;
  if (has(kLeftNameChanged)) record.teamNames[0] = in.text(kMostRecordedTextBytes);
  if (has(kRightNameChanged)) record.teamNames[1] = in.text(kMostRecordedTextBytes);
  for (std::size_t i = 0; i < kBallQuantities; ++i) {
    ballQuantity(record, i) = quantityAt(in, memory_.ball().expected(i), ballStep(i));
  }

  const std::uint64_t slots = in.number((std::uint64_t{1} << kMostRecordedPlayers) - 1);
  for (int slot = 0; slot < static_cast<int>(kMostRecordedPlayers); ++slot) {
    if ((slots >> static_cast<unsigned>(slot) & 1U) == 0) continue;
    record.players.push_back(readPlayer(slot, memory_.body(slot), in));
    if (in.failed()) return std::nullopt;
  }

  if (has(kPeopleLeft)) {
    record.left.resize(static_cast<std::size_t>(in.number(kMostRecordedLeavings)));
    for (LeftRecord& left : record.left) {
      left.session =
          static_cast<std::uint32_t>(in.number(std::numeric_limits<std::uint32_t>::max()));
      left.why = in.text(kMostRecordedTextBytes);
    }
  }
  if (has(kEvents)) {
    record.events.resize(static_cast<std::size_t>(in.number(kMostRecordedEvents)));
    for (Event& event : record.events) {
      event.seconds = quantityAt(in, record.cycle, kClockStep);
      event.text = in.text(kMostRecordedTextBytes);
    }
  }
  if (has(kClockSlips)) record.clockSlips = count(in);

  // Whatever else would be odd: two bodies of one session, control characters, a clock below zero.
  if (in.failed() || !in.atEnd() || recordable(record) != record) return std::nullopt;
  memory_.add(record);
  return record;
}

}  // namespace arena
