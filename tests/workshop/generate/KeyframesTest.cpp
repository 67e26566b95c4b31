#include "workshop/generate/Keyframes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace workshop {
namespace {

Json parsed(const char* text) {
  return Json::parse(text);
}

TEST(Poses, NameWithoutASideMeansBothMirrored) {
  const Scripts scripts = posesFrom(parsed(R"({"poses": [
      {"file": "a.txt", "seconds": 1, "degrees": {"aj2": 90}}]})"),
                                    {}, "test");
  EXPECT_EQ(scripts.at("a.txt"), "LSR 1.5708\nRSR -1.5708\nMOVE 1\n");
}

TEST(Poses, MirrorMovesTheOtherSidesJoints) {
  const Scripts scripts = posesFrom(parsed(R"({"poses": [
      {"file": "r.txt", "mirror": "l.txt", "seconds": 0.2, "degrees": {"rlj2": -18, "rlj3": 90}}]})"),
                                    {}, "test");
  EXPECT_EQ(scripts.at("r.txt"), "RHR -0.3142\nRHP -1.5708\nMOVE 0.2\n");
  EXPECT_EQ(scripts.at("l.txt"), "LHR 0.3142\nLHP -1.5708\nMOVE 0.2\n");
}

TEST(Poses, StandingBaseNamesEveryJoint) {
  Posture standing{};
  standing[rowOfScriptJoint("llj4")] = -90;
  const Scripts scripts = posesFrom(parsed(R"({"poses": [
      {"file": "a.txt", "seconds": 1, "base": "standing", "degrees": {"rlj4": -18}}]})"),
                                    standing, "test");
  const std::string& text = scripts.at("a.txt");
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 21);
  EXPECT_NE(text.find("LKP 1.5708\nRKP 0.3142\n"), std::string::npos);
}

TEST(Poses, UnknownJointIsNamedInTheError) {
  try {
    posesFrom(parsed(R"({"poses": [{"file": "a.txt", "seconds": 1, "degrees": {"llj7": 1}}]})"), {},
              "kick");
    FAIL() << "nothing was thrown";
  } catch (const ParameterError& error) {
    EXPECT_STREQ(error.what(), "kick/poses/0/degrees: no script moves a joint \"llj7\"");
  }
}

// Halfway through a smooth curve lies half of the way: 0 -> 45 -> 90 degrees in two blocks. The
// first target is 45 / 0.21875 = 205.714 degrees, the second 45 + 205.714.
TEST(Keyframes, EachIsReachedInItsBlocks) {
  const Scripts scripts = keyframesFrom(
      parsed(R"({"file": "a.txt", "frames": [{"blocks": 2, "degrees": {"llj2": 90}}]})"), {},
      "test");
  const std::string& text = scripts.at("a.txt");
  EXPECT_NE(text.find("LHipRollCommand 3.5904\n"), std::string::npos) << text;
  EXPECT_NE(text.find("LHipRollCommand 4.3758\n"), std::string::npos) << text;
}

}  // namespace
}  // namespace workshop
