#include "arena/record/Recordable.h"

#include <algorithm>
#include <utility>

#include "arena/record/Steps.h"

namespace arena {
namespace {

bool isControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7f;
}

void clean(std::string& text) {
  if (text.size() > kMostRecordedTextBytes) text.resize(kMostRecordedTextBytes);
  std::replace_if(text.begin(), text.end(), isControl, '?');
}

void limit(int& count) {
  count = std::clamp(count, 0, kMostCounted);
}

void round(Vec3& vector, const Step& step) {
  for (double& part : vector) part = rounded(part, step);
}

void round(PlayerRecord& player) {
  round(player.position, kLengthStep);
  for (double& part : player.attitude) part = rounded(part, kTurnStep);
  for (double& angle : player.jointDeg) angle = rounded(angle, kAngleStep);
  if (player.beam) {
    player.beam = Pose{rounded(player.beam->x, kLengthStep), rounded(player.beam->y, kLengthStep),
                       rounded(player.beam->headingDeg, kAngleStep)};
  }
  limit(player.ignoredBeams);
  limit(player.malformed);
  clean(player.said);
  if (player.traced.size() > kMostRecordedTraces) player.traced.resize(kMostRecordedTraces);
  for (std::string& line : player.traced) clean(line);
}

/// Leaves the first of those that SAME can't tell apart. A dozen at most: no need to be clever.
template <typename Same>
void dropRepeated(std::vector<PlayerRecord>& players, Same same) {
  std::vector<PlayerRecord> kept;
  for (PlayerRecord& player : players) {
    const bool repeated = std::any_of(
        kept.begin(), kept.end(), [&](const PlayerRecord& other) { return same(player, other); });
    if (!repeated) kept.push_back(std::move(player));
  }
  players = std::move(kept);
}

void tidy(std::vector<PlayerRecord>& players) {
  std::erase_if(players, [](const PlayerRecord& player) {
    return player.slot < 0 || player.slot >= static_cast<int>(kMostRecordedPlayers);
  });
  std::stable_sort(players.begin(), players.end(),
                   [](const auto& a, const auto& b) { return a.slot < b.slot; });
  dropRepeated(players, [](const PlayerRecord& a, const PlayerRecord& b) {
    return a.slot == b.slot || a.session == b.session;
  });
}

}  // namespace

bool isRecordable(const std::string& text) {
  return text.size() <= kMostRecordedTextBytes && std::none_of(text.begin(), text.end(), isControl);
}

CycleRecord recordable(CycleRecord record) {
  record.clock = rounded(std::max(record.clock, 0.0), kClockStep);
  record.half = std::clamp(record.half, 1, 2);
  for (int& goals : record.score) limit(goals);
  limit(record.droppedBalls);
  for (std::string& name : record.teamNames) clean(name);
  round(record.ball, kLengthStep);
  round(record.ballVelocity, kSpeedStep);

  tidy(record.players);
  for (PlayerRecord& player : record.players) round(player);

  if (record.left.size() > kMostRecordedLeavings) record.left.resize(kMostRecordedLeavings);
  for (LeftRecord& left : record.left) clean(left.why);
  if (record.events.size() > kMostRecordedEvents) record.events.resize(kMostRecordedEvents);
  for (Event& event : record.events) {
    event.seconds = rounded(std::max(event.seconds, 0.0), kClockStep);
    clean(event.text);
  }
  limit(record.clockSlips);
  return record;
}

}  // namespace arena
