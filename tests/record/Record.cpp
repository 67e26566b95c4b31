#include "tests/record/Record.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <sstream>

namespace {

constexpr std::size_t kEvery = 250;
constexpr int kShownDifferences = 3;

constexpr std::string_view kZeros =
    "(he2 0)(rae1 0)(rae2 0)(rae3 0)(rae4 0)(lae1 0)(lae2 0)(lae3 0)(lae4 0)"
    "(rle1 0)(rle2 0)(rle3 0)(rle4 0)(rle5 0)(rle6 0)"
    "(lle1 0)(lle2 0)(lle3 0)(lle4 0)(lle5 0)(lle6 0)";

/// The end of a text counts too: "a" and "bc" are not "ab" and "c".
[[nodiscard]] std::uint64_t HashedText(std::uint64_t hash, std::string_view text) {
  return Hashed(Hashed(hash, text), std::string_view("\0", 1));
}

[[nodiscard]] std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

}  // namespace

std::uint64_t Hashed(std::uint64_t hash, std::string_view bytes) {
  for (const char byte : bytes) {
    hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
  }
  return hash;
}

std::string InFull(const Turn& turn) {
  std::string text;
  for (const std::string& frame : turn.frames) {
    text += frame.starts_with(kZeros) ? "  < " + frame.substr(kZeros.size()) : "  << " + frame;
    text += "\n";
  }
  for (const std::string& line : LinesOf(turn.output)) text += "  | " + line + "\n";
  return text;
}

std::string RecordOf(const std::vector<Turn>& turns, std::span<const Excerpt> excerpts) {
  std::string text = "up to     messages         frames           trace lines\n";
  std::array<std::uint64_t, 3> hashes{kHashBasis, kHashBasis, kHashBasis};
  for (std::size_t i = 0; i < turns.size(); ++i) {
    hashes[0] = HashedText(hashes[0], turns[i].message);
    for (const std::string& frame : turns[i].frames) hashes[1] = HashedText(hashes[1], frame);
    // A frame that moves to the next turn is a change as well.
    hashes[1] = HashedText(hashes[1], {});
    hashes[2] = HashedText(hashes[2], turns[i].output);
    if (i % kEvery != 0 && i + 1 != turns.size()) continue;
    std::array<char, 96> line{};
    std::snprintf(line.data(), line.size(), "%-10zu%016llx %016llx %016llx\n", i,
                  static_cast<unsigned long long>(hashes[0]),
                  static_cast<unsigned long long>(hashes[1]),
                  static_cast<unsigned long long>(hashes[2]));
    text += line.data();
  }
  for (const Excerpt& excerpt : excerpts) {
    text.append("\n").append(excerpt.what).append("\n");
    for (std::size_t i = excerpt.first; i <= excerpt.last;) {
      const std::string answer = InFull(turns.at(i));
      const std::size_t first = i;
      while (i <= excerpt.last && InFull(turns.at(i)) == answer) ++i;
      text += std::to_string(first);
      if (i - first > 1) text += " to " + std::to_string(i - 1);
      text += "\n" + answer;
    }
  }
  return text;
}

std::string Differences(const std::string& kept, const std::string& now) {
  const std::vector<std::string> before = LinesOf(kept);
  const std::vector<std::string> after = LinesOf(now);
  std::string text;
  int shown = 0;
  for (std::size_t i = 0; i < std::max(before.size(), after.size()); ++i) {
    const std::string was = i < before.size() ? before[i] : "(nothing)";
    const std::string is = i < after.size() ? after[i] : "(nothing)";
    if (was == is) continue;
    const std::string previous = i > 0 && i <= before.size() ? before[i - 1] : "the beginning";
    text += "behind line " + std::to_string(i) + ": " + previous + "\n  kept: " + was +
            "\n  now:  " + is + "\n";
    if (++shown == kShownDifferences) break;
  }
  return text;
}
