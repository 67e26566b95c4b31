#include "workshop/generate/ScriptText.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace workshop {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

// 90 degrees are 1.5708 rad. A pitch joint's sign turns round, a roll joint's doesn't.
TEST(ScriptText, PoseSaysRadiansInTheScriptsSign) {
  Posture posture{};
  posture[rowOfScriptJoint("laj1")] = -90;
  posture[rowOfScriptJoint("raj2")] = -90;
  std::array<bool, kScriptJointCount> named{};
  named[rowOfScriptJoint("laj1")] = named[rowOfScriptJoint("raj2")] = true;
  EXPECT_EQ(poseScript(posture, named, 0.5), "LSP 1.5708\nRSR -1.5708\nMOVE 0.5\n");
}

TEST(ScriptText, EveryBlockNamesAllFourteenJoints) {
  Posture target{};
  target[rowOfScriptJoint("rlj4")] = -90;
  const std::string text = actionScript({target, target});
  EXPECT_THAT(text, StartsWith("LShoulderPitchCommand 0.0000\n"));
  EXPECT_THAT(text, HasSubstr("\nRKneePitchCommand 1.5708\n"));
  EXPECT_THAT(text, EndsWith("\nmove 0.04\n"));
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2 * 15);
}

TEST(ScriptText, ZeroHasNoSign) {
  Posture posture{};
  posture[rowOfScriptJoint("llj3")] = 1e-7;
  EXPECT_THAT(poseScript(posture, 1), Not(HasSubstr("-0.0000")));
}

}  // namespace
}  // namespace workshop
