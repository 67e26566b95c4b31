// How long is a player's turn, from the last byte of the server's message to the player's last
// frame? Beside it, as a yardstick, a program that reads the same messages from the same kind of
// socket and answers at once with frames of the same sizes, in the same run: the difference is what
// the player itself takes. And how much memory does the player need at most?
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
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

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

/// What the server tells a standing field player: all joints and sensors, and now and then the
/// eight landmarks, the ball, two team mates and two opponents.
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
        " (F2R (pol 10.87 -33.61 -2.79)) (B (pol 1.41 3.52 -20.04))"
        " (P (team Kolu-Otters) (id 3) (head (pol 3.92 -41.25 0.07)))"
        " (P (team Kolu-Otters) (id 6) (head (pol 2.15 22.83 0.11)))"
        " (P (team Others) (id 1) (head (pol 8.70 1.12 0.05)) (llowerarm (pol 8.69 0.90 -1.44)))"
        " (P (team Others) (id 4) (head (pol 4.48 12.59 0.03)) (rfoot (pol 4.49 12.60 -5.91)))"
        " (L (pol 9.10 30.02 -3.30) (pol 9.21 -30.77 -3.31)))";
  }
  return MessageOfCycle(cycle, elements);
}

/// The frames that the player answers with, learnt at leisure.
std::vector<Answer> learnAnswers(const std::string& player, int cycles,
                                 const std::filesystem::path& directory) {
  PlayerSession session(player, {"--unum=5"}, directory);
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

Times timeTurns(ServerLink& link, const std::vector<Answer>& answers) {
  Times times;
  for (int cycle = 1; cycle <= static_cast<int>(answers.size()); ++cycle) {
    const std::string message = messageOf(cycle);
    const std::size_t frames = answers[static_cast<std::size_t>(cycle - 1)].size();
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
  PlayerSession session(player, {"--unum=5"}, directory);
  session.link.ReadFrame();
  Times times = timeTurns(session.link, answers);
  return {std::move(times), session.player.PeakMemory()};
}

Times timeEcho(const std::vector<Answer>& answers) {
  const std::string address = EnterOwnNetwork().address;
  const Listener listener(address);
  const pid_t child = fork();
  if (child == 0) echo(address, answers);
  ServerLink link = listener.Accept();
  Times times = timeTurns(link, answers);
  link.Close();
  waitpid(child, nullptr, 0);
  return times;
}

void printRow(const char* name, std::vector<double> times) {
  if (times.empty()) return;
  std::sort(times.begin(), times.end());
  const auto percentile = [&](std::size_t p) { return times[(times.size() - 1) * p / 100]; };
  std::printf("%-28s%10.1f%10.1f%10.1f%10zu\n", name, percentile(50), percentile(99), times.back(),
              times.size());
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

  std::printf("%s; compiler %s; flags %s; commit %s; messages of %zu and %zu bytes\n",
              processor().c_str(), __VERSION__, PITCH_BUILD_FLAGS, PITCH_COMMIT,
              messageOf(kWarmUp + 1).size(), messageOf(kWarmUp + 2).size());
  std::printf("%-28s%10s%10s%10s%10s\n", "", "p50 us", "p99 us", "max us", "turns");
  printRow("player, sensors", turns.plain);
  printRow("player, sensors and vision", turns.vision);
  printRow("echo, sensors", echoes.plain);
  printRow("echo, sensors and vision", echoes.vision);
  std::printf("player's memory at its most: %.1f MiB\n", static_cast<double>(memory) / 1024);
  return 0;
}
