#pragma once

/// Makes a record one that a file can hold without loss. The match calls it for every record before
/// anyone reads it, so that the statistics of a live match and of its replay see the same numbers.

#include <cstddef>
#include <string>

#include "arena/record/CycleRecord.h"

namespace arena {

/// RECORD rounded to the steps of Steps.h, cut to the limits of CycleRecord.h, its players in order
/// of slot, control characters in its texts replaced. Of two players in a slot, or of a session,
/// the first stays. A recordable record stays as it is.
CycleRecord recordable(CycleRecord record);

/// Whether TEXT may stand in a record: short enough, and without control characters, which a
/// terminal would obey.
bool isRecordable(const std::string& text);

/// Highest counts in a record; more are cut.
inline constexpr int kMostCounted = 1'000'000;

}  // namespace arena
