#pragma once

/// The record of a session as text: small enough to be kept, telling enough to find what changed.
/// After every 250 turns a line with the running hashes of messages, frames and trace lines so far,
/// then chosen turns in full, like ones in
/// a row told once. The test compares it with the one that is kept.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tests/record/Session.h"

/// Some turns that are kept in full.
struct Excerpt {
  std::size_t first = 0;  ///< the number of the message; the start is 0
  std::size_t last = 0;
  std::string_view what;
};

/// FNV-1a with 64 bits, continued from HASH.
[[nodiscard]] std::uint64_t Hashed(std::uint64_t hash, std::string_view bytes);
inline constexpr std::uint64_t kHashBasis = 0xCBF29CE484222325U;

/// What the player put on the link and on standard output in one turn, a line each; the standing
/// zeros in front of every frame are left out where they are as always.
[[nodiscard]] std::string InFull(const Turn& turn);
[[nodiscard]] std::string RecordOf(const std::vector<Turn>& turns,
                                   std::span<const Excerpt> excerpts);
/// The first lines that differ, with their places; empty when there are none.
[[nodiscard]] std::string Differences(const std::string& kept, const std::string& now);
