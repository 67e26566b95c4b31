// How long is a player's turn, from the last byte of the server's message to the player's last
// frame? Beside it, as a yardstick, a program that reads the same messages from the same kind of
// socket and answers at once with frames of the same sizes, in the same run: the difference is what
// the player itself takes. And how much memory does the player need at most, how many allocations a
// turn?
//
//   turn [cycles, default 5000] [working directory with motion scripts, default an empty one]

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/prctl.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/FixedTime.h"
#include "tests/support/OwnNetwork.h"
#include "tests/support/PlayerSession.h"
#include "tests/support/TempDir.h"

namespace {

using Clock = std::chrono::steady_clock;

/// Not counted: the waiting time before the kick-off, and the first turns after it.
constexpr int kWarmUp = 100;
constexpr int kKickOff = 60;
/// The camera works at a third of the rate of the other sensors.
constexpr int kVisionEvery = 3;

/// The sizes of the frames that answer one message.
using Answer = std::vector<std::size_t>;

std::string processor() {
  std::ifstream info("/proc/cpuinfo");
  for (std::string line; std::getline(info, line);) {
    if (line.starts_with("model name")) return line.substr(line.find(':') + 2);
  }
  return "unknown processor";
}

/// One player in sight with five parts of its body, as a server shows it from nearby.
std::string playerInSight(const std::string& team, int number) {
  std::string text = " (P (team " + team + ") (id " + std::to_string(number) + ")";
  for (const char* part : {"head", "rlowerarm", "llowerarm", "rfoot", "lfoot"}) {
    text += std::string(" (") + part + " (pol " + std::to_string(2 + number) + ".15 " +
            std::to_string(number * 7 - 20) + ".83 -1.11))";
  }
  return text + ")";
}

/// What the server tells a standing field player: all joints and sensors, and now and then all that
/// can be in sight: eight landmarks, the ball, five team mates and six opponents.
std::string messageOf(int cycle) {
  std::string elements = cycle < kKickOff ? "(GS (unum 5) (team left) (t 0.00) (pm BeforeKickOff))"
                                          : "(GS (t 12.34) (pm PlayOn))";
  elements += "(GYR (n torso) (rt 0.01 0.07 0.46))(ACC (n torso) (a 0.00 0.02 9.81))";
  for (const char* joint :
       {"hj1",  "hj2",  "raj1", "raj2", "raj3", "raj4", "laj1", "laj2", "laj3", "laj4", "rlj1",
        "rlj2", "rlj3", "rlj4", "rlj5", "rlj6", "llj1", "llj2", "llj3", "llj4", "llj5", "llj6"}) {
    elements += std::string("(HJ (n ") + joint + ") (ax " + std::to_string(cycle % 7) + ".25))";
  }
  elements +=
      "(FRP (n rf) (c 0.01 0.02 -0.03) (f 0.12 0.34 22.10))"
      "(FRP (n lf) (c 0.01 0.02 -0.03) (f 0.12 0.34 22.10))";
  if (cycle % kVisionEvery == 0) {
    elements +=
        "(See (G1R (pol 9.14 4.31 1.02)) (G2R (pol 9.11 -8.87 1.01)) (F1R (pol 10.91 33.40 -2.77))"
        " (F2R (pol 10.87 -33.61 -2.79)) (G1L (pol 9.34 174.31 1.02)) (G2L (pol 9.31 -171.87 1.01))"
        " (F1L (pol 11.01 146.40 -2.77)) (F2L (pol 10.97 -146.61 -2.79))"
        " (B (pol 1.41 3.52 -20.04))";
    for (int number = 1; number <= 6; ++number) {
      if (number != 5) elements += playerInSight("Kolu-Otters", number);
      elements += playerInSight("Others", number);
    }
    elements += " (L (pol 9.10 30.02 -3.30) (pol 9.21 -30.77 -3.31)))";
  }
  return MessageOfCycle(cycle, elements);
}

/// Every run under the same calendar time, so that all of them are alike: the player's chance is
/// seeded with it.
PlayerSession startPlayer(const std::string& player, const std::filesystem::path& directory) {
  const FixedTime fixed(1'234'567'890);
  return {player, {"--unum=5"}, directory};
}

/// The frames that the player answers with, learnt at leisure.
std::vector<Answer> learnAnswers(const std::string& player, int cycles,
                                 const std::filesystem::path& directory) {
  PlayerSession session = startPlayer(player, directory);
  session.link.ReadFrame();
  std::vector<Answer> answers;
  for (int cycle = 1; cycle <= cycles; ++cycle) {
    Answer answer;
    for (const std::string& frame : session.Turn(messageOf(cycle))) answer.push_back(frame.size());
    answers.push_back(std::move(answer));
  }
  return answers;
}

/// [us] the turns behind the warm-up, those with vision apart.
struct Times {
  std::vector<double> plain;
  std::vector<double> vision;
};

/// BETWEEN is called before each turn and not timed.
Times timeTurns(ServerLink& link, const std::vector<Answer>& answers,
                const std::function<void()>& between) {
  Times times;
  for (int cycle = 1; cycle <= static_cast<int>(answers.size()); ++cycle) {
    const std::string message = messageOf(cycle);
    const std::size_t frames = answers[static_cast<std::size_t>(cycle - 1)].size();
    between();
    const Clock::time_point start = Clock::now();
    link.SendFrame(message);
    for (std::size_t i = 0; i < frames; ++i) link.ReadFrame();
    const std::chrono::duration<double, std::micro> took = Clock::now() - start;
    if (cycle > kWarmUp) {
      (cycle % kVisionEvery == 0 ? times.vision : times.plain).push_back(took.count());
    }
  }
  return times;
}

/// Waits for and reads exactly SIZE bytes, as the player does.
bool readBytes(int link, char* to, std::size_t size) {
  for (std::size_t have = 0; have < size;) {
    fd_set readable;
    FD_ZERO(&readable);
    FD_SET(link, &readable);
    select(link + 1, &readable, nullptr, nullptr, nullptr);
    const ssize_t got = recv(link, to + have, size - have, 0);
    if (got <= 0) return false;
    have += static_cast<std::size_t>(got);
  }
  return true;
}

/// The yardstick's process: one answer of the given sizes per frame, until the link closes.
[[noreturn]] void echo(const std::string& address, const std::vector<Answer>& answers) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  const int link = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in server{};
  server.sin_family = AF_INET;
  server.sin_port = htons(kServerPort);
  inet_pton(AF_INET, address.c_str(), &server.sin_addr);
  const int atOnce = 1;
  if (connect(link, reinterpret_cast<const sockaddr*>(&server), sizeof(server)) != 0 ||
      setsockopt(link, IPPROTO_TCP, TCP_NODELAY, &atOnce, sizeof(atOnce)) != 0) {
    _exit(1);
  }
  std::array<char, 16384> buffer{};
  for (const Answer& answer : answers) {
    if (!readBytes(link, buffer.data(), 4)) _exit(1);
    const std::size_t length = static_cast<unsigned char>(buffer[2]) * std::size_t{256} +
                               static_cast<unsigned char>(buffer[3]);
    if (!readBytes(link, buffer.data(), std::min(length, buffer.size()))) _exit(1);
    for (const std::size_t size : answer) {
      const std::string frame =
          LengthField(static_cast<std::uint32_t>(size)) + std::string(size, 'x');
      if (send(link, frame.data(), frame.size(), MSG_NOSIGNAL) < 0) _exit(1);
    }
  }
  _exit(0);
}

struct PlayerFigures {
  Times times;
  std::size_t memory = 0;  ///< [KiB] at its most
};

PlayerFigures timePlayer(const std::string& player, const std::vector<Answer>& answers,
                         const std::filesystem::path& directory) {
  PlayerSession session = startPlayer(player, directory);
  session.link.ReadFrame();
  Times times = timeTurns(session.link, answers, [&session] {
    // The trace lines are read, or the player would wait over a full pipe.
    session.player.Output();
  });
  return {std::move(times), session.player.PeakMemory()};
}

/// The number of allocations in each turn, counted from outside, by the library beside this
/// program.
Times countAllocations(const std::string& player, int cycles,
                       const std::filesystem::path& directory) {
  const TempDir counts;
  const std::string file = counts.write("count", std::string(sizeof(std::uint64_t), '\0'));
  const auto sinceStart = [&file] {
    std::uint64_t count = 0;
    std::ifstream(file, std::ios::binary).read(reinterpret_cast<char*>(&count), sizeof(count));
    return count;
  };
  setenv("ALLOCATION_COUNT", file.c_str(), 1);
  setenv("LD_PRELOAD", PITCH_COUNT_ALLOCATIONS, 1);
  PlayerSession session(player, {"--unum=5"}, directory);
  unsetenv("LD_PRELOAD");
  unsetenv("ALLOCATION_COUNT");
  session.link.ReadFrame();
  session.AwaitWaiting();
  Times allocations;
  std::uint64_t before = sinceStart();
  for (int cycle = 1; cycle <= cycles; ++cycle) {
    session.Turn(messageOf(cycle));
    const std::uint64_t now = sinceStart();
    if (cycle > kWarmUp) {
      (cycle % kVisionEvery == 0 ? allocations.vision : allocations.plain)
          .push_back(static_cast<double>(now - before));
    }
    before = now;
  }
  return allocations;
}

Times timeEcho(const std::vector<Answer>& answers) {
  const std::string address = EnterOwnNetwork().address;
  const Listener listener(address);
  const pid_t child = fork();
  if (child == 0) echo(address, answers);
  ServerLink link = listener.Accept();
  Times times = timeTurns(link, answers, [] {});
  link.Close();
  waitpid(child, nullptr, 0);
  return times;
}

struct Row {
  double p50 = 0;
  double p99 = 0;
  double max = 0;
  std::size_t turns = 0;
};

Row rowOf(std::vector<double> values) {
  if (values.empty()) return {};
  std::sort(values.begin(), values.end());
  const auto percentile = [&](std::size_t p) { return values[(values.size() - 1) * p / 100]; };
  return {percentile(50), percentile(99), values.back(), values.size()};
}

void printRow(const char* name, const Row& row) {
  std::printf("%-36s%10.1f%10.1f%10.1f%10zu\n", name, row.p50, row.p99, row.max, row.turns);
}

/// The player, the yardstick and how many times the one is the other.
void printComparison(const std::string& what, const Row& player, const Row& echo) {
  printRow(("player, " + what + " [us]").c_str(), player);
  printRow(("echo, " + what + " [us]").c_str(), echo);
  std::printf("%-36s%10.2f%10.2f%10.2f\n", "  player / echo", player.p50 / echo.p50,
              player.p99 / echo.p99, player.max / echo.max);
}

}  // namespace

