#pragma once

/// What happens in the recorded match, episode by episode. An episode fixes what the player senses,
/// whatever it does: so the messages are the same in every run, and each situation comes about.
/// Match draws up the episodes of a session once and then plays them.

#include <string>
#include <vector>

#include "tests/record/Dice.h"

/// Which landmarks a sight shows; a position needs exactly two of one end, or one of each.
enum class Flags { OwnEnd, FarEnd, OneOfEach, Many, None };

/// A player in sight, as seen along the way to the goal.
struct Seen {
  bool mate = false;
  int number = 1;
  double distance = 1;  ///< [m]
  double bearing = 0;   ///< [deg] from the direction to the goal
};

struct Episode {
  int length = 40;  ///< [messages]
  std::string mode = "PlayOn";
  double clock = 30;       ///< [s] of the match at the begin
  double facing = 0;       ///< [deg] heading from the direction to the goal, at the begin
  double facingStep = 0;   ///< [deg] towards that direction, per message
  double ball = 1.5;       ///< [m] at the begin
  double ballStep = 0;     ///< [m] nearer, per message
  double ballLeast = 0.1;  ///< [m] and no nearer than that
  double ballBearing = 0;  ///< [deg] from the direction to the goal
  int ballSeen = 1000;     ///< [messages] before it is lost
  int sightEvery = 3;      ///< [messages]
  const char* accel = "0.01 -0.02 9.81";
  int lying = 0;         ///< [messages] that this reading lasts; upright afterwards
  double carried = 0;    ///< [m] towards the own goal, at the begin
  bool atStart = false;  ///< the player has been put to its start position
  Flags flags = Flags::OwnEnd;
  std::vector<Seen> players{};
};

/// The episodes of one session: an opening that is the same for all, then all the rest in an order
/// of the dice. Two of the four falls are in each, by SESSION.
[[nodiscard]] std::vector<Episode> DrawUp(int session, int number, Dice& dice);
