#pragma once

/// The motion scripts that the players of the recorded match find in their working directory: real
/// files of every kind, but so small that each step can be told from every other on the link.

#include <string>
#include <vector>

struct MotionFile {
  std::string name;
  std::string content;
};

/// All scripts that a player knows; a team from the right finds neither "back.txt" nor "sideL.txt"
/// nor "kickL6.txt", so that missing files are on record too.
[[nodiscard]] std::vector<MotionFile> MotionFiles(bool complete);
