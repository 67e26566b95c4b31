#include "arena/referee/Roster.h"

#include <gtest/gtest.h>

namespace arena {
namespace {

using Answer = std::variant<Shirt, Refusal>;

void expectShirt(const Answer& answer, Side side, int number) {
  const auto* shirt = std::get_if<Shirt>(&answer);
  ASSERT_NE(shirt, nullptr) << std::get<Refusal>(answer).why;
  EXPECT_EQ(*shirt, (Shirt{side, number}));
}

void expectRefusal(const Answer& answer, const std::string& why) {
  const auto* refusal = std::get_if<Refusal>(&answer);
  ASSERT_NE(refusal, nullptr);
  EXPECT_EQ(refusal->why, why);
}

TEST(Roster, FirstTeamIsLeftAndSecondRight) {
  Roster roster;
  expectShirt(roster.join("Foo", 4), Side::kLeft, 4);
  expectShirt(roster.join("Bar", 4), Side::kRight, 4);
  expectShirt(roster.join("Foo", 1), Side::kLeft, 1);
  EXPECT_EQ(roster.teamName(Side::kLeft), "Foo");
  EXPECT_EQ(roster.teamName(Side::kRight), "Bar");
}

TEST(Roster, ATeamWithoutASecondHasNoOpponent) {
  Roster roster;
  roster.join("Foo", 1);
  roster.join("Foo", 2);
  EXPECT_EQ(roster.teamName(Side::kRight), "");
}

TEST(Roster, ATakenNumberGoesToTheOtherSideUnderTheSameName) {
  Roster roster;
  roster.join("Foo", 3);
  expectShirt(roster.join("Foo", 3), Side::kRight, 3);
  EXPECT_EQ(roster.teamName(Side::kRight), "Foo");
  expectShirt(roster.join("Foo", 5), Side::kLeft, 5);
}

TEST(Roster, ANumberTakenOnBothSidesIsRefused) {
  Roster roster;
  roster.join("Foo", 3);
  roster.join("Foo", 3);
  expectRefusal(roster.join("Foo", 3), "number 3 of Foo is already playing");
}

TEST(Roster, ATakenNumberIsRefusedWhenTheOtherSideIsAnotherTeam) {
  Roster roster;
  roster.join("Foo", 3);
  roster.join("Bar", 1);
  expectRefusal(roster.join("Foo", 3), "number 3 of Foo is already playing");
  expectShirt(roster.join("Bar", 3), Side::kRight, 3);
}

TEST(Roster, AThirdTeamIsRefused) {
  Roster roster;
  roster.join("Foo", 1);
  roster.join("Bar", 1);
  expectRefusal(roster.join("Baz", 2), "a third team, Baz");
}

TEST(Roster, AThirdTeamIsRefusedWhenATeamPlaysItself) {
  Roster roster;
  roster.join("Foo", 1);
  roster.join("Foo", 1);
  expectRefusal(roster.join("Bar", 1), "a third team, Bar");
}

TEST(Roster, NumbersGoFromOneToSix) {
  Roster roster;
  expectRefusal(roster.join("Foo", 0), "shirt number 0 is outside 1 to 6");
  expectRefusal(roster.join("Foo", 7), "shirt number 7 is outside 1 to 6");
  expectRefusal(roster.join("Foo", -1), "shirt number -1 is outside 1 to 6");
  EXPECT_EQ(roster.teamName(Side::kLeft), "") << "a refused player must not take a side";
  for (int number = 1; number <= 6; ++number) {
    expectShirt(roster.join("Foo", number), Side::kLeft, number);
  }
}

TEST(Roster, AReleasedShirtIsFreeAndTheSideKeepsItsName) {
  Roster roster;
  roster.join("Foo", 1);
  roster.join("Bar", 1);
  roster.release({Side::kLeft, 1});
  EXPECT_EQ(roster.teamName(Side::kLeft), "Foo");
  expectShirt(roster.join("Foo", 1), Side::kLeft, 1);
}

}  // namespace
}  // namespace arena
