// Seeded noise into the readers of the link: whatever comes, they end, and what they let through
// is fit for the world and for other players' messages.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <string>
#include <string_view>

#include "arena/link/Effectors.h"
#include "arena/link/Frames.h"

namespace arena {
namespace {

// Closing parentheses come often, or hardly a frame would balance.
constexpr std::array<std::string_view, 28> kTokens{
    ")",      ")",      ")",     "(he1 1)",    "(",      ")",        "(he1 ",
    "(lle3 ", "(beam ", "(say ", "(init ",     "(unum ", "(team",    "nan",
    "inf",    "-",      "1e308", "1e-5",       "0.5",    "-.28",     "(scene",
    " ",      "\n",     "Foo",   "(teamname ", ")(",     "\xff\x00", "))"};

void expectHarmless(const Commands& commands) {
  for (const auto& speed : commands.jointSpeeds) EXPECT_TRUE(!speed || std::isfinite(*speed));
  if (commands.beam) {
    EXPECT_TRUE(std::isfinite(commands.beam->x) && std::isfinite(commands.beam->y) &&
                std::isfinite(commands.beam->angleDeg));
  }
  const auto visible = [](char c) { return c > ' ' && c <= '~' && c != '(' && c != ')'; };
  if (commands.say) {
    EXPECT_FALSE(commands.say->empty());
    EXPECT_LE(commands.say->size(), kMaxSayBytes);
    EXPECT_TRUE(std::all_of(commands.say->begin(), commands.say->end(), visible));
  }
  if (commands.init) {
    EXPECT_FALSE(commands.init->team.empty());
    EXPECT_TRUE(std::all_of(commands.init->team.begin(), commands.init->team.end(), visible));
  }
}

TEST(Nonsense, TokensInAnyOrderYieldOnlyHarmlessCommands) {
  std::mt19937 random(1);
  int balanced = 0;
  int withSpeeds = 0;
  for (int i = 0; i < 50'000; ++i) {
    std::string frame;
    const auto count = random() % 8;
    for (unsigned k = 0; k < count; ++k) frame += kTokens[random() % kTokens.size()];
    Commands commands;
    if (!readEffectors(frame, commands)) continue;
    ++balanced;
    withSpeeds += commands.jointSpeeds[rowOfEffector("he1")] ? 1 : 0;
    expectHarmless(commands);
  }
  // The noise must be neither all broken nor all empty to say anything.
  EXPECT_GT(balanced, 2000);
  EXPECT_GT(withSpeeds, 200);
}

TEST(Nonsense, RandomBytesInRandomPiecesEndAsFramesOrAsTooLong) {
  std::mt19937 random(2);
  int tooLong = 0;
  for (int i = 0; i < 500; ++i) {
    FrameReader reader;
    std::size_t fed = 0;
    std::size_t taken = 0;
    while (fed < 40'000 && !reader.tooLong()) {
      // Small leading bytes, so that some lengths are within the limit.
      std::string piece(1 + random() % 100, '\0');
      for (char& c : piece) c = static_cast<char>(random() % 4 == 0 ? random() % 256 : 0);
      reader.feed(piece);
      fed += piece.size();
      while (const auto frame = reader.next()) {
        EXPECT_LE(frame->size(), kMaxPayloadBytes);
        taken += 4 + frame->size();
        Commands commands;
        if (readEffectors(*frame, commands)) expectHarmless(commands);
      }
      EXPECT_LE(taken, fed);
    }
    tooLong += reader.tooLong() ? 1 : 0;
  }
  EXPECT_GT(tooLong, 100);
}

}  // namespace
}  // namespace arena
