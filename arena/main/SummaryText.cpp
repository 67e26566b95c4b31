#include "arena/main/Summary.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace arena {
namespace {

/// A screen is 24 lines: four for the frame, the rest for players.
constexpr std::size_t kMostRows = 20;

/// printf into a string. Rows are short: what doesn't fit is cut, never lost behind.
template <typename... Args>
std::string format(const char* pattern, Args... args) {
  std::array<char, 256> buffer{};
  const int length = std::snprintf(buffer.data(), buffer.size(), pattern, args...);
  return {buffer.data(),
          std::min(static_cast<std::size_t>(std::max(length, 0)), buffer.size() - 1)};
}

std::string rowOf(const PlayerSummary& player) {
  const auto off = metresOffBeam(player);
  const std::string beam =
      player.lastBeam ? format("(%.2f, %.2f)", player.lastBeam->x, player.lastBeam->y) : "never";
  std::string end = player.standing ? "stands" : "lies";
  if (player.leftAt) end += format(", left at %.2f s", *player.leftAt);
  return format("%-11s %-16.16s %-15s %8s %5d %5d %6d %9d %13d  %s\n", player.name.c_str(),
                player.team.c_str(), beam.c_str(), off ? format("%.2f m", *off).c_str() : "-",
                player.falls, player.getUps, player.lateAnswers, player.malformed,
                player.ignoredBeams, end.c_str());
}

}  // namespace

std::string textOf(const Summary& summary) {
  std::string text =
      format("summary: %.2f s simulated, game clock %.2f s, %s, %s\n", summary.seconds,
             summary.clock, std::string(nameOf(summary.mode)).c_str(),
             summary.finished ? "played to the end" : "stopped early");
  text += format("%-11s %-16s %-15s %8s %5s %5s %6s %9s %13s  %s\n", "player", "team", "beamed to",
                 "off it", "fell", "up", "late", "malformed", "beams ignored", "at the end");
  const std::size_t rows = std::min(summary.players.size(), kMostRows);
  for (std::size_t i = 0; i < rows; ++i) text += rowOf(summary.players[i]);
  if (rows < summary.players.size()) {
    text += format("and %zu more\n", summary.players.size() - rows);
  }
  if (summary.sessionsWithoutBody > 0) {
    text += format("%d sessions ended without a body\n", summary.sessionsWithoutBody);
  }
  if (summary.clockSlips > 0) {
    text += format("this machine was too slow %d times: real time was lost\n", summary.clockSlips);
  }
  return text;
}

}  // namespace arena
