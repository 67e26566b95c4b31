#pragma once

/// The reading half of the team's talk: what a heard ball or opponent report would write into the
/// world model. parseHearMessage stands before it with its gate.

#include <string>

/// TEXT is "|,unum,x,y,d" (ball report), "~,k,x,y" (opponent report), or anything else, which is
/// left alone. Returns 102 for a number out of range, otherwise 0.
int applyHeardReport(const std::string& text);
