#include "arena/match/Statistics.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "arena/record/Attitude.h"

namespace arena {
namespace {

Pose poseOf(const PlayerRecord& player) {
  const Mat3 axes = axesOf(player.attitude);
  return {player.position[0], player.position[1],
          std::atan2(axes[4], axes[1]) * 180 / std::numbers::pi};
}

std::string nameOf(const PlayerRecord& player) {
  if (!player.shirt) return "session " + std::to_string(player.session);
  return arena::nameOf(*player.shirt);
}

/// By side and number, those without a shirt behind; else as they came.
bool comesBefore(const PlayerSummary& a, const PlayerSummary& b) {
  if (a.shirt.has_value() != b.shirt.has_value()) return a.shirt.has_value();
  if (!a.shirt) return false;
  return std::pair(a.shirt->side, a.shirt->number) < std::pair(b.shirt->side, b.shirt->number);
}

}  // namespace

void Statistics::add(const CycleRecord& record) {
  sums_.seconds = record.now();
  sums_.clock = record.clock;
  sums_.half = record.half;
  sums_.mode = record.mode;
  sums_.finished = record.finished;
  sums_.clockSlips += record.clockSlips;
  sums_.droppedBalls = record.droppedBalls;
  for (std::size_t side = 0; side < 2; ++side) {
    sums_.teams[side].name = record.teamNames[side];
    sums_.teams[side].goals = record.score[side];
  }
  for (const LeftRecord& left : record.left) leave(record, left);
  for (const PlayerRecord& player : record.players) add(record, player);
  add(ballPlay_.add(record));
}

void Statistics::add(const CycleRecord& record, const PlayerRecord& now) {
  const auto [entry, isNew] = playing_.try_emplace(now.session);
  Player& player = entry->second;
  PlayerSummary& row = player.row;
  if (isNew) row.bodySince = record.begin();
  row.name = nameOf(now);
  row.shirt = now.shirt;
  const Side side = now.shirt ? now.shirt->side : Side::kLeft;
  if (now.shirt) row.team = record.teamNames[static_cast<std::size_t>(side)];
  row.lastPlace = placeInTeamFrame(side, poseOf(now));
  row.standing = now.standing;

  if (now.beam) {
    ++row.beams;
    row.lastBeam = placeInTeamFrame(side, *now.beam);
  }
  row.ignoredBeams += now.ignoredBeams;
  row.malformed += now.malformed;
  if (now.fell) ++row.falls;
  if (now.gotUp) ++row.getUps;
  if (now.lateAnswer) ++row.lateAnswers;

  if (now.beam || now.moved || !now.standing) player.walk.lift();
  if (now.standing) player.walk.add(now.position);
}

void Statistics::add(const BallNews& news) {
  const auto playerOf = [this](const Toucher& toucher) -> Player* {
    const auto entry = playing_.find(toucher.session);
    return entry == playing_.end() ? nullptr : &entry->second;
  };
  if (news.possession) {
    ++possession_[static_cast<std::size_t>(news.possession->shirt.side)];
    if (Player* const player = playerOf(*news.possession)) ++player->cyclesOfPossession;
  }
  if (news.shot) {
    ++sums_.teams[static_cast<std::size_t>(news.shot->shirt.side)].shots;
    if (Player* const player = playerOf(*news.shot)) ++player->row.shots;
  }
  if (news.goal) {
    if (Player* const player = playerOf(*news.goal)) ++player->row.goals;
  }
}

void Statistics::leave(const CycleRecord& record, const LeftRecord& left) {
  const auto entry = playing_.find(left.session);
  if (entry == playing_.end()) {
    ++sums_.sessionsWithoutBody;
    return;
  }
  PlayerSummary row = finished(entry->second);
  row.leftAt = record.begin();
  row.whyLeft = left.why;
  gone_.push_back(std::move(row));
  playing_.erase(entry);
}

PlayerSummary Statistics::finished(const Player& player) {
  PlayerSummary row = player.row;
  row.possessionSeconds = static_cast<double>(player.cyclesOfPossession) * kRecordCycleSeconds;
  row.metresWalked = player.walk.metres();
  return row;
}

Summary Statistics::summary() const {
  Summary summary = sums_;
  summary.players = gone_;
  for (const auto& [session, player] : playing_) summary.players.push_back(finished(player));
  std::stable_sort(summary.players.begin(), summary.players.end(), comesBefore);

  const long played = possession_[0] + possession_[1];
  for (std::size_t side = 0; side < 2; ++side) {
    TeamSummary& team = summary.teams[side];
    team.possessionSeconds = static_cast<double>(possession_[side]) * kRecordCycleSeconds;
    if (played > 0) {
      team.possessionPercent =
          100 * static_cast<double>(possession_[side]) / static_cast<double>(played);
    }
  }
  for (const PlayerSummary& player : summary.players) {
    if (!player.shirt) continue;
    TeamSummary& team = summary.teams[static_cast<std::size_t>(player.shirt->side)];
    team.falls += player.falls;
    team.getUps += player.getUps;
    team.metresWalked += player.metresWalked;
    team.beams += player.beams;
    team.ignoredBeams += player.ignoredBeams;
    team.lateAnswers += player.lateAnswers;
    team.malformed += player.malformed;
  }
  return summary;
}

}  // namespace arena
