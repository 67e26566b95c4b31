#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "behaviour/Agent.h"
#include "perception/WorldModel.h"
#include "tests/localisation/Flags.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/Places.h"

namespace {

/// Which flags the player takes. Every flag's circle passes near one place, yet no two pairs of
/// flags give quite the same, so the place written tells the pair.
class FlagChoice : public testing::Test {
 protected:
  void SetUp() override {
    world.cycle = 10;
    world.lastSeeCycle = 10;
    vision.setFlagPos("left");
    double distance = 20;
    for (const auto& end : {kLeftFlags, kRightFlags}) {
      for (const FlagName& row : end) {
        setDistance(row, distance);
        (vision.*row.flag).seen = false;
        distance += 1;
      }
    }
  }

  /// How far off a flag is, with hardly a change of its circle on the ground.
  void setDistance(const FlagName& row, double distance) const {
    PolarInfo& flag = vision.*row.flag;
    const double ground = std::hypot(flag.position.x - 1, flag.position.y - 0.5);
    seeOverGround(flag, distance, ground + 0.004 * (distance - 20));
  }
  [[nodiscard]] VecPosition placeFrom(const FlagName& a, const FlagName& b) const {
    agent.LocalizeAgentWith2Flags(&(vision.*a.flag), &(vision.*b.flag));
    return agent.myPos;
  }
  /// "F1L F2L" in the order in which they are taken, "" when nothing is written.
  [[nodiscard]] std::string choice() const {
    const VecPosition untouched(77, 77, 77);
    agent.myPos = untouched;
    agent.LocalizeAgentWith3FlagsCircle();
    const VecPosition written = agent.myPos;
    if (written == untouched) {
      return "";
    }
    std::vector<std::string> pairs;
    const auto compare = [&](const FlagName& a, const FlagName& b) {
      if (placeFrom(a, b) == written) {
        pairs.push_back(std::string(a.name) + " " + b.name);
      }
    };
    for (std::size_t i = 0; i < 4; ++i) {
      for (std::size_t j = 0; j < 4; ++j) {
        compare(kRightFlags.at(i), kLeftFlags.at(j));
        if (i < j) {
          compare(kLeftFlags.at(i), kLeftFlags.at(j));
          compare(kRightFlags.at(i), kRightFlags.at(j));
        }
      }
    }
    return pairs.size() == 1 ? pairs.front() : "not told by one pair";
  }
  void setSeen(unsigned int left, unsigned int right) const {
    for (std::size_t i = 0; i < 4; ++i) {
      (vision.*kLeftFlags.at(i).flag).seen = (left >> i & 1U) != 0;
      (vision.*kRightFlags.at(i).flag).seen = (right >> i & 1U) != 0;
    }
  }

  FreshPlayer player{2};
  Agent& agent = player.agent();
  WorldModel& world = player.world();
  visionInfo& vision = world.vision;
};

/// Names of the flags of END whose bit is set, in table order.
std::vector<std::string> namesOf(const std::array<FlagName, 4>& end, unsigned int bits) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < 4; ++i) {
    if ((bits >> i & 1U) != 0) {
      names.emplace_back(end.at(i).name);
    }
  }
  return names;
}

enum class Taken { None, BothLeft, BothRight, RightThenLeft };

// By the number of flags in view at the left end (down) and at the right end (across).
constexpr Taken kTaken[5][5] = {
    // clang-format off
    {Taken::None,     Taken::None,          Taken::BothRight, Taken::BothRight, Taken::BothRight},
    {Taken::None,     Taken::RightThenLeft, Taken::None,      Taken::None,      Taken::None},
    {Taken::BothLeft, Taken::None,          Taken::None,      Taken::None,      Taken::None},
    {Taken::BothLeft, Taken::None,          Taken::None,      Taken::None,      Taken::None},
    {Taken::BothLeft, Taken::None,          Taken::None,      Taken::None,      Taken::None},
    // clang-format on
};

