#include "viewer/server/Protocol.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "arena/model/BodyTable.h"
#include "arena/model/FieldTable.h"
#include "arena/referee/PlayMode.h"

namespace arena::view {
namespace {

using nlohmann::json;

/// Whatever bytes a player puts into its words, the page gets valid text.
std::string textOf(const json& message) {
  return message.dump(-1, ' ', false, json::error_handler_t::replace);
}

std::string_view nameOf(Shape shape) {
  switch (shape) {
    case Shape::kBox:
      return "box";
    case Shape::kSphere:
      return "sphere";
    case Shape::kSmall:
      return "small";
  }
  return "";
}

json bodyJson() {
  json links = json::array();
  for (const JointRow& row : kJoints) {
    const std::size_t parent = rowOfLink(row.parent);
    links.push_back({{"link", row.link},
                     {"parent", parent == kJointCount ? -1 : static_cast<int>(parent)},
                     {"offset", row.offset},
                     {"anchor", row.anchor},
                     {"axis", row.axis},
                     {"shape", nameOf(row.shape)},
                     {"extents", row.extents}});
  }
  return {{"torso", kTorsoExtents}, {"links", std::move(links)}};
}

json fieldJson() {
  json landmarks = json::array();
  for (const Landmark& landmark : kLandmarks) {
    landmarks.push_back({{"name", landmark.name}, {"at", landmark.position}});
  }
  return {{"length", kFieldLength},           {"width", kFieldWidth},
          {"goalWidth", kGoalWidth},          {"goalHeight", kGoalHeight},
          {"postRadius", kGoalPostRadius},    {"ballRadius", kBallRadius},
          {"landmarks", std::move(landmarks)}};
}

/// Two decimals are a centimetre: finer than what players say.
double shortened(double value) {
  return std::round(value * 100) / 100;
}

template <typename What>
json toldJson(const Told<What>& told, json what) {
  what["cycle"] = told.cycle;
  return what;
}

json spotJson(const Told<Spot>& told) {
  return toldJson(told, {{"x", shortened(told.what.x)}, {"y", shortened(told.what.y)}});
}

std::optional<long> wholeIn(const json& message, const char* key) {
  const auto entry = message.find(key);
  if (entry == message.end() || !entry->is_number_integer()) return std::nullopt;
  return entry->get<long>();
}

std::optional<Request> speedIn(const json& message) {
  const auto entry = message.find("value");
  if (entry == message.end() || !entry->is_number()) return std::nullopt;
  return SetSpeed{entry->get<double>()};
}

std::optional<Request> mindsIn(const json& message) {
  const auto entry = message.find("slots");
  if (entry == message.end() || !entry->is_array()) return std::nullopt;
  WatchMinds wanted;
  for (const json& slot : *entry) {
    if (!slot.is_number_unsigned() || slot.get<std::size_t>() >= kMostRecordedPlayers ||
        wanted.slots.size() >= kMostRecordedPlayers) {
      return std::nullopt;
    }
    wanted.slots.push_back(slot.get<std::size_t>());
  }
  return wanted;
}

}  // namespace

std::optional<Request> requestIn(std::string_view text) {
  const json message = json::parse(text, nullptr, /*allow_exceptions=*/false);
  if (!message.is_object()) return std::nullopt;
  const auto entry = message.find("do");
  if (entry == message.end() || !entry->is_string()) return std::nullopt;
  const std::string what = entry->get<std::string>();
  if (what == "got") return Got{};
  if (what == "play") return Play{};
  if (what == "pause") return Pause{};
  if (what == "live") return GoLive{};
  if (what == "speed") return speedIn(message);
  if (what == "minds") return mindsIn(message);
  if (what == "seek") {
    if (const auto cycle = wholeIn(message, "cycle")) return Seek{*cycle};
  }
  if (what == "step") {
    if (const auto by = wholeIn(message, "by")) return StepBy{*by};
  }
  return std::nullopt;
}

std::string helloText(bool live) {
  return textOf({{"hello",
                  {{"live", live},
                   {"cycleSeconds", kRecordCycleSeconds},
                   {"modes", kPlayModeNames},
                   {"body", bodyJson()},
                   {"field", fieldJson()}}}});
}

std::string teamsText(const std::array<std::string, 2>& names) {
  return textOf({{"teams", names}});
}

std::string timeText(const Playhead& playhead, const Span& span, bool finished) {
  return textOf({{"time",
                  {{"pace", nameOf(playhead.pace())},
                   {"speed", playhead.speed()},
                   {"cycle", playhead.cycle()},
                   {"first", span.first},
                   {"last", span.last},
                   {"finished", finished}}}});
}

std::string eventsText(const std::vector<TimedEvent>& events, std::size_t from) {
  json rows = json::array();
  for (std::size_t i = from; i < events.size(); ++i) {
    rows.push_back({events[i].cycle, events[i].text});
  }
  return textOf({{"events", std::move(rows)}});
}

std::string mindText(const Mind& mind) {
  json out{{"slot", mind.slot}, {"cycle", mind.cycle}, {"trace", mind.trace}};
  if (mind.self) out["self"] = spotJson(*mind.self);
  if (mind.ball) out["ball"] = spotJson(*mind.ball);
  if (mind.headingDeg) {
    out["heading"] = toldJson(*mind.headingDeg, {{"deg", shortened(mind.headingDeg->what)}});
  }
  out["opponents"] = json::array();
  for (const auto& other : mind.opponents) {
    json row = spotJson({other.what.at, other.cycle});
    row["number"] = other.what.number;
    out["opponents"].push_back(std::move(row));
  }
  if (mind.words) out["words"] = toldJson(*mind.words, {{"text", mind.words->what}});
  if (mind.action) out["action"] = toldJson(*mind.action, {{"number", mind.action->what}});
  json landmarks = json::array();
  for (std::size_t i = 0; i < kLandmarks.size(); ++i) {
    if (mind.shown.landmarks[i]) landmarks.push_back(kLandmarks[i].name);
  }
  out["shown"] = {{"landmarks", std::move(landmarks)},
                  {"ball", mind.shown.ballBearingDeg.has_value()}};
  return textOf({{"mind", std::move(out)}});
}

}  // namespace arena::view
