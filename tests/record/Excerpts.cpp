#include "tests/record/Excerpts.h"

#include <array>

namespace {

constexpr std::array kLeft1{
    Excerpt{606, 634, "The keeper dives to its left"},
    Excerpt{1000, 1045, "A turn, from the end of a walk to the next"},
    Excerpt{2304, 2312, "Onto the back: seen"},
    Excerpt{2357, 2362, "Onto the back: the first stage begins"},
    Excerpt{2403, 2408, "Onto the back: the first stage ends"},
    Excerpt{2419, 2424, "Onto the back: the second stage"},
    Excerpt{2481, 2486, "Onto the back: the third stage"},
    Excerpt{2583, 2588, "Onto the back: the fourth stage"},
    Excerpt{2819, 2830, "Onto the back: up again"},
};

constexpr std::array kLeft2{
    Excerpt{398, 430, "A walk is told to stop"},
    Excerpt{1392, 1412, "A shot with the left foot: begin"},
    Excerpt{1498, 1526, "A shot with the left foot: last steps, end, and the next shot"},
    Excerpt{1574, 1652, "Onto the right side in mid-kick"},
};

constexpr std::array kRight2{
    Excerpt{1506, 1536, "Onto the back at the end of a kick"},
};

constexpr std::array kRight6{
    Excerpt{0, 1, "The start and the first message"},
    Excerpt{9, 10, "Joining"},
    Excerpt{19, 24, "The first beams"},
    Excerpt{58, 66, "The beam of the kick-off"},
    Excerpt{97, 232, "The first decision: the kick-off shot"},
};

}  // namespace

std::span<const Excerpt> ExcerptsOf(int number, bool left) {
  if (left && number == 1) return kLeft1;
  if (left && number == 2) return kLeft2;
  if (!left && number == 2) return kRight2;
  if (!left && number == 6) return kRight6;
  return {};
}
