#include "tests/support/PlayerSession.h"

#include <sched.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "tests/support/OwnNetwork.h"

namespace {

std::vector<std::string> WithHost(std::vector<std::string> arguments) {
  const NetworkPlace& place = EnterOwnNetwork();
  if (!place.isolated) arguments.insert(arguments.begin(), "--host=" + place.address);
  return arguments;
}

}  // namespace

std::string MessageOfCycle(int cycle, std::string_view elements) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "(time (now %d.%02d))", cycle / 50, cycle % 50 * 2);
  return std::string(text.data()).append(elements);
}

PlayerSession::PlayerSession(const std::string& program, std::vector<std::string> arguments,
                             const std::filesystem::path& directory, std::string_view firstFrame)
    : listener(EnterOwnNetwork().address),
      player(program, WithHost(std::move(arguments)), directory),
      link(listener.Accept()) {
  if (!firstFrame.empty() && link.ReadFrame() != firstFrame) {
    throw std::runtime_error("the player began with another frame");
  }
}

std::vector<std::string> PlayerSession::Turn(std::string_view message) {
  link.SendFrame(message);
  return Frames();
}

std::vector<std::string> PlayerSession::TurnOfBytes(std::string_view bytes) {
  link.SendBytes(bytes);
  return Frames();
}

std::vector<std::string> PlayerSession::Turns(int first, int last, std::string_view elements) {
  std::vector<std::string> frames;
  for (int cycle = first; cycle <= last; ++cycle) {
    std::vector<std::string> turn = Turn(MessageOfCycle(cycle, elements));
    frames.insert(frames.end(), std::make_move_iterator(turn.begin()),
                  std::make_move_iterator(turn.end()));
  }
  return frames;
}

void PlayerSession::AwaitWaiting() {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  // Nothing left to read, then asleep: that sleep can only be for the next message. Asleep, then
  // nothing under way: all that it sent has come. Its output is read too, so that it can't be
  // asleep over a full pipe.
  while (player.Output(), !link.IsDrained() || player.State() != 'S' || !link.IsDrained()) {
    if (std::chrono::steady_clock::now() > deadline) {
      throw std::runtime_error("the player doesn't come to wait for a message");
    }
    sched_yield();
  }
}

std::vector<std::string> PlayerSession::Frames() {
  AwaitWaiting();
  return link.FramesSoFar();
}
