#include "arena/match/Beams.h"

#include <gtest/gtest.h>

namespace arena {
namespace {

using Answers = std::vector<bool>;

BeamWish at(double x, double y) {
  return {{x, y, 0}, {}};
}

BeamWish from(double x, double y, double toX, double toY) {
  return {{x, y, 0}, Pose{toX, toY, 0}};
}

TEST(Beams, AFreePlaceIsGiven) {
  EXPECT_EQ(obeyedBeams({from(0, 0, 3, 3), at(3.25, 3)}), (Answers{true, false}));
}

TEST(Beams, APlaceWhereARobotStaysIsNot) {
  EXPECT_EQ(obeyedBeams({from(0, 0, 3, 3), at(3.24, 3)}), (Answers{false, false}));
}

TEST(Beams, TheOwnPlaceIsFree) {
  EXPECT_EQ(obeyedBeams({from(1, 1, 1, 1)}), Answers{true});
}

TEST(Beams, TwoMayChangePlaces) {
  EXPECT_EQ(obeyedBeams({from(0, 0, 3, 3), from(3, 3, 0, 0)}), (Answers{true, true}));
}

TEST(Beams, AWholeRingMayMoveOn) {
  EXPECT_EQ(obeyedBeams({from(0, 0, 1, 0), from(1, 0, 2, 0), from(2, 0, 0, 0)}),
            (Answers{true, true, true}));
}

TEST(Beams, OfTwoForOnePlaceTheEarlierOneGetsIt) {
  EXPECT_EQ(obeyedBeams({from(0, 0, 3, 3), from(1, 1, 3, 3.1)}), (Answers{true, false}));
}

TEST(Beams, WhoIsRefusedStaysInTheWay) {
  // The third can't leave for the place of the fourth, so nobody behind it can move up.
  EXPECT_EQ(obeyedBeams({from(0, 0, 1, 0), from(1, 0, 2, 0), from(2, 0, 3, 0), at(3, 0)}),
            (Answers{false, false, false, false}));
}

TEST(Beams, NobodyThereIsNothingToObey) {
  EXPECT_TRUE(obeyedBeams({}).empty());
}

}  // namespace
}  // namespace arena