// Distances rise in table order, so the first two in view of an end are its elements 0 and 1.
TEST_F(FlagChoice, FollowsTheNumbersAtBothEndsForEverySetOfFlags) {
  for (const char* side : {"left", "right"}) {
    vision.setFlagPos(side);
    for (unsigned int left = 0; left < 16; ++left) {
      for (unsigned int right = 0; right < 16; ++right) {
        const std::vector<std::string> l = namesOf(kLeftFlags, left);
        const std::vector<std::string> r = namesOf(kRightFlags, right);
        SCOPED_TRACE(testing::Message() << side << ": " << testing::PrintToString(l) << ", "
                                        << testing::PrintToString(r));
        std::string expected;
        switch (kTaken[l.size()][r.size()]) {
          case Taken::None:
            break;
          case Taken::BothLeft:
            expected = l[0] + " " + l[1];
            break;
          case Taken::BothRight:
            expected = r[0] + " " + r[1];
            break;
          case Taken::RightThenLeft:
            expected = r[0] + " " + l[0];
            break;
        }
        for (const auto& end : {kLeftFlags, kRightFlags}) {
          for (const FlagName& row : end) {
            setDistance(row, (vision.*row.flag).distance);
          }
        }
        setSeen(left, right);
        EXPECT_EQ(choice(), expected);
      }
    }
  }
}

struct OrderRow {
  double second, third, fourth;  ///< [m] distances of F2, G1 and G2 of one end
  const char* taken;             ///< which of them goes with F1
};

// Two sweeps that leave element 0 alone: the nearer of the second and the third comes out at index
// 1, whatever the fourth is.
constexpr OrderRow kOrders[] = {
    {21, 22, 23, "F2"}, {21, 23, 22, "F2"}, {22, 21, 23, "G1"}, {22, 23, 21, "F2"},
    {23, 21, 22, "G1"}, {23, 22, 21, "G1"}, {22, 22, 21, "F2"},  // equal ones aren't exchanged
};

TEST_F(FlagChoice, OfFourFlagsTheNearerOfTheMiddleTwoGoesWithTheFirst) {
  for (const auto& [end, letter] :
       {std::pair(kLeftFlags, std::string("L")), std::pair(kRightFlags, std::string("R"))}) {
    setSeen(0, 0);
    for (const double first : {20.0, 25.0}) {  // the first never moves
      for (const OrderRow& row : kOrders) {
        SCOPED_TRACE(testing::Message() << letter << ": " << first << ", " << row.second << ", "
                                        << row.third << ", " << row.fourth);
        setDistance(end[0], first);
        setDistance(end[1], row.second);
        setDistance(end[2], row.third);
        setDistance(end[3], row.fourth);
        EXPECT_EQ(choice(), "F1" + letter + " " + row.taken + letter);
      }
    }
  }
}

TEST_F(FlagChoice, OfThreeFlagsTheNearerOfTheLastTwoGoesWithTheFirst) {
  setSeen(0b1110, 0);  // F2L, G1L, G2L
  setDistance(kLeftFlags[1], 26);
  setDistance(kLeftFlags[2], 23);
  setDistance(kLeftFlags[3], 24);
  EXPECT_EQ(choice(), "F2L G1L");
  setDistance(kLeftFlags[3], 22);
  EXPECT_EQ(choice(), "F2L G2L");
  setDistance(kLeftFlags[2], 22);  // equal ones aren't exchanged
  EXPECT_EQ(choice(), "F2L G1L");
}

TEST_F(FlagChoice, OfTwoFlagsTheOrderStays) {
  setSeen(0, 0b1100);  // G1R, G2R
  setDistance(kRightFlags[2], 24);
  setDistance(kRightFlags[3], 21);
  EXPECT_EQ(choice(), "G1R G2R");
}

TEST_F(FlagChoice, FourFlagsAtOneEndAndNoneAtTheOtherUseTwo) {
  setSeen(0b1111, 0);
  setDistance(kLeftFlags[1], 23);
  setDistance(kLeftFlags[2], 22);
  setDistance(kLeftFlags[3], 21);
  EXPECT_EQ(choice(), "F1L G1L");
}

}  // namespace
