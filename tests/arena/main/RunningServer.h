#pragma once

/// A match server in a thread of its own, and players that follow a script against it over
/// loopback.

#include <atomic>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "arena/main/MatchServer.h"
#include "tests/arena/link/WireClient.h"

namespace arena::test {

/// Plays on any free port; ends when the match does or when stopped.
class RunningServer {
 public:
  explicit RunningServer(ServerSettings settings) : server_(anyPort(std::move(settings))) {
    thread_ = std::thread([this] {
      summary_ = server_.run([this] { return stop_.load(); },
                             [this](const std::string& line) { lines_.push_back(line); });
    });
  }
  ~RunningServer() { finish(/*stop=*/true); }
  RunningServer(const RunningServer&) = delete;
  RunningServer& operator=(const RunningServer&) = delete;

  [[nodiscard]] std::uint16_t port() const { return server_.port(); }
  /// Waits for the end of the match, or brings it about.
  Summary finish(bool stop = false) {
    if (stop) stop_ = true;
    if (thread_.joinable()) thread_.join();
    return summary_;
  }
  /// How the pace was kept; only after finish().
  [[nodiscard]] const PaceReport& pace() const { return server_.pace(); }
  /// What broke it off; only after finish().
  [[nodiscard]] const std::optional<std::string>& fault() const { return server_.fault(); }
  /// What was said; only after finish().
  [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }

 private:
  static ServerSettings anyPort(ServerSettings settings) {
    settings.link.port = 0;
    return settings;
  }

  MatchServer server_;
  std::atomic<bool> stop_{false};
  Summary summary_{};
  std::vector<std::string> lines_{};
  std::thread thread_{};
};

/// What a player answers to its message number N, the first being 1.
using Script = std::function<std::string(int n)>;

/// Asks for a body and a shirt with its first frame, then answers every message by SCRIPT until the
/// other end closes. All messages that it got.
inline std::vector<std::string> playScript(WireClient& client, int number, const std::string& team,
                                           const Script& script) {
  client.say("(scene rsg/agent/nao/nao.rsg)(init (unum " + std::to_string(number) + ")(teamname " +
             team + "))");
  std::vector<std::string> messages;
  while (auto message = client.hear()) {
    messages.push_back(std::move(*message));
    try {
      client.say(script(static_cast<int>(messages.size())));
    } catch (const std::runtime_error&) {
      break;  // the match ended while the answer was made
    }
  }
  return messages;
}

/// The row of NAME; fails loudly by an empty one.
inline PlayerSummary rowOf(const Summary& summary, const std::string& name) {
  for (const PlayerSummary& player : summary.players) {
    if (player.name == name) return player;
  }
  return {};
}

}  // namespace arena::test
