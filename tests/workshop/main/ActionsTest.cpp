#include "workshop/main/Actions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace workshop {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(Actions, NamesMeanWhatTheySay) {
  EXPECT_EQ(jobNamed("turnR60", 1).steps.at(0).name, "turnR60");
  EXPECT_EQ(jobNamed("backward", 1).steps.at(0).kind, Step::Kind::kScript);
  EXPECT_EQ(jobNamed("walk", 6).steps.at(0).cycles, 300);
  EXPECT_EQ(jobNamed("kickL", 1).steps.at(0).foot, Foot::kLeft);
  EXPECT_LT(jobNamed("kickL", 1).ball->right, 0);
  EXPECT_TRUE(jobNamed("shoot", 1).ball.has_value());
  EXPECT_FALSE(jobNamed("diveR", 1).scanHead);
  EXPECT_EQ(jobNamed("getup-left", 1).start, Start::kOnLeft);
  EXPECT_EQ(jobNamed("front3.txt", 1).steps.at(0).kind, Step::Kind::kPose);
  EXPECT_EQ(jobNamed("walkloop2", 1).steps.at(0).name, "walkloop2");
}

TEST(Actions, NameThatMeansNothingIsSaid) {
  for (const char* name : {"", "turnL45", "kick", "getup", "back.txt"}) {
    EXPECT_THROW((void)jobNamed(name, 1), std::invalid_argument) << name;
  }
}

TEST(Actions, FiguresAreReadable) {
  Figures f;
  f.stands = true;
  f.forward = 0.123;
  f.turnDeg = -15;
  EXPECT_THAT(textOf(f), HasSubstr("end         stands\n"));
  EXPECT_THAT(textOf(f), HasSubstr("moved       0.123 m forward"));
  EXPECT_THAT(textOf(f), HasSubstr("turned      -15.0 deg"));
  EXPECT_THAT(textOf(f), Not(HasSubstr("ball")));
  f.ballSpeed = 3;
  f.fell = true;
  EXPECT_THAT(textOf(f), HasSubstr("ball        3.00 m/s"));
  EXPECT_THAT(textOf(f), HasSubstr("end         fell\n"));
}

}  // namespace
}  // namespace workshop
