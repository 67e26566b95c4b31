#include "workshop/check/ScriptCheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workshop/check/ScriptNames.h"
#include "workshop/trial/ScriptFolder.h"

namespace workshop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ScriptCheckTest : public testing::Test {
 protected:
  /// What is said about FILE with this TEXT, without the folder: "turnL9.txt:3: ...".
  std::vector<std::string> found(const std::string& file, const std::string& text) {
    folder.write(file, text);
    std::vector<std::string> lines;
    for (Finding finding : checkScripts({folder.path() / file})) {
      finding.file = finding.file.filename();
      lines.push_back(textOf(finding));
    }
    return lines;
  }

  ScriptFolder folder;
};

TEST_F(ScriptCheckTest, SoundScriptsHaveNoFindings) {
  EXPECT_THAT(found("turnL9.txt",
                    "LHipPitchCommand 0.05\nRAnkleRollCommand -0.05\nmove 0.04\n"
                    "LKneePitchCommand 0.1 move 0.04\n"),
              IsEmpty());
  EXPECT_THAT(found("kickL3.txt", "LHP -0.5\nREY 1.0\nMOVE 0.3\n"), IsEmpty());
}

TEST_F(ScriptCheckTest, WordOfTheOtherReaderIsUnknown) {
  EXPECT_THAT(found("turnL9.txt", "LSP 0.1\nmove 0.04\n"),
              ElementsAre("turnL9.txt:1: unknown word LSP: skipped with its number"));
  EXPECT_THAT(found("front3.txt", "LHP 0\n\nLHipPitchCommand 0.1\nMOVE 1\n"),
              ElementsAre("front3.txt:3: unknown word LHipPitchCommand: skipped with its number"));
}

TEST_F(ScriptCheckTest, CaseMatters) {
  EXPECT_THAT(found("sideR.txt", "LKneePitchCommand 0.1\nMOVE 0.04\n"),
              ElementsAre("sideR.txt:2: unknown word MOVE: skipped with its number",
                          "sideR.txt: no move behind the last joints: they don't move"));
}

TEST_F(ScriptCheckTest, JointsWithoutAnEndOfBlockNeverMove) {
  EXPECT_THAT(found("walkend.txt", "LKneePitchCommand 0.1\nmove 0.04\nRKneePitchCommand 0.1\n"),
              ElementsAre("walkend.txt: no move behind the last joints: they don't move"));
  EXPECT_THAT(found("back4.txt", "LKP 0.5\n"),
              ElementsAre("back4.txt: no MOVE behind the last joints: they don't move"));
}

TEST_F(ScriptCheckTest, EmptyScriptHasNoBlock) {
  EXPECT_THAT(found("sideL.txt", ""), ElementsAre("sideL.txt: no block that ends in move"));
}

TEST_F(ScriptCheckTest, WordInsteadOfANumberEndsTheReading) {
  EXPECT_THAT(found("turnR9.txt", "LKneePitchCommand\nmove 0.04\nRKneePitchCommand 1\nmove 0.04\n"),
              ElementsAre(HasSubstr("turnR9.txt:1: no number behind LKneePitchCommand"),
                          "turnR9.txt: no move behind the last joints: they don't move"));
}

TEST_F(ScriptCheckTest, NumberTooManyThrowsThePairsOutOfStep) {
  // Read as: RHP 0.1, "0.2" with no number behind it.
  EXPECT_THAT(found("kickR2.txt", "RHP 0.1 0.2\nMOVE 0.3\n"),
              ElementsAre(HasSubstr("kickR2.txt:1: no number behind 0.2"),
                          "kickR2.txt:1: unknown word 0.2: skipped with its number",
                          "kickR2.txt: no MOVE behind the last joints: they don't move"));
}

TEST_F(ScriptCheckTest, NothingBehindAPosesEndIsRead) {
  EXPECT_THAT(found("front2.txt", "LHP 0.1\nMOVE 0.3\nRHP 0.1\nMOVE 1\n"),
              ElementsAre("front2.txt:3: nothing behind the first MOVE is read"));
}

TEST_F(ScriptCheckTest, PoseOutOfAJointsRangeIsSaid) {
  // Scripts give pitch joints the opposite sign: 0.5 is -28.6 degrees of a hip that ends at -25.
  EXPECT_THAT(found("kickL1.txt", "LHP 0.5\nRHP -0.5\nMOVE 0.3\n"),
              ElementsAre("kickL1.txt:1: LHP 0.5 is -28.6 deg of llj3, out of its range of -25 to "
                          "100"));
}

