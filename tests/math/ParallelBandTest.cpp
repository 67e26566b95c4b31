#include "math/ParallelBand.h"

#include <gtest/gtest.h>

#include "tests/math/SeededValues.h"

namespace {

/// The band's rule through the lines' own operations.
bool isBetween(const Line& l1, const Line& l2, const VecPosition& p) {
  const VecPosition f1 = l1.getPointOnLineClosestTo(p);
  const VecPosition f2 = l2.getPointOnLineClosestTo(p);
  return f1.getDistanceTo(f2) >= f1.getDistanceTo(p) + f2.getDistanceTo(p);
}

/// Held and left out, of the points that were tried.
struct Tally {
  int held = 0;
  int out = 0;

  void compare(const Line& l1, const Line& l2, const VecPosition& p) {
    const bool between = isBetween(l1, l2, p);
    ++(between ? held : out);
    ASSERT_EQ(ParallelBand(l1, l2).holds(p), between) << l1 << " and " << l2 << " at " << p;
    ASSERT_EQ(Line::isInBetweenTwoParallelLines(l1, l2, p), between);
  }
};

TEST(BandOfManyPoints, HoldsWhatTheLinesOwnOperationsSay) {
  SeededValues values(91);
  Tally tally;
  for (int i = 0; i < SeededValues::kTries; ++i) {
    const VecPosition from = values.place();
    const VecPosition to(from.x + values.between(-0.1, 0.1), from.y + values.between(-0.1, 0.1));
    const VecPosition shift(1.5, 1.5, 0);
    const Line upper = Line::makeLineFromTwoPoints(from + shift, to + shift);
    const Line lower = Line::makeLineFromTwoPoints(from - shift, to - shift);
    for (int point = 0; point < 10; ++point) {
      tally.compare(upper, lower, {to.x + values.between(-2, 2), to.y + values.between(-2, 2)});
    }
  }
  // In the band the roots' last bits decide: both answers come often.
  EXPECT_GT(tally.held, 1000);
  EXPECT_GT(tally.out, 1000);
}

TEST(BandOfManyPoints, LinesAlongAnAxisAndDegenerateOnesToo) {
  SeededValues values(92);
  Tally tally;
  for (int i = 0; i < 200; ++i) {
    const double c = values.between(-3, 3);
    const VecPosition p(values.between(-4, 4), values.between(-4, 4));
    tally.compare(Line(0, 1, c), Line(0, 1, c + 3), p);  // one x each
    tally.compare(Line(1, 0, c), Line(1, 0, c + 3), p);  // one y each
    tally.compare(Line(1, -0.0, c), Line(1, 0, c - 3), p);
    tally.compare(Line(1, 0.5, c), Line(1, 0.5, c), p);    // the same line twice
    tally.compare(Line(2, 3, c), Line(-4, -6, c + 1), p);  // parallel in another form
  }
  EXPECT_GT(tally.held, 100);
  EXPECT_GT(tally.out, 100);
}

}  // namespace
