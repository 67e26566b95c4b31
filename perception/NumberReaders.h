#pragma once

/// The readers of numbers, for text where it stands in a message. The decoders call them;
/// SLangParser offers the first two for strings.

#include <string_view>

/// SLangParser::parseFirstDouble.
double firstDouble(std::string_view text);
/// SLangParser::parseFirstInt.
int firstInt(std::string_view text, int start);
/// What strtod reads at the front of TEXT, to the last bit.
double decimalAtFront(std::string_view text);
/// What strtol reads at the front of TEXT in base 10, cut to an int.
int integerAtFront(std::string_view text);
