#include "arena/match/Summary.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace arena {
namespace {

nlohmann::json jsonOf(const TeamPlace& place) {
  return {{"x", place.x}, {"y", place.y}, {"heading_deg", place.headingDeg}};
}

/// What both a player and a team have.
template <typename Row>
nlohmann::json figuresOf(const Row& row) {
  return {
      {"goals", row.goals},
      {"shots", row.shots},
      {"possession_s", row.possessionSeconds},
      {"metres_walked", row.metresWalked},
      {"beams", row.beams},
      {"ignored_beams", row.ignoredBeams},
      {"falls", row.falls},
      {"get_ups", row.getUps},
      {"late_answers", row.lateAnswers},
      {"malformed_effectors", row.malformed},
  };
}

nlohmann::json jsonOf(Side side, const TeamSummary& team) {
  nlohmann::json json = figuresOf(team);
  json["side"] = nameOf(side);
  json["name"] = team.name;
  json["possession_percent"] = team.possessionPercent;
  return json;
}

nlohmann::json jsonOf(const PlayerSummary& player) {
  nlohmann::json json = figuresOf(player);
  json["name"] = player.name;
  json["team"] = player.team;
  json["body_since_s"] = player.bodySince;
  json["last_place"] = jsonOf(player.lastPlace);
  json["standing"] = player.standing;
  if (player.shirt) {
    json["side"] = nameOf(player.shirt->side);
    json["number"] = player.shirt->number;
  }
  if (player.leftAt) {
    json["left_at_s"] = *player.leftAt;
    json["why_left"] = player.whyLeft;
  }
  if (player.lastBeam) {
    json["last_beam"] = jsonOf(*player.lastBeam);
    json["metres_off_beam"] = *metresOffBeam(player);
  }
  return json;
}

}  // namespace

std::optional<double> metresOffBeam(const PlayerSummary& player) {
  if (!player.lastBeam) return std::nullopt;
  return std::hypot(player.lastPlace.x - player.lastBeam->x,
                    player.lastPlace.y - player.lastBeam->y);
}

nlohmann::json jsonOf(const Summary& summary) {
  nlohmann::json json{
      {"seconds", summary.seconds},
      {"clock_s", summary.clock},
      {"half", summary.half},
      {"play_mode", nameOf(summary.mode)},
      {"finished", summary.finished},
      {"score", {{"left", summary.teams[0].goals}, {"right", summary.teams[1].goals}}},
      {"dropped_balls", summary.droppedBalls},
      {"sessions_without_body", summary.sessionsWithoutBody},
      {"clock_slips", summary.clockSlips},
      {"teams", nlohmann::json::array()},
      {"players", nlohmann::json::array()},
  };
  for (const Side side : {Side::kLeft, Side::kRight}) {
    json["teams"].push_back(jsonOf(side, summary.teams[static_cast<std::size_t>(side)]));
  }
  for (const PlayerSummary& player : summary.players) json["players"].push_back(jsonOf(player));
  return json;
}

std::string jsonTextOf(const Summary& summary) {
  constexpr int kIndent = 2;
  return jsonOf(summary).dump(kIndent, ' ', false, nlohmann::json::error_handler_t::replace) + '\n';
}

}  // namespace arena
