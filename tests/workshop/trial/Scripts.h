#pragma once

/// Small scripts for trials, whose timing can be counted by hand.

#include <string>

#include "workshop/trial/ScriptFolder.h"

/// An action script of COUNT blocks that all ask the left shoulder for TARGET [rad].
inline std::string blocks(int count, const std::string& target = "0") {
  std::string text;
  for (int i = 0; i < count; ++i) text += "LShoulderPitchCommand " + target + "\nmove 0.04\n";
  return text;
}

/// A walk of which each script has its own number of blocks: start 10, loops 4 to 7, end 20.
inline void writeWalk(const workshop::ScriptFolder& folder) {
  folder.write("walkstart.txt", blocks(10));
  folder.write("walkloop1.txt", blocks(4));
  folder.write("walkloop2.txt", blocks(5));
  folder.write("walkloop3.txt", blocks(6));
  folder.write("walkloop4.txt", blocks(7));
  folder.write("walkend.txt", blocks(20));
  folder.write("turnL15.txt", blocks(3));
}
