#include "arena/match/Match.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>
#include <variant>

#include "arena/match/Beams.h"
#include "arena/match/Commentary.h"
#include "arena/match/Places.h"
#include "arena/match/Room.h"
#include "arena/model/FieldTable.h"
#include "arena/record/Attitude.h"
#include "arena/record/Recordable.h"

namespace arena {
namespace {

static_assert(kRefereeCycleSeconds == kCycleSeconds && kRecordCycleSeconds == kCycleSeconds,
              "referee, records and world count the same cycles");

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
  if (entry == players_.end() || !entry->second.shirt) return "session " + std::to_string(id);
  return arena::nameOf(*entry->second.shirt);
}

std::vector<Event> Match::release(const std::vector<Lost>& lost) {
  std::vector<Event> events;
  for (const auto& [id, why] : lost) {
    events.push_back({now(), nameOf(id) + " dropped: " + why});
    leave(id, why);
  }
  releaseEvents_.insert(releaseEvents_.end(), events.begin(), events.end());
  return events;
}

MatchCycle Match::advance(const std::vector<Received>& received) {
  MatchCycle out;
  LapWatch watch;
  if (cycle_ == 0) {
    out.events.push_back({now(), "play mode " + std::string(arena::nameOf(referee_.mode()))});
  }
  // An answer counts for the message before it, in whatever cycle it comes.
  for (const Received& one : received) players_[one.id].awaitingAnswer = false;
  for (auto& [id, player] : players_) {
    player.notes.lateAnswer = player.awaitingAnswer;
  }

  for (const Received& one : received) act(one, out);
  bringBodies();
  obeyBeams(out);
  for (const Received& one : received) driveJoints(one);
  watch.lap(out.times.commands);

  ++cycle_;
  world_.advance();
  watch.lap(out.times.physics);
  rule(out);
  watchPostures(out);
  watch.lap(out.times.referee);

  const Snapshot shot = snapshot(received);
  const Perception perception(shot, senses_);
  std::size_t viewer = 0;
  for (auto& [id, player] : players_) {
    if (!player.slot) continue;
    out.messages.push_back({id, perception.messageTo(viewer++)});
    player.awaitingAnswer = true;
  }
  watch.lap(out.times.senses);

  out.record = takeRecord(shot, out.events);
  statistics_.add(out.record);
  watch.lap(out.times.record);
  return out;
}

void Match::act(const Received& received, MatchCycle& out) {
  const auto& [id, commands] = received;
  Player& player = players_[id];
  player.notes.malformed += commands.malformed;

  std::optional<Refusal> refusal = giveBody(player, commands.scenes);
  if (!player.slot) {
    player.notes.malformed += bodyEffectors(commands);
  } else {
    if (commands.init) refusal = giveShirt(id, player, *commands.init, out);
    if (commands.beam && !refusal) wishBeam(player, *commands.beam);
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
    player.notes.malformed += requests;
    return std::nullopt;
  }
  const auto free = std::find(slotTaken_.begin(), slotTaken_.end(), false);
  if (free == slotTaken_.end()) {
    return Refusal{"the field is full, " + std::to_string(kMaxRobots) + " robots"};
  }
  *free = true;
  player.slot = static_cast<int>(free - slotTaken_.begin());
  player.notes.malformed += requests - 1;
  return std::nullopt;
}

void Match::bringBodies() {
  // Together: at the start of a match twelve come in one cycle.
  std::vector<Arrival> arrivals;
  for (const auto& [id, player] : players_) {
    if (!player.slot || world_.hasRobot(*player.slot)) continue;
    arrivals.push_back({*player.slot, touchlinePose(*player.slot)});
  }
  world_.addRobots(arrivals);
}

std::optional<Refusal> Match::giveShirt(SessionId id, Player& player, const InitRequest& request,
                                        MatchCycle& out) {
  if (player.shirt) {
    ++player.notes.malformed;
    return std::nullopt;
  }
  const auto answer = roster_.join(request.team, request.number);
  if (const auto* refusal = std::get_if<Refusal>(&answer)) return *refusal;
  player.shirt = std::get<Shirt>(answer);
  out.events.push_back({now(), nameOf(id) + " connected, team " + request.team});
  return std::nullopt;
}

void Match::driveJoints(const Received& received) {
  const auto entry = players_.find(received.id);
  if (entry == players_.end() || !entry->second.slot) return;
  for (std::size_t joint = 0; joint < kJointCount; ++joint) {
    if (const auto speed = received.commands.jointSpeeds[joint]) {
      world_.setJointSpeed(*entry->second.slot, static_cast<int>(joint), *speed);
    }
  }
}

void Match::wishBeam(Player& player, const BeamRequest& request) const {
  const auto& shirt = player.shirt;
  const Pose pose = shirt ? beamPose(shirt->side, request) : Pose{};
  if (shirt && referee_.beamsAllowed() && isNearField(pose)) {
    player.beamWish = pose;
  } else {
    ++player.notes.ignoredBeams;
  }
}

void Match::obeyBeams(MatchCycle& out) {
  std::vector<Player*> present;
  std::vector<BeamWish> robots;
  for (auto& [id, player] : players_) {
    if (!player.slot) continue;
    present.push_back(&player);
    robots.push_back({poseOf(world_.robot(*player.slot)), player.beamWish});
    player.beamWish.reset();
  }
  const std::vector<bool> obeyed = obeyedBeams(robots);
  for (std::size_t i = 0; i < robots.size(); ++i) {
    if (obeyed[i]) {
      beam(*present[i], *robots[i].wish, out);
    } else if (robots[i].wish) {
      ++present[i]->notes.ignoredBeams;
    }
  }
}

void Match::beam(Player& player, const Pose& pose, MatchCycle& out) {
  world_.beam(*player.slot, pose);
  player.posture.setUpright();
  player.notes.beam = pose;

  const TeamPlace place = placeInTeamFrame(player.shirt->side, pose);
  // Players repeat their beam in every cycle of the waiting time: only a new place is news.
  if (!player.lastBeam || !samePlace(*player.lastBeam, place)) {
    out.events.push_back({now(), arena::nameOf(*player.shirt) + " beamed to " + described(place)});
  }
  player.lastBeam = place;
}

void Match::leave(SessionId id, const std::string& why) {
  left_.push_back({id, why});
  const auto entry = players_.find(id);
  if (entry == players_.end()) return;
  const Player& player = entry->second;
  if (player.slot) {
    world_.removeRobot(*player.slot);
    slotTaken_[static_cast<std::size_t>(*player.slot)] = false;
  }
  if (player.shirt) roster_.release(*player.shirt);
  players_.erase(entry);
}

void Match::rule(MatchCycle& out) {
  const Ruling ruling = referee_.observe(fieldView());
  obey(ruling);
  if (ruling.incident) {
    const Scoreboard board{{roster_.teamName(Side::kLeft), roster_.teamName(Side::kRight)},
                           referee_.score()};
    out.events.push_back({now(), words(*ruling.incident, board)});
  }
  if (ruling.newMode) {
    out.events.push_back({now(), "play mode " + std::string(arena::nameOf(*ruling.newMode))});
  }
}

FieldView Match::fieldView() const {
  FieldView view{world_.ball().position, {}};
  for (const auto& [id, player] : players_) {
    if (!player.slot || !player.shirt) continue;
    view.players.push_back({*player.shirt, world_.robot(*player.slot).torso.position,
                            world_.touchedBall(*player.slot)});
  }
  return view;
}

void Match::obey(const Ruling& ruling) {
  if (ruling.placeBallAt) world_.setBall(*ruling.placeBallAt);
  if (!ruling.placeBallAt && !ruling.freeSpace) return;

  std::vector<Occupant> robots;
  std::vector<Occupant> players;  // those with a side to be told by
  for (const auto& [id, player] : players_) {
    if (!player.slot) continue;
    const auto& shirt = player.shirt;
    robots.push_back({*player.slot, shirt ? shirt->side : Side::kLeft});
    if (shirt) players.push_back(robots.back());
  }
  std::vector<int> moved;
  if (ruling.freeSpace) moved = leaveFreeSpace(world_, *ruling.freeSpace, players);
  if (ruling.placeBallAt) {
    for (const int slot : leaveBall(world_, robots)) moved.push_back(slot);
  }
  for (auto& [id, player] : players_) {
    player.notes.moved = player.slot && std::count(moved.begin(), moved.end(), *player.slot) > 0;
  }
}

void Match::watchPostures(MatchCycle& out) {
  for (auto& [id, player] : players_) {
    if (!player.slot) continue;
    switch (player.posture.observe(world_.robot(*player.slot).torso)) {
      case PostureChange::kNone:
        break;
      case PostureChange::kFell:
        player.notes.fell = true;
        out.events.push_back({now(), nameOf(id) + " fell"});
        break;
      case PostureChange::kGotUp:
        player.notes.gotUp = true;
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
    shot.actors.push_back({world_.robot(*player.slot), player.shirt, *player.slot});
  }
  return shot;
}

CycleRecord Match::takeRecord(const Snapshot& shot, const std::vector<Event>& events) {
  CycleRecord record;
  record.cycle = cycle_;
  record.clock = referee_.clock();
  record.half = referee_.half();
  record.mode = referee_.mode();
  record.score = referee_.score();
  record.droppedBalls = referee_.droppedBalls();
  record.finished = finished();
  record.teamNames = shot.teamNames;
  record.ball = shot.ball.position;
  record.ballVelocity = shot.ball.velocity;
  for (auto& [id, player] : players_) {
    if (!player.slot) continue;
    const RobotState& body = shot.actors[record.players.size()].body;
    PlayerRecord one = std::exchange(player.notes, {});
    one.session = id;
    one.slot = *player.slot;
    one.shirt = player.shirt;
    one.position = body.torso.position;
    one.attitude = attitudeOf(body.torso.axes);
    one.jointDeg = body.jointAngleDeg;
    one.standing = player.posture.standing();
    one.touchedBall = world_.touchedBall(*player.slot);
    record.players.push_back(std::move(one));
  }
  for (const auto& [speaker, text] : shot.said) record.players[speaker].said = text;
  record.left = std::exchange(left_, {});
  record.events = std::exchange(releaseEvents_, {});
  record.events.insert(record.events.end(), events.begin(), events.end());
  record.clockSlips = std::exchange(clockSlips_, 0);
  return recordable(std::move(record));
}

}  // namespace arena
