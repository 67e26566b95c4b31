#include "arena/match/Commentary.h"

#include <cmath>
#include <cstdio>

namespace arena {
namespace {

/// "left (Foo)"; "left" as long as it has no team.
std::string team(Side side, const Scoreboard& board) {
  const std::string& name = board.teamNames[static_cast<std::size_t>(side)];
  return std::string(nameOf(side)) + (name.empty() ? "" : " (" + name + ")");
}

std::string score(const Scoreboard& board) {
  return std::to_string(board.score[0]) + ":" + std::to_string(board.score[1]);
}

/// In centimetres; the sums turn -0 into 0.
std::string at(const Vec3& place) {
  char text[64];
  std::snprintf(text, sizeof text, " at (%.2f, %.2f)", std::round(place[0] * 100) / 100 + 0.0,
                std::round(place[1] * 100) / 100 + 0.0);
  return text;
}

std::string goal(const Incident& incident, const Scoreboard& board) {
  std::string text = "goal for " + team(incident.side, board) + ", " + score(board);
  if (!incident.by) return text;
  text += incident.by->side == incident.side ? ", by " : ", own goal by ";
  return text + std::string(nameOf(incident.by->side)) + " " + std::to_string(incident.by->number);
}

}  // namespace

std::string words(const Incident& incident, const Scoreboard& board) {
  switch (incident.kind) {
    case Incident::Kind::kGoal:
      return goal(incident, board);
    case Incident::Kind::kKickIn:
      return "kick-in for " + team(incident.side, board) + at(incident.place);
    case Incident::Kind::kCornerKick:
      return "corner kick for " + team(incident.side, board) + at(incident.place);
    case Incident::Kind::kGoalKick:
      return "goal kick for " + team(incident.side, board) + at(incident.place);
    case Incident::Kind::kNotTaken:
      return "not taken by " + team(incident.side, board) + ", play goes on";
    case Incident::Kind::kDroppedBall:
      return "dropped ball" + at(incident.place) + ", nobody played it";
    case Incident::Kind::kHalfTime:
      return "half time, " + score(board);
    case Incident::Kind::kFullTime:
      return "full time, " + score(board);
  }
  return {};
}

}  // namespace arena
