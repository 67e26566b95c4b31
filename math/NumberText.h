#pragma once

/// Numbers as text on the link: the digits that a standard output stream would write, without the
/// stream. Whoever puts a message together calls it.

#include <string>

/// In a stream's default format: six significant digits, the shorter of fixed and scientific.
void appendShort(std::string& text, double value);
/// With so many DECIMALS, at most 90: there is room for the largest double and them.
void appendFixed(std::string& text, double value, int decimals);
