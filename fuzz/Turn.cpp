/// The player's whole turn, from the text of messages to the frames that it sends.
///
/// Input: a byte for the shirt number ('0' to '5' are 1 to 6), a byte for the cycle at which the
/// messages begin, then lines:
///   *C       the last message again, as often as C's number says; its time goes on
///   !TEXT    a message, as it is
///   TEXT     a message with its time in front: 0.02 s after the one before

#include <unistd.h>

#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "fuzz/Input.h"
#include "fuzz/StagedPlayer.h"

namespace {

constexpr std::size_t kMostTurns = 150;
/// What fits in a frame, less the parentheses that the player puts round it.
constexpr std::size_t kLongestMessage = 16000;

/// The player does things for the first time at 10, 20, 30, 50, 100 and after 500.
constexpr std::array<int, 8> kFirstCycles{0, 8, 18, 28, 48, 98, 150, 598};

/// Up to the first message that no player would come back from.
std::vector<std::string> messagesIn(fuzz::Input& in, int cycle) {
  std::vector<std::string> messages;
  std::string_view last;
  while (!in.empty() && messages.size() < kMostTurns) {
    const std::string_view line = in.line();
    std::size_t times = 1;
    if (line.starts_with('*')) {
      times = line.size() > 1 ? static_cast<unsigned char>(line[1]) : 1U;
    } else {
      if (line.size() > kLongestMessage || fuzz::holdsHugeNumber(line)) break;
      last = line;
    }
    for (; times > 0 && messages.size() < kMostTurns; --times) {
      if (last.starts_with('!')) {
        messages.emplace_back(last.substr(1));
        continue;
      }
      std::array<char, 40> time{};
      ++cycle;
      std::snprintf(time.data(), time.size(), "(time (now %d.%02d))", cycle / 50, cycle % 50 * 2);
      messages.push_back(std::string(time.data()).append(last));
    }
  }
  return messages;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  fuzz::silencePlayer();
  // Where the motion scripts are.
  fuzz::demand(chdir(PITCH_SOURCE_DIR "/scripts") == 0, "the folder of the scripts is there");
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input in(data, size);
  const int shirt = 1 + in.byte() % 6;
  const int cycle = kFirstCycles[in.byte() % kFirstCycles.size()];
  const std::vector<std::string> messages = messagesIn(in, cycle);
  const fuzz::StagedPlayer player(shirt, cycle);
  fuzz::StagedPlayer::play(messages);
  fuzz::StagedPlayer::sent();
  return 0;
}
