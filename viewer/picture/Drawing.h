#pragma once

/// What a picture of a match shows, as plain values: MatchPicture gathers it, svgOf() draws it.

#include <array>
#include <string>
#include <vector>

#include "arena/referee/Side.h"

namespace arena::picture {

/// A point on the ground, field frame.
struct Point {
  double x = 0;  ///< [m]
  double y = 0;  ///< [m]
};

/// Where something went, without the jumps when it was put elsewhere.
using Lines = std::vector<std::vector<Point>>;

struct Walker {
  Shirt shirt{};
  Lines lines{};
  Point last{};
};

/// A shot, or a goal.
struct Mark {
  Side side = Side::kLeft;  ///< whose it is
  int number = 0;           ///< shirt; 0: a goal that is no player's
  Point from{};
  Point to{};
  bool goal = false;
};

struct Drawing {
  std::array<std::string, 2> teamNames{};  ///< order of Side
  std::array<int, 2> score{};
  double clock = 0;  ///< [s] played
  Lines ball{};
  std::vector<Walker> walkers{};
  std::vector<Mark> marks{};
};

/// A whole SVG document that asks for nothing else: no script, no font, no other file.
std::string svgOf(const Drawing& drawing);

}  // namespace arena::picture
