// Does a bad session delay the cycles of others? Twelve stub players in real time, first alone,
// then beside one bad peer after the other. Of each match's cycles: from when one was due until its
// messages were out, and its work in processor time. The first second is left out, in which all
// players join and the bad peer begins.
//
//   bench_faults [seconds of real time for each match, default 10]

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iomanip>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "arena/main/KeptMemory.h"
#include "arena/main/MatchServer.h"
#include "bench/Report.h"
#include "bench/StubPlayers.h"
#include "tests/arena/link/WireClient.h"

namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using arena::test::WireClient;
using Clock = std::chrono::steady_clock;

const std::string kBody = "(scene rsg/agent/nao/nao.rsg)";

/// Goes on until OVER. What it does may end with an exception: it is thrown out, and tries again.
using BadPeer = std::function<void(std::uint16_t port, const std::atomic<bool>& over)>;

std::string flood() {
  std::string frames;
  while (frames.size() < 60'000) frames += "\0\0\0\x16(he1 1.25)(lae3 -0.5)"s;
  return frames;
}

void sendsGarbage(std::uint16_t port, const std::atomic<bool>&) {
  WireClient peer(port);
  peer.sendRaw("GET / HTTP/1.1\r\n\r\n");
  peer.isClosedWithin(100ms);
}

void leavesInMidFrame(std::uint16_t port, const std::atomic<bool>&) {
  WireClient peer(port);
  peer.sendRaw("\0\0\1\0(he1 1)"s);
  std::this_thread::sleep_for(5ms);
}

void saysNothing(std::uint16_t port, const std::atomic<bool>& over) {
  const WireClient peer(port);
  while (!over) std::this_thread::sleep_for(10ms);
}

void sendsNoNumbers(std::uint16_t port, const std::atomic<bool>& over) {
  WireClient peer(port);
  while (!over) {
    peer.say("(he1 nan)(lle3 inf)(lle4 1e999)(beam nan 0 0)");
    std::this_thread::sleep_for(1ms);
  }
}

/// Where twelve play already.
void wantsAThirteenthBody(std::uint16_t port, const std::atomic<bool>&) {
  WireClient peer(port);
  peer.say(kBody);
  peer.isClosedWithin(200ms);
}

void nests(std::uint16_t port, const std::atomic<bool>& over) {
  WireClient peer(port);
  const std::string deep = std::string(8000, '(') + std::string(8000, ')');
  while (!over) peer.say(deep);
}

void floods(std::uint16_t port, const std::atomic<bool>& over) {
  WireClient peer(port);
  const std::string frames = flood();
  while (!over) peer.sendRaw(frames);
}

void floodByFifty(std::uint16_t port, const std::atomic<bool>& over) {
  const std::string frames = flood();
  std::vector<std::unique_ptr<WireClient>> crowd;
  crowd.reserve(100);
  for (int i = 0; i < 50; ++i) crowd.push_back(std::make_unique<WireClient>(port));
  while (!over) {
    for (const auto& one : crowd) one->offer(frames);
    std::this_thread::sleep_for(5ms);
  }
}

void neverReads(std::uint16_t port, const std::atomic<bool>& over) {
  WireClient peer(port, /*noDelay=*/true, /*receiveBytes=*/4096);
  peer.say(kBody);
  while (!over) {
    peer.say("(he1 1)");
    std::this_thread::sleep_for(20ms);
  }
}

void hundredAtOnce(std::uint16_t port, const std::atomic<bool>&) {
  std::vector<std::unique_ptr<WireClient>> crowd;
  crowd.reserve(100);
  for (int i = 0; i < 100; ++i) crowd.push_back(std::make_unique<WireClient>(port));
  std::this_thread::sleep_for(200ms);
  for (const auto& one : crowd) one->reset();
}

/// With a body each time, if there is one to be had: the physics model changes twice.
void comesAndGoes(std::uint16_t port, const std::atomic<bool>&) {
  WireClient peer(port);
  peer.say(kBody);
  peer.isClosedWithin(200ms);
}

constexpr long kWarmUp = 50;  ///< [cycles]

double milliseconds(std::chrono::nanoseconds span) {
  return std::chrono::duration<double, std::milli>(span).count();
}

struct Row {
  std::vector<double> sentMs{};  ///< since it was due
  std::vector<double> workMs{};  ///< of which it worked
  arena::PaceReport pace{};
  int late = 0;  ///< answers of the good players
};

Row measure(int players, double seconds, const BadPeer& misbehave) {
  arena::ServerSettings settings;
  settings.link.port = 0;
  settings.pace.playersToStart = static_cast<std::size_t>(players);
  settings.match.referee.waitSeconds = 1;
  settings.match.referee.halfSeconds = std::max(0.1, (seconds - 3) / 2);
  arena::MatchServer server(settings);
  const bench::StubPlayers good(server.port(), players);

  std::atomic<bool> started{false};
  std::atomic<bool> over{false};
  std::thread bad([&] {
    while (!started && !over) std::this_thread::sleep_for(10ms);
    while (misbehave && !over) {
      try {
        misbehave(server.port(), over);
      } catch (const std::runtime_error&) {
        // Thrown out.
      }
    }
  });
  Row row;
  std::chrono::nanoseconds workBefore{};
  const auto say = [&](const std::string& line) {
    started = true;
    // Said before the sessions are closed: nobody must knock at a server that doesn't open.
    if (line.ends_with(" s  the match is over")) over = true;
  };
  const auto onCycle = [&](const arena::CycleRecord&) {
    const std::chrono::nanoseconds work = server.pace().work.total();
    if (server.pace().cycles > kWarmUp) {
      row.sentMs.push_back(milliseconds(server.pace().last));
      row.workMs.push_back(milliseconds(work - workBefore));
    }
    workBefore = work;
  };
  const arena::Summary summary = server.run([] { return false; }, say, onCycle);
  over = true;
  bad.join();
  row.pace = server.pace();
  for (const arena::PlayerSummary& player : summary.players) {
    if (player.shirt) row.late += player.lateAnswers;
  }
  return row;
}

/// "p50 p99 max"
void printSpread(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  for (const std::size_t percent : {50U, 99U, 100U}) {
    std::cout << std::setw(8) << times[(times.size() - 1) * percent / 100];
  }
}

void print(const std::string& name, const Row& row) {
  std::cout << std::left << std::setw(38) << name << std::right << std::fixed
            << std::setprecision(2);
  printSpread(row.sentMs);
  std::cout << "  ";
  printSpread(row.workMs);
  std::cout << std::setw(6) << row.pace.late << std::setw(5) << row.pace.lateByOwnFault
            << std::setw(14) << row.late << std::endl;
}

int run(double seconds) {
  std::cout << bench::machineLine() << '\n'
            << std::left << std::setw(38) << "twelve stub players in real time" << std::right
            << std::setw(24) << "sent [ms] p50  p99  max" << std::setw(26)
            << "work [ms] p50  p99  max" << std::setw(6) << "late" << std::setw(5) << "own"
            << std::setw(14) << "late answers" << '\n';
  print("alone", measure(12, seconds, {}));
  print("beside one that sends garbage", measure(12, seconds, sendsGarbage));
  print("... that leaves in mid-frame", measure(12, seconds, leavesInMidFrame));
  print("... that says nothing", measure(12, seconds, saysNothing));
  print("... that sends no numbers", measure(12, seconds, sendsNoNumbers));
  print("... that wants a thirteenth body", measure(12, seconds, wantsAThirteenthBody));
  print("... that nests 8000 deep", measure(12, seconds, nests));
  print("... that floods", measure(12, seconds, floods));
  print("... that floods, fifty times", measure(12, seconds, floodByFifty));
  print("... a hundred at once, again and again", measure(12, seconds, hundredAtOnce));
  print("eleven alone", measure(11, seconds, {}));
  print("eleven beside one that never reads", measure(11, seconds, neverReads));
  print("eleven beside one that comes and goes", measure(11, seconds, comesAndGoes));
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    arena::keepFreedMemory();
    return run(std::max(3.5, argc > 1 ? std::atof(argv[1]) : 10));
  } catch (const std::exception& error) {
    std::cerr << "faults: " << error.what() << '\n';
    return 1;
  }
}
