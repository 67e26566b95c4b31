#pragma once

/// The player's readers that work on text where it stands, and the writers of numbers, held against
/// the plain ways to the same: strings, the C library, streams. Called by the target `reading`.

#include <string>

namespace fuzz {

/// TEXT as a list: the same tokens by views and by strings, and the same pieces.
void readListInPlace(const std::string& text);
/// The number at the front of TEXT: the same as the C library reads.
void readNumbersInPlace(const std::string& text);
/// VALUE: the same digits as a stream writes.
void writeNumber(double value);

}  // namespace fuzz
