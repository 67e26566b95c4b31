// How many times faster than real time does a match run at speed 0, link and all, and where does
// the time of a cycle go? Six and twelve stub players in this process, then real ones. Beside them,
// as a yardstick, the bare steps of the physics engine with as many robots in the same run.
//
//   arena [seconds of simulated time, default 20] [--json FILE]

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

#include "arena/main/KeptMemory.h"
#include "arena/main/MatchServer.h"
#include "arena/world/Scene.h"
#include "arena/world/Servo.h"
#include "bench/Report.h"
#include "bench/StubPlayers.h"

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

/// A loopback address that nothing else listens on; players always call port 3100.
constexpr const char* kPlayersAddress = "127.0.31.7";
constexpr std::uint16_t kPlayersPort = 3100;

/// A match with COUNT players that lasts about SECONDS.
arena::ServerSettings fullSpeed(int count, double seconds) {
  arena::ServerSettings settings;
  settings.pace.speed = 0;
  settings.pace.playersToStart = static_cast<std::size_t>(count);
  settings.match.referee.waitSeconds = 1;
  settings.match.referee.gameOverSeconds = 0.5;
  settings.match.referee.halfSeconds = std::max(0.0, (seconds - 2.5) / 2);
  return settings;
}

/// [ms] of processor time for a cycle of COUNT standing robots.
struct Yardstick {
  double engine = 0;  ///< the engine's steps alone
  double world = 0;   ///< with what a World does about them
};

/// By turns, so that whatever else the machine does falls on both.
Yardstick measureBare(int count, int cycles) {
  constexpr int kTurn = 25;
  const arena::Scene scene = arena::makeScene(count, {});
  const arena::DataPtr data = arena::makeData(scene);
  std::vector<arena::Servos> servos(static_cast<std::size_t>(count));
  std::vector<arena::Servos*> all;
  all.reserve(servos.size());
  for (arena::Servos& one : servos) all.push_back(&one);
  const int steps = static_cast<int>(std::lround(arena::kCycleSeconds / 0.004));
  arena::World world;
  for (int slot = 0; slot < count; ++slot) world.addRobot(slot, {slot - 6.0, -4, -90});
  arena::CycleTimes::Span engine{};
  arena::CycleTimes::Span ours{};
  arena::CycleTimes::Span whole{};
  arena::LapWatch watch;
  for (int i = 0; i < cycles; ++i) {
    if (i / kTurn % 2 == 0) {
      for (int step = 0; step < steps; ++step) {
        mj_step1(scene.model.get(), data.get());
        watch.lap(engine);
        arena::driveJoints(scene, *data, all);
        watch.lap(ours);
        mj_step2(scene.model.get(), data.get());
        watch.lap(engine);
      }
    } else {
      world.advance();
      watch.lap(whole);
    }
  }
  return {2 * Milliseconds(engine).count() / cycles, 2 * Milliseconds(whole).count() / cycles};
}

struct Outcome {
  std::vector<double> cycleMs{};  ///< from one cycle's begin to the next
  arena::PaceReport pace{};
  arena::Summary summary{};
};

/// The server asks whether to stop once in each cycle, which tells when they begin.
Outcome play(arena::MatchServer& server) {
  Outcome outcome;
  std::vector<Clock::time_point> asked;
  outcome.summary = server.run(
      [&] {
        asked.push_back(Clock::now());
        return false;
      },
      [](const std::string&) {});
  outcome.pace = server.pace();
  // Until the players were there the questions were others.
  const auto cycles = std::min(asked.size(), static_cast<std::size_t>(outcome.pace.cycles));
  for (std::size_t i = asked.size() - cycles + 1; i < asked.size(); ++i) {
    outcome.cycleMs.push_back(Milliseconds(asked[i] - asked[i - 1]).count());
  }
  std::sort(outcome.cycleMs.begin(), outcome.cycleMs.end());
  return outcome;
}

