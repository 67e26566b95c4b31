/// The training ground's end of the link: frames put together from pieces, and their effectors.
///
/// Input: a byte for the form, four for the sizes of the pieces that the stream comes in, then the
/// stream: as it is, or, so that a mutation doesn't have to mend a length, lines to be framed.

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "arena/link/Effectors.h"
#include "arena/link/Frames.h"
#include "arena/link/Lists.h"
#include "fuzz/Input.h"

namespace {

using fuzz::demand;

std::vector<std::string> framesOf(arena::FrameReader& reader) {
  std::vector<std::string> frames;
  while (auto frame = reader.next()) frames.push_back(std::move(*frame));
  return frames;
}

bool isPlain(const std::string& text, std::size_t limit) {
  if (text.empty() || text.size() > limit) return false;
  for (const char c : text) {
    if (c <= ' ' || c > '~' || c == '(' || c == ')') return false;
  }
  return true;
}

void checkCommands(const arena::Commands& commands) {
  if (commands.say) demand(isPlain(*commands.say, arena::kMaxSayBytes), "a say is one plain word");
  if (commands.init) {
    demand(isPlain(commands.init->team, arena::kMaxTeamNameBytes), "a team's name is plain");
  }
  for (const auto& speed : commands.jointSpeeds) {
    demand(!speed || std::isfinite(*speed), "a joint's speed is finite");
  }
  if (commands.beam) {
    demand(std::isfinite(commands.beam->x) && std::isfinite(commands.beam->y) &&
               std::isfinite(commands.beam->angleDeg),
           "a beam is finite");
  }
}

void checkParts(const std::string& frame) {
  std::vector<std::string_view> parts;
  if (!arena::splitLevel(frame, parts)) return;
  for (const std::string_view part : parts) {
    demand(!part.empty(), "no part is empty");
    if (part.front() != '(') continue;
    demand(part.size() >= 2 && part.back() == ')', "a list ends in its parenthesis");
    std::vector<std::string_view> inner;
    demand(arena::splitLevel(arena::insideOf(part), inner), "what is in a list balances");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input in(data, size);
  const bool inLines = in.byte() % 2 != 0;
  std::array<std::size_t, 4> sizes{};
  for (std::size_t& piece : sizes) piece = 1U + in.byte();

  std::string stream;
  while (inLines && !in.empty()) {
    stream += arena::framed(in.line().substr(0, arena::kMaxPayloadBytes));
  }
  stream.append(in.rest());

  arena::FrameReader whole;
  whole.feed(stream);
  const std::vector<std::string> expected = framesOf(whole);

  arena::FrameReader pieced;
  arena::Commands commands;
  std::size_t seen = 0;
  std::size_t turn = 0;
  for (std::string_view rest = stream; !rest.empty();) {
    const std::string_view piece = rest.substr(0, sizes[turn++ % sizes.size()]);
    rest.remove_prefix(piece.size());
    pieced.feed(piece);
    for (const std::string& frame : framesOf(pieced)) {
      demand(seen < expected.size() && frame == expected[seen], "pieces change no frame");
      ++seen;
      checkParts(frame);
      const int before = commands.frames;
      const bool balanced = arena::readEffectors(frame, commands);
      demand(commands.frames == before + (balanced ? 1 : 0), "a broken frame isn't counted");
      checkCommands(commands);
    }
  }
  demand(seen == expected.size(), "pieces lose no frame");
  demand(pieced.tooLong() == whole.tooLong(), "pieces change no fault");
  return 0;
}
