// The program as a person calls it: exit status, and what goes to which stream.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "tests/workshop/trial/Scripts.h"
#include "workshop/trial/ScriptFolder.h"

namespace workshop {
namespace {

using testing::HasSubstr;

struct Outcome {
  int status = -1;
  std::string text{};  ///< standard output and standard error
};

Outcome pitchmotion(const std::string& arguments) {
  const std::string command = std::string(PITCH_BIN_DIR "/pitchmotion ") + arguments + " 2>&1";
  FILE* const pipe = ::popen(command.c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("can't start " + command);
  Outcome outcome;
  std::array<char, 4096> piece{};
  while (std::fgets(piece.data(), piece.size(), pipe) != nullptr) outcome.text += piece.data();
  const int ended = ::pclose(pipe);
  outcome.status = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
  return outcome;
}

class CommandLine : public testing::Test {
 protected:
  [[nodiscard]] std::string at(const std::string& file) const {
    return (folder.path() / file).string();
  }

  ScriptFolder folder;
};

TEST_F(CommandLine, HelpNamesTheCommands) {
  const Outcome help = pitchmotion("--help");
  EXPECT_EQ(help.status, 0);
  for (const char* command : {"check", "play", "judge", "generate", "tune"}) {
    EXPECT_THAT(help.text, HasSubstr(command));
  }
}

TEST_F(CommandLine, WrongOnesAreStatusTwo) {
  EXPECT_EQ(pitchmotion("").status, 2);
  EXPECT_EQ(pitchmotion("juggle").status, 2);
  EXPECT_EQ(pitchmotion("check " + at("none.txt")).status, 2);
  EXPECT_EQ(pitchmotion("judge --first-seed 1000000").status, 2);
  EXPECT_EQ(pitchmotion("judge --quick --worlds 9").status, 2);
  // The thousandth world would be another run's first.
  EXPECT_EQ(pitchmotion("tune walk --worlds 1000").status, 2);
  EXPECT_EQ(pitchmotion("tune walk --sigma 0").status, 2);
}

TEST_F(CommandLine, CheckIsSilentAboutASoundScript) {
  folder.write("turnL9.txt", blocks(3));
  const Outcome sound = pitchmotion("check " + at("turnL9.txt"));
  EXPECT_EQ(sound.status, 0);
  EXPECT_EQ(sound.text, "");
}

TEST_F(CommandLine, CheckNamesFileAndLineOfAFault) {
  folder.write("turnL9.txt", "nonsense 1\nmove 0.04\n");
  const Outcome faulty = pitchmotion("check " + at("turnL9.txt"));
  EXPECT_EQ(faulty.status, 1);
  EXPECT_THAT(faulty.text, HasSubstr(at("turnL9.txt") + ":1: unknown word nonsense"));
}

TEST_F(CommandLine, PlayTellsAndDrawsWhatCameOut) {
  folder.write("initialstate.txt", "LSP -0.5\nRSP -0.5\nMOVE 0.5\n");
  folder.write("turnL9.txt", blocks(3));
  const Outcome played =
      pitchmotion("play turnL9 --scripts " + folder.path().string() + " --svg " + at("turn.svg"));
  EXPECT_EQ(played.status, 0);
  EXPECT_THAT(played.text, HasSubstr("end         stands"));
  EXPECT_TRUE(std::filesystem::exists(folder.path() / "turn.svg"));
}

TEST_F(CommandLine, PlayOfWhatIsNotThereSaysSo) {
  const Outcome played = pitchmotion("play turnL9 --upright --scripts " + folder.path().string());
  EXPECT_EQ(played.status, 1);
  EXPECT_EQ(played.text, "pitchmotion: there is no script for the action turnL9\n");
  EXPECT_EQ(pitchmotion("play dance --scripts " + folder.path().string()).status, 1);
}

TEST_F(CommandLine, JudgeFailsBelowTheBars) {
  folder.write("initialstate.txt", "LSP -0.5\nRSP -0.5\nMOVE 0.5\n");
  folder.write("turnL9.txt", blocks(3));
  const Outcome judged = pitchmotion("judge --worlds 0 --only turnL9 --scripts " +
                                     folder.path().string() + " --json " + at("judge.json"));
  EXPECT_EQ(judged.status, 1);
  EXPECT_THAT(judged.text, HasSubstr("BELOW  turnL9"));
  EXPECT_THAT(judged.text, HasSubstr("0 of 1 motions are up to their bars"));
  EXPECT_TRUE(std::filesystem::exists(folder.path() / "judge.json"));
}

TEST_F(CommandLine, JudgeIsContentWithABarThatIsMet) {
  // A walk that marks time can be stopped after any loop.
  folder.write("initialstate.txt", "LSP -0.5\nRSP -0.5\nMOVE 0.5\n");
  writeWalk(folder);
  const Outcome judged =
      pitchmotion("judge --worlds 0 --only walkend --scripts " + folder.path().string());
  EXPECT_EQ(judged.status, 0) << judged.text;
}

}  // namespace
}  // namespace workshop
