#include "arena/match/Summary.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace arena {
namespace {

/// A screen is 24 lines: five for the frame, up to four for what went wrong and two for the account
/// of the pace that the program puts below; the rest for players.
constexpr std::size_t kMostRows = 13;

/// printf into a string. Rows are short: what doesn't fit is cut, never lost behind.
template <typename... Args>
std::string format(const char* pattern, Args... args) {
  std::array<char, 256> buffer{};
  const int length = std::snprintf(buffer.data(), buffer.size(), pattern, args...);
  return {buffer.data(),
          std::min(static_cast<std::size_t>(std::max(length, 0)), buffer.size() - 1)};
}

/// The columns that a player and a team share. BALL: how much of it was theirs. With those behind
/// them a row takes 100 columns.
template <typename Row>
std::string row(const std::string& name, const std::string& ball, const Row& figures) {
  return format("%-10s %5d %5d %8s %6.1f m %4d %3d %5d %9ld %9ld", name.c_str(), figures.goals,
                figures.shots, ball.c_str(), figures.metresWalked, figures.falls, figures.getUps,
                figures.lateAnswers, figures.malformed, figures.ignoredBeams);
}

std::string rowOf(const PlayerSummary& player) {
  const auto off = metresOffBeam(player);
  const std::string end = player.leftAt     ? format("left at %.0f s", *player.leftAt)
                          : player.standing ? "stands"
                                            : "lies";
  return row(player.name, format("%.1f s", player.possessionSeconds), player) +
         format(" %8s  %s\n", off ? format("%.2f m", *off).c_str() : "-", end.c_str());
}

std::string rowOf(Side side, const TeamSummary& team) {
  return row(std::string(nameOf(side)), format("%.0f %%", team.possessionPercent), team) + "\n";
}

}  // namespace

std::string textOf(const Summary& summary) {
  const auto& [left, right] = summary.teams;
  std::string text =
      format("summary: %.2f s simulated, game clock %.2f s, %s, %s\n", summary.seconds,
             summary.clock, std::string(nameOf(summary.mode)).c_str(),
             summary.finished ? "played to the end" : "stopped early");
  text += format("score: %d:%d (left ", left.goals, right.goals);
  // Put together by hand: the names alone may be longer than a row.
  text += (left.name.empty() ? "nobody" : left.name) + ", right " +
          (right.name.empty() ? "nobody" : right.name) + ")\n";
  text += format("%-10s %5s %5s %8s %8s %4s %3s %5s %9s %9s %8s  %s\n", "player", "goals", "shots",
                 "ball", "walked", "fell", "up", "late", "malformed", "bad beams", "off beam",
                 "at the end");
  for (const Side side : {Side::kLeft, Side::kRight}) {
    const TeamSummary& team = summary.teams[static_cast<std::size_t>(side)];
    if (!team.name.empty()) text += rowOf(side, team);
  }
  const std::size_t rows = std::min(summary.players.size(), kMostRows);
  for (std::size_t i = 0; i < rows; ++i) text += rowOf(summary.players[i]);
  if (rows < summary.players.size()) {
    text += format("and %zu more\n", summary.players.size() - rows);
  }
  if (summary.droppedBalls > 0) {
    text += format("the ball was dropped %d times: nobody touched it\n", summary.droppedBalls);
  }
  if (summary.sessionsWithoutBody > 0) {
    text += format("%ld sessions ended without a body\n", summary.sessionsWithoutBody);
  }
  if (summary.clockSlips > 0) {
    text += format("this machine was too slow %ld times: real time was lost\n", summary.clockSlips);
  }
  return text;
}

}  // namespace arena