Outcome stubs(int count, double seconds) {
  arena::ServerSettings settings = fullSpeed(count, seconds);
  settings.link.port = 0;
  arena::MatchServer server(settings);
  const bench::StubPlayers players(server.port(), count);
  return play(server);
}

/// Real players, all of one team.
class RealPlayers {
 public:
  explicit RealPlayers(int count) {
    const std::string host = std::string("--host=") + kPlayersAddress;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    for (int player = 0; player < count; ++player) {
      std::string program = PITCH_BIN_DIR "/pitchagent";
      std::string address = host;
      std::string shirt = "--unum=" + std::to_string(player % 6 + 1);
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

Outcome realPlayers(int count, double seconds) {
  arena::ServerSettings settings = fullSpeed(count, seconds);
  settings.link.listen = kPlayersAddress;
  settings.link.port = kPlayersPort;
  arena::MatchServer server(settings);
  const RealPlayers players(count);
  return play(server);
}

/// Prints one case and puts its figures into REPORT.
void tellCase(bench::Report& report, const std::string& name, const Outcome& outcome,
              const Yardstick& bare) {
  if (outcome.cycleMs.empty()) return;
  const auto cycles = static_cast<double>(outcome.pace.cycles);
  const auto percentile = [&](std::size_t p) {
    return outcome.cycleMs[(outcome.cycleMs.size() - 1) * p / 100];
  };
  int late = 0;
  int standing = 0;
  for (const arena::PlayerSummary& player : outcome.summary.players) {
    late += player.lateAnswers;
    standing += player.standing ? 1 : 0;
  }
  std::cout << std::fixed << name << ": " << std::setprecision(2)
            << cycles * arena::kCycleSeconds / outcome.pace.seconds
            << " times real time; cycle p50 " << percentile(50) << " ms, p99 " << percentile(99)
            << ", max " << outcome.cycleMs.back() << "; " << standing << " stand, " << late
            << " late answers\n";

  const arena::CycleTimes& work = outcome.pace.work;
  const auto row = [&](const char* part, arena::CycleTimes::Span span) {
    const double ms = Milliseconds(span).count() / cycles;
    std::cout << "  " << std::left << std::setw(36) << part << std::right << std::setw(8)
              << std::setprecision(3) << ms << " ms" << std::setw(8) << std::setprecision(1)
              << 100 * ms / bare.engine << " %\n";
    report.add({name + ": " + part, "ms", ms, {}, {}, {}});
  };
  using Span = arena::CycleTimes::Span;
  const auto total = [&](double ms) {
    return std::chrono::duration_cast<Span>(Milliseconds(ms * cycles));
  };
  row("the engine's steps, standing robots", total(bare.engine));
  row("servos and sensors about them", total(bare.world - bare.engine));
  row("world in the match, both together", work.physics);
  row("commands", work.commands);
  row("referee", work.referee);
  row("senses", work.senses);
  row("link", work.link);
  row("record and events", work.record);
  row("the arena's own", total(bare.world - bare.engine) + work.total() - work.physics);
}

int run(double seconds, const std::string& file) {
  bench::Report report("arena");
  std::cout << bench::machineLine() << "\nprocessor time of the match's thread per cycle, and "
            << "as a share of the engine's steps:\n";
  const bool withReal = std::filesystem::exists(PITCH_BIN_DIR "/pitchagent");
  for (const int count : {6, 12}) {
    const auto cycles = static_cast<int>(seconds / arena::kCycleSeconds);
    const Yardstick bare = measureBare(count, cycles);
    const std::string number = count == 6 ? "six" : "twelve";
    tellCase(report, number + " stub players", stubs(count, seconds), bare);
    if (withReal) {
      tellCase(report, number + " real players", realPlayers(count, seconds), bare);
    }
  }
  if (!file.empty()) report.save(file);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    arena::keepFreedMemory();
    const std::string file = bench::takeJsonFile(argc, argv);
    return run(std::max(3.0, argc > 1 ? std::atof(argv[1]) : 20), file);
  } catch (const std::exception& error) {
    std::cerr << "arena: " << error.what() << '\n';
    return 1;
  }
}
