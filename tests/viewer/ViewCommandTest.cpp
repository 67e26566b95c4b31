// What a person meets who runs pitcharena and wants to watch: the page's address, a picture,
// errors.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <fstream>
#include <sstream>

#include "tests/arena/link/WireClient.h"
#include "tests/arena/main/Program.h"
#include "tests/support/TempDir.h"
#include "tests/viewer/StagedMatch.h"
#include "tests/viewer/WatchClient.h"

namespace arena {
namespace {

using nlohmann::json;
using test::Program;
using test::WatchClient;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

std::uint16_t portIn(const std::string& line) {
  return static_cast<std::uint16_t>(std::stoi(line.substr(line.rfind(':') + 1)));
}

std::string contentOf(const std::filesystem::path& file) {
  std::ostringstream all;
  all << std::ifstream(file).rdbuf();
  return all.str();
}

TEST(ViewCommand, AddressOfThePageIsToldAndThePageIsThere) {
  Program program({"--port", "0", "--view-port", "0"});
  EXPECT_THAT(program.line(), StartsWith("listening on "));
  const std::string line = program.line();
  EXPECT_THAT(line, StartsWith("watch it at http://127.0.0.1:"));
  EXPECT_EQ(test::fetch(portIn(line), "/").status, 200);
  program.signal(SIGINT);
  program.restOfOutput();
  EXPECT_EQ(program.wait(), 0);
}

TEST(ViewCommand, NoViewServesNone) {
  Program program({"--port", "0", "--no-view"});
  EXPECT_THAT(program.line(), StartsWith("listening on "));
  program.signal(SIGINT);
  EXPECT_THAT(program.restOfOutput(), Not(HasSubstr("http://")));
  EXPECT_EQ(program.wait(), 0);
}

TEST(ViewCommand, PortThatWasAskedForAndIsTakenIsOneLineAndStatusTwo) {
  Program first({"--port", "0", "--view-port", "0"});
  first.line();
  const std::string port = std::to_string(portIn(first.line()));
  Program second({"--port", "0", "--view-port", port});
  EXPECT_THAT(second.restOfOutput(), StartsWith("listening on "));
  EXPECT_EQ(second.errors(),
            "pitcharena: can't serve the page on 127.0.0.1:" + port + ": Address already in use\n");
  EXPECT_EQ(second.wait(), 2);
}

TEST(ViewCommand, SecondMatchOnAMachineGetsAPageOfItsOwn) {
  Program first({"--port", "0"});
  Program second({"--port", "0"});
  first.line();
  second.line();
  const std::uint16_t one = portIn(first.line());
  const std::uint16_t other = portIn(second.line());
  EXPECT_NE(one, other);
  EXPECT_EQ(test::fetch(one, "/").status, 200);
  EXPECT_EQ(test::fetch(other, "/").status, 200);
}

TEST(ViewCommand, WhatAPlayerPrintsComesToThePage) {
  const TempDir logs;
  logs.write("player-3.log", "connected\n23\n");
  Program program({"--port", "0", "--view-port", "0", "--player-logs", logs.path().string()});
  test::WireClient player(portIn(program.line()));
  player.say("(scene rsg/agent/nao/nao.rsg)(init (unum 3)(teamname Foo))");
  WatchClient page(portIn(program.line()));
  page.send({{"do", "minds"}, {"slots", {0}}});
  page.readUntil(
      [&] { return page.last("mind").is_object() && page.last("mind").contains("action"); });
  EXPECT_EQ(page.last("mind").at("action").at("number"), 23);
  EXPECT_EQ(page.last("mind").at("trace"), (json{"connected", "23"}));
}

TEST(ViewCommand, PictureOfARecordShowsItsGoal) {
  const TempDir folder;
  const std::string record = (folder.path() / "match.rec").string();
  const std::string picture = (folder.path() / "match.svg").string();
  test::writeRecordWithGoal(record, 20);
  Program program({"picture", record, "-o", picture});
  EXPECT_EQ(program.restOfOutput(), "");
  EXPECT_EQ(program.errors(), "");
  EXPECT_EQ(program.wait(), 0);
  const std::string svg = contentOf(picture);
  EXPECT_THAT(svg, StartsWith("<svg "));
  EXPECT_THAT(svg, HasSubstr("<g class=\"goal\"><title>goal of left</title>"));
  EXPECT_THAT(svg, HasSubstr("Otters"));
  EXPECT_THAT(svg, HasSubstr(" 1 : 0 "));
}

TEST(ViewCommand, PictureOfWhatIsNoRecordIsAnError) {
  const TempDir folder;
  const std::string file = folder.write("match.rec", "nonsense");
  Program program({"picture", file, "-o", (folder.path() / "match.svg").string()});
  EXPECT_THAT(program.errors(), HasSubstr(file + ": "));
  EXPECT_EQ(program.wait(), 1);
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "match.svg"));
}

TEST(ViewCommand, PictureThatCannotBeWrittenIsAnError) {
  const TempDir folder;
  const std::string record = (folder.path() / "match.rec").string();
  test::writeRecordWithGoal(record, 1);
  Program program({"picture", record, "-o", "/no/such/folder/match.svg"});
  EXPECT_THAT(program.errors(), HasSubstr("--output /no/such/folder/match.svg"));
  EXPECT_EQ(program.wait(), 2);
}

}  // namespace
}  // namespace arena
