#pragma once

/// The blackboard: what the server said, in public fields. The decoders write it, everything else
/// reads it. What the body itself senses stands in BasicAgent instead.
///
/// | field                                   | written by            | valid until             |
/// |-----------------------------------------|-----------------------|-------------------------|
/// | vision.*.seen (landmarks, ball, players)| vision decoders       | the next message clears |
/// | vision.* polar values, lastSeenCycle    | vision decoders       | the next sight          |
/// | vision.*.position of landmarks          | setFlagPos, each turn | the next turn           |
/// | vision.players[].position               | parsePlayerInfo       | the next sight          |
/// | lastSeeCycle                            | updateFromSeeMessage  | the next See element    |
/// | ballSpeed                               | parseBallInfo         | the next sight          |
/// | teamBall                                | ball sight, talk      | overwritten             |
/// | playMode, teamSide, gameTime(Delta)     | parseGameState        | overwritten             |
/// | serverTime, stepTime, cycle             | parseTimeInfo         | overwritten             |
/// | ballPos                                 | setBallPos, each turn | the next turn           |
/// | hear*                                   | parseHearMessage      | overwritten             |
/// | teamName                                | sendPlayerInfo        | for good                |
///
/// Nothing ages: a reader that cares compares lastSeenCycle or lastSeeCycle with cycle.

#include <array>
#include <string>

#include "perception/VisionInfo.h"

class WorldModel {
 public:
  VecPosition ballPos;       ///< [m] field frame, the ball's place as the team knows it
  VecPosition ballSpeed;     ///< [m/s] one speed in all three members; may be infinite
  bool hearSelf = false;     ///< the player has heard itself; never cleared
  std::string hearText;      ///< text of the last hear element
  double hearTime = 0;       ///< [s] its time
  double hearDirection = 0;  ///< [deg] its direction, unless it came from the player itself
  visionInfo vision;
  int lastSeeCycle = 0;               ///< cycle of the last See element
  double serverTime = 0;              ///< [s] simulation time
  double gameTime = 0;                ///< [s] match clock
  double stepTime = 0;                ///< [s] -1000 when the last time element had none
  double gameTimeDelta = 0.02;        ///< [s] last change of gameTime
  std::string playMode;               ///< as the server spells it
  std::string teamName;               ///< empty until the player has said who it is
  std::string teamSide;               ///< "left" or "right", empty until the server tells
  int cycle = 0;                      ///< the player's clock: messages whose time has advanced
  std::array<PolarInfo, 6> teamBall;  ///< the ball as each shirt number sees it, at unum - 1

  /// The report with the smallest distance to the ball gives ballPos, however old it is.
  void setBallPos();

  static WorldModel* m_Instance;
  static WorldModel* getSingleton();
  static void freeSingleton();
};