int main(int argc, char** argv) {
  const int cycles = std::max(kWarmUp + 1, argc > 1 ? std::atoi(argv[1]) : 5000);
  const TempDir empty;
  const std::filesystem::path directory =
      argc > 2 ? std::filesystem::absolute(argv[2]) : empty.path();
  const std::string player = PITCH_BIN_DIR "/pitchagent";

  const std::vector<Answer> answers = learnAnswers(player, cycles, directory);
  const auto [turns, memory] = timePlayer(player, answers, directory);
  const Times echoes = timeEcho(answers);
  const Times allocations = countAllocations(player, std::min(cycles, 1000), directory);

  std::printf("%s; compiler %s; flags %s; commit %s; messages of %zu and %zu bytes\n",
              processor().c_str(), __VERSION__, PITCH_BUILD_FLAGS, PITCH_COMMIT,
              messageOf(kWarmUp + 1).size(), messageOf(kWarmUp + 2).size());
  std::printf("%-36s%10s%10s%10s%10s\n", "", "p50", "p99", "max", "turns");
  printComparison("sensors", rowOf(turns.plain), rowOf(echoes.plain));
  printComparison("full sight", rowOf(turns.vision), rowOf(echoes.vision));
  printRow("allocations, sensors", rowOf(allocations.plain));
  printRow("allocations, full sight", rowOf(allocations.vision));
  std::printf("player's memory at its most: %.1f MiB\n", static_cast<double>(memory) / 1024);
  return 0;
}
