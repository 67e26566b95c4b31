#include "arena/main/Match.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>
#include <variant>

#include "arena/main/Places.h"
#include "arena/model/FieldTable.h"

namespace arena {
namespace {

static_assert(kRefereeCycleSeconds == kCycleSeconds, "referee and world count the same cycles");

/// [m] between two robots' torsos. Closer, a beam would put one into the other and the contact
/// would throw both; the start places of two teams that play themselves are 0.32 m apart.
constexpr double kRobotClearance = 0.25;

std::string described(const TeamPlace& place) {
  char text[128];
  std::snprintf(text, sizeof text, "(%.2f, %.2f), facing %.0f deg", place.x, place.y,
                std::round(place.headingDeg) + 0.0);  // the sum turns -0 into 0
  return text;
}

bool samePlace(const TeamPlace& a, const TeamPlace& b) {
  return a.x == b.x && a.y == b.y && a.headingDeg == b.headingDeg;
}

/// Effectors of COMMANDS that only a player with a body can use.
int bodyEffectors(const Commands& commands) {
  const auto speeds = std::count_if(commands.jointSpeeds.begin(), commands.jointSpeeds.end(),
                                    [](const auto& speed) { return speed.has_value(); });
  return static_cast<int>(speeds) + (commands.init ? 1 : 0) + (commands.beam ? 1 : 0) +
         (commands.say ? 1 : 0);
}

}  // namespace

Match::Match(const MatchSettings& settings)
    : senses_(settings.senses), world_(settings.world), referee_(settings.referee) {
  world_.setBall({0, 0, kBallRadius});
}

double Match::now() const {
  return static_cast<double>(cycle_) * kCycleSeconds;
}

std::string Match::nameOf(SessionId id) const {
  const auto entry = players_.find(id);
  if (entry != players_.end() && entry->second.record.shirt) return entry->second.record.name;
  return "session " + std::to_string(id);
}

std::vector<Event> Match::release(const std::vector<Lost>& lost) {
  std::vector<Event> events;
  for (const auto& [id, why] : lost) {
    events.push_back({now(), nameOf(id) + " dropped: " + why});
    leave(id, why);
  }
  return events;
}

MatchCycle Match::advance(const std::vector<Received>& received) {
  MatchCycle out;
  if (cycle_ == 0) {
    out.events.push_back({now(), "play mode " + std::string(arena::nameOf(referee_.mode()))});
  }
  // An answer counts for the message before it, in whatever cycle it comes.
  for (const Received& one : received) players_[one.id].awaitingAnswer = false;
  for (auto& [id, player] : players_) {
    if (player.awaitingAnswer) ++player.record.lateAnswers;
  }

  for (const Received& one : received) act(one, out);

  ++cycle_;
  world_.advance();
  rule(out);
  watchPostures(out);

  const Snapshot shot = snapshot(received);
  std::size_t viewer = 0;
  for (auto& [id, player] : players_) {
    if (!player.slot) continue;
    out.messages.push_back({id, perceive(shot, viewer++, senses_)});
    player.awaitingAnswer = true;
  }
  return out;
}

void Match::act(const Received& received, MatchCycle& out) {
  const auto& [id, commands] = received;
  Player& player = players_[id];
  player.record.malformed += commands.malformed;

  std::optional<Refusal> refusal = giveBody(player, commands.scenes);
  if (!player.slot) {
    player.record.malformed += bodyEffectors(commands);
  } else {
    if (commands.init) refusal = giveShirt(id, player, *commands.init, out);
    if (commands.beam && !refusal) beam(player, *commands.beam, out);
    for (std::size_t joint = 0; joint < kJointCount; ++joint) {
      if (const auto speed = commands.jointSpeeds[joint]) {
        world_.setJointSpeed(*player.slot, static_cast<int>(joint), *speed);
      }
    }
  }
  if (refusal) {
    out.events.push_back({now(), nameOf(id) + " refused: " + refusal->why});
    out.refused.push_back(id);
    leave(id, "refused: " + refusal->why);
  }
}

std::optional<Refusal> Match::giveBody(Player& player, int requests) {
  if (requests == 0) return std::nullopt;
  if (player.slot) {
    player.record.malformed += requests;
    return std::nullopt;
  }
  const auto free = std::find(slotTaken_.begin(), slotTaken_.end(), false);
  if (free == slotTaken_.end()) {
    return Refusal{"the field is full, " + std::to_string(kMaxRobots) + " robots"};
  }
  const auto slot = static_cast<int>(free - slotTaken_.begin());
  world_.addRobot(slot, touchlinePose(slot));
  *free = true;
  player.slot = slot;
  player.record.bodySince = now();
  player.record.malformed += requests - 1;
  return std::nullopt;
}

std::optional<Refusal> Match::giveShirt(SessionId id, Player& player, const InitRequest& request,
                                        MatchCycle& out) {
  if (player.record.shirt) {
    ++player.record.malformed;
    return std::nullopt;
  }
  const auto answer = roster_.join(request.team, request.number);
  if (const auto* refusal = std::get_if<Refusal>(&answer)) return *refusal;
  const Shirt shirt = std::get<Shirt>(answer);
  player.record.shirt = shirt;
  player.record.team = request.team;
  player.record.name = std::string(arena::nameOf(shirt.side)) + " " + std::to_string(shirt.number);
  out.events.push_back({now(), nameOf(id) + " connected, team " + request.team});
  return std::nullopt;
}

void Match::beam(Player& player, const BeamRequest& request, MatchCycle& out) {
  const auto& shirt = player.record.shirt;
  const Pose pose = shirt ? beamPose(shirt->side, request) : Pose{};
  if (!shirt || !referee_.beamsAllowed() || !isNearField(pose) || !isFree(pose, *player.slot)) {
    ++player.record.ignoredBeams;
    return;
  }
  world_.beam(*player.slot, pose);
  player.posture.setUpright();
  ++player.record.beams;

  const TeamPlace place = placeInTeamFrame(shirt->side, pose);
  // Players repeat their beam in every cycle of the waiting time: only a new place is news.
  if (!player.record.lastBeam || !samePlace(*player.record.lastBeam, place)) {
    out.events.push_back({now(), player.record.name + " beamed to " + described(place)});
  }
  player.record.lastBeam = place;
}

bool Match::isFree(const Pose& pose, int slot) const {
  return std::none_of(players_.begin(), players_.end(), [&](const auto& entry) {
    const auto& other = entry.second.slot;
    if (!other || *other == slot) return false;
    const Vec3 place = world_.robot(*other).torso.position;
    return std::hypot(place[0] - pose.x, place[1] - pose.y) < kRobotClearance;
  });
}

void Match::leave(SessionId id, const std::string& why) {
  const auto entry = players_.find(id);
  if (entry == players_.end() || !entry->second.slot) {
    ++sessionsWithoutBody_;
  } else {
    Player& player = entry->second;
    PlayerSummary record = finalRecord(id, player);
    record.leftAt = now();
    record.whyLeft = why;
    gone_.push_back(std::move(record));
    world_.removeRobot(*player.slot);
    slotTaken_[static_cast<std::size_t>(*player.slot)] = false;
    if (player.record.shirt) roster_.release(*player.record.shirt);
  }
  if (entry != players_.end()) players_.erase(entry);
}

void Match::rule(MatchCycle& out) {
  FieldView view{world_.ball().position, {}};
  for (const auto& [id, player] : players_) {
    if (!player.slot || !player.record.shirt) continue;
    view.players.push_back({player.record.shirt->side, world_.robot(*player.slot).torso.position,
                            world_.touchedBall(*player.slot)});
  }
  const Ruling ruling = referee_.observe(view);
  if (ruling.placeBallAt) world_.setBall(*ruling.placeBallAt);
  if (ruling.newMode) {
    out.events.push_back({now(), "play mode " + std::string(arena::nameOf(*ruling.newMode))});
  }
}

void Match::watchPostures(MatchCycle& out) {
  for (auto& [id, player] : players_) {
    if (!player.slot) continue;
    switch (player.posture.observe(world_.robot(*player.slot).torso)) {
      case PostureChange::kNone:
        break;
      case PostureChange::kFell:
        ++player.record.falls;
        out.events.push_back({now(), nameOf(id) + " fell"});
        break;
      case PostureChange::kGotUp:
        ++player.record.getUps;
        out.events.push_back({now(), nameOf(id) + " got up"});
        break;
    }
  }
}

Snapshot Match::snapshot(const std::vector<Received>& received) const {
  Snapshot shot;
  shot.cycle = cycle_;
  shot.now = now();
  shot.clock = referee_.clock();
  shot.mode = referee_.mode();
  shot.teamNames = {roster_.teamName(Side::kLeft), roster_.teamName(Side::kRight)};
  shot.ball = world_.ball();
  for (const auto& [id, player] : players_) {
    if (!player.slot) continue;
    const auto words = std::find_if(received.begin(), received.end(),
                                    [id = id](const Received& one) { return one.id == id; });
    if (words != received.end() && words->commands.say) {
      shot.said.push_back({shot.actors.size(), *words->commands.say});
    }
    shot.actors.push_back({world_.robot(*player.slot), player.record.shirt, *player.slot});
  }
  return shot;
}

PlayerSummary Match::finalRecord(SessionId id, const Player& player) const {
  PlayerSummary record = player.record;
  record.name = nameOf(id);
  const Pose pose = poseOf(world_.robot(*player.slot));
  record.lastPlace = placeInTeamFrame(record.shirt ? record.shirt->side : Side::kLeft, pose);
  record.standing = player.posture.standing();
  return record;
}

Summary Match::summary() const {
  Summary summary;
  summary.seconds = now();
  summary.clock = referee_.clock();
  summary.mode = referee_.mode();
  summary.finished = finished();
  summary.sessionsWithoutBody = sessionsWithoutBody_;
  summary.players = gone_;
  for (const auto& [id, player] : players_) {
    if (player.slot) summary.players.push_back(finalRecord(id, player));
  }
  std::stable_sort(summary.players.begin(), summary.players.end(),
                   [](const PlayerSummary& a, const PlayerSummary& b) {
                     if (a.shirt.has_value() != b.shirt.has_value()) return a.shirt.has_value();
                     if (!a.shirt) return false;
                     return std::pair(a.shirt->side, a.shirt->number) <
                            std::pair(b.shirt->side, b.shirt->number);
                   });
  return summary;
}

}  // namespace arena
