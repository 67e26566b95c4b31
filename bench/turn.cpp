// How long is a player's turn, from the last byte of the server's message to the player's last
// frame? Beside it, as a yardstick, a program that reads the same messages from the same kind of
// socket and answers at once with frames of the same sizes; the two play by turns in the same run.
// The difference is what the player itself takes. And how much memory does the player need at most,
// how many allocations a turn?
//
//   turn [cycles, default 5000] [working directory with motion scripts, default an empty one]
//        [--apart] [--json FILE]
//
// All on one processor; with --apart the server has one of its own.

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "bench/Report.h"
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
/// So many turns of the player, then as many of the yardstick.
constexpr int kBlock = 60;

/// The sizes of the frames that answer one message.
using Answer = std::vector<std::size_t>;

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

/// The processors of the server and of those that answer it. Left to the scheduler, player and
/// yardstick may land beside the server or across from it, each for the whole run, and waking
/// another processor costs as much as a turn: their ratio would tell where they were put.
class Places {
 public:
  /// On one processor, or APART on two, where there are two.
  explicit Places(bool apart) {
    cpu_set_t allowed;
    CPU_ZERO(&allowed);
    if (sched_getaffinity(0, sizeof(allowed), &allowed) != 0) {
      throw std::system_error(errno, std::generic_category(), "can't tell the processors");
    }
    for (std::size_t i = 0; i < CPU_SETSIZE; ++i) {
      if (CPU_ISSET(i, &allowed)) processors_.push_back(i);
    }
    if (!apart) processors_.resize(std::min(processors_.size(), std::size_t{1}));
  }

  void serve() const { moveTo(processors_.front()); }
  /// For whom this process starts: children inherit their place.
  void answer() const { moveTo(processors_.back()); }

 private:
  static void moveTo(std::size_t processor) {
    cpu_set_t only;
    CPU_ZERO(&only);
    CPU_SET(processor, &only);
    if (sched_setaffinity(0, sizeof(only), &only) != 0) {
      throw std::system_error(errno, std::generic_category(), "can't choose a processor");
    }
  }

  std::vector<std::size_t> processors_{};
};

/// Every run under the same calendar time, so that all of them are alike: the player's chance is
/// seeded with it. But with all that the processor can do, as in play.
PlayerSession startPlayer(const std::string& player, const std::filesystem::path& directory) {
  const FixedTime fixed(1'234'567'890);
  unsetenv("GLIBC_TUNABLES");
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

/// [us] or a number of something, for the turns behind the warm-up, those with vision apart.
struct Values {
  std::vector<double> plain{};
  std::vector<double> vision{};

  void add(int cycle, double value) {
    if (cycle <= kWarmUp) return;
    (cycle % kVisionEvery == 0 ? vision : plain).push_back(value);
  }
};

/// The turns FIRST to LAST over one link. BETWEEN is called before each turn and not timed.
void timeTurns(Values& times, ServerLink& link, const std::vector<Answer>& answers, int first,
               int last, const std::function<void()>& between) {
  for (int cycle = first; cycle <= last; ++cycle) {
    const std::string message = messageOf(cycle);
    const std::size_t frames = answers[static_cast<std::size_t>(cycle - 1)].size();
    between();
    const Clock::time_point start = Clock::now();
    link.SendFrame(message);
    for (std::size_t i = 0; i < frames; ++i) link.ReadFrame();
    times.add(cycle, std::chrono::duration<double, std::micro>(Clock::now() - start).count());
  }
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

/// The yardstick as a child process, and the server's side of its link.
class Echo {
 public:
  Echo(const Listener& listener, const std::vector<Answer>& answers)
      : process_(start(answers)), link(listener.Accept()) {}
  ~Echo() {
    link.Close();
    waitpid(process_, nullptr, 0);
  }
  Echo(const Echo&) = delete;
  Echo& operator=(const Echo&) = delete;

 private:
  static pid_t start(const std::vector<Answer>& answers) {
    const std::string address = EnterOwnNetwork().address;
    const pid_t process = fork();
    if (process == 0) echo(address, answers);
    return process;
  }
  pid_t process_;

 public:
  ServerLink link;
};

struct Times {
  Values player{};
  Values echo{};
  std::size_t memory = 0;  ///< [KiB] of the player at its most
};

/// By turns, a block of cycles each.
Times timeBoth(const std::string& player, const std::vector<Answer>& answers,
               const std::filesystem::path& directory, const Places& places) {
  places.answer();
  PlayerSession session = startPlayer(player, directory);
  session.link.ReadFrame();
  Echo yardstick(session.listener, answers);
  places.serve();
  Times times;
  const int cycles = static_cast<int>(answers.size());
  for (int first = 1; first <= cycles; first += kBlock) {
    const int last = std::min(cycles, first + kBlock - 1);
    timeTurns(times.player, session.link, answers, first, last, [&session] {
      // The trace lines are read, or the player would wait over a full pipe.
      session.player.Output();
    });
    timeTurns(times.echo, yardstick.link, answers, first, last, [] {});
  }
  times.memory = session.player.PeakMemory();
  return times;
}

/// The number of allocations in each turn, counted from outside, by the library beside this
/// program.
Values countAllocations(const std::string& player, int cycles,
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
  Values allocations;
  std::uint64_t before = sinceStart();
  for (int cycle = 1; cycle <= cycles; ++cycle) {
    session.Turn(messageOf(cycle));
    const std::uint64_t now = sinceStart();
    allocations.add(cycle, static_cast<double>(now - before));
    before = now;
  }
  return allocations;
}

void addComparison(bench::Report& report, const std::string& what, const Values& player,
                   const Values& echo, std::vector<double> Values::*part, double wanted) {
  report.add(bench::figureOf("player, " + what, "us", player.*part));
  report.add(bench::figureOf("echo, " + what, "us", echo.*part));
  report.addRatio("player, " + what, "echo, " + what, bench::atMost(wanted));
}

int run(int argc, char** argv) {
  const std::string file = bench::takeJsonFile(argc, argv);
  const bool apart = argc > 1 && std::string_view(argv[argc - 1]) == "--apart";
  if (apart) --argc;
  const int cycles = std::max(kWarmUp + kVisionEvery, argc > 1 ? std::atoi(argv[1]) : 5000);
  const TempDir empty;
  const std::filesystem::path directory =
      argc > 2 ? std::filesystem::absolute(argv[2]) : empty.path();
  const std::string player = PITCH_BIN_DIR "/pitchagent";

  const std::vector<Answer> answers = learnAnswers(player, cycles, directory);
  const Times times = timeBoth(player, answers, directory, Places(apart));
  const Values allocations = countAllocations(player, std::min(cycles, 1000), directory);

  bench::Report report(apart ? "turn_apart" : argc > 2 ? "turn_scripts" : "turn");
  addComparison(report, "without sight", times.player, times.echo, &Values::plain, 1.5);
  addComparison(report, "with full sight", times.player, times.echo, &Values::vision, 3);
  report.add(bench::figureOf("allocations, without sight", "a turn", allocations.plain));
  report.add(bench::figureOf("allocations, with full sight", "a turn", allocations.vision));
  report.add({"memory at its most", "MiB", static_cast<double>(times.memory) / 1024, {}, {}, {}});
  std::printf("messages of %zu and %zu bytes\n%s", messageOf(kWarmUp + 1).size(),
              messageOf(kWarmUp + 2).size(), report.asTable().c_str());
  if (!file.empty()) report.save(file);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "turn: %s\n", error.what());
    return 1;
  }
}
