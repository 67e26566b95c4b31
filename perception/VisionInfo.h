#pragma once

/// What the camera has seen: the ball, the eight landmarks and the twelve players. Part of the
/// world model; written by the vision decoders, read by localisation and behaviour.

#include <array>
#include <string>

#include "math/VecPosition.h"

/// One seen object.
struct PolarInfo {
  double distance = 0;    ///< [m] from the camera, as the server sent it
  double angle = 0;       ///< [deg] horizontal, relative to the camera
  double elevation = 0;   ///< [deg] vertical
  int lastSeenCycle = 0;  ///< cycle of the last sight; never written for landmarks
  bool seen = false;      ///< it was in the current message
  /// [m] field frame: the fixed place of a landmark; a player's place worked out at sight. Never
  /// written for the ball.
  VecPosition position;
};

/// One seen player.
struct seenPlayer {
  int isOpponent = 0;  ///< 0 team mate, 1 opponent
  int unum = 0;        ///< shirt number
  PolarInfo polar;
};

struct visionInfo {
  PolarInfo ball;
  PolarInfo G1L;
  PolarInfo G2L;
  PolarInfo G1R;
  PolarInfo G2R;
  PolarInfo F1L;
  PolarInfo F2L;
  PolarInfo F1R;
  PolarInfo F2R;
  std::array<seenPlayer, 12> players;  ///< team mates at unum - 1, opponents at unum + 5

  /// Writes the landmarks' places for the side that the team plays on: "left", or anything else
  /// for the field turned by half a turn. The own goal always lies at negative x.
  void setFlagPos(std::string side);
};
