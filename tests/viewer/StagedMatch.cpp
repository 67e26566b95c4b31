#include "tests/viewer/StagedMatch.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <stdexcept>

#include "arena/model/FieldTable.h"
#include "arena/record/RecordEncoder.h"
#include "viewer/server/Shown.h"

namespace arena::test {
namespace {

struct Place {
  double x;
  double y;
  double angleDeg;
};

/// In a team's own frame; a formation that shows well.
constexpr std::array<Place, 6> kPlaces{{{-8.4, 0, 0},
                                        {-5.6, 1.8, -10},
                                        {-5.2, -1.9, 12},
                                        {-3.0, 0.4, 0},
                                        {-1.1, 2.4, -35},
                                        {-0.6, -0.5, 40}}};

MatchSettings settings() {
  MatchSettings match;
  match.referee.waitSeconds = 0.6;
  match.referee.kickOffSeconds = 0.4;
  match.referee.goalSeconds = 1.0;
  match.referee.halfSeconds = 3000;
  match.referee.stallSeconds = 0;
  return match;
}

std::string report(const char* pattern, int number, double x, double y, double d = 0) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), pattern, number, x, y, d);
  return text.data();
}

/// [rad/s] Everyone bends its knees up and down, its hips and ankles with them so that it keeps
/// upright, and moves arms and head, each player at its own pace.
void sway(Commands& commands, int player, long cycle) {
  const double pace = 1.5 + 0.1 * player;  // [rad/s]
  const double phase = pace * kCycleSeconds * static_cast<double>(cycle);
  const double slow = 0.18 * pace * std::sin(phase);
  const auto turn = [&commands](std::string_view effector, double speed) {
    commands.jointSpeeds.at(rowOfEffector(effector)) = speed;
  };
  for (const char side : {'l', 'r'}) {
    const std::string leg = std::string(1, side) + "le";
    turn(leg + "3", slow);
    turn(leg + "4", -2 * slow);
    turn(leg + "5", slow);
    const std::string arm = std::string(1, side) + "ae";
    turn(arm + "1", cycle < 55 ? -1.2 : (side == 'l' ? 1.5 : -1.5) * slow);
    turn(arm + "2", cycle < 55 ? (side == 'l' ? 0.25 : -0.25) : 0);
  }
  turn("he1", 0.6 * std::cos(phase));
}

}  // namespace

StagedMatch::StagedMatch() : match_(settings()) {
  match_.prepareModels(kStagedPlayers);
}

Commands StagedMatch::commandsOf(int player) const {
  const int number = player % 6 + 1;
  const bool left = player < 6;
  Commands commands;
  commands.frames = 1;
  const long cycle = last_.cycle + 1;
  if (cycle == 1) {
    commands.scenes = 1;
    commands.init = InitRequest{number, left ? "Otters" : "Herons"};
    return commands;
  }
  const Place& place = kPlaces.at(static_cast<std::size_t>(number - 1));
  if (cycle == 2) commands.beam = BeamRequest{place.x, place.y, place.angleDeg};
  sway(commands, player, cycle);

  const auto self = static_cast<std::size_t>(player);
  if (self >= last_.players.size()) return commands;
  const double sign = left ? 1 : -1;
  const Vec3& at = last_.players[self].position;
  if (cycle % 20 == 0) {
    commands.say =
        report("P,%d,%g,%g", number, sign * at[0] + kBelievedOffX, sign * at[1] + kBelievedOffY);
  } else if (cycle % kCyclesPerLook == 1 &&
             view::shownTo(last_.players[self], last_.ball).ballBearingDeg) {
    const Vec3& ball = last_.ball;
    const double x = sign * ball[0] + kBelievedOffX;
    const double y = sign * ball[1] + kBelievedOffY;
    commands.say =
        report("|,%d,%.2f,%.2f,%.2f", number, x, y, std::hypot(ball[0] - at[0], ball[1] - at[1]));
  }
  return commands;
}

CycleRecord StagedMatch::advance() {
  std::vector<Received> received;
  for (int player = 0; player < kStagedPlayers; ++player) {
    received.push_back({static_cast<SessionId>(player + 1), commandsOf(player)});
  }
  last_ = match_.advance(received).record;
  for (PlayerRecord& player : last_.players) {
    if (last_.cycle % 25 == 0) player.traced = {"4", "go on"};
  }
  return last_;
}

void StagedMatch::playTo(long cycle) {
  while (last_.cycle < cycle) advance();
}

void StagedMatch::shootAtRightGoal() {
  match_.putBall({6.5, 0.3, kBallRadius}, {5, 0, 0});
}

void StagedMatch::rollBall() {
  match_.putBall({3.5, 2.2, kBallRadius}, {-1.8, -0.9, 0});
}

long writeRecordWithGoal(const std::string& file, long cyclesAfterGoal) {
  std::ofstream out(file, std::ios::binary);
  RecordEncoder encoder;
  out << RecordEncoder::begin({{"seed", "1"}});
  StagedMatch match;
  long goal = 0;
  while (goal == 0 || match.last().cycle < goal + cyclesAfterGoal) {
    if (match.last().cycle == 200) match.shootAtRightGoal();
    out << encoder.cycle(match.advance());
    if (goal == 0 && match.last().score[0] > 0) goal = match.last().cycle;
    if (match.last().cycle > 2000) throw std::logic_error("the staged match saw no goal");
  }
  out << RecordEncoder::end();
  if (!out.flush()) throw std::runtime_error("can't write " + file);
  return goal;
}

}  // namespace arena::test
