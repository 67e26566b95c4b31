// What a person meets who runs pitcharena: help, errors, events, the end.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/arena/link/WireClient.h"
#include "tests/arena/main/Program.h"

namespace arena {
namespace {

using test::Program;
using test::WireClient;
using testing::HasSubstr;
using testing::StartsWith;

/// A file name of this test's own, removed at its end.
class ScratchFile {
 public:
  explicit ScratchFile(const std::string& name)
      : path_(std::filesystem::temp_directory_path() /
              ("pitcharena-" + std::to_string(::getpid()) + "-" + name)) {}
  ~ScratchFile() { std::filesystem::remove(path_); }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  [[nodiscard]] std::string name() const { return path_.string(); }
  [[nodiscard]] std::string text() const {
    std::ostringstream all;
    all << std::ifstream(path_).rdbuf();
    return all.str();
  }

 private:
  std::filesystem::path path_;
};

/// Reads the line that says where it listens.
std::uint16_t portOf(Program& program) {
  const std::string line = program.line();
  EXPECT_THAT(line, StartsWith("listening on 127.0.0.1:"));
  return static_cast<std::uint16_t>(std::stoi(line.substr(line.rfind(':') + 1)));
}

TEST(Program, HelpNamesEveryOptionAndItsDefault) {
  Program program({"--help"});
  const std::string help = program.restOfOutput();
  EXPECT_EQ(program.wait(), 0);
  for (const auto* option : {"--port",
                             "--listen",
                             "--half-seconds",
                             "--wait-seconds",
                             "--speed",
                             "--seed",
                             "--noise",
                             "--no-noise",
                             "--players",
                             "--patience-ms",
                             "--settle-ms",
                             "--silence-seconds",
                             "--record",
                             "--log",
                             "--summary",
                             "--kick-off-seconds",
                             "--kick-in-seconds",
                             "--goal-seconds",
                             "--stall-seconds",
                             "--view-port",
                             "--no-view",
                             "--player-logs",
                             "=3100",
                             "=127.0.0.1",
                             "=300",
                             "--silence-seconds FLOAT:0..86400=60"}) {
    EXPECT_THAT(help, HasSubstr(option));
  }
  std::istringstream lines(help);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 100U) << line;
}

struct BadLine {
  std::vector<std::string> arguments;
  std::string culprit;
};

class BadCommandLine : public testing::TestWithParam<BadLine> {};

TEST_P(BadCommandLine, IsOneLineThatNamesTheCulpritAndStatusTwo) {
  Program program(GetParam().arguments);
  const std::string output = program.restOfOutput();
  const std::string errors = program.errors();
  EXPECT_EQ(program.wait(), 2);
  EXPECT_EQ(output, "");
  EXPECT_THAT(errors, StartsWith("pitcharena: "));
  EXPECT_THAT(errors, HasSubstr(GetParam().culprit));
  EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
  EXPECT_EQ(errors.back(), '\n');
}

INSTANTIATE_TEST_SUITE_P(
    Lines, BadCommandLine,
    testing::Values(
        BadLine{{"--fast"}, "--fast"}, BadLine{{"word"}, "word"}, BadLine{{"--port"}, "--port"},
        BadLine{{"--port", "x"}, "--port"}, BadLine{{"--port", "65536"}, "--port"},
        BadLine{{"--port", "-1"}, "--port"}, BadLine{{"--port", "31.5"}, "--port"},
        BadLine{{"--speed", "nan"}, "--speed"}, BadLine{{"--speed", "inf"}, "--speed"},
        BadLine{{"--speed", "-1"}, "--speed"}, BadLine{{"--speed", "1e-9"}, "--speed"},
        BadLine{{"--speed", "fast"}, "--speed"}, BadLine{{"--speed", "1x"}, "--speed"},
        BadLine{{"--speed="}, "--speed"}, BadLine{{"--wait-seconds", "-0.5"}, "--wait-seconds"},
        BadLine{{"--wait-seconds", "nan"}, "--wait-seconds"},
        BadLine{{"--half-seconds", "inf"}, "--half-seconds"},
        BadLine{{"--half-seconds", "1e9"}, "--half-seconds"}, BadLine{{"--seed", "-1"}, "--seed"},
        BadLine{{"--seed", "x"}, "--seed"}, BadLine{{"--players", "0"}, "--players"},
        BadLine{{"--players", "13"}, "--players"}, BadLine{{"--listen", "nowhere"}, "--listen"},
        BadLine{{"--stall-seconds", "-1"}, "--stall-seconds"},
        BadLine{{"--goal-seconds", "nan"}, "--goal-seconds"},
        BadLine{{"--kick-in-seconds", "x"}, "--kick-in-seconds"},
        BadLine{{"--kick-off-seconds", "inf"}, "--kick-off-seconds"},
        BadLine{{"--patience-ms", "-1"}, "--patience-ms"},
        BadLine{{"--settle-ms", "nan"}, "--settle-ms"},
        BadLine{{"--silence-seconds", "nan"}, "--silence-seconds"},
        BadLine{{"--log", "/no/such/folder/log"}, "--log /no/such/folder/log"},
        BadLine{{"--summary", "/no/such/folder/s"}, "--summary /no/such/folder/s"}));

TEST(Program, APortInUseIsOneLineAndStatusTwo) {
  Program first({"--port", "0"});
  const std::string port = std::to_string(portOf(first));
  Program second({"--port", port});
  EXPECT_EQ(second.restOfOutput(), "");
  EXPECT_EQ(second.errors(),
            "pitcharena: can't listen on 127.0.0.1:" + port + ": Address already in use\n");
  EXPECT_EQ(second.wait(), 2);
}

TEST(Program, AMatchIsToldAsItHappensAndSummedUpAtTheEnd) {
  const ScratchFile log("log");
  const ScratchFile summary("summary");
  Program program({"--port", "0", "--no-view", "--speed", "0", "--wait-seconds", "0.4",
                   "--half-seconds", "1", "--log", log.name(), "--summary", summary.name()});
  WireClient client(portOf(program));
  client.say("(scene rsg/agent/nao/nao.rsg)(init (unum 3)(teamname Foo))");
  int messages = 0;
  while (const auto message = client.hear()) {
    if (++messages <= 10) client.say("(beam -3 1 0)");
    if (messages > 10 && message->find("GameOver") == std::string::npos) client.say("(he1 0)");
  }
  const std::string output = program.restOfOutput();
  EXPECT_EQ(program.errors(), "");
  EXPECT_EQ(program.wait(), 0);

  const std::string events =
      "0.00 s  play mode BeforeKickOff\n"
      "0.00 s  left 3 connected, team Foo\n"
      "0.02 s  left 3 beamed to (-3.00, 1.00), facing 0 deg\n"
      "0.40 s  play mode KickOff_Left\n"
      "1.40 s  half time, 0:0\n"
      "1.40 s  play mode BeforeKickOff\n"
      "1.80 s  play mode KickOff_Right\n"
      "2.80 s  full time, 0:0\n"
      "2.80 s  play mode GameOver\n"
      "3.80 s  the match is over\n";
  EXPECT_THAT(output, StartsWith(events + "\nsummary: 3.80 s simulated, game clock 2.00 s, "
                                          "GameOver, played to the end\n"));
  EXPECT_THAT(log.text(), HasSubstr(events));
  const auto json = nlohmann::json::parse(summary.text());
  EXPECT_EQ(json["finished"], true);
  EXPECT_EQ(json["players"][0]["name"], "left 3");
  EXPECT_EQ(json["players"][0]["beams"], 10);
  EXPECT_EQ(json["players"][0]["standing"], true);
  EXPECT_LT(json["players"][0]["metres_off_beam"].get<double>(), 0.01);
}

class StopSignal : public testing::TestWithParam<int> {};

TEST_P(StopSignal, EndsTheMatchInOrder) {
  const ScratchFile summary("summary" + std::to_string(GetParam()));
  Program program({"--port", "0", "--summary", summary.name()});
  WireClient client(portOf(program));
  client.say("(scene rsg/agent/nao/nao.rsg)(init (unum 2)(teamname Foo))");
  ASSERT_TRUE(client.hear());
  program.signal(GetParam());
  EXPECT_TRUE(client.isClosedWithin(std::chrono::seconds(20)));
  EXPECT_THAT(program.restOfOutput(), HasSubstr(" s  stopped\n\nsummary: "));
  EXPECT_EQ(program.wait(), 0);
  const auto json = nlohmann::json::parse(summary.text());
  EXPECT_EQ(json["finished"], false);
  EXPECT_EQ(json["players"][0]["name"], "left 2");
}

INSTANTIATE_TEST_SUITE_P(Signals, StopSignal, testing::Values(SIGINT, SIGTERM));

TEST(Program, AStopBeforeAnyPlayerCameIsInOrderToo) {
  Program program({"--port", "0"});
  portOf(program);
  program.signal(SIGINT);
  EXPECT_THAT(program.restOfOutput(), HasSubstr("0.00 s  stopped\n"));
  EXPECT_EQ(program.wait(), 0);
}

}  // namespace
}  // namespace arena
