#include "tests/record/Episode.h"

#include <array>
#include <utility>

namespace {

constexpr std::array kRestarts{
    "free_kick_left",  "free_kick_right",  "offside_left",      "offside_right", "goal_kick_left",
    "goal_kick_right", "corner_kick_left", "corner_kick_right", "kickoff_left",  "kickoff_right",
    "KickIn_Left",     "Goal_Right",       "BeforeKickOff",     "beforekickoff", "playon"};

// Back, front, right side, left side.
constexpr std::array kLying{"0.05 9.62 1.10", "0.03 -9.70 0.90", "-9.51 0.40 1.20",
                            "9.55 -0.31 1.15"};

using Episodes = std::vector<Episode>;

/// Every restart once, with the ball in front of the player.
void AddRestarts(Episodes& to, const std::vector<Seen>& players) {
  for (const char* mode : kRestarts) {
    to.push_back({.length = 14, .mode = mode, .ball = 0.8, .players = players});
  }
}

[[nodiscard]] Episodes Opening(int session, int number) {
  // Half of the sessions have the kick-off behind them at the first decision, half before them.
  // An opponent is in sight from the first moment, so that each sight is answered with a place.
  const Seen opponent{false, 3, 3.2, -12};
  const bool left = session % 2 == 0;
  Episodes all{{.length = left ? 125 : 60,
                .mode = "BeforeKickOff",
                .clock = 0,
                .ball = 2.5,
                .players = {opponent}},
               {.length = 140,
                .mode = left ? "KickOff_Left" : "KickOff_Right",
                .clock = 0,
                .ball = 0.3,
                .atStart = true,
                .players = {opponent}}};
  // Before any team mate was ever seen: the nearest to the ball is then a matter of the ball.
  AddRestarts(all, {{false, number, 2.0, 20}});
  return all;
}

[[nodiscard]] Episodes Turns() {
  Episodes all;
  for (const double facing : {20.0, 35.0, 80.0, 150.0, -20.0, -35.0, -80.0, -150.0}) {
    all.push_back({.length = 90, .facing = facing, .facingStep = 1.1, .ball = 1.6});
  }
  return all;
}

[[nodiscard]] Episodes NearTheBall() {
  return {
      // From afar into the shot, and another shot behind it: to the right, to the left of the line.
      {.length = 270, .ball = 1.2, .ballStep = 0.012, .ballBearing = -8},
      {.length = 270, .ball = 1.2, .ballStep = 0.012, .ballBearing = 8},
      // Beside the line, both ways; abreast of the ball; in front of it.
      {.length = 80, .ball = 0.45, .ballLeast = 0.45, .ballBearing = 27},
      {.length = 80, .ball = 0.45, .ballLeast = 0.45, .ballBearing = -27},
      {.length = 80, .ball = 0.3, .ballLeast = 0.3, .ballBearing = 100},
      {.length = 80, .ball = 0.3, .ballLeast = 0.3, .ballBearing = 179},
      // Aligned at once, and taken away again.
      {.length = 60, .ball = 0.45, .ballStep = 0.002, .ballLeast = 0.35},
      {.length = 50, .facing = 60, .facingStep = 1.5, .ball = 0.4, .ballLeast = 0.4},
      // Out of sight, near and far.
      {.length = 60, .ball = 0.4, .ballLeast = 0.4, .ballSeen = 9},
      {.length = 60, .ball = 3.4, .ballSeen = 9},
  };
}

[[nodiscard]] Episodes Company(int number) {
  const int mate = number % 6 + 1;
  const int other = mate % 6 + 1;
  return {
      // A mate in the way, farther from the ball and nearer to it; a second one behind the first.
      {.length = 30, .ball = 1.0, .players = {{true, mate, 0.4, 170}}},
      {.length = 30, .ball = 1.0, .players = {{true, mate, 0.4, 10}, {true, other, 0.45, 175}}},
      // The ball is the mates', the opponents', contested, nobody's; the keeper dives to both
      // sides.
      {.length = 45, .ball = 2.4, .ballBearing = 15, .players = {{false, 2, 2.2, 14}}},
      {.length = 45, .ball = 2.4, .ballBearing = -15, .players = {{false, 5, 2.2, -14}}},
      {.length = 40, .ball = 1.2, .players = {{false, 6, 2.0, 0}, {true, mate, 2.1, 30}}},
      {.length = 40, .ball = 4.5, .players = {{false, 1, 6.0, 120}}},
      {.length = 60, .facing = 40, .facingStep = 1, .ball = 3.5, .players = {{false, 4, 3.3, 0}}},
      {.length = 60, .ball = 5.5, .players = {{false, 4, 5.3, 0}}},
  };
}

[[nodiscard]] Episodes Places() {
  return {
      {.length = 40, .ball = 2.0, .flags = Flags::FarEnd},
      {.length = 40, .ball = 2.0, .flags = Flags::OneOfEach},
      {.length = 20, .ball = 2.0, .flags = Flags::Many},
      {.length = 20, .ball = 2.0, .flags = Flags::None},
      // Carried off by more than a metre: what was planned no longer fits. Every message shows
      // landmarks, so that the way back is followed.
      {.length = 160, .ball = 1.5, .sightEvery = 1, .carried = 1.6},
  };
}

}  // namespace

std::vector<Episode> DrawUp(int session, int number, Dice& dice) {
  Episodes all = Opening(session, number);
  const std::size_t opening = all.size();
  const auto add = [&all](const Episodes& more) {
    all.insert(all.end(), more.begin(), more.end());
  };
  add(Turns());
  add(NearTheBall());
  add(Company(number));
  add(Places());
  AddRestarts(all, {{true, session % 4 < 2 ? number : number % 6 + 1, 0.9, 5}});
  for (const char* mode : {"KickOff_Left", "KickOff_Right"}) {
    for (const double clock : {1.0, 40.0}) {
      all.push_back({.length = 40, .mode = mode, .clock = clock, .ball = 0.3, .atStart = true});
    }
  }
  for (const int fall : {session % 4, (session + 1) % 4}) {
    const int lying = fall == 1 ? 200 : 300;
    all.push_back({.length = fall == 1 ? 370 : 620,
                   .accel = kLying.at(static_cast<std::size_t>(fall)),
                   .lying = lying});
  }
  for (std::size_t i = all.size() - 1; i > opening; --i) {
    const int other = dice.Between(static_cast<int>(opening), static_cast<int>(i));
    std::swap(all[i], all[static_cast<std::size_t>(other)]);
  }
  // Long enough without a motion for the player to doubt its plans; and one more fall, in mid-play.
  all.push_back(
      {.length = 40, .accel = kLying.at(static_cast<std::size_t>(session % 4)), .lying = 3});
  if (session % 3 == 0) all.push_back({.length = 1100, .ball = 7.5});
  return all;
}
