// What does TCP_NODELAY change on the link? A turn of two frames: the arena sends a perception
// message, the player answers with two frames written one after the other, the arena goes on when
// both are there. With the option at neither end, at one and at both; beside it, as a yardstick, a
// turn of one frame, which nothing holds back.
//
//   nodelay [turns, default 200]

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <iomanip>
#include <iostream>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "bench/Report.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kMessageBytes = 1500;  ///< of a perception message with sight
constexpr std::size_t kFrameBytes = 200;     ///< of the idle message
constexpr int kWarmUp = 20;

struct Case {
  const char* name;
  bool arenaNoDelay;
  bool playerNoDelay;
  int framesPerTurn;
};

class Socket {
 public:
  explicit Socket(int descriptor) : descriptor_(descriptor) {
    if (descriptor < 0) throw std::system_error(errno, std::generic_category(), "socket");
  }
  ~Socket() { ::close(descriptor_); }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;

  [[nodiscard]] int get() const { return descriptor_; }
  void setNoDelay(bool on) const {
    const int value = on ? 1 : 0;
    ::setsockopt(descriptor_, IPPROTO_TCP, TCP_NODELAY, &value, sizeof value);
  }
  void write(std::size_t bytes) const {
    const std::string data(bytes, 'x');
    for (std::size_t sent = 0; sent < bytes;) {
      const ssize_t n = ::send(descriptor_, data.data() + sent, bytes - sent, MSG_NOSIGNAL);
      if (n <= 0) throw std::system_error(errno, std::generic_category(), "send");
      sent += static_cast<std::size_t>(n);
    }
  }
  void read(std::size_t bytes) const {
    std::array<char, 4096> data{};
    while (bytes > 0) {
      const ssize_t n = ::recv(descriptor_, data.data(), std::min(bytes, data.size()), 0);
      if (n <= 0) throw std::system_error(errno, std::generic_category(), "recv");
      bytes -= static_cast<std::size_t>(n);
    }
  }

 private:
  int descriptor_;
};

/// [ms] the time of each turn, as the arena sees it.
std::vector<double> turnTimes(const Case& what, int turns) {
  const Socket listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  if (::bind(listener.get(), reinterpret_cast<sockaddr*>(&address), size) != 0 ||
      ::listen(listener.get(), 1) != 0 ||
      ::getsockname(listener.get(), reinterpret_cast<sockaddr*>(&address), &size) != 0) {
    throw std::system_error(errno, std::generic_category(), "listen");
  }
  const Socket player(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  if (::connect(player.get(), reinterpret_cast<sockaddr*>(&address), size) != 0) {
    throw std::system_error(errno, std::generic_category(), "connect");
  }
  const Socket arenaEnd(::accept(listener.get(), nullptr, nullptr));
  arenaEnd.setNoDelay(what.arenaNoDelay);
  player.setNoDelay(what.playerNoDelay);

  const int all = turns + kWarmUp;
  std::thread playing([&] {
    for (int turn = 0; turn < all; ++turn) {
      player.read(kMessageBytes);
      for (int i = 0; i < what.framesPerTurn; ++i) player.write(kFrameBytes);
    }
  });
  std::vector<double> times;
  for (int turn = 0; turn < all; ++turn) {
    const Clock::time_point begin = Clock::now();
    arenaEnd.write(kMessageBytes);
    arenaEnd.read(kFrameBytes * static_cast<std::size_t>(what.framesPerTurn));
    const std::chrono::duration<double, std::milli> took = Clock::now() - begin;
    if (turn >= kWarmUp) times.push_back(took.count());
  }
  playing.join();
  return times;
}

void report(int turns) {
  std::cout << bench::machineLine() << "; " << turns << " turns each\n"
            << std::left << std::setw(36) << "TCP_NODELAY" << std::right << std::setw(10)
            << "p50 ms" << std::setw(10) << "p99 ms" << std::setw(10) << "max ms" << '\n';
  for (const Case& what : {Case{"one frame a turn, neither end", false, false, 1},
                           Case{"two frames a turn, neither end", false, false, 2},
                           Case{"two frames a turn, arena only", true, false, 2},
                           Case{"two frames a turn, player only", false, true, 2},
                           Case{"two frames a turn, both ends", true, true, 2}}) {
    std::vector<double> times = turnTimes(what, turns);
    std::sort(times.begin(), times.end());
    const auto percentile = [&](std::size_t p) { return times[(times.size() - 1) * p / 100]; };
    std::cout << std::left << std::setw(36) << what.name << std::right << std::fixed
              << std::setprecision(3) << std::setw(10) << percentile(50) << std::setw(10)
              << percentile(99) << std::setw(10) << times.back() << '\n';
  }
}

}  // namespace

int main(int argc, char** argv) {
  try {
    report(std::max(1, argc > 1 ? std::atoi(argv[1]) : 200));
    return 0;
  } catch (const std::exception& e) {
    std::cerr << "bench_nodelay: " << e.what() << '\n';
    return 1;
  }
}
