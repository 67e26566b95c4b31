#pragma once

/// One session of the recorded match, message by message: what a server would tell the player with
/// this number in this team. Nothing depends on what the player does. The test asks for the next
/// message until the session is over.

#include <string>
#include <string_view>
#include <vector>

#include "tests/record/Dice.h"
#include "tests/record/Episode.h"

class Match {
 public:
  /// NUMBER is 1 to 6; LEFT the side of the player's team.
  Match(int number, bool left);

  [[nodiscard]] bool IsOver() const { return episode_ == episodes_.size(); }
  /// The next message; only while the match isn't over. Some are repeated, broken or empty, the
  /// first 130 never.
  [[nodiscard]] std::string NextMessage();

 private:
  struct Place {
    double x = 0;
    double y = 0;
  };

  void BeginEpisode();
  void Wander();
  [[nodiscard]] double ToGoal() const;
  [[nodiscard]] double Facing() const;
  [[nodiscard]] Place At(double distance, double bearing) const;
  [[nodiscard]] std::string GameState() const;
  [[nodiscard]] std::string Sensors() const;
  [[nodiscard]] std::string Sight() const;
  [[nodiscard]] std::string Landmarks() const;
  /// "(pol d a e)" of a place in HEIGHT metres.
  [[nodiscard]] std::string Polar(Place place, double height) const;

  int number_;
  bool left_;
  Dice dice_;
  std::vector<Episode> episodes_;
  std::size_t episode_ = 0;
  int inEpisode_ = 0;   ///< messages of the episode so far
  int messages_ = 0;    ///< so far
  int hundredths_ = 0;  ///< [0.01 s] of the server's clock
  Place here_;
};
