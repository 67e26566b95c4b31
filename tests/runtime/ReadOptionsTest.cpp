#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "behaviour/Agent.h"
#include "runtime/Connection.h"
#include "runtime/Options.h"
#include "tests/support/FreshPlayer.h"
#include "tests/support/OutputCapture.h"

namespace {

constexpr const char* kHelp =
    "\nusage: pitchagent [options]\n"
    "\noptions:\n"
    " --help      prints this message.\n"
    " --host=IP   IP of the server.\n"
    " --unum=ID   ID of the player from 1 to 5.\n"
    "\n";

class ReadOptionsTest : public ::testing::Test {
 protected:
  static void Read(std::vector<std::string> words) {
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    ReadOptions(static_cast<int>(words.size()), pointers.data());
  }

  FreshPlayer player{4};
};

TEST_F(ReadOptionsTest, NothingAtAllChangesNothing) {
  Read({});
  ReadOptions(-1, nullptr);
  EXPECT_EQ(player.agent().uNum, 4);
}

TEST_F(ReadOptionsTest, ProgramsOwnNameSetsTheDefaultNumber) {
  Read({"pitchagent"});
  EXPECT_EQ(player.agent().uNum, 1);
}

TEST_F(ReadOptionsTest, ProgramsOwnNameIsAnArgumentLikeAnyOther) {
  Read({"--unum=5"});
  EXPECT_EQ(player.agent().uNum, 5);
}

TEST_F(ReadOptionsTest, EachNumberOfTheTeamIsTaken) {
  for (int number = 1; number <= 6; ++number) {
    Read({"pitchagent", "--unum=" + std::to_string(number)});
    EXPECT_EQ(player.agent().uNum, number);
  }
}

TEST_F(ReadOptionsTest, LaterArgumentsOverrideEarlierOnes) {
  Read({"pitchagent", "--unum=3", "--host=a", "--unum=2", "--host=b"});
  EXPECT_EQ(player.agent().uNum, 2);
  EXPECT_EQ(Connection::getSingleton()->hostAddress, "b");
}

TEST_F(ReadOptionsTest, StrayArgumentBehindResetsTheNumber) {
  Read({"pitchagent", "--unum=3", "extra"});
  EXPECT_EQ(player.agent().uNum, 1);
  Read({"pitchagent", "extra", "--unum=3"});
  EXPECT_EQ(player.agent().uNum, 3);
  Read({"pitchagent", "--unum=3", "--helpme"});
  EXPECT_EQ(player.agent().uNum, 1);
}

TEST_F(ReadOptionsTest, HostDoesNotResetTheNumber) {
  Read({"pitchagent", "--unum=3", "--host=a"});
  EXPECT_EQ(player.agent().uNum, 3);
}

TEST_F(ReadOptionsTest, CharacterBehindTheOptionIsSkippedUnread) {
  for (const char* option : {"--host=a", "--host:a", "--hostXa"}) {
    Read({"pitchagent", option});
    EXPECT_EQ(Connection::getSingleton()->hostAddress, "a") << option;
  }
}

TEST_F(ReadOptionsTest, LongerOptionNameLeaksIntoTheAddress) {
  Read({"pitchagent", "--hostname=a"});
  EXPECT_EQ(Connection::getSingleton()->hostAddress, "ame=a");
}

TEST_F(ReadOptionsTest, AddressIsTakenAsItStands) {
  Read({"pitchagent", "--host=my host, 1 = 2"});
  EXPECT_EQ(Connection::getSingleton()->hostAddress, "my host, 1 = 2");
}

using ReadOptionsDeathTest = ReadOptionsTest;

TEST_F(ReadOptionsDeathTest, BadLinesPrintTheHelpAndEndWithStatusZero) {
  for (const char* bad : {"--help", "--host", "--host=", "--unum", "--unum=", "--unum=0",
                          "--unum=7", "--unum=x", "--unum=-3", "--unum=4294967299"}) {
    OutputCapture output;
    EXPECT_EXIT(Read({"pitchagent", bad, "--unum=3"}), ::testing::ExitedWithCode(0), "^$") << bad;
    EXPECT_EQ(output.text(), kHelp) << bad;
  }
}

TEST_F(ReadOptionsTest, HelpTextIsWhole) {
  OutputCapture output;
  PrintHelp();
  EXPECT_EQ(output.text(), kHelp);
}

}  // namespace
