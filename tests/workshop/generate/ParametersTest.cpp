#include "workshop/generate/Parameters.h"

#include <gtest/gtest.h>

#include <string>

namespace workshop {
namespace {

Json standing() {
  return Json::parse(R"({"kind": "standing", "seconds": 0.5,
      "stance": {"hipHeight": 0.2, "leanDeg": 7, "halfSpacing": 0.05, "ankleForward": 0.01},
      "arms": {"pitchDeg": -90, "rollDeg": 15, "yawDeg": 0, "bendDeg": -20}})");
}

std::string complaintAbout(const Json& file) {
  try {
    standingFrom(file, "standing");
    return "none";
  } catch (const ParameterError& error) {
    return error.what();
  }
}

TEST(Parameters, NumbersLandInTheirMembers) {
  const StandingDescription description = standingFrom(standing(), "standing");
  EXPECT_EQ(description.stance.hipHeight, 0.2);
  EXPECT_EQ(description.stance.leanDeg, 7);
  EXPECT_EQ(description.stance.halfSpacing, 0.05);
  EXPECT_EQ(description.stance.ankleForward, 0.01);
  EXPECT_EQ(description.arms.bendDeg, -20);
  EXPECT_EQ(description.seconds, 0.5);
}

TEST(Parameters, WhatIsMissingIsSaid) {
  Json file = standing();
  file["stance"].erase("leanDeg");
  EXPECT_EQ(complaintAbout(file), "standing/stance: \"leanDeg\" is missing");
}

TEST(Parameters, WhatIsMisspeltIsSaid) {
  Json file = standing();
  file["arms"]["rolldeg"] = 3;
  EXPECT_EQ(complaintAbout(file), "standing/arms: unknown name \"rolldeg\"");
}

TEST(Parameters, WhatIsNoNumberIsSaid) {
  Json file = standing();
  file["seconds"] = "half";
  EXPECT_EQ(complaintAbout(file), "standing: \"seconds\" must be a number");
}

TEST(Parameters, AStrideIsAWholeNumberOfBlocks) {
  EXPECT_THROW(wholeNumberIn(Json{{"blocks", 10.5}}, "blocks", "walk"), ParameterError);
  EXPECT_EQ(wholeNumberIn(Json{{"blocks", 10.0}}, "blocks", "walk"), 10);
}

}  // namespace
}  // namespace workshop