TEST_F(ScriptCheckTest, ActionsTargetsMayLieOutOfRangeAsLongAsTheJointsDoNot) {
  // 21.9 % of the rest of the way to -54.4 deg a block: 11.9, 21.2, 28.5 of the 25 there are.
  const std::string block = "LHipPitchCommand 0.95\nmove 0.04\n";
  EXPECT_THAT(found("turnR60.txt", block + block), IsEmpty());
  EXPECT_THAT(found("turnR60.txt", block + block + block),
              ElementsAre("turnR60.txt: block 3 drives llj3 3.5 deg beyond its range of -25 to 100 "
                          "deg"));
}

TEST_F(ScriptCheckTest, SpeedBeyondAMotorsIsNoted) {
  // A block's second cycle asks for 14.4 % of the way within 0.02 s: 7.2 rad/s per radian.
  EXPECT_THAT(found("turnR60.txt", "LShoulderPitchCommand 0.95\nmove 0.04\n"), IsEmpty());
  EXPECT_THAT(
      found("turnR60.txt", "LShoulderPitchCommand 1.1\nmove 0.04\n"),
      ElementsAre("turnR60.txt: note: asks 1 joint for more than the 7 rad/s of a motor, most of "
                  "all laj1 in block 1 for 7.9"));
}

TEST_F(ScriptCheckTest, LoopsAreJudgedBehindTheScriptsThatComeBefore) {
  // 1 rad away from zero, and close to where the start script leaves the shoulder.
  const std::string loop = "LShoulderPitchCommand 1.5\nmove 0.04\n";
  EXPECT_THAT(found("walkloop1.txt", loop), ElementsAre(HasSubstr("note: asks")));
  folder.write("initialstateforwalk.txt", "LSP 1.3\nMOVE 0.5\n");
  folder.write("walkstart.txt", "LShoulderPitchCommand 1.3\nmove 0.04\n");
  EXPECT_THAT(found("walkloop1.txt", loop), IsEmpty());
}

TEST_F(ScriptCheckTest, JointNamedTwiceInABlockIsSaid) {
  EXPECT_THAT(found("turnL9.txt", "LKneePitchCommand 0.1\nLKneePitchCommand 0.2\nmove 0.04\n"),
              ElementsAre("turnL9.txt:2: LKneePitchCommand stands twice in a block: the last one "
                          "counts"));
}

TEST_F(ScriptCheckTest, PoseThatTakesNoTimeNeverMoves) {
  EXPECT_THAT(found("kickR4.txt", "LKP 0.5\nMOVE 0.01\n"),
              ElementsAre("kickR4.txt:2: a pose of 0.01 s doesn't move"));
}

TEST_F(ScriptCheckTest, BlockThatIsToLastLongerOrShorterIsSaid) {
  EXPECT_THAT(found("turnL9.txt", "LKneePitchCommand 0.1\nmove 0.5\nmove 0.04\nmove 0.02\n"),
              ElementsAre("turnL9.txt:2: a block of 0.5 s: all last 0.04 s",
                          "turnL9.txt:4: a block of 0.02 s: all last 0.04 s"));
}

TEST_F(ScriptCheckTest, FileThatNobodyOpensIsSaid) {
  EXPECT_THAT(found("turnL45.txt", "move 0.04\n"),
              ElementsAre("turnL45.txt: the player never opens a file of this name"));
}

TEST_F(ScriptCheckTest, NotesAreNoFaults) {
  EXPECT_FALSE(anyFault({}));
  EXPECT_FALSE(anyFault({{"a.txt", 1, "fast", false}}));
  EXPECT_TRUE(anyFault({{"a.txt", 1, "fast", false}, {"a.txt", 2, "lost", true}}));
}

TEST(ShippedScripts, AreAllThereAndWithoutFaults) {
  const std::filesystem::path folder = std::filesystem::path(PITCH_SOURCE_DIR) / "scripts";
  std::vector<std::filesystem::path> files;
  for (const ActionScript& script : kActionScripts) files.push_back(folder / script.file);
  for (const std::string_view pose : kPoseScripts) files.push_back(folder / pose);
  for (const Finding& finding : checkScripts(files)) {
    EXPECT_FALSE(finding.isFault) << textOf(finding);
  }
}

}  // namespace
}  // namespace workshop
