#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <string>
#include <vector>

#include "perception/SLangParser.h"
#include "tests/support/OutputCapture.h"
#include "tests/support/TempDir.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Files : public testing::Test {
 protected:
  TempDir dir;
};

/// Dies by SIGXCPU when the file isn't done within a second of computing.
void loadForOneSecondAtMost(const std::string& file) {
  const rlimit noCore{0, 0};
  const rlimit oneSecond{1, 5};
  ::setrlimit(RLIMIT_CORE, &noCore);
  ::setrlimit(RLIMIT_CPU, &oneSecond);
  std::string text;
  SLangParser::loadFile(file, text);
}

TEST_F(Files, ExistWhenTheSystemKnowsThem) {
  const std::string file = dir.write("file", "");
  EXPECT_TRUE(SLangParser::fileExists(file));
  EXPECT_TRUE(SLangParser::fileExists(dir.path().string()));
  EXPECT_FALSE(SLangParser::fileExists((dir.path() / "missing").string()));
  EXPECT_FALSE(SLangParser::fileExists(""));
}

TEST_F(Files, FolderIsListedBackwards) {
  for (const char* name : {"beta", "Alpha", ".hidden", "gamma"}) {
    dir.write(name, "");
  }
  std::vector<std::string> names{"old"};
  EXPECT_EQ(SLangParser::getFolderContents(dir.path().string(), names), 6);
  EXPECT_THAT(names, ElementsAre("gamma", "beta", "Alpha", ".hidden"));
}

TEST_F(Files, CountOfAnEmptyFolderIsTwo) {
  std::vector<std::string> names;
  EXPECT_EQ(SLangParser::getFolderContents(dir.path().string(), names), 2);
  EXPECT_THAT(names, IsEmpty());
}

TEST_F(Files, MissingFolderIsReported) {
  std::vector<std::string> names{"old"};
  OutputCapture errors(OutputCapture::Stream::Error);
  const int count = SLangParser::getFolderContents((dir.path() / "missing").string(), names);
  EXPECT_EQ(errors.text(), "scandir: No such file or directory\n");
  EXPECT_LT(count, 0);
  EXPECT_THAT(names, IsEmpty());
}

TEST_F(Files, LoadingAMissingFileLeavesTheTextAlone) {
  std::string text = "before";
  EXPECT_FALSE(SLangParser::loadFile((dir.path() / "missing").string(), text));
  EXPECT_EQ(text, "before");
}

TEST_F(Files, LoadingAppendsAndEndsTheLastLine) {
  std::string text = "before";
  EXPECT_TRUE(SLangParser::loadFile(dir.write("file", "one\n\ntwo"), text));
  EXPECT_EQ(text, "beforeone\n\ntwo\n");
}

TEST_F(Files, EndedFileGetsOneMoreLineFeed) {
  std::string text;
  EXPECT_TRUE(SLangParser::loadFile(dir.write("file", "one\ntwo\n"), text));
  EXPECT_EQ(text, "one\ntwo\n\n");
}

TEST_F(Files, EmptyFileGivesOneLineFeed) {
  std::string text;
  EXPECT_TRUE(SLangParser::loadFile(dir.write("file", ""), text));
  EXPECT_EQ(text, "\n");
}

TEST_F(Files, LongestLineThatFitsIsLoadedWhole) {
  const std::string longest(4095, 'x');
  std::string text;
  EXPECT_TRUE(SLangParser::loadFile(dir.write("inner", longest + "\nend"), text));
  EXPECT_EQ(text, longest + "\nend\n");
  text.clear();
  EXPECT_TRUE(SLangParser::loadFile(dir.write("last", longest), text));
  EXPECT_EQ(text, longest + "\n");
}

TEST_F(Files, LineThatDoesNotFitIsNeverDoneLoading) {
  const std::string file = dir.write("file", std::string(4096, 'x') + "\nend\n");
  EXPECT_EXIT(loadForOneSecondAtMost(file), testing::KilledBySignal(SIGXCPU), "");
}

}  // namespace
