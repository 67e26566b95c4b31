#include "tests/record/Session.h"

#include <csignal>
#include <optional>
#include <stdexcept>
#include <utility>

#include "tests/record/Match.h"
#include "tests/record/MotionFiles.h"
#include "tests/support/FixedTime.h"
#include "tests/support/OwnNetwork.h"
#include "tests/support/PlayerSession.h"
#include "tests/support/TempDir.h"

namespace {

[[nodiscard]] PlayerSession Start(int number, bool left, long long clock,
                                  const TempDir& directory) {
  const FixedTime fixed(clock);
  // The server's word counts, so a team on the right may be started with other numbers.
  const int started = left ? number : number % 6 + 1;
  return {PITCH_BIN_DIR "/pitchagent", {"--unum=" + std::to_string(started)}, directory.path()};
}

/// Where the server is depends on what the machine permits the test.
[[nodiscard]] std::string WithoutAddress(std::string output) {
  const std::string address = EnterOwnNetwork().address;
  const std::size_t at = output.find(address);
  return at == std::string::npos ? output : output.replace(at, address.size(), "(address)");
}

}  // namespace

std::vector<Turn> PlaySession(int number, bool left, long long clock) {
  const TempDir directory;
  for (const MotionFile& file : MotionFiles(left)) directory.write(file.name, file.content);
  PlayerSession session = Start(number, left, clock, directory);
  std::size_t written = 0;
  const auto newOutput = [&] {
    const std::string& all = session.player.Output();
    const std::size_t from = std::exchange(written, all.size());
    return all.substr(from);
  };

  std::vector<Turn> turns;
  const std::string request = session.link.ReadFrame();
  session.AwaitWaiting();
  turns.push_back({{}, {request}, WithoutAddress(newOutput())});
  for (Match match(number, left); !match.IsOver();) {
    std::string message = match.NextMessage();
    std::vector<std::string> frames = session.Turn(message);
    turns.push_back({std::move(message), std::move(frames), newOutput()});
  }

  session.player.Signal(SIGINT);
  session.link.SendFrame("(time (now 0.00))");
  const std::optional<int> status = session.player.WaitForEnd();
  if (status != 0) throw std::runtime_error("the player ended badly: " + session.player.Errors());
  if (!session.player.Errors().empty()) throw std::runtime_error(session.player.Errors());
  return turns;
}
