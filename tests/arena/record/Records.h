#pragma once

/// Records of cycles for tests: made up, but of any shape that a match could make.

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "arena/record/CycleRecord.h"

namespace arena::test {

using Random = std::mt19937_64;

/// A match of CYCLES in which everything happens: players come, go and come back into other slots,
/// values jump to and beyond their limits, texts hold any bytes. Not recordable as they stand.
std::vector<CycleRecord> wildMatch(std::uint64_t seed, int cycles);

/// A match of CYCLES with a few players whose numbers change a little, recordable.
std::vector<CycleRecord> smallMatch(int cycles);

/// The bytes of a match file of RECORDS, with or without its end.
std::string fileOf(const std::vector<CycleRecord>& records, bool withEnd = true);

}  // namespace arena::test
