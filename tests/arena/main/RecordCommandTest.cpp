// pitcharena --record and pitcharena replay, as processes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "arena/record/RecordReader.h"
#include "tests/arena/link/WireClient.h"
#include "tests/arena/main/Program.h"
#include "tests/support/TempDir.h"

namespace arena {
namespace {

using test::Program;
using test::WireClient;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

std::string textIn(const std::string& name) {
  std::ostringstream all;
  all << std::ifstream(name, std::ios::binary).rdbuf();
  return all.str();
}

std::uint16_t portSaidBy(Program& program) {
  const std::string line = program.line();
  return static_cast<std::uint16_t>(std::stoi(line.substr(line.rfind(':') + 1)));
}

/// What a program came to.
struct Outcome {
  std::string output;
  std::string errors;
  int status = 0;
};

Outcome run(const std::vector<std::string>& arguments) {
  Program program(arguments);
  Outcome outcome;
  outcome.output = program.restOfOutput();
  outcome.errors = program.errors();
  outcome.status = program.wait();
  return outcome;
}

/// Two players that beam, talk, and one of which falls, until the link closes.
void playTwo(std::uint16_t port) {
  WireClient one(port);
  one.say("(scene rsg/agent/nao/nao.rsg)(init (unum 3)(teamname Foo))");
  WireClient two(port);
  two.say("(scene rsg/agent/nao/nao.rsg)(init (unum 1)(teamname Bar))");
  int cycle = 0;
  while (one.hear() && two.hear()) {
    ++cycle;
    try {
      if (cycle < 10) one.say("(beam -3 1 0)(say hello)");
      if (cycle < 10) two.say("(beam -1.2345 2 30)");
      if (cycle == 10) one.say("(lle3 7)(rle3 7)(lle5 3)(rle5 3)");
      if (cycle > 10) one.say("(he1 0)(nonsense)");
      if (cycle >= 10) two.say("(he1 1)");
    } catch (const std::exception&) {
      return;  // the match ended in between
    }
  }
}

TEST(RecordCommand, AReplayTellsTheSameMatchAndTheSameSummary) {
  const TempDir dir;
  const std::string record = (dir.path() / "match.rec").string();
  const std::string live = (dir.path() / "live.json").string();
  const std::string replayed = (dir.path() / "replayed.json").string();
  Program program({"--port", "0", "--no-view", "--speed", "0", "--players", "2", "--wait-seconds",
                   "0.4", "--half-seconds", "1.5", "--record", record, "--summary", live});
  playTwo(portSaidBy(program));
  const std::string told = program.restOfOutput();
  EXPECT_EQ(program.errors(), "");
  EXPECT_EQ(program.wait(), 0);

  const Outcome replay = run({"replay", record, "--summary", replayed});
  EXPECT_EQ(replay.status, 0);
  EXPECT_EQ(replay.errors, "");
  // What follows in the live output is about the pace of this machine, not about the match.
  EXPECT_THAT(told, StartsWith(replay.output));
  EXPECT_THAT(replay.output, HasSubstr("left 3 fell\n"));
  EXPECT_THAT(replay.output, HasSubstr("s  the match is over\n\nsummary: "));
  EXPECT_EQ(textIn(replayed), textIn(live));
  const auto json = nlohmann::json::parse(textIn(replayed));
  EXPECT_EQ(json["players"][0]["name"], "left 3");
  EXPECT_EQ(json["players"][0]["falls"], 1);
  EXPECT_GT(json["players"][0]["malformed_effectors"], 50);
}

TEST(RecordCommand, AStoppedMatchIsAWholeRecord) {
  const TempDir dir;
  const std::string record = (dir.path() / "match.rec").string();
  Program program({"--port", "0", "--no-view", "--record", record});
  WireClient client(portSaidBy(program));
  client.say("(scene rsg/agent/nao/nao.rsg)(init (unum 2)(teamname Foo))");
  ASSERT_TRUE(client.hear());
  program.signal(SIGINT);
  const std::string told = program.restOfOutput();
  EXPECT_EQ(program.wait(), 0);
  const Outcome replay = run({"replay", record});
  EXPECT_EQ(replay.status, 0);
  EXPECT_THAT(told, StartsWith(replay.output));
  EXPECT_THAT(replay.output, HasSubstr(" s  stopped\n"));
}

TEST(RecordCommand, AKilledMatchCanBeReadUpToThere) {
  const TempDir dir;
  const std::string record = (dir.path() / "match.rec").string();
  Program program(
      {"--port", "0", "--no-view", "--speed", "0", "--half-seconds", "300", "--record", record});
  WireClient client(portSaidBy(program));
  client.say("(scene rsg/agent/nao/nao.rsg)(init (unum 2)(teamname Foo))");
  for (int cycle = 0; cycle < 200; ++cycle) {
    ASSERT_TRUE(client.hear());
    client.say("(he1 1)(lae1 -1)");
  }
  // The writer is a thread beside the match: all but the last few cycles are in the file at once.
  // What the player has heard long ago must be there, whatever the kill cuts off.
  while (textIn(record).size() < 2'000) {
    ASSERT_TRUE(client.hear());
    client.say("(he1 -1)");
  }
  program.signal(SIGKILL);
  EXPECT_EQ(program.wait(), -SIGKILL);

  std::ifstream file(record, std::ios::binary);
  RecordReader reader(file);
  long cycles = 0;
  while (const auto cycle = reader.next()) {
    ASSERT_EQ(cycle->cycle, ++cycles);
    ASSERT_EQ(cycle->players.size(), 1U);
  }
  EXPECT_GE(cycles, 20);
  ASSERT_TRUE(reader.fault());

  const Outcome replay = run({"replay", record});
  EXPECT_EQ(replay.status, 1);
  EXPECT_THAT(replay.errors, StartsWith("pitcharena: " + record + ": the record "));
  EXPECT_THAT(replay.errors, EndsWith(" s\n"));
  EXPECT_THAT(replay.output, HasSubstr("0.00 s  left 2 connected, team Foo\n"));
  EXPECT_THAT(replay.output, HasSubstr("s  stopped\n\nsummary: "));
}

TEST(RecordCommand, AFullDiskEndsTheRecordNotTheMatch) {
  Program program({"--port", "0", "--no-view", "--speed", "0", "--players", "2", "--wait-seconds",
                   "0.4", "--half-seconds", "0.5", "--record", "/dev/full"});
  playTwo(portSaidBy(program));
  const std::string told = program.restOfOutput();
  EXPECT_EQ(program.wait(), 0);
  const std::string fault = "the record ends here, /dev/full: No space left on device\n";
  EXPECT_THAT(told, HasSubstr(fault));
  EXPECT_EQ(told.find(fault), told.rfind(fault));
  EXPECT_THAT(told, HasSubstr("s  the match is over\n"));
}

TEST(RecordCommand, BadFilesAreOneLineEach) {
  const TempDir dir;
  const Outcome missing = run({"replay", "/no/such/file"});
  EXPECT_EQ(missing.status, 2);
  EXPECT_EQ(missing.errors, "pitcharena: replay /no/such/file: No such file or directory\n");
  const Outcome unwritable = run({"--no-view", "--record", "/no/such/folder/match.rec"});
  EXPECT_EQ(unwritable.status, 2);
  EXPECT_EQ(unwritable.errors,
            "pitcharena: --record /no/such/folder/match.rec: No such file or directory\n");
  const std::string name = dir.write("match.rec", "something else altogether");
  const Outcome other = run({"replay", name});
  EXPECT_EQ(other.status, 1);
  EXPECT_EQ(other.errors, "pitcharena: " + name + ": this is no match record\n");
  EXPECT_EQ(other.output, "");
  const Outcome mixed = run({"--record", "b.rec", "replay", name});
  EXPECT_EQ(mixed.status, 2);
  EXPECT_EQ(mixed.errors, "pitcharena: --record is for a match, not for replay\n");
  const Outcome nothing = run({"replay"});
  EXPECT_EQ(nothing.status, 2);
  EXPECT_THAT(nothing.errors, HasSubstr("FILE"));
  EXPECT_EQ(run({"replay", dir.path().string()}).status, 1) << "a folder";
}

TEST(RecordCommand, ReplayHasAHelpOfItsOwn) {
  const Outcome help = run({"replay", "--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.output, HasSubstr("FILE"));
  EXPECT_THAT(help.output, HasSubstr("--summary"));
  EXPECT_THAT(help.output, testing::Not(HasSubstr("--port")));
  const Outcome general = run({"--help"});
  EXPECT_THAT(general.output, HasSubstr("replay"));
  EXPECT_THAT(general.output, HasSubstr("--record"));
}

}  // namespace
}  // namespace arena
