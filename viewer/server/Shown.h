#pragma once

/// What a player was shown: worked out again from its recorded body, with the senses' own camera
/// geometry. Called for each player of each record that the viewer takes in.

#include <bitset>
#include <optional>

#include "arena/record/CycleRecord.h"
#include "arena/senses/Landmarks.h"

namespace arena::view {

/// What of the field was in view when the player last looked. Without the noise of sight.
struct Shown {
  std::bitset<kLandmarks.size()> landmarks{};  ///< rows of kLandmarks
  /// [deg] direction of the ball from the torso's forward axis, positive to the left, as the
  /// player adds it up: angle in the camera plus the neck's turn. Empty: the ball wasn't in view.
  std::optional<double> ballBearingDeg{};
};

/// The camera of a player with this body: in the head, x to the right, y along the view, z up.
Frame cameraOf(const PlayerRecord& player);

/// What PLAYER has in view with the ball at BALL (field frame).
Shown shownTo(const PlayerRecord& player, const Vec3& ball);

}  // namespace arena::view
