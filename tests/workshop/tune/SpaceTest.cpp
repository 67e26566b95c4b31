#include "workshop/tune/Space.h"

#include <gtest/gtest.h>

namespace workshop {
namespace {

Json description() {
  return Json::parse(R"({"gait": {"sway": 0.01, "lift": 0.03}, "pace": [1, 2],
      "tune": {"/gait/sway": [0, 0.04], "/pace/1": [-2, 2]}})");
}

TEST(Space, BoundsBecomeZeroAndOne) {
  const Space space = spaceOf(description(), "walk");
  ASSERT_EQ(space.size(), 2U);
  EXPECT_EQ(pointOf(description(), space), (std::vector<double>{0.25, 1.0}));
}

TEST(Space, MovingChangesOnlyWhatIsTuned) {
  const Space space = spaceOf(description(), "walk");
  const Json moved = movedTo(description(), space, {0.5, 0.0});
  EXPECT_DOUBLE_EQ(moved["gait"]["sway"].get<double>(), 0.02);
  EXPECT_DOUBLE_EQ(moved["pace"][1].get<double>(), -2);
  EXPECT_EQ(moved["gait"]["lift"], description()["gait"]["lift"]);
  EXPECT_EQ(moved["tune"], description()["tune"]);
}

// 1.25 lies as far above the upper bound as 0.75 below it; -0.25 mirrors to 0.25.
TEST(Space, PointsBeyondTheBoundsAreMirroredBackIn) {
  const Space space = spaceOf(description(), "walk");
  const Json moved = movedTo(description(), space, {1.25, -0.25});
  EXPECT_NEAR(moved["gait"]["sway"].get<double>(), 0.03, 1e-9);
  EXPECT_NEAR(moved["pace"][1].get<double>(), -1, 1e-9);
}

TEST(Space, BadBoundsAndUnknownNumbersAreErrors) {
  Json file = description();
  file["tune"]["/gait/sway"] = Json::array({1, 0});
  EXPECT_THROW(spaceOf(file, "walk"), ParameterError);
  file = description();
  file["tune"]["/gait/sweep"] = Json::array({0, 1});
  EXPECT_THROW(spaceOf(file, "walk"), ParameterError);
  file = description();
  file["tune"]["gait"] = Json::array({0, 1});
  EXPECT_THROW(spaceOf(file, "walk"), ParameterError);
  file.erase("tune");
  EXPECT_THROW(spaceOf(file, "walk"), ParameterError);
}

}  // namespace
}  // namespace workshop
