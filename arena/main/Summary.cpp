#include "arena/main/Summary.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace arena {
namespace {

nlohmann::json jsonOf(const TeamPlace& place) {
  return {{"x", place.x}, {"y", place.y}, {"heading_deg", place.headingDeg}};
}

nlohmann::json jsonOf(const PlayerSummary& player) {
  nlohmann::json json{
      {"name", player.name},
      {"team", player.team},
      {"body_since_s", player.bodySince},
      {"last_place", jsonOf(player.lastPlace)},
      {"standing", player.standing},
      {"beams", player.beams},
      {"ignored_beams", player.ignoredBeams},
      {"falls", player.falls},
      {"get_ups", player.getUps},
      {"late_answers", player.lateAnswers},
      {"malformed_effectors", player.malformed},
  };
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
      {"play_mode", nameOf(summary.mode)},
      {"finished", summary.finished},
      {"sessions_without_body", summary.sessionsWithoutBody},
      {"clock_slips", summary.clockSlips},
      {"players", nlohmann::json::array()},
  };
  for (const PlayerSummary& player : summary.players) json["players"].push_back(jsonOf(player));
  return json;
}

}  // namespace arena
