// How many times faster than real time does a match of six standing players run at speed 0, link
// and all? Six clients in this process that answer each message with the idle message, then six
// real players. Beside them, as a yardstick, the bare simulation of six robots in the same run.
//
//   arena [seconds of simulated time, default 20]

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include "arena/main/MatchServer.h"
#include "arena/world/World.h"
#include "tests/arena/link/WireClient.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kPlayers = 6;
/// A loopback address that nothing else listens on; players always call port 3100.
constexpr const char* kPlayersAddress = "127.0.31.7";
constexpr std::uint16_t kPlayersPort = 3100;

std::string processor() {
  std::ifstream info("/proc/cpuinfo");
  for (std::string line; std::getline(info, line);) {
    if (line.starts_with("model name")) return line.substr(line.find(':') + 2);
  }
  return "unknown processor";
}

/// When each cycle of a run began.
using Ticks = std::vector<Clock::time_point>;

Ticks bareSimulation(int cycles) {
  arena::World world;
  for (int slot = 0; slot < kPlayers; ++slot) world.addRobot(slot, {slot - 2.5, 1.0, 0});
  Ticks ticks;
  for (int i = 0; i <= cycles; ++i) {
    ticks.push_back(Clock::now());
    world.advance();
  }
  return ticks;
}

arena::ServerSettings sixAtFullSpeed(double seconds) {
  arena::ServerSettings settings;
  settings.pace.speed = 0;
  settings.pace.playersToStart = kPlayers;
  settings.match.referee.waitSeconds = 2;
  settings.match.referee.halfSeconds = std::max(0.0, seconds - 3);
  return settings;
}

/// Plays a match; the server asks whether to stop once in each cycle, which tells their times.
Ticks play(arena::MatchServer& server, arena::Summary& summary) {
  Ticks ticks;
  std::size_t asked = 0;
  summary = server.run(
      [&] {
        if (++asked > 1) ticks.push_back(Clock::now());
        return false;
      },
      [](const std::string&) {});
  // Until the players were there the questions were others.
  const auto cycles = static_cast<std::size_t>(summary.seconds / arena::kCycleSeconds + 0.5);
  if (ticks.size() > cycles) ticks.erase(ticks.begin(), ticks.end() - static_cast<long>(cycles));
  return ticks;
}

std::string idleMessage() {
  std::string text;
  for (const arena::JointRow& row : arena::kJoints) {
    if (row.effector != "he1") text += "(" + std::string(row.effector) + " 0)";
  }
  return text;
}

Ticks trivialClients(double seconds, arena::Summary& summary) {
  arena::ServerSettings settings = sixAtFullSpeed(seconds);
  settings.link.port = 0;
  arena::MatchServer server(settings);
  std::vector<std::thread> players;
  for (int number = 1; number <= kPlayers; ++number) {
    players.emplace_back([number, port = server.port()] {
      const std::string idle = idleMessage();
      arena::test::WireClient client(port);
      client.say("(scene rsg/agent/nao/nao.rsg)(init (unum " + std::to_string(number) +
                 ")(teamname Bench))");
      try {
        for (int i = 0; client.hear(); ++i) {
          client.say(i < 40 ? idle + "(beam -3 " + std::to_string(number - 3) + " 0)" : idle);
        }
      } catch (const std::runtime_error&) {
        // The match ended between a message and its answer.
      }
    });
  }
  Ticks ticks = play(server, summary);
  for (std::thread& player : players) player.join();
  return ticks;
}

/// Real players, in an empty folder: without motion scripts they stand.
class RealPlayers {
 public:
  RealPlayers() {
    const std::string host = std::string("--host=") + kPlayersAddress;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    for (int number = 1; number <= kPlayers; ++number) {
      std::string program = PITCH_BIN_DIR "/pitchagent";
      std::string address = host;
      std::string shirt = "--unum=" + std::to_string(number);
      std::array<char*, 4> argv{program.data(), address.data(), shirt.data(), nullptr};
      pid_t process = -1;
      if (::posix_spawn(&process, argv[0], &actions, nullptr, argv.data(), environ) == 0) {
        processes_.push_back(process);
      }
    }
    posix_spawn_file_actions_destroy(&actions);
  }
  ~RealPlayers() {
    for (const pid_t process : processes_) {
      ::kill(process, SIGKILL);
      ::waitpid(process, nullptr, 0);
    }
  }
  RealPlayers(const RealPlayers&) = delete;
  RealPlayers& operator=(const RealPlayers&) = delete;

 private:
  std::vector<pid_t> processes_{};
};

Ticks realPlayers(double seconds, arena::Summary& summary) {
  arena::ServerSettings settings = sixAtFullSpeed(seconds);
  settings.link.listen = kPlayersAddress;
  settings.link.port = kPlayersPort;
  arena::MatchServer server(settings);
  const RealPlayers players;
  return play(server, summary);
}

void print(const std::string& name, const Ticks& ticks, const std::string& remark) {
  std::vector<double> times;
  for (std::size_t i = 1; i < ticks.size(); ++i) {
    times.push_back(std::chrono::duration<double, std::milli>(ticks[i] - ticks[i - 1]).count());
  }
  if (times.empty()) return;
  double total = 0;
  for (const double t : times) total += t;
  const double factor = static_cast<double>(times.size()) * arena::kCycleSeconds * 1000 / total;
  std::sort(times.begin(), times.end());
  const auto percentile = [&](std::size_t p) { return times[(times.size() - 1) * p / 100]; };
  std::cout << std::left << std::setw(22) << name << std::right << std::fixed
            << std::setprecision(3) << std::setw(10) << percentile(50) << std::setw(10)
            << percentile(99) << std::setw(10) << times.back() << std::setprecision(1)
            << std::setw(18) << factor << "  " << remark << '\n';
}

std::string remarkOn(const arena::Summary& summary) {
  int late = 0;
  int standing = 0;
  for (const arena::PlayerSummary& player : summary.players) {
    late += player.lateAnswers;
    standing += player.standing ? 1 : 0;
  }
  return std::to_string(standing) + " stand, " + std::to_string(late) + " late answers";
}

}  // namespace

int main(int argc, char** argv) {
  const double seconds = std::max(3.0, argc > 1 ? std::atof(argv[1]) : 20);
  std::cout << processor() << "; " << std::thread::hardware_concurrency() << " processors; "
            << __VERSION__ << "; " << PITCH_BUILD_FLAGS << "; commit " << PITCH_COMMIT << '\n'
            << std::left << std::setw(22) << "" << std::right << std::setw(10) << "p50 ms"
            << std::setw(10) << "p99 ms" << std::setw(10) << "max ms" << std::setw(18)
            << "times real time" << '\n';
  print("bare simulation", bareSimulation(static_cast<int>(seconds / arena::kCycleSeconds)), "");
  arena::Summary summary;
  const Ticks trivial = trivialClients(seconds, summary);
  print("six idle clients", trivial, remarkOn(summary));
  if (std::filesystem::exists(PITCH_BIN_DIR "/pitchagent")) {
    const Ticks real = realPlayers(seconds, summary);
    print("six real players", real, remarkOn(summary));
  }
  return 0;
}
